#include "ScenarioFixture.h"

#include <array>

#include "support/LocalFile.h"

namespace vantix::test {
namespace {

std::string CredentialOf(const ReceivedRequest& request) {
    if (std::string token = request.Parameter("accessToken"); token != "<none>") {
        return token;
    }
    if (std::string session = request.Header("sessionId"); session != "<none>") {
        return session;
    }
    const Json body = Json::parse(request.body, nullptr, false);
    return body.is_object() ? body.value("accessToken", "none") : "none";
}

std::string RequestLine(const std::string& server, const std::string& path, const std::string& credential) {
    return std::string(server).append(" ").append(path).append(" as ").append(credential);
}

}  // namespace

void ScenarioFixture::SetUp() {
    DetailFixture::SetUp();
    // Stream tokens outlive the emptying of caches: those of an earlier case go when another access token asks, and
    // when the prefetched one is taken.
    std::string none;
    std::array<char, 4097> buffer{};
    Center().getOneStreamToken("nobody's token", none);
    Center().GetStreamTokenFromQueue(Account("accessToken"), buffer.data());
    Cloud().ForgetRequests();
}

void ScenarioFixture::ExpectJournal(const std::vector<JournalEntry>& entries) const {
    std::vector<std::string> expected;
    expected.reserve(entries.size());
    for (const JournalEntry& one : entries) {
        expected.push_back(RequestLine(one.server, one.path, one.credential));
    }
    std::vector<std::string> received;
    for (const ReceivedRequest& request : Cloud().Requests()) {
        received.push_back(RequestLine(request.domain, request.path, CredentialOf(request)));
    }
    EXPECT_EQ(received, expected);
    Cloud().ForgetRequests();
}

std::vector<std::string> ScenarioFixture::Serials(const DeviceList& list) {
    std::vector<std::string> serials;
    for (const DeviceListItem& item : list.devices) {
        if (serials.empty() || serials.back() != item.deviceSerial) {
            serials.push_back(item.deviceSerial);
        }
    }
    return serials;
}

std::vector<std::string> ScenarioFixture::FileIds(const RecordFileList& list) {
    std::vector<std::string> ids;
    ids.reserve(list.files.size());
    for (const RecordFile& file : list.files) {
        ids.push_back(file.fileId);
    }
    return ids;
}

std::vector<std::string> ScenarioFixture::AlarmIds(const std::string& json) {
    std::vector<std::string> ids;
    const Json alarms = Data(json);
    for (const Json& alarm : alarms) {
        ids.push_back(alarm.at("alarmId"));
    }
    return ids;
}

void ScenarioFixture::UploadPicture(const std::string& serial, const std::string& credential,
                                    const char* server) const {
    const LocalFile file(u8"gate-picture.jpg", "\xFF\xD8 gate \xFF\xD9");
    std::string response;
    ASSERT_EQ(Center().GetClouduploadUrl(serial, 1, "gate.jpg", 1, 7, 3600, "alarm", response), 0);
    const std::string url = Json::parse(response).at("url");
    Json uploads = Cloud().Get("/uploads");
    ASSERT_EQ(uploads.size(), 1U);
    EXPECT_FALSE(uploads.at(0).at("received"));
    EXPECT_EQ(uploads.at(0).at("fileName"), "gate.jpg");

    EXPECT_EQ(Center().UploadCloudPicFile(url, file.Path()), 0);
    uploads = Cloud().Get("/uploads");
    ASSERT_EQ(uploads.size(), 1U);
    EXPECT_TRUE(uploads.at(0).at("received"));
    EXPECT_EQ(uploads.at(0).at("contentHex"), "ffd8206761746520ffd9");
    // The address includes its own permission.
    const std::string path = url.substr(url.find("/upload/"));
    ExpectJournal({{server, "/api/service/cloud/upload/url", credential}, {"B", path.c_str(), "none"}});
}

}  // namespace vantix::test
