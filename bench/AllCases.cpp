#include "Cases.h"

namespace vantix::bench {
namespace {

template <class Row>
std::vector<Row> Joined(std::initializer_list<std::vector<Row>> lists) {
    std::vector<Row> all;
    for (const std::vector<Row>& some : lists) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

}  // namespace

std::vector<Case> AllCases() {
    return Joined({RequestCases(), RequestFloors(), ParseCases(), ParseFloors(), CacheCases(), CacheFloors(),
                   LogCases(), AsyncCases()});
}

std::vector<OneShot> AllOneShots() { return Joined({RequestRuns(), ThreadRuns(), PrefetchRuns(), MemoryRuns()}); }

}  // namespace vantix::bench
