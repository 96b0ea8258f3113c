#include "soak/Codes.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

namespace vantix::test {
namespace {

/// Results of an operation besides 0, when every request succeeds.
struct OwnResults {
    int slot = 0;
    bool isZeroToo = false;
    std::initializer_list<int> results;
};

constexpr OwnResults kOwn[] = {
    {7, false, {1}},         // all devices download over the third version
    {8, true, {-1}},         // what was fetched names no release, or another caller has cleared the cache
    {30, true, {-1, 1, 2}},  // what is cached, or nothing
    {36, true, {-1}},        // no request in the small-permission mode
    {37, true, {-1}},        // the same
    {38, true, {-1}},        // nothing was prefetched for this token
    {53, true, {1}},        {54, true, {1}},          {55, true, {-1}}, {56, true, {-1}},
    {67, true, {-1}},       {68, true, {-1, 600001}},  // a record of the consumer servers names no release
    {70, true, {1}},        {71, true, {1}},          {72, true, {-1}},  // in the B2C mode alone
    {93, true, {60, 120}},  {95, false, {3, 6}},      {97, true, {1}},  {99, true, {1}},
    {103, true, {1}},       {104, true, {1}},
};

/// What every operation that sends requests returns for the faults of the table.
constexpr int kOfFaults[] = {
    100001,  // something else than HTTP
    100018,  // a body that ends early
    100052,  // an end without a response
    100055,  // a reset
    100056,  // a reset
    300001,  // not JSON
    300002,  // malformed
    300401, 310002, 320018, 349999, 350000,
};

/// What some of them return besides. An exception that ends an operation is -1 too: only those that have it as a result
/// of their own may return it.
struct FaultResult {
    int result = 0;
    std::initializer_list<int> slots;
};

constexpr FaultResult kOfSomeFaults[] = {
    {-1, {10, 12, 35}},  // no relay to hand out, twice; an expired token, which is not renewed there
    {0, {7}},            // not all devices download over the third version
    {1, {23, 24, 25}},   // the P2P user, from a text that is not JSON
};

bool Sends(int slot) {
    return slot <= 29 || (slot >= 32 && slot <= 37) || (slot >= 40 && slot <= 49) || (slot >= 57 && slot <= 59) ||
           slot == 72;
}

bool IsOwn(int slot, int result) {
    const auto* const row =
        std::find_if(std::begin(kOwn), std::end(kOwn), [slot](const OwnResults& own) { return own.slot == slot; });
    if (row == std::end(kOwn)) {
        return result == 0;
    }
    return (row->isZeroToo && result == 0) ||
           std::find(row->results.begin(), row->results.end(), result) != row->results.end();
}

bool IsOfFault(int slot, int result) {
    if (std::find(std::begin(kOfFaults), std::end(kOfFaults), result) != std::end(kOfFaults)) {
        return Sends(slot);
    }
    const auto* const row = std::find_if(std::begin(kOfSomeFaults), std::end(kOfSomeFaults),
                                         [result](const FaultResult& one) { return one.result == result; });
    return row != std::end(kOfSomeFaults) && std::find(row->slots.begin(), row->slots.end(), slot) != row->slots.end();
}

}  // namespace

Verdict Judged(int slot, int result, bool withFaults) {
    if (IsOwn(slot, result)) {
        return Verdict::Expected;
    }
    return withFaults && IsOfFault(slot, result) ? Verdict::OfFault : Verdict::Wrong;
}

}  // namespace vantix::test
