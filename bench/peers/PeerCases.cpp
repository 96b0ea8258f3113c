#include "PeerCases.h"

namespace vantix::bench {

std::vector<Case> AllCases() {
    std::vector<Case> all = RequestPeers();
    const std::vector<Case> parsing = ParsePeers();
    all.insert(all.end(), parsing.begin(), parsing.end());
    return all;
}

std::vector<OneShot> AllOneShots() { return {}; }

}  // namespace vantix::bench
