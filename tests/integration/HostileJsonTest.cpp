// Detail responses that are JSON of the wrong shape, or nearly JSON.

#include "SurvivalFixture.h"
#include "support/Hex.h"

namespace vantix::test {
namespace {

struct JsonRow {
    const char* name;
    std::string body;
    int result;
};

void PrintTo(const JsonRow& row, std::ostream* out) { *out << row.name; }

class HostileJsonTest : public SurvivalFixture, public ::testing::WithParamInterface<JsonRow> {};

TEST_P(HostileJsonTest, GivesItsCodeAndLosesNothing) {
    Cloud().Script({{"path", kDetailPath}, {"bodyHex", Hex(GetParam().body)}, {"times", 0}});
    ExpectSurvival(GetParam().result, 1);
}

/// A response with this data.
std::string Data(const std::string& data) { return R"({"result":{"code":"200","data":)" + data + "}}"; }

/// A response whose device has these members besides its serial.
std::string Device(const std::string& members) {
    return Data(R"({"camera":{},"device":{"deviceSerial":"C10000001","releaseVersion":"VERSION_17",)" + members + "}}");
}

const JsonRow kRootRows[] = {
    {"RootArray", "[]", 300002},
    {"RootNull", "null", 300002},
    {"RootNumber", "42", 300002},
    {"RootText", "\"text\"", 300002},
    {"RootTrue", "true", 300002},
    {"Blank", " ", 300001},
    {"Html", "<!DOCTYPE html><html></html>", 300001},
    {"ByteOrderMark", "\xEF\xBB\xBF" + std::string(kSmallResponse), 300001},
    {"TrailingGarbage", std::string(kSmallResponse) + "x", 300001},
    {"RawNul", std::string("{\"result\":\0{}}", 14), 300001},
    {"OneBracketTooFew", std::string(kSmallResponse, sizeof(kSmallResponse) - 2), 300001},
    {"ThousandLevels", std::string(1001, '[') + std::string(1001, ']'), 300001},
    {"HundredThousandLevels", std::string(100'000, '['), 300001},
};

INSTANTIATE_TEST_SUITE_P(Roots, HostileJsonTest, ::testing::ValuesIn(kRootRows),
                         [](const auto& row) { return row.param.name; });

const JsonRow kTypeRows[] = {
    {"ResultIsText", R"({"result":"200"})", 300002},
    {"ResultIsNull", R"({"result":null})", 300002},
    {"ResultIsArray", R"({"result":[{"code":"200"}]})", 300002},
    {"CodeIsObject", R"({"result":{"code":{}}})", 300002},
    {"CodeIsNull", R"({"result":{"code":null}})", 300002},
    {"DataIsText", Data("\"x\""), 300002},
    {"DataIsNumber", Data("1"), 300002},
    {"DataIsNull", Data("null"), 300002},
    {"CameraAndDeviceAreOfOtherTypes", Data(R"({"camera":5,"device":[1]})"), 0},
    {"DataIsEmpty", Data("{}"), 0},
    {"EveryTextIsANumber", Device(R"("deviceIP":1,"publicKey":2,"supportExtShort":3,"belongSerial":4)"), 0},
    {"EveryNumberIsAText", Device(R"("devicePort":"1","deviceStatus":"1","isEncrypt":"1")"), 0},
    {"NumbersBeyondTheirRange", Device(R"("devicePort":2147483648,"cmdPort":-1e20,"httpPort":1e400)"), 0},
    {"NestedTextIsNoJson", Device(R"("supportExt":"{","qxDeviceSupportExt":"no","belongDevice":"[1]")"), 0},
    {"NestedMembersAreArrays", Device(R"("supportExt":[],"qxDeviceSupportExt":[],"belongDevice":[])"), 0},
    {"NestedMembersAreNull", Device(R"("supportExt":null,"qxDeviceSupportExt":null,"belongDevice":null)"), 0},
    {"CapabilitiesAreNumbers", Device(R"("supportExt":{"support_ptz":1,"support_seek_v2":true})"), 0},
    {"ListsAreObjects", Device(R"("vtmBackups":{"ip":"203.0.113.1"})"), 0},
    {"DuplicateKeys", Device(R"("devicePort":1,"devicePort":2)"), 0},
    {"EscapedNul", Device("\"deviceIP\":\"a\\u0000b\""), 0},
    {"BrokenUtf8", Device("\"deviceIP\":\"a\xC3(b\xFF\""), 0},
    {"FormatsInTexts", Device(R"("deviceIP":"%s%s%s%n%n","publicKey":"%.9999999d")"), 0},
};

INSTANTIATE_TEST_SUITE_P(Types, HostileJsonTest, ::testing::ValuesIn(kTypeRows),
                         [](const auto& row) { return row.param.name; });

class HostileMemberTest : public SurvivalFixture {
protected:
    DevDetailInfo Read(const std::string& members) const {
        Cloud().Script({{"path", kDetailPath}, {"body", Device(members)}});
        Detail detail;
        EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
        return detail.device;
    }
};

TEST_F(HostileMemberTest, WrongTypesLeaveDefaults) {
    const DevDetailInfo device = Read(R"("deviceIP":1,"devicePort":"8000","supportExt":{"support_ptz":1})");
    EXPECT_EQ(device.deviceIP, "");
    EXPECT_EQ(device.devicePort, 0);
    EXPECT_EQ(device.support_ptz, 0);
    EXPECT_EQ(device.deviceSerial, kCamera);
}

TEST_F(HostileMemberTest, MalformedNestedTextSkipsThatMemberAlone) {
    const DevDetailInfo device =
        Read(R"("supportExt":"{","qxDeviceSupportExt":{"ShareVerify":"1"},"belongDevice":"no","isOwner":1)");
    EXPECT_EQ(device.support_ptz, 0);
    EXPECT_EQ(device.iShareVerif, 1);
    EXPECT_EQ(device.isOwner, 1);
}

TEST_F(HostileMemberTest, FailedCallLeavesTheCallersRecordsAlone) {
    Detail detail;
    ASSERT_EQ(Fetch(kCamera, 1, detail), 0);
    const Json before = ToJson(detail);
    for (const char* body : {"no json", "[]", R"({"result":{"code":"20002"}})", R"({"result":{"code":"200"}})"}) {
        Cloud().Script({{"path", kDetailPath}, {"body", body}});
        EXPECT_NE(Fetch(kCamera, 1, detail), 0) << body;
        detail.device.iRequestCost = before.at("device").at("iRequestCost");  // the time is stored whatever happens
        EXPECT_EQ(ToJson(detail), before) << body;
    }
}

}  // namespace
}  // namespace vantix::test
