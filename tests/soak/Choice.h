#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "soak/Account.h"
#include "support/Operations.h"

namespace vantix::test {

/// One call to make.
struct ChosenCall {
    const Operation* operation = nullptr;
    const Place* place = nullptr;
    Arguments arguments;
};

/// A series of calls of all operations, always the same for a seed. What setters are given leaves the account usable.
class Choice {
public:
    Choice(const Account& account, std::string picture, uint64_t seed);

    /// `logLevel` is what setLogLevel is to be called with.
    ChosenCall Next(int logLevel);

private:
    const Operation& NextOperation();
    bool IsForConsumer();
    uint64_t Below(uint64_t end) { return m_numbers() % end; }
    template <class List>
    const auto& OneOf(const List& list) {
        return list[static_cast<size_t>(Below(std::size(list)))];
    }
    std::string TokenFor(int slot, const Place& place);
    std::string TextFor(int slot, const Place& place);
    int NumberFor(int slot, int logLevel);

    const Account& m_account;
    std::string m_picture;
    std::mt19937_64 m_numbers;
};

}  // namespace vantix::test
