// Slots 60 to 108: tokens, modes, domains, credentials and switches.

#include "boundary/CVantixDataCenterWrapper.h"
#include "boundary/NoThrow.h"
#include "core/CVantixDataCenter.h"

namespace vantix {
namespace {

/// What a getter refers to when the core could not choose. Empty texts own no memory, so nothing is left at exit.
const std::string kNoText;

}  // namespace

void CVantixDataCenterWrapper::SetDeviceTkTokens(const std::string& json) {
    NoThrow([&] { core->SetDeviceTkTokens(json); });
}

std::string& CVantixDataCenterWrapper::getDeviceTkTokensByText(std::string& token, int tkType,
                                                               const std::string& serial, const std::string& ch) {
    return NoThrowInto(token, [&] { return core->getDeviceTkTokens(tkType, serial, ch); });
}

std::string& CVantixDataCenterWrapper::getDeviceTkTokensByNumber(std::string& token, int tkType,
                                                                 const std::string& serial, int ch) {
    return NoThrowInto(token, [&] { return core->getDeviceTkTokens(tkType, serial, ch); });
}

void CVantixDataCenterWrapper::setGlobalTkToken(const std::string& token) {
    NoThrow([&] { core->setGlobalTkToken(token); });
}

const std::string& CVantixDataCenterWrapper::getGlobalTkToken() { return core->getGlobalTkToken(); }

void CVantixDataCenterWrapper::setPermissionMode(const int& mode) {
    NoThrow([&] { core->setPermissionMode(mode); });
}

const int* CVantixDataCenterWrapper::getPermissionMode() { return core->getPermissionMode(); }

int CVantixDataCenterWrapper::SetDevInfoCache(const std::string& serial, int ch) {
    return NoThrow([&] { return core->SetDevInfoCache(serial, ch); }, VANTIX_ERROR);
}

int CVantixDataCenterWrapper::getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                              DevDetailInfo& detail) {
    return NoThrow([&] { return core->getDevInfoCache(serial, ch, channelInfo, detail); }, VANTIX_ERROR);
}

void CVantixDataCenterWrapper::setCloseP2P(int close) {
    NoThrow([&] { core->setCloseP2P(close); });
}

bool CVantixDataCenterWrapper::isOpenP2P() {
    return NoThrow([&] { return core->isOpenP2P(); }, false);
}

bool CVantixDataCenterWrapper::isVTDUType1() {
    return NoThrow([&] { return core->isVTDUType1(); }, false);
}

int CVantixDataCenterWrapper::RefreshSession(const std::string& refreshSessionId, std::string& newSession) {
    return NoThrow([&] { return core->RefreshSession(refreshSessionId, newSession); }, VANTIX_ERROR);
}

void CVantixDataCenterWrapper::setDomain(const std::string& bDomain, const std::string& cDomain) {
    NoThrow([&] { core->setDomain(bDomain, cDomain); });
}

const std::string& CVantixDataCenterWrapper::getDomain(const std::string& serial, int ch) {
    return *NoThrow([&] { return &core->getDomain(serial, ch); }, &kNoText);
}

const std::string& CVantixDataCenterWrapper::getDomainByToken(const std::string& token) {
    return *NoThrow([&] { return &core->getDomainByToken(token); }, &kNoText);
}

void CVantixDataCenterWrapper::setAuthAddr(const std::string& addr) {
    NoThrow([&] { core->setAuthAddr(addr); });
}

const std::string& CVantixDataCenterWrapper::getAuthAddr() { return core->getAuthAddr(); }

void CVantixDataCenterWrapper::setAppId(const std::string& appId) {
    NoThrow([&] { core->setAppId(appId); });
}

std::string& CVantixDataCenterWrapper::getAppId(std::string& appId) {
    return NoThrowInto(appId, [&] { return core->getAppId(); });
}

void CVantixDataCenterWrapper::setAccessToken(const std::string& token) {
    NoThrow([&] { core->setAccessToken(token); });
}

