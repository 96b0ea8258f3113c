#include "core/HostState.h"

#include <algorithm>

namespace vantix::fuzz {

bool HostState::IsSharedChannel(const std::string& serial, int ch) const {
    return mode == 2 && std::any_of(b2c->entries.begin(), b2c->entries.end(), [&](const B2CEntry& entry) {
               return entry.isShared && entry.serial == serial && entry.ch == ch;
           });
}

bool HostState::IsSharedToken(const std::string& token, const std::string& accessToken) const {
    if (mode != 2 || token == accessToken || token.empty()) {
        return false;
    }
    return token == sharedAccessToken ||
           std::any_of(b2c->entries.begin(), b2c->entries.end(),
                       [&](const B2CEntry& entry) { return entry.isShared && entry.token == token; });
}

std::string HostState::TokenOfChannel(const std::string& serial, int ch) const {
    for (const B2CEntry& entry : b2c->entries) {
        if (entry.serial == serial && entry.ch == ch) {
            return std::string(entry.token);
        }
    }
    return {};
}

std::string HostState::TkToken(Sends kind, const std::string& serial, int ch) const {
    if (kind == Sends::Tk1) {
        return globalTk;
    }
    for (const TkEntry& entry : tk->entries) {
        if (entry.serial == serial && entry.ch == ch) {
            return std::string(kind == Sends::Tk2 ? entry.ofDevice : entry.ofVideo);
        }
    }
    return {};
}

bool HostState::IsConsumer(const OperationRule& rule, const test::Arguments& arguments,
                           const std::string& accessToken) const {
    const int ch = ChannelOf(rule, arguments);
    switch (rule.consumer) {
        case Consumer::Never: break;
        case Consumer::SharedChannel: return IsSharedChannel(arguments.serial, ch);
        case Consumer::SharedToken: return IsSharedToken(arguments.token, accessToken);
        case Consumer::SharedTokenOfChannel: return IsSharedToken(TokenOfChannel(arguments.serial, ch), accessToken);
        case Consumer::Always: return true;
    }
    return false;
}

std::string HostState::Domain(const OperationRule& rule, const test::Arguments& arguments,
                              const std::string& accessToken) const {
    bool isShared = false;
    switch (rule.place) {
        case Place::Platform: break;
        case Place::Channel:
        case Place::FirstChannel: isShared = IsSharedChannel(arguments.serial, ChannelOf(rule, arguments)); break;
        case Place::Token: isShared = IsSharedToken(arguments.token, accessToken); break;
    }
    return isShared ? kCDomain : kBDomain;
}

bool HostState::SendsInThisMode(const OperationRule& rule) const {
    switch (rule.modes) {
        case Modes::All: break;
        case Modes::Ordinary: return mode != 1 && mode != 2;
        case Modes::B2C: return mode == 2;
        case Modes::NotSmall: return mode != 1;
    }
    return true;
}

int ChannelOf(const OperationRule& rule, const test::Arguments& arguments) {
    return rule.place == Place::FirstChannel ? 1 : arguments.ch;
}

}  // namespace vantix::fuzz
