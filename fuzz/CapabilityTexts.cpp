// Capabilities by number, from a device's short list: the first two bytes are the number, the rest is the list.

#include <cstdint>

#include "requests/CapabilityByNumber.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

unsigned TakeNumber(std::string_view& text) {
    unsigned number = 0;
    for (int i = 0; i < 2 && !text.empty(); ++i) {
        number = number * 256U + static_cast<uint8_t>(text.front());
        text.remove_prefix(1);
    }
    return number;
}

/// Values in front of a list move all others one further.
void ReadValues(const std::string& input) {
    std::string_view list = input;
    const unsigned number = TakeNumber(list);
    const int value = CapabilityByNumber(list, number);
    Require(value >= 0);
    if (number >= 1) {
        Require(CapabilityByNumber(std::string("7|").append(list), number + 1) == value);
    }
    Require(CapabilityByNumber(list, 4294967295U) == 0);
    Require(CapabilityByNumber(list, 1) == CapabilityByNumber(list.substr(0, list.find('|')), 1));
}

void ReadObject(const std::string& input) {
    std::string_view list = input;
    const unsigned number = TakeNumber(list);
    Require(CapabilityByNumber(list, number) >= 0);
    Require(CapabilityByNumber(R"({"149":"2",)" + std::string(list), 149) == 2);
}

constexpr Reader kRows[] = {
    {"values", ReadValues},
    {"object", InB2CMode<ReadObject>},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
