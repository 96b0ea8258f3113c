#pragma once

/// @file
/// Memory that runs out at any place of a parser.

#include <gtest/gtest.h>

#include <new>
#include <set>

#include "support/FailingNew.h"
#include "support/TestJson.h"

namespace vantix::test {

/// Calls `parse` with every allocation failing. It returns a code, writes into `record` when it does, and throws when
/// there is no memory. Every success must be `whole`, and so must the next call. Returns how many calls have thrown.
template <class Parse>
size_t ExpectWholeOrThrown(const Json& whole, Parse parse) {
    std::set<size_t> wrongCodes;  // by number of the allocation that failed
    std::set<size_t> holes;
    std::set<size_t> sticky;
    size_t thrown = 0;
    int code = 0;
    bool isThrown = false;
    Json record;
    const size_t allocations = WithEveryAllocationFailing(
        [&] {
            isThrown = false;
            try {
                code = parse(record);
            } catch (const std::bad_alloc&) {
                isThrown = true;
            }
        },
        [&](size_t n) {
            thrown += isThrown ? 1U : 0U;
            if (!isThrown && code != 0) {
                wrongCodes.insert(n);
            }
            if (!isThrown && record != whole) {
                holes.insert(n);
            }
            if (parse(record) != 0 || record != whole) {
                sticky.insert(n);
            }
        });
    EXPECT_EQ(wrongCodes, std::set<size_t>()) << "memory is no property of the response";
    EXPECT_EQ(holes, std::set<size_t>()) << "of " << allocations;
    EXPECT_EQ(sticky, std::set<size_t>());
    return thrown;
}

}  // namespace vantix::test
