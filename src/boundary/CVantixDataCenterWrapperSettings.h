#pragma once

#include "boundary/NoThrow.h"
#include "core/CVantixDataCenter.h"
#include "vantix/IVantixDataCenter.h"

namespace vantix {

/// Slots 60 to 108 of a handle: tokens, modes, domains, credentials and switches.
class CVantixDataCenterWrapperSettings : public IVantixDataCenter {
public:
    // Device Tk tokens
    void SetDeviceTkTokens(const std::string& json) override {
        NoThrow([&] { core->SetDeviceTkTokens(json); });
    }
    std::string& getDeviceTkTokensByText(std::string& token, int tkType, const std::string& serial,
                                         const std::string& ch) override {
        return NoThrowInto(token, [&] { return core->getDeviceTkTokens(tkType, serial, ch); });
    }
    std::string& getDeviceTkTokensByNumber(std::string& token, int tkType, const std::string& serial, int ch) override {
        return NoThrowInto(token, [&] { return core->getDeviceTkTokens(tkType, serial, ch); });
    }
    void setGlobalTkToken(const std::string& token) override {
        NoThrow([&] { core->setGlobalTkToken(token); });
    }
    const std::string& getGlobalTkToken() override { return core->getGlobalTkToken(); }

    // Modes
    void setPermissionMode(const int& mode) override {
        NoThrow([&] { core->setPermissionMode(mode); });
    }
    const int* getPermissionMode() override { return core->getPermissionMode(); }
    int SetDevInfoCache(const std::string& serial, int ch) override {
        return Code([&] { return core->SetDevInfoCache(serial, ch); });
    }
    int getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                        DevDetailInfo& detail) override {
        return Code([&] { return core->getDevInfoCache(serial, ch, channelInfo, detail); });
    }
    void setCloseP2P(int close) override {
        NoThrow([&] { core->setCloseP2P(close); });
    }
    bool isOpenP2P() override {
        return NoThrow([&] { return core->isOpenP2P(); }, false);
    }
    bool isVTDUType1() override {
        return NoThrow([&] { return core->isVTDUType1(); }, false);
    }
    int RefreshSession(const std::string& refreshSessionId, std::string& newSession) override {
        return Code([&] { return core->RefreshSession(refreshSessionId, newSession); });
    }

    // Domains and credentials
    void setDomain(const std::string& bDomain, const std::string& cDomain) override {
        NoThrow([&] { core->setDomain(bDomain, cDomain); });
    }
    const std::string& getDomain(const std::string& serial, int ch) override {
        return *NoThrow([&] { return &core->getDomain(serial, ch); }, &kNoText);
    }
    const std::string& getDomainByToken(const std::string& token) override {
        return *NoThrow([&] { return &core->getDomainByToken(token); }, &kNoText);
    }
    void setAuthAddr(const std::string& addr) override {
        NoThrow([&] { core->setAuthAddr(addr); });
    }
    const std::string& getAuthAddr() override { return core->getAuthAddr(); }
    void setAppId(const std::string& appId) override {
        NoThrow([&] { core->setAppId(appId); });
    }
    std::string& getAppId(std::string& appId) override {
        return NoThrowInto(appId, [&] { return core->getAppId(); });
    }
    void setAccessToken(const std::string& token) override {
        NoThrow([&] { core->setAccessToken(token); });
    }
    const std::string& getAccessToken() override { return core->getAccessToken(); }
    void setTokenExpireTime(const std::string& text) override {
        NoThrow([&] { core->setTokenExpireTime(text); });
    }
    const std::string& getTokenExpireTime() override { return core->getTokenExpireTime(); }
    void setRefreshToken(const std::string& token) override {
        NoThrow([&] { core->setRefreshToken(token); });
    }
    const std::string& getRefreshToken() override { return core->getRefreshToken(); }
    void setOpenID(const std::string& openId) override {
        NoThrow([&] { core->setOpenID(openId); });
    }
    const std::string& getOpenID() override { return core->getOpenID(); }
    void setScope(const std::string& scope) override {
        NoThrow([&] { core->setScope(scope); });
    }
    const std::string& getScope() override { return core->getScope(); }
    void setState(const std::string& state) override {
        NoThrow([&] { core->setState(state); });
    }
    const std::string& getState() override { return core->getState(); }

    // Switches
    void setCacheTime(int minutes) override {
        NoThrow([&] { core->setCacheTime(minutes); });
    }
    int getCacheTime() override {
        return Code([&] { return core->getCacheTime(); });
    }
    void setLogLevel(int level) override {
        NoThrow([&] { core->setLogLevel(level); });
    }
    int getLogLevel() override {
        return Code([&] { return core->getLogLevel(); });
    }
    void setDataUtf8(int iDataUtf8) override {
        NoThrow([&] { core->setDataUtf8(iDataUtf8); });
    }
    bool isDataUtf8() override {
        return NoThrow([&] { return core->isDataUtf8(); }, false);
    }
    void setCloseBelongSerial(int close) override {
        NoThrow([&] { core->setCloseBelongSerial(close); });
    }
    bool isCloseBelongSerial() override {
        return NoThrow([&] { return core->isCloseBelongSerial(); }, false);
    }

    // B2C tokens and the consumer session
    void SetB2CTokens(const std::string& json) override {
        NoThrow([&] { core->SetB2CTokens(json); });
    }
    std::string& getB2CTokensByNumber(const std::string& serial, int ch, std::string& token) override {
        return NoThrowInto(token, [&] { return core->getB2CTokens(serial, ch); });
    }
    std::string& getB2CTokensByText(const std::string& serial, const std::string& ch, std::string& token) override {
        return NoThrowInto(token, [&] { return core->getB2CTokens(serial, ch); });
    }
    bool isB2CSharedToken(const std::string& token) override {
        return NoThrow([&] { return core->isB2CSharedDevice(token); }, false);
    }
    bool isB2CSharedChannel(const std::string& serial, int ch) override {
        return NoThrow([&] { return core->isB2CSharedDevice(serial, ch); }, false);
    }
    void setSharedAccessToken(const std::string& token) override {
        NoThrow([&] { core->setSharedAccessToken(token); });
    }
    const std::string& getSharedAccessToken() override { return core->getSharedAccessToken(); }
    void setSessionId(const std::string& sessionId) override {
        NoThrow([&] { core->setSessionId(sessionId); });
    }
    const std::string& getSessionId() override { return core->getSessionId(); }

protected:
    explicit CVantixDataCenterWrapperSettings(CVantixDataCenter* dataCenter) : core(dataCenter) {}

    CVantixDataCenter* core;  ///< Not owned.

private:
    /// What a getter refers to when the core throws. Empty texts own no memory, so nothing is left at exit.
    static inline const std::string kNoText;
};

}  // namespace vantix
