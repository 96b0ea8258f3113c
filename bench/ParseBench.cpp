// Responses read into records, as the request functions do it.

#include <optional>
#include <string>

#include "Cases.h"
#include "Center.h"
#include "DetailResponse.h"
#include "Responses.h"
#include "cserver/DeviceDetail.h"
#include "platform/DeviceDetailParser.h"
#include "platform/Lists.h"
#include "platform/Recordings.h"
#include "platform/Server.h"

namespace vantix::bench {
namespace {

constexpr char kRecorder[] = "R20000000";

template <std::string (*Make)()>
const std::string& Text() {
    static const std::string text = Make();
    return text;
}

std::string Detail() { return DetailResponse("C10000000"); }
std::string Page() { return ConsumerPage(kRecorder); }

template <std::string (*Make)()>
void Prepare() {
    Text<Make>();
    Center().setLogLevel(kQuiet);
}

void ReadDetail() {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
    Require(ParseDevDetailInfoFromPlatform(Text<Detail>(), channel, device, parent) == 0 && parent &&
                device.support_ptz == 1,
            "the detail could not be read");
}

void ReadPage() {
    std::vector<ConsumerChannel> channels;
    Require(ParseDevDetailInfoFromCServer(Text<Page>(), kRecorder, channels) == 0 && channels.size() == 64,
            "the page could not be read");
}

void ReadDeviceList() {
    DeviceList list;
    Require(ParseDeviceListFromPlatform(Text<DeviceListResponse>(), list) == 0 && list.devices.size() == 200,
            "the device list could not be read");
}

void ReadServers() {
    ServerInfo servers;
    Require(
        ParseServerInfoFromPlatform(Text<ServerInformationResponse>(), servers) == 0 && servers.vtmBackups.size() == 2,
        "the server information could not be read");
}

void ReadRecordings() {
    RecordFileList list;
    Require(ParseLocalDeviceRecordFile(Text<RecordingsResponse>(), list) == 0 && list.files.size() == 1000,
            "the recordings could not be read");
}

}  // namespace

std::vector<Case> ParseCases() {
    return {
        MakeCase<Prepare<Detail>, ReadDetail>("parse/detail", kSomeRounds),
        MakeCase<Prepare<Page>, ReadPage>("parse/consumer_page", kFewRounds),
        MakeCase<Prepare<DeviceListResponse>, ReadDeviceList>("parse/device_list", kFewRounds),
        MakeCase<Prepare<ServerInformationResponse>, ReadServers>("parse/server_information", kSomeRounds),
        MakeCase<Prepare<RecordingsResponse>, ReadRecordings>("parse/recordings", kFewRounds),
    };
}

}  // namespace vantix::bench
