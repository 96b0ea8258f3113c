#pragma once

/// @file
/// Readers of a text into a record, with the rule that a refused text leaves the record as it was.

#include <string>

#include "Fuzzer.h"
#include "base/ProcessSwitches.h"

namespace vantix::fuzz {

inline constexpr char kUnchanged[] = "unchanged";

/// `Parse` reads a body into a text.
template <auto Parse>
void ReadText(const std::string& body) {
    std::string text = kUnchanged;
    Require(Parse(body, text) == 0 || text == kUnchanged);
}

/// `Parse` reads a body into a record; one text of it is watched.
template <auto Parse, class Record, std::string Record::*Member>
void ReadRecord(const std::string& body) {
    Record record{};
    record.*Member = kUnchanged;
    Require(Parse(body, record) == 0 || record.*Member == kUnchanged);
}

/// `Parse` appends to a list, or replaces it as a whole.
template <auto Parse, class List>
void ReadList(const std::string& body) {
    List list(1);
    Require(Parse(body, list) == 0 || list.size() == 1);
}

/// `Check` looks at a body only.
template <auto Check>
void ReadCode(const std::string& body) {
    static_cast<void>(Check(body));
}

/// The same reader in the B2C mode, in which capability lists may be JSON.
template <void (*Read)(const std::string& body)>
void InB2CMode(const std::string& body) {
    bB2CMode = true;
    Read(body);
    bB2CMode = false;
}

}  // namespace vantix::fuzz
