#pragma once

#include <string>

#include "core/Names.h"
#include "core/Rules.h"
#include "support/Operations.h"

namespace vantix::fuzz {

/// What the host has set, and what follows from it for a request.
struct HostState {
    int mode = 0;
    const B2CText* b2c = &kB2CTexts[0];
    const TkText* tk = &kTkTexts[0];
    std::string globalTk;
    std::string sharedAccessToken;

    bool IsSharedChannel(const std::string& serial, int ch) const;
    bool IsSharedToken(const std::string& token, const std::string& accessToken) const;
    std::string TokenOfChannel(const std::string& serial, int ch) const;
    std::string TkToken(Sends kind, const std::string& serial, int ch) const;

    /// Whether an operation's requests are those of the consumer servers.
    bool IsConsumer(const OperationRule& rule, const test::Arguments& arguments, const std::string& accessToken) const;
    /// Where its requests of the platform's form go.
    std::string Domain(const OperationRule& rule, const test::Arguments& arguments,
                       const std::string& accessToken) const;
    bool SendsInThisMode(const OperationRule& rule) const;
};

/// The channel that an operation is about: some are about a whole device.
int ChannelOf(const OperationRule& rule, const test::Arguments& arguments);

}  // namespace vantix::fuzz
