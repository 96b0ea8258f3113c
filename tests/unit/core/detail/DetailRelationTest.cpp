// Devices that are reached through a parent device.

#include "unit/core/CoreTest.h"
#include "vantix/ReturnCodes.h"

namespace vantix::test {
namespace {

class Relation : public CoreTest {
protected:
    Relation() { Configure(); }

    /// A device behind a parent, in force and online, with its own number and encryption.
    static nlohmann::json Response() {
        nlohmann::json response = DetailResponse("CHILD", 1);
        nlohmann::json& device = response["result"]["data"]["device"];
        device["deviceIP"] = "ip of child";
        device["belongSerial"] = "PARENT";
        device["belongState"] = 1;
        device["belongNo"] = 7;
        device["isEncrypt"] = 1;
        device["encryptPwd"] = "password of child";
        device["belongDevice"] = {{"deviceSerial", "PARENT"},
                                  {"deviceIP", "ip of parent"},
                                  {"releaseVersion", "VERSION_17"},
                                  {"deviceStatus", 1},
                                  {"belongNo", 99},
                                  {"isEncrypt", 0},
                                  {"encryptPwd", "password of parent"}};
        return response;
    }
    static nlohmann::json& Parent(nlohmann::json& response) {
        return response["result"]["data"]["device"]["belongDevice"];
    }

    int Read() { return core.getDevDetailInfoByRelation("CHILD", 1, channel, device, false); }
    /// Gives the caller's record the relation that an earlier fetch would have stored.
    void GiveRelation() {
        device.belongSerial = "PARENT";
        device.belongState = 1;
    }
    void ExpectParent() {
        EXPECT_EQ(device.deviceSerial, "PARENT");
        EXPECT_EQ(device.deviceIP, "ip of parent");
        EXPECT_EQ(device.belongNo, 7);
        EXPECT_EQ(device.isEncrypt, 1);
        EXPECT_EQ(device.encryptPwd, "password of child");
        EXPECT_EQ(channel.cameraNo, 7) << "the third integer of the channel";
        EXPECT_EQ(device.iRequestCost, 0);
        EXPECT_TRUE(device.isFromCache);
    }
    void ExpectChild() {
        EXPECT_EQ(device.deviceSerial, "CHILD");
        EXPECT_EQ(device.deviceIP, "ip of child");
        EXPECT_EQ(device.belongNo, 7);
        EXPECT_EQ(device.encryptPwd, "password of child");
        EXPECT_EQ(channel.cameraNo, 1);
        EXPECT_EQ(device.iRequestCost, 0);
        EXPECT_TRUE(device.isFromCache);
    }

    DevChannelInfo channel;
    DevDetailInfo device;
};

TEST_F(Relation, FetchedDeviceBehindAnOnlineParentComesBackAsTheParent) {
    transport.Respond(Response().dump());
    EXPECT_EQ(Read(), 0);
    ExpectParent();
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDevDetailInfoFromLocalByRelation",
                                       "BelongNo Associated device PARENT is online"));
    ExpectNoLine("Unrelated");
}

TEST_F(Relation, FreshRecordComesBackAsTheParentsByTheSecondRead) {
    Cache("CHILD", 1, Response());
    EXPECT_EQ(Read(), 0);
    ExpectParent();
    EXPECT_EQ(lines.Messages(), (std::vector<std::string>{"BelongNo Unrelated device stDeviceInfo.iCloseBlong = 0",
                                                          "BelongNo Associated device PARENT is online"}));
    EXPECT_EQ(transport.Count(), 1U) << "served from the cache";
}

TEST_F(Relation, RecordThatHasTheRelationComesBackAsItsOwnByTheSecondRead) {
    Cache("CHILD", 1, Response());
    GiveRelation();
    EXPECT_EQ(Read(), 0);
    ExpectChild();
    EXPECT_EQ(lines.Messages(), (std::vector<std::string>{"BelongNo Associated device PARENT is online",
                                                          "BelongNo Unrelated device stDeviceInfo.iCloseBlong = 0"}));
}

TEST_F(Relation, DeviceWithoutAParentComesBackAsItself) {
    nlohmann::json response = Response();
    for (const char* key : {"belongSerial", "belongState", "belongDevice"}) {
        response["result"]["data"]["device"].erase(key);
    }
    Cache("CHILD", 1, response);
    EXPECT_EQ(Read(), 0);
    ExpectChild();
    EXPECT_EQ(lines.Count("BelongNo Unrelated device stDeviceInfo.iCloseBlong = 0"), 2U);
}

