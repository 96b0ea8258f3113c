// A picture travels to the address that was handed out for it.

#include <gmock/gmock.h>

#include "OperationFixture.h"
#include "support/Hex.h"
#include "support/LineMatcher.h"
#include "support/LocalFile.h"

namespace vantix::test {
namespace {

using ::testing::StartsWith;

class PictureUploadTest : public OperationFixture {
protected:
    /// Asks for an address to upload to.
    std::string AskForAddress() const {
        std::string data;
        EXPECT_EQ(Center().GetClouduploadUrl(kCamera, 1, "gate.jpg", 1, 7, 3600, "alarm", data), 0);
        Cloud().ForgetRequests();
        return Json::parse(data).at("url");
    }
    int Upload(const std::string& url, const std::string& path) const { return Center().UploadCloudPicFile(url, path); }
    Json OnlyUpload() const {
        const Json uploads = Cloud().Get("/uploads");
        EXPECT_EQ(uploads.size(), 1U);
        return uploads.at(0);
    }
};

constexpr char kPictureBytes[] = "\xFF\xD8\xFF\xE0\0\x10JFIF\0 --boundary\r\n\xFF\xD9";
const std::string kPicture(kPictureBytes, sizeof(kPictureBytes) - 1);

TEST_F(PictureUploadTest, PictureArrivesWhole) {
    const std::string url = AskForAddress();
    const LocalFile file(u8"vantix-upload-whole.jpg", kPicture);
    const LogCapture log;
    EXPECT_EQ(Upload(url, file.Path()), 0);
    const Json upload = OnlyUpload();
    EXPECT_EQ(upload.at("received"), true);
    EXPECT_EQ(upload.at("contentHex"), Hex(kPicture));
    EXPECT_EQ(upload.at("fields").at("url"), url);
    EXPECT_EQ(upload.at("fileName"), "gate.jpg");
    EXPECT_THAT(log.Lines().back(), Line(5, "ERROR", "UploadCloudPicFile", StartsWith("[test] pOutBuffer = [{")));
}

TEST_F(PictureUploadTest, FormHasTheAddressAndThenTheFile) {
    const std::string url = AskForAddress();
    const LocalFile file(u8"vantix-upload-form.jpg", kPicture);
    ASSERT_EQ(Upload(url, file.Path()), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].method, "POST");
    EXPECT_EQ(BDomain() + requests[0].path, url);
    EXPECT_EQ(requests[0].query, "");
    const std::string type = requests[0].Header("Content-Type");
    EXPECT_EQ(type.rfind("multipart/form-data; boundary=", 0), 0U);
    const std::string start = "--" + type.substr(type.find('=') + 1) + "\r\nContent-Disposition: form-data; ";
    const std::string& body = requests[0].body;
    EXPECT_EQ(body.rfind(start + "name=\"url\"\r\n\r\n" + url + "\r\n" + start +
                             "name=\"file\"; filename=\"vantix-upload-form.jpg\"\r\n",
                         0),
              0U);
    EXPECT_NE(body.find("\r\n\r\n" + kPicture + "\r\n--"), std::string::npos);
}

TEST_F(PictureUploadTest, MegabytesArriveToo) {
    const std::string url = AskForAddress();
    std::string content(3'000'000, 'p');
    content[1'500'000] = '\0';
    const LocalFile file(u8"vantix-upload-large.jpg", content);
    EXPECT_EQ(Upload(url, file.Path()), 0);
    EXPECT_EQ(OnlyUpload().at("size"), content.size());
    EXPECT_EQ(OnlyUpload().at("contentHex"), Hex(content));
}

TEST_F(PictureUploadTest, NameBeyondAsciiArrivesOrGivesACode) {
    const std::string url = AskForAddress();
    const LocalFile file(u8"vantix-upload-Tür-門.jpg", kPicture);
    const int result = Upload(url, file.Path());
#if defined(_WIN32)
    EXPECT_TRUE(result == 0 || result == 100026) << result;
#else
    EXPECT_EQ(result, 0);
#endif
    EXPECT_EQ(OnlyUpload().at("received"), result == 0);
}

TEST_F(PictureUploadTest, FileThatIsNotThereGivesACode) {
    const std::string url = AskForAddress();
    const LogCapture log;
    EXPECT_EQ(Upload(url, "no-such-folder/no-such-picture.jpg"), 100026);
    EXPECT_EQ(OnlyUpload().at("received"), false);
    EXPECT_THAT(log.Lines(), HasLine(5, "ERROR", "UploadCloudPicFile", "SyncRequestHeader error:26"));
}

TEST_F(PictureUploadTest, OnlyTheTransferCanFail) {
    const LocalFile file(u8"vantix-upload-fail.jpg", kPicture);
    EXPECT_EQ(Upload(Cloud().ClosedPort() + "/upload/x", file.Path()), 100007);
    // The server's refusal is a response like any other.
    EXPECT_EQ(Upload(BDomain() + "/upload/unknown", file.Path()), 0);
    EXPECT_EQ(Upload("", file.Path()), 100003);
}

}  // namespace
}  // namespace vantix::test
