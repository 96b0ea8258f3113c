// Every argument of a slot that sends a request reaches the wire in its own place, and the result comes back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "support/LocalFile.h"
#include "unit/boundary/ForwardRows.h"
#include "unit/boundary/HandleTest.h"
#include "vantix/records/ServerInfo.h"

namespace vantix::test {
namespace {

class ForwardTest : public HandleTest {
protected:
    ForwardTest() {
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAccessToken("token0");
        handle->setAppId("app0");
    }

    int CallRow(const ForwardRow& row, bool retried) {
        handle->ClearAllCache();
        Arguments arguments = DistinctArguments();
        arguments.retried = retried;
        arguments.playback = row.flag;
        arguments.sdkPath = row.flag;
        return Call(*handle, row.operation, arguments);
    }

    /// A transfer that fails: one request, the one of the row, and its code as the result.
    void ExpectForwarded(const ForwardRow& row) {
        SCOPED_TRACE(row.operation);
        const size_t before = transport.Count();
        EXPECT_EQ(CallRow(row, true), row.unreachable);
        const std::vector<SentRequest> sent = transport.Sent();
        ASSERT_EQ(sent.size(), before + 1);
        const SentRequest& request = sent.back();
        const std::string domain = "https://b.example";
        EXPECT_EQ(request.url.substr(0, domain.size()), domain);
        EXPECT_EQ(request.method + " " + request.url.substr(domain.size(), request.url.find('?') - domain.size()),
                  row.path);
        for (const std::string& parameter : row.parameters) {
            const std::string key = parameter.substr(0, parameter.find('='));
            EXPECT_EQ(key + "=" + request.Param(key), parameter);
        }
    }
};

TEST_F(ForwardTest, ArgumentsOfDetailsAndServersHaveTheirPlaces) {
    for (const ForwardRow& row : DetailForwards()) {
        ExpectForwarded(row);
    }
}

TEST_F(ForwardTest, ArgumentsOfListsAndAccountHaveTheirPlaces) {
    for (const ForwardRow& row : ListForwards()) {
        ExpectForwarded(row);
    }
}

TEST_F(ForwardTest, ArgumentsOfTokensAndRecordingsHaveTheirPlaces) {
    for (const ForwardRow& row : RecordingForwards()) {
        ExpectForwarded(row);
    }
}

TEST_F(ForwardTest, UploadSendsThePictureToItsAddressAndAnythingElseNowhere) {
    const LocalFile picture(u8"picture.jpg");
    EXPECT_EQ(handle->UploadCloudPicFile("https://u.example/put", picture.Path()), 100007);
    ASSERT_EQ(transport.Count(), 1U);
    EXPECT_EQ(transport.Sent()[0].url, "https://u.example/put");
    transport.Respond("");
    EXPECT_EQ(handle->UploadCloudPicFile("https://u.example/put", picture.Path()), 0) << "whatever is returned";
    const std::string folder = picture.Path().substr(0, picture.Path().find_last_of("/\\"));
    lines.Clear();
    for (const std::string& path : {folder, folder + "/absent.jpg"}) {
        EXPECT_EQ(handle->UploadCloudPicFile("https://u.example/put", path), 100026) << path;
    }
    EXPECT_EQ(transport.Count(), 2U);
    EXPECT_EQ(lines.Find("UploadCloudPic error [100026]").level, 4U);
    EXPECT_FALSE(lines.Contains("start Posts url and Param")) << "no free function stands before an upload";
}

TEST_F(ForwardTest, ArgumentsOfStreamTokensHaveTheirPlaces) {
    std::string text = "old";
    EXPECT_EQ(handle->getOneStreamToken("token1", text), 100007);
    EXPECT_EQ(transport.Sent().back().Param("accessToken"), "token1");
    EXPECT_EQ(transport.Sent().back().Param("count"), "20");
    EXPECT_EQ(handle->GetStreamTokenFast(), 0);
    EXPECT_EQ(transport.Sent().back().Param("accessToken"), "token0");
    EXPECT_EQ(transport.Sent().back().Param("count"), "10");
    EXPECT_EQ(transport.Count(), 2U);

    transport.Respond(R"({"resultCode":"200","tokenArray":["a"]})");
    EXPECT_EQ(handle->GetStreamTokenFast(), 0);
    std::array<char, 4097> buffer{};
    EXPECT_EQ(handle->GetStreamTokenFromQueue("token0", buffer.data()), 0);
    EXPECT_STREQ(buffer.data(), R"({"resultCode":"200","tokenArray":["a"]})");
}

TEST_F(ForwardTest, ArgumentsOfSessionsHaveTheirPlaces) {
    handle->setPermissionMode(2);
    handle->setSessionId("session0");
    std::string text;
    EXPECT_EQ(handle->getB2CSharedDevList(1, 2, text), 100007);
    EXPECT_THAT(transport.Sent().back().url,
                testing::StartsWith("https://c.example/v3/hc/userdevice/b2c/shared/resources/devices/pagelist?"));
    EXPECT_EQ(transport.Sent().back().Param("offset"), "1");
    EXPECT_EQ(transport.Sent().back().Param("limit"), "2");
    EXPECT_EQ(handle->RefreshSession("refresh1", text), -1);
    EXPECT_THAT(transport.Sent().back().url, testing::HasSubstr("refresh1"));
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(ForwardTest, P2PVersionIsAskedForTheDeviceWithTheChannelsToken) {
    handle->setPermissionMode(1);
    handle->SetDeviceTkTokens(R"([{"deviceTkToken":"tk2","deviceSerial":"S1","channelNo":"2"}])");
    EXPECT_EQ(handle->isP2PV3download("S1", 3), 1) << "without a credential";
    EXPECT_EQ(transport.Count(), 0U);
    EXPECT_EQ(handle->isP2PV3download("S1", 2), 0);
    EXPECT_THAT(transport.Sent().back().url, testing::EndsWith("/api/sdk/p2p/dev/info/get"));
    EXPECT_EQ(transport.Sent().back().Param("deviceSerial"), "S1");
}

TEST_F(ForwardTest, ServerInformationExpires) {
    transport.Always([](const SentRequest&) {
        return ScriptedResponse{0, R"({"resultCode":"200","result":{"code":"200","data":{"stun1Addr":"a"}}})"};
    });
    ServerInfo info;
    EXPECT_EQ(handle->getServerInfoSync("token1", info), 0);
    clock.AdvanceSeconds(121);
    EXPECT_EQ(handle->getServerInfoSync("token1", info), 0);
    EXPECT_EQ(transport.Count(), 1U);
    handle->expireServerInfo();
    EXPECT_EQ(handle->getServerInfoSync("token1", info), 0);
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(ForwardTest, CallThatIsARepeatRenewsNothing) {
    handle->setAuthAddr("https://a.example");
    handle->setRefreshToken("refresh0");
    handle->setOpenID("open0");
    size_t slots = 0;
    transport.Always([](const SentRequest&) {
        return ScriptedResponse{0, R"({"resultCode":"10002","meta":{"code":10002}})"};
    });
    for (const auto* rows : {&DetailForwards(), &ListForwards(), &RecordingForwards()}) {
        for (const ForwardRow& row : *rows) {
            if (!row.takesRetried) {
                continue;
            }
            SCOPED_TRACE(row.operation);
            ++slots;
            size_t before = transport.Count();
            EXPECT_EQ(CallRow(row, true), row.expired);
            EXPECT_EQ(transport.Count(), before + 1);
            before = transport.Count();
            EXPECT_EQ(CallRow(row, false), row.expired);
            EXPECT_EQ(transport.Count(), before + 2) << "the request, and one for a new access token";
            EXPECT_EQ(transport.Sent().back().url, "https://a.example/oauth/token/refreshToken");
        }
    }
    EXPECT_EQ(slots, 26U);
}

}  // namespace
}  // namespace vantix::test
