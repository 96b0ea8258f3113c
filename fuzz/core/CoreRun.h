#pragma once

#include <string>
#include <vector>

#include "boundary/CVantixDataCenterWrapper.h"
#include "core/Book.h"
#include "core/CVantixDataCenter.h"
#include "core/HostState.h"
#include "support/Inputs.h"

namespace vantix::fuzz {

/// Prints a step of a run when VANTIX_FUZZ_TRACE is in the environment, to understand a finding.
void Trace(const std::string& text);

/// One core from its first setting to its end: the input says what the host does and what the servers respond, and
/// after each step the rules of docs/ must hold.
class CoreRun {
public:
    explicit CoreRun(const std::string& text);
    ~CoreRun();
    CoreRun(const CoreRun&) = delete;
    CoreRun& operator=(const CoreRun&) = delete;

    void RunAll();

private:
    void ChangeSetting(uint8_t choice);
    void SetTokens(uint8_t choice, uint8_t value);
    void SetNumbers(uint8_t choice, uint8_t value);
    void RunOperation(const OperationRule& rule);

    TransferResult Respond(const SentRequest& request);
    void RequireConsumerRequest(const SentRequest& request);
    void RequirePlatformRequest(const SentRequest& request);
    void RequireRenewal(const SentRequest& request);
    void RequireCredential(const SentRequest& request);

    void RequireEffects(const test::CallResult& call, const test::Outputs& outputs,
                        const std::vector<std::string>& before);
    void RequireServedRecord(const test::CallResult& call, const test::Outputs& outputs);
    void RequireStreamToken(const test::CallResult& call, const test::Outputs& outputs);
    /// What the caches of device details hold.
    std::vector<std::string> DetailCaches();

    Input m_input;
    CVantixDataCenter m_core;
    CVantixDataCenterWrapper m_handle{&m_core};
    HostState m_state;
    Book m_book;
    int m_stamp = 0;

    // Of the operation under way.
    const OperationRule* m_rule = nullptr;
    test::Arguments m_arguments;
    std::string m_accessTokenBefore;
    size_t m_requests = 0;
    size_t m_failed = 0;
    bool m_mayStoreDetail = false;
    bool m_isRenewed = false;
};

}  // namespace vantix::fuzz
