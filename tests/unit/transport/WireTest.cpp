// What really goes over the wire, and what does not.

#if !defined(_WIN32)

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/LocalFile.h"
#include "unit/transport/LoopbackServer.h"
#include "unit/transport/Operations.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kOk = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\nConnection: close\r\n\r\ntext";

std::string RedirectTo(const std::string& address) {
    return "HTTP/1.1 302 Found\r\nLocation: " + address + "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
}

/// The lines of a request up to the blank one.
std::vector<std::string> HeadLines(const std::string& request) {
    std::vector<std::string> lines;
    for (size_t from = 0, end = 0; (end = request.find("\r\n", from)) != std::string::npos && end != from;) {
        lines.push_back(request.substr(from, end - from));
        from = end + 2;
    }
    return lines;
}

class Wire : public testing::Test {
protected:
    Wire() { iLogLevel = 6; }

    CleanSwitches m_switches;
};

TEST_F(Wire, OneEntryIsOneHeaderWhateverItHolds) {
    const LoopbackServer server({kOk});
    ParamMap headers;
    headers.Add("a", "1\r\nX-Injected: 1\r\n\r\nGET /injected HTTP/1.1");
    headers.Add("b\r\nX-Injected", "2");
    headers.Add("c", "");
    headers.Add("d", " \r\n ");
    const Outcome outcome(Operations(headers)[3], CRequest(), server.Address() + "/x");
    EXPECT_EQ(outcome.Body(), "text");
    ASSERT_EQ(server.Requests().size(), 1U);
    std::vector<std::string> lines = HeadLines(server.Requests()[0]);
    EXPECT_THAT(lines, ElementsAre("GET /x?a=1&b=2 HTTP/1.1", testing::StartsWith("Host: 127.0.0.1:"), "Accept: */*",
                                   "a: 1X-Injected: 1GET /injected HTTP/1.1", "bX-Injected: 2", "c:", "d:"));
}

TEST_F(Wire, OneFormFieldIsOnePart) {
    const LoopbackServer server({kOk});
    ParamMap form;
    form.Add("na\r\nX-Injected: 1\r\n\r\nme", "a\r\nb");
    const Outcome outcome(Operations(form)[7], CRequest(), server.Address() + "/x");
    EXPECT_EQ(outcome.result, 0);
    ASSERT_EQ(server.Requests().size(), 1U);
    const std::string request = server.Requests()[0];
    EXPECT_NE(request.find("form-data; name=\"naX-Injected: 1me\"\r\n\r\na\r\nb\r\n"), std::string::npos) << request;
    EXPECT_NE(request.find("name=\"file\"; filename=\"picture.txt\"\r\nContent-Type: text/plain\r\n\r\npicture\r\n"),
              std::string::npos)
        << request;
}

TEST_F(Wire, ARedirectToHttpIsFollowed) {
    LoopbackServer last({kOk});
    const LoopbackServer first({RedirectTo(last.Address() + "/moved")});
    const Outcome outcome(Operations()[0], CRequest(), first.Address());
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.Body(), "text");
    ASSERT_EQ(last.Requests().size(), 1U);
    EXPECT_THAT(last.Requests()[0], testing::StartsWith("GET /moved HTTP/1.1\r\n"));
}

TEST_F(Wire, ARedirectToAnyOtherSchemeIsCodeOne) {
    const LocalFile file(u8"secret.txt", "secret");
    const LoopbackServer other({kOk});
    for (const std::string& target :
         {"file://" + file.Path(), other.Address("ftp"), other.Address("gopher"), other.Address("dict"),
          other.Address("ldap"), other.Address("smtp"), other.Address("telnet"), other.Address("tftp")}) {
        SCOPED_TRACE(target);
        const LoopbackServer first({RedirectTo(target)});
        for (const Operation& operation : Operations()) {
            SCOPED_TRACE(operation.name);
            const Outcome outcome(operation, CRequest(), first.Address());
            EXPECT_EQ(outcome.result, 1);
            EXPECT_EQ(outcome.Body(), "");
        }
    }
    EXPECT_THAT(other.Requests(), IsEmpty());
}

TEST_F(Wire, AnAddressOfAnyOtherSchemeIsCodeOneAndNothingIsSent) {
    const LocalFile file(u8"secret.txt", "secret");
    const LoopbackServer server({kOk});
    std::vector<std::string> addresses{"file://" + file.Path(), "FILE://" + file.Path()};
    for (const char* scheme : {"ftp", "ftps", "sftp", "scp", "gopher", "gophers", "dict", "ldap", "ldaps", "imap",
                               "pop3", "smtp", "smb", "rtsp", "telnet", "tftp", "mqtt", "ws", "unknown"}) {
        addresses.push_back(server.Address(scheme));
    }
    for (const std::string& address : addresses) {
        for (const Operation& operation : Operations()) {
            SCOPED_TRACE(address + ", " + operation.name);
            const Outcome outcome(operation, CRequest(), address);
            EXPECT_EQ(outcome.result, 1);
            EXPECT_EQ(outcome.Body(), "");
        }
    }
    EXPECT_THAT(server.Requests(), IsEmpty());
}

TEST_F(Wire, APictureThatIsNoRegularFileIsNotSent) {
    const LoopbackServer server({kOk});
    const LocalFile file(u8"picture.txt");
    const std::filesystem::path folder = std::filesystem::path(file.Path()).parent_path();
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string linkToFolder = folder / "link";
    std::filesystem::create_directory_symlink(folder, linkToFolder);
    for (const std::string& path :
         {folder.string(), folder.string() + "/", pipe, linkToFolder, std::string("/dev/null"),
          std::string("/dev/zero"), folder.string() + "/absent", file.Path() + "/", std::string()}) {
        SCOPED_TRACE(path);
        char* response = nullptr;
        uint32_t length = 4711;
        EXPECT_EQ(
            CRequest().SyncRequestUpload(server.Address().c_str(), path.c_str(), TwoEntries(), &response, &length), 26);
        EXPECT_EQ(length, 0U);
        std::free(response);  // NOLINT(cppcoreguidelines-no-malloc)
    }
    EXPECT_THAT(server.Requests(), IsEmpty());
}

TEST_F(Wire, APictureBehindALinkIsSent) {
    const LoopbackServer server({kOk});
    const LocalFile file(u8"picture.txt", "the picture's bytes");
    const std::string link = file.Path() + ".link";
    std::filesystem::create_symlink(file.Path(), link);
    char* response = nullptr;
    uint32_t length = 0;
    EXPECT_EQ(CRequest().SyncRequestUpload(server.Address().c_str(), link.c_str(), ParamMap(), &response, &length), 0);
    std::free(response);  // NOLINT(cppcoreguidelines-no-malloc)
    ASSERT_EQ(server.Requests().size(), 1U);
    EXPECT_NE(server.Requests()[0].find("\r\n\r\nthe picture's bytes\r\n"), std::string::npos);
}

}  // namespace
}  // namespace vantix::test

#endif
