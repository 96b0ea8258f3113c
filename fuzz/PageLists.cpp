// The parsers of the consumer servers' page lists.

#include "cserver/DeviceDetail.h"
#include "cserver/Lists.h"
#include "cserver/P2P.h"
#include "json/JsonCppReader.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

constexpr char kSerial[] = "S60000006";

/// A channel of the result belongs to the device that was asked for.
void ReadChannels(const std::string& body) {
    std::vector<ConsumerChannel> channels;
    const int result = ParseDevDetailInfoFromCServer(body, kSerial, channels);
    Require(result == 0 || channels.empty());
}

void ReadP2PDevice(const std::string& body) {
    P2PDevInfo devInfo;
    devInfo.defaultKey = kUnchanged;
    const int result = ParseP2PDevInfoFromCServer(body, kSerial, devInfo);
    Require(result == 0 || (devInfo.defaultKey == kUnchanged && devInfo.serverInfos.empty()));
}

/// The list is in the platform's shape, whatever shape the response has.
void ReadSharedDevices(const std::string& body) {
    std::string list = kUnchanged;
    if (ParseB2CDeviceListFromPlatform(body, list) != 0) {
        Require(list == kUnchanged);
        return;
    }
    json::JsonCppDocument document;
    Require(document.ParseObjectStrictly(list));
    const json::JsonCppView result = document.Root().Member("result");
    std::string code;
    Require(result.Member("code").Read(code) && code == "200");
    Require(result.Member("data").Member("deviceInfos").IsArray());
}

constexpr Reader kRows[] = {
    {"device", ReadChannels},
    {"device in the B2C mode", InB2CMode<ReadChannels>},
    {"P2P device", ReadP2PDevice},
    {"shared devices", ReadSharedDevices},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
