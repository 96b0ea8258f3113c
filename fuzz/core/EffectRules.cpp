// What holds after each operation of a run.

#include <algorithm>

#include "Fuzzer.h"
#include "core/CoreRun.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

bool IsOneOf(int slot, std::initializer_list<int> slots) {
    return std::find(slots.begin(), slots.end(), slot) != slots.end();
}

}  // namespace

/// Only a detail that a server sent changes the caches of details; a failed transfer changes no output.
void CoreRun::RequireEffects(const test::CallResult& call, const test::Outputs& outputs,
                             const std::vector<std::string>& before) {
    const OperationRule& rule = *m_rule;
    const bool mayChange = rule.caches == Caches::Edits || (rule.caches == Caches::Stores && m_mayStoreDetail);
    Require(mayChange || DetailCaches() == before);
    if (m_requests == 0 || m_failed != m_requests) {
        return;
    }
    Require(call.result != 0 || IsOneOf(rule.slot, {7, 39}));  // a question, and a fetch ahead of time
    Require(outputs.text == kUnchanged || IsOneOf(rule.slot, {36, 72}));
}

/// A record that came without a request is one that a server sent.
void CoreRun::RequireServedRecord(const test::CallResult& call, const test::Outputs& outputs) {
    const int slot = m_rule->slot;
    if (m_requests != 0 || call.result != 0) {
        return;
    }
    const std::string& serial = m_arguments.serial;
    if (IsOneOf(slot, {4, 5, 8, 68})) {
        Require(m_book.HasSent("detail", serial, outputs.detail.deviceIP));
        Require(outputs.detail.isFromCache && outputs.detail.iRequestCost == 0);
    } else if (slot == 55) {
        Require(m_book.HasSent("detail", serial, outputs.detail.deviceIP));
    } else if (IsOneOf(slot, {9, 11})) {
        Require(m_book.HasSent("servers", "", outputs.servers.vtmAddr) && outputs.servers.iRequestCost == 0);
    } else if (IsOneOf(slot, {23, 24, 25})) {
        Require(m_book.HasSent("user", "", outputs.user.userId) && outputs.user.iRequestCost == 0);
    } else if (IsOneOf(slot, {26, 27, 28, 29})) {
        Require(m_book.HasSent("P2P", serial, outputs.p2pDevice.defaultKey) && outputs.p2pDevice.iRequestCost == 0);
    }
}

/// A stream token is one that a server sent, and is handed out once.
void CoreRun::RequireStreamToken(const test::CallResult& call, const test::Outputs& outputs) {
    if (call.result != 0) {
        return;
    }
    if (m_rule->slot == 37) {
        Require(m_book.TakeToken(outputs.text));
    } else if (m_rule->slot == 38) {
        Require(m_book.TakeTokenResponse(outputs.buffer.data()));
    }
}

}  // namespace vantix::fuzz