const std::string& CVantixDataCenterWrapper::getAccessToken() { return core->getAccessToken(); }

void CVantixDataCenterWrapper::setTokenExpireTime(const std::string& text) {
    NoThrow([&] { core->setTokenExpireTime(text); });
}

const std::string& CVantixDataCenterWrapper::getTokenExpireTime() { return core->getTokenExpireTime(); }

void CVantixDataCenterWrapper::setRefreshToken(const std::string& token) {
    NoThrow([&] { core->setRefreshToken(token); });
}

const std::string& CVantixDataCenterWrapper::getRefreshToken() { return core->getRefreshToken(); }

void CVantixDataCenterWrapper::setOpenID(const std::string& openId) {
    NoThrow([&] { core->setOpenID(openId); });
}

const std::string& CVantixDataCenterWrapper::getOpenID() { return core->getOpenID(); }

void CVantixDataCenterWrapper::setScope(const std::string& scope) {
    NoThrow([&] { core->setScope(scope); });
}

const std::string& CVantixDataCenterWrapper::getScope() { return core->getScope(); }

void CVantixDataCenterWrapper::setState(const std::string& state) {
    NoThrow([&] { core->setState(state); });
}

const std::string& CVantixDataCenterWrapper::getState() { return core->getState(); }

void CVantixDataCenterWrapper::setCacheTime(int minutes) {
    NoThrow([&] { core->setCacheTime(minutes); });
}

int CVantixDataCenterWrapper::getCacheTime() {
    return NoThrow([&] { return core->getCacheTime(); }, VANTIX_ERROR);
}

void CVantixDataCenterWrapper::setLogLevel(int level) {
    NoThrow([&] { core->setLogLevel(level); });
}

int CVantixDataCenterWrapper::getLogLevel() {
    return NoThrow([&] { return core->getLogLevel(); }, VANTIX_ERROR);
}

void CVantixDataCenterWrapper::setDataUtf8(int iDataUtf8) {
    NoThrow([&] { core->setDataUtf8(iDataUtf8); });
}

bool CVantixDataCenterWrapper::isDataUtf8() {
    return NoThrow([&] { return core->isDataUtf8(); }, false);
}

void CVantixDataCenterWrapper::setCloseBelongSerial(int close) {
    NoThrow([&] { core->setCloseBelongSerial(close); });
}

bool CVantixDataCenterWrapper::isCloseBelongSerial() {
    return NoThrow([&] { return core->isCloseBelongSerial(); }, false);
}

void CVantixDataCenterWrapper::SetB2CTokens(const std::string& json) {
    NoThrow([&] { core->SetB2CTokens(json); });
}

std::string& CVantixDataCenterWrapper::getB2CTokensByNumber(const std::string& serial, int ch, std::string& token) {
    return NoThrowInto(token, [&] { return core->getB2CTokens(serial, ch); });
}

std::string& CVantixDataCenterWrapper::getB2CTokensByText(const std::string& serial, const std::string& ch,
                                                          std::string& token) {
    return NoThrowInto(token, [&] { return core->getB2CTokens(serial, ch); });
}

bool CVantixDataCenterWrapper::isB2CSharedToken(const std::string& token) {
    return NoThrow([&] { return core->isB2CSharedDevice(token); }, false);
}

bool CVantixDataCenterWrapper::isB2CSharedChannel(const std::string& serial, int ch) {
    return NoThrow([&] { return core->isB2CSharedDevice(serial, ch); }, false);
}

void CVantixDataCenterWrapper::setSharedAccessToken(const std::string& token) {
    NoThrow([&] { core->setSharedAccessToken(token); });
}

const std::string& CVantixDataCenterWrapper::getSharedAccessToken() { return core->getSharedAccessToken(); }

void CVantixDataCenterWrapper::setSessionId(const std::string& sessionId) {
    NoThrow([&] { core->setSessionId(sessionId); });
}

const std::string& CVantixDataCenterWrapper::getSessionId() { return core->getSessionId(); }

}  // namespace vantix