TEST_F(Relation, RelationThatIsNotInForceGivesTheDeviceItself) {
    nlohmann::json response = Response();
    response["result"]["data"]["device"]["belongState"] = 0;
    Cache("CHILD", 1, response);
    EXPECT_EQ(Read(), 0);
    ExpectChild();
}

TEST_F(Relation, CloseBelongSwitchGivesTheDeviceItself) {
    Cache("CHILD", 1, Response());
    GiveRelation();
    core.setCloseBelongSerial(1);
    EXPECT_EQ(Read(), 0);
    ExpectChild();
    ExpectNoLine("Associated");
    core.setCloseBelongSerial(2);
    device = DevDetailInfo();
    EXPECT_EQ(Read(), 0);
    ExpectParent();
}

TEST_F(Relation, HostsOwnSwitchInTheRecordGivesTheDeviceItselfAndIsKept) {
    Cache("CHILD", 1, Response());
    GiveRelation();
    device.iCloseBlong = 1;
    EXPECT_EQ(Read(), 0);
    ExpectChild();
    EXPECT_EQ(device.iCloseBlong, 1);
    EXPECT_EQ(lines.Count("BelongNo Unrelated device stDeviceInfo.iCloseBlong = 1"), 2U);
}

TEST_F(Relation, SwitchInTheRecordIsKeptWhateverItsValue) {
    Cache("CHILD", 1, Response());
    core.setCloseBelongSerial(1);
    for (const int value : {0, 2, -1}) {
        device = DevDetailInfo();
        device.iCloseBlong = value;
        EXPECT_EQ(Read(), 0);
        ExpectChild();
        EXPECT_EQ(device.iCloseBlong, value);
        EXPECT_EQ(lines.Count("BelongNo Unrelated device stDeviceInfo.iCloseBlong = " + std::to_string(value)), 2U);
    }
}

TEST_F(Relation, ParentThatIsNotOnlineGivesTheDeviceItself) {
    for (const int status : {0, 2, -1}) {
        nlohmann::json response = Response();
        Parent(response)["deviceStatus"] = status;
        Cache("CHILD", 1, response);
        device = DevDetailInfo();
        EXPECT_EQ(Read(), 0);
        ExpectChild();
        ExpectNoLine("Associated");
    }
}

TEST_F(Relation, DeviceWhoseParentTheResponseLacksComesBackAsItself) {
    nlohmann::json response = Response();
    response["result"]["data"]["device"].erase("belongDevice");
    Cache("CHILD", 1, response);
    EXPECT_EQ(Read(), 0);
    ExpectChild();
    EXPECT_EQ(transport.Count(), 1U);
    const auto parent = Parts().caches.FindDevice("PARENT");
    ASSERT_TRUE(parent) << "an empty record stands for it";
    EXPECT_EQ(parent->deviceSerial, "");
    EXPECT_EQ(parent->deviceStatus, 0);
}

