#include "Tour.h"

#include <vantix/records/DevChannelInfo.h>
#include <vantix/records/DevDetailInfo.h>
#include <vantix/records/DeviceList.h>
#include <vantix/records/P2PDevInfo.h>
#include <vantix/records/ServerInfo.h>

#include <algorithm>

#include "DetailTable.h"
#include "records/RecordJson.h"

namespace vantix::ctl {
namespace {

constexpr const char* kCamera = "C10000001";
constexpr const char* kOldCamera = "V40000004";
constexpr const char* kUnknownCamera = "X99999999";
constexpr const char* kUnreachableServer = "https://127.0.0.1:1";
constexpr int kChannel = 1;
constexpr int kPageSize = 20;
constexpr int kFastForward = 4;
constexpr int32_t kNoSuchDevice = 320002;
constexpr int32_t kConnectionRefused = 100007;

SessionChoice OnThisMachine(SessionChoice choice) {
    choice.configuration = {};
    return choice;
}

std::string CallText(const std::string& operation, const std::string& serial) {
    return operation + "(" + serial + ", " + std::to_string(kChannel) + ")";
}

std::string Mark(bool yes) { return yes ? "✓\u00A0" : "✗\u00A0"; }

}  // namespace

std::string Tour::Token() const { return m_session.AppliedConfiguration().Get("access-token"); }

Tour::Tour(const SessionChoice& choice) : m_session(OnThisMachine(choice)) {}

bool Tour::Succeeded() const {
    return std::all_of(m_steps.begin(), m_steps.end(), [](const Step& step) { return step.asExpected; });
}

void Tour::Run() {
    BeginSection("set up");
    Configure();
    BeginSection("fetch and cache");
    Fetch("Fetch the detail of a channel", kCamera, {VANTIX_ERROR, 0}, "nothing cached yet, so a fetch runs");
    Fetch("Ask for it again", kCamera, {0, std::nullopt}, "served from the cache; no request, no future");
    Mark();
    Fetch("Ask for it once more", kCamera, {0, 0}, "returns the cached copy; the future fetches a new one");
    ReadCapabilities();
    Clear();
    ReadCache("Read the empty cache", kCamera, VANTIX_ERROR, "a miss; this operation sends no request");
    BeginSection("other data of the account");
    ListDevices();
    GetServers();
    GetP2PServers();
    GetStreamTokens();
    BeginSection("failures");
    Fetch("Ask for an unknown device", kUnknownCamera, {VANTIX_ERROR, kNoSuchDevice},
          "the platform refuses the request");
    Fetch("Ask for a camera of an old release", kOldCamera, {VANTIX_ERROR, 0}, "fetched like any other");
    ReadCache("Read that camera from the cache", kOldCamera, VANTIX_DEV_RELEASE_MISMATCH,
              "only VERSION_17 is served from the cache");
    FetchFromUnreachableServer();
}

Step& Tour::Add(std::string title, std::string call, std::string remark) {
    Step step;
    step.section = m_section;
    step.title = std::move(title);
    step.call = std::move(call);
    step.remark = std::move(remark);
    return m_steps.emplace_back(std::move(step));
}

void Tour::Configure() {
    const std::string& platform = m_session.AppliedConfiguration().Get("b-domain");
    Step& step = Add("Configure the data center", "setDomain, setAppId, setAccessToken", "the cloud is at " + platform);
    step.asExpected = !platform.empty() && m_session.Center().getDomain(kCamera, kChannel) == platform;
}

void Tour::Fetch(const std::string& title, const std::string& serial, const Expected& expected,
                 const std::string& remark) {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::future<int32_t> future;
    Step& step = Add(title, CallText("getDevDetailInfo", serial), remark);
    step.takesFuture = true;
    step.returned = m_session.Center().getDevDetailInfo(serial, kChannel, channel, device, future);
    if (future.valid()) {
        step.future = future.get();
    }
    step.cost = device.iRequestCost;
    step.asExpected = step.returned == expected.returned && step.future == expected.future;
    if (step.future == VANTIX_NOERROR) {
        bool filled = false;
        const Json detail = {{"channel", ToJson(channel)}, {"device", ToJson(device)}};
        step.remark += FillPattern("; it is {device.deviceStatus:online} at {device.deviceIP}, {device.releaseVersion}",
                                   detail, false, filled);
    }
}

void Tour::ReadCache(const std::string& title, const std::string& serial, int32_t expected, const std::string& remark) {
    DevChannelInfo channel;
    DevDetailInfo device;
    Step& step = Add(title, CallText("getDevInfoCache", serial), remark);
    step.returned = m_session.Center().getDevInfoCache(serial, kChannel, channel, device);
    step.asExpected = step.returned == expected;
}

void Tour::Mark() {
    Step& step = Add("Mark it for update", CallText("SetDevInfoCache", kCamera), "stale from now on");
    step.returned = m_session.Center().SetDevInfoCache(kCamera, kChannel);
    step.asExpected = step.returned == VANTIX_NOERROR;
}

void Tour::ReadCapabilities() {
    const bool seeks = m_session.Center().IsSupportSeekPlayback(kCamera) == 1;
    const bool isFast = m_session.Center().IsSupportPlaybackSpeed(kCamera, kFastForward) == 1;
    Step& step = Add("Read its capabilities", "IsSupportSeekPlayback, IsSupportPlaybackSpeed",
                     ctl::Mark(seeks) + "seeks in recordings  " + ctl::Mark(isFast) + "plays them fast");
    step.asExpected = seeks && isFast;
}

void Tour::Clear() {
    Step& step = Add("Clear the caches", "ClearAllCache()", "all caches are empty, the settings stay");
    step.returned = m_session.Center().ClearAllCache();
    step.asExpected = step.returned == VANTIX_NOERROR;
}

void Tour::ListDevices() {
    DeviceList list;
    Step& step = Add("List the devices", "getDevList(0, 20)", {});
    step.returned = m_session.Center().getDevList(0, kPageSize, list);
    step.remark = std::to_string(list.total) + " devices, " + std::to_string(list.devices.size()) + " channels";
    step.asExpected = step.returned == VANTIX_NOERROR && !list.devices.empty();
}

void Tour::GetServers() {
    ServerInfo servers;
    Step& step = Add("Get the servers", "getServerInfoSync(token)", {});
    step.returned = m_session.Center().getServerInfoSync(Token(), servers);
    step.cost = servers.iRequestCost;
    step.remark =
        "the video relays are " + servers.vtmAddr + " and " + std::to_string(servers.vtmBackups.size()) + " more";
    step.asExpected = step.returned == VANTIX_NOERROR && !servers.vtmAddr.empty();
}

void Tour::GetP2PServers() {
    P2PDevInfo device;
    Step& step =
        Add("Get the P2P servers of a device", std::string("getP2PDevInfoBySerial(token, ") + kCamera + ")", {});
    step.returned = m_session.Center().getP2PDevInfoBySerial(device, Token(), kCamera);
    step.cost = device.iRequestCost;
    step.remark = std::to_string(device.serverInfos.size()) + " servers  " + ctl::Mark(device.strV3Download == "1") +
                  "downloads over P2P version 3";
    step.asExpected = step.returned == VANTIX_NOERROR && !device.serverInfos.empty();
}

void Tour::GetStreamTokens() {
    std::string first;
    std::string second;
    Step& step = Add("Get two stream tokens", "getOneStreamToken(token)",
                     "one request returns a batch; the second token comes from the queue");
    step.returned = m_session.Center().getOneStreamToken(Token(), first);
    step.asExpected = step.returned == VANTIX_NOERROR &&
                      m_session.Center().getOneStreamToken(Token(), second) == VANTIX_NOERROR && first != second;
}

void Tour::FetchFromUnreachableServer() {
    m_session.Center().setDomain(kUnreachableServer, {});
    Fetch("Ask an unreachable server", kCamera, {VANTIX_ERROR, kConnectionRefused}, "nothing listens at that address");
    m_session.Center().setDomain(m_session.AppliedConfiguration().Get("b-domain"), {});
}

}  // namespace vantix::ctl
