// Responses that are JSON of the wrong shape, or nearly JSON. What each parser makes of each member stands with the
// parsers' own tests.

#include "faults/FaultRow.h"

namespace vantix::test {
namespace {

/// A body that need not be UTF-8.
Json Bytes(const std::string& body) { return {{"bytes", body}}; }

FaultRow Refused(const std::string& name, const Json& script, int result) {
    return {.name = name, .script = script, .outcome = {.result = result}};
}

std::vector<FaultRow> RootRows() {
    return {
        Refused("RootArray", {{"body", "[]"}}, 300002),
        Refused("RootNull", {{"body", "null"}}, 300002),
        Refused("RootNumber", {{"body", "42"}}, 300002),
        Refused("RootText", {{"body", "\"text\""}}, 300002),
        Refused("RootTrue", {{"body", "true"}}, 300002),
        Refused("RootEmptyObject", {{"body", "{}"}}, 300002),
        Refused("Blank", {{"body", " "}}, 300001),
        Refused("Html", {{"body", "<!DOCTYPE html><html></html>"}}, 300001),
        Refused("ByteOrderMark", {{"body", "\xEF\xBB\xBF$body"}}, 300001),
        Refused("RawNul", Bytes(std::string("{\"result\":\0{}}", 14)), 300001),
        Refused("HalfOfIt", {{"body", "$half"}}, 300001),
        Refused("NotANumber", {{"body", R"({"meta":{"code":NaN},"result":{"code":NaN}})"}}, 300001),
        Refused("ThousandLevels", {{"body", std::string(1001, '[') + std::string(1001, ']')}}, 300001),
        Refused("HundredThousandLevels", {{"body", std::string(100'000, '[')}}, 300001),
        // The platform's details are read strictly; the consumer servers' reader stops at the end of the root.
        {.name = "TrailingGarbage",
         .script = {{"body", "$bodyx"}},
         .outcome = {.result = 300001},
         .consumer = Outcome{}},
        {.name = "LevelsBelow999",
         .script = {{"body", std::string(999, '[') + std::string(999, ']')}},
         .outcome = {.result = 300001},
         .consumer = Outcome{.result = 300002}},
    };
}

/// A response of the platform with this data.
std::string Data(const std::string& data) { return R"({"result":{"code":"200","data":)" + data + "}}"; }

FaultRow Platform(const std::string& name, const std::string& body, int result) {
    return {.name = name, .families = {Family::kPlatform}, .script = Bytes(body), .outcome = {.result = result}};
}

/// A device with these members besides its serial.
FaultRow Device(const std::string& name, const std::string& members) {
    return Platform(
        name,
        Data(R"({"camera":{},"device":{"deviceSerial":"$serial","releaseVersion":"VERSION_17",)" + members + "}}"), 0);
}

std::vector<FaultRow> PlatformRows() {
    return {
        Platform("ResultIsText", R"({"result":"200"})", 300002),
        Platform("ResultIsNull", R"({"result":null})", 300002),
        Platform("ResultIsArray", R"({"result":[{"code":"200"}]})", 300002),
        Platform("CodeIsObject", R"({"result":{"code":{}}})", 300002),
        Platform("CodeIsNull", R"({"result":{"code":null}})", 300002),
        Platform("CodeIsNegative", R"({"result":{"code":"-7"}})", 300002),
        Platform("CodeLeaves32Bits", R"({"result":{"code":"2147483647"}})", 300002),
        Platform("DataIsText", Data("\"x\""), 300002),
        Platform("DataIsNumber", Data("1"), 300002),
        Platform("DataIsNull", Data("null"), 300002),
        Device("EveryTextIsANumber", R"("deviceIP":1,"publicKey":2,"supportExtShort":3,"belongSerial":4)"),
        Device("EveryNumberIsAText", R"("devicePort":"1","deviceStatus":"1","isEncrypt":"1")"),
        Device("NumbersBeyondTheirRange", R"("devicePort":2147483648,"cmdPort":-1e20,"httpPort":1e400)"),
        Device("NestedTextIsNoJson", R"("supportExt":"{","qxDeviceSupportExt":"no","belongDevice":"[1]")"),
        Device("NestedMembersAreArrays", R"("supportExt":[],"qxDeviceSupportExt":[],"belongDevice":[])"),
        Device("NestedMembersAreNull", R"("supportExt":null,"qxDeviceSupportExt":null,"belongDevice":null)"),
        Device("CapabilitiesAreNumbers", R"("supportExt":{"support_ptz":1,"support_seek_v2":true})"),
        Device("ListsAreObjects", R"("vtmBackups":{"ip":"203.0.113.1"})"),
        Device("DuplicateKeys", R"("devicePort":1,"devicePort":2)"),
        Device("EscapedNul", "\"deviceIP\":\"a\\u0000b\""),
        Device("BrokenUtf8", "\"deviceIP\":\"a\xC3(b\xFF\""),
        Device("FormatsInTexts", R"("deviceIP":"%s%s%s%n%n","publicKey":"%.9999999d")"),
    };
}

FaultRow Consumer(const std::string& name, const std::string& body, int result) {
    return {.name = name, .families = {Family::kConsumer}, .script = Bytes(body), .outcome = {.result = result}};
}

/// A device and a camera with these members besides their serial.
FaultRow Lists(const std::string& name, const std::string& camera, const std::string& device) {
    return Consumer(name,
                    R"({"meta":{"code":200},"cameraInfos":[{"channelNo":1,"deviceSerial":"S60000006",)" + camera +
                        R"(}],"deviceInfos":[{"deviceSerial":"S60000006",)" + device + "}]}",
                    0);
}

std::vector<FaultRow> ConsumerRows() {
    return {
        Consumer("ListsAreMissing", R"({"meta":{"code":200}})", 300002),
        Consumer("CamerasAreAnObject", R"({"meta":{"code":200},"cameraInfos":{},"deviceInfos":[]})", 300002),
        Consumer("DevicesAreText", R"({"meta":{"code":200},"cameraInfos":[],"deviceInfos":"[]"})", 300002),
        Consumer("ListsAreEmpty", R"({"meta":{"code":200},"cameraInfos":[],"deviceInfos":[]})", 300002),
        Consumer("MetaIsNegative", R"({"meta":{"code":-7}})", 300002),
        Consumer("MetaLeaves32Bits", R"({"meta":{"code":2147483647}})", 300002),
        Consumer("MetaIsAnotherCode", R"({"meta":{"code":20002}})", 320002),
        Lists("ConsumerTextsAreNumbers", R"("cameraId":5,"streamBizUrl":[])", R"("supportExt":7,"isOwner":"1")"),
        Lists("ConsumerNumbersAreTexts", R"("videoLevel":"1","permission":{})", R"("channelNumber":"x")"),
        Lists("ConsumerNumbersBeyondTheirRange", R"("videoLevel":2147483648,"permission":-1e20)",
              R"("channelNumber":9223372036854775808)"),
        Lists("ConsumerDuplicateKeys", R"("videoLevel":1,"videoLevel":2)", R"("isOwner":1,"isOwner":2)"),
        Lists("ConsumerEscapedNul", "\"cameraId\":\"a\\u0000b\"", R"("isOwner":1)"),
        Lists("ConsumerBrokenUtf8", "\"cameraId\":\"a\xC3(b\xFF\"", R"("isOwner":1)"),
        Lists("ConsumerFormatsInTexts", R"("cameraId":"%s%s%n")", R"("supportExt":"%.9999999d")"),
    };
}

#if !defined(_WIN32)
/// "Gate" in the code page of Chinese Windows, which is no UTF-8: whole where the library writes JSON.
constexpr char kGbk[] = "\xB4\xF3\xC3\xC5";

std::vector<FaultRow> CodePageRows() {
    const std::string gbk = kGbk;
    return {
        {.name = "GbkInTheServersOfTheVideoRelay",
         .families = {Family::kPlatform},
         .script = Json::array({{{"path", "/api/service/media/server/info"},
                                 {"bytes", R"({"resultCode":"200","serverResp":{"vtmBackups":[{"addr":")" + gbk +
                                               R"(","port":8554}]}})"}}}),
         .operation = "getVideoVtmAddr",
         .outcome = {.kept = kGbk}},
        {.name = "GbkInTheListOfSharedDevices",
         .families = {Family::kConsumer},
         .script = Json::array({{{"path", "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist"},
                                 {"bytes", R"({"meta":{"code":200},"data":{"size":1,"total":1,"resourceInfos":)"
                                           R"([{"deviceSerial":"S60000006","deviceName":")" +
                                               gbk + R"("}]}})"}}}),
         .operation = "getB2CSharedDevList",
         .outcome = {.kept = kGbk}},
    };
}

#else
// There a body is converted from UTF-8 to the code page first, which this one is not.
std::vector<FaultRow> CodePageRows() { return {}; }
#endif

}  // namespace

std::vector<FaultRow> JsonRows() {
    std::vector<FaultRow> rows = RootRows();
    for (auto* const more : {PlatformRows, ConsumerRows, CodePageRows}) {
        for (FaultRow& row : more()) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

}  // namespace vantix::test