TEST_F(Relation, ParentThatIsNotCachedIsFetchedForARecordThatHasTheRelation) {
    Cache("CHILD", 1, Response());
    GiveRelation();
    device.belongSerial = "ELSEWHERE";
    transport.Respond(Response().dump());
    EXPECT_EQ(Read(), 0);
    ExpectParent();
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(Relation, MissedParentLeavesTheCallersNumberAtZero) {
    Cache("CHILD", 1, Response());
    GiveRelation();
    device.belongSerial = "ELSEWHERE";
    device.belongNo = 5;
    transport.Fail(7);
    EXPECT_EQ(Read(), 100007);
    EXPECT_EQ(device.belongNo, 0);
    EXPECT_EQ(device.belongSerial, "ELSEWHERE");
}

TEST_F(Relation, AbsentChannelIsFetchedWithoutALine) {
    transport.Fail(7);
    EXPECT_EQ(Read(), 100007);
    ExpectNoLine("not exist");
}

TEST_F(Relation, OtherReleaseIsLoggedAndFetchedAgain) {
    nlohmann::json response = Response();
    response["result"]["data"]["device"]["releaseVersion"] = "VERSION_1";
    Cache("CHILD", 1, response);
    transport.Respond(response.dump());
    EXPECT_EQ(Read(), -1);
    EXPECT_EQ(transport.Count(), 2U);
    const std::string message = "VANTIX_DEV_NO_SUPPORT Release Version Not Equal VERSION_17";
    EXPECT_EQ(lines.Count(message), 2U) << "before and after the fetch";
    EXPECT_EQ(lines.Find(message).Word(), "ERROR");
    EXPECT_EQ(lines.Find(message).level, 5U);
    EXPECT_EQ(lines.Find(message).Tag(), "CVantixDataCenter::getDevDetailInfoFromLocalByRelation");
}

TEST_F(Relation, WithoutLinesTheSameRecordsComeBack) {
    nlohmann::json response = Response();
    Cache("CHILD", 1, response);
    core.setLogLevel(6);
    lines.Clear();
    EXPECT_EQ(Read(), 0);
    ExpectParent();
    response["result"]["data"]["device"]["releaseVersion"] = "VERSION_1";
    transport.Respond(response.dump(), 2);
    EXPECT_EQ(core.getDevDetailInfoSync("CHILD", 1, true, channel, device, false), 0);
    EXPECT_EQ(Read(), -1);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(Relation, DeviceIsLookedUpUnderTheChannelsSerial) {
    nlohmann::json response = Response();
    response["result"]["data"]["camera"]["deviceSerial"] = "OTHER";
    Cache("CHILD", 1, response);
    transport.Respond(response.dump());
    EXPECT_EQ(Read(), -1) << "OTHER is not cached, before or after the fetch";
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(Relation, ExpiredTokenThatCannotBeRenewedIsReturned) {
    transport.Respond(CodeResponse("10002"), 2);
    EXPECT_EQ(Read(), VANTIX_ACCESS_TOKEN_EXPIRED);
    EXPECT_EQ(core.getDevDetailInfoByRelation("CHILD", 1, channel, device, true), VANTIX_ACCESS_TOKEN_EXPIRED);
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(Relation, EmptyTokenFails) {
    core.setAccessToken("");
    EXPECT_EQ(Read(), -1);
    EXPECT_EQ(transport.Count(), 0U);
}

// ---- What is stored of a parent

TEST_F(Relation, ParentIsStoredAsADeviceOfItsOwn) {
    nlohmann::json response = Response();
    Cache("CHILD", 1, response);
    EXPECT_EQ(core.IsSupportSeekPlayback("PARENT"), 0);
    nlohmann::json parentsChannel = DetailResponse("PARENT", 1);
    parentsChannel["result"]["data"]["device"]["deviceIP"] = "fetched itself";
    Cache("PARENT", 1, parentsChannel);
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(device.deviceIP, "fetched itself") << "the cache by serial holds parents and devices alike";
}

TEST_F(Relation, ParentIsStoredUnderTheSerialThatTheDeviceNames) {
    nlohmann::json response = Response();
    Parent(response)["deviceSerial"] = "ANOTHER NAME";
    Cache("CHILD", 1, response);
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(device.deviceSerial, "ANOTHER NAME");
    EXPECT_EQ(device.deviceIP, "ip of parent");
}

TEST_F(Relation, ResponseWithoutAParentKeepsTheCachedOne) {
    Cache("CHILD", 1, Response());
    nlohmann::json response = Response();
    response["result"]["data"]["device"].erase("belongDevice");
    Cache("CHILD", 1, response);
    EXPECT_EQ(Read(), 0);
    ExpectParent();
}

TEST_F(Relation, ParentOfADeviceThatNamesNoneIsNotStored) {
    nlohmann::json response = Response();
    response["result"]["data"]["device"]["belongSerial"] = "";
    Cache("CHILD", 1, response);
    EXPECT_TRUE(Parts().caches.FindDevice("CHILD"));
    EXPECT_FALSE(Parts().caches.FindDevice("PARENT"));
    EXPECT_FALSE(Parts().caches.FindDevice(""));
}

TEST_F(Relation, LatestParentIsServed) {
    Cache("CHILD", 1, Response());
    nlohmann::json response = Response();
    Parent(response)["deviceIP"] = "moved";
    Cache("CHILD", 1, response);
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(device.deviceIP, "moved");
}

TEST_F(Relation, ParentKeepsNothingOfTheFailedAttemptBefore) {
    nlohmann::json refused = Response();
    refused["result"]["code"] = "49999";
    nlohmann::json response = Response();
    response["result"]["data"]["device"].erase("belongDevice");
    transport.Respond(refused.dump());
    Cache("CHILD", 1, response);
    EXPECT_EQ(transport.Count(), 2U);
    EXPECT_EQ(Parts().caches.FindDevice("PARENT").value_or(DevDetailInfo()).deviceIP, "");
    EXPECT_EQ(Read(), 0);
    ExpectChild();
}

}  // namespace
}  // namespace vantix::test
