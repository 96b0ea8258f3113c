// Texts and numbers that no sane host would hand in. Values are not escaped: each goes as it is, where HTTP lets it.

#include <climits>

#include "faults/FaultRow.h"

namespace vantix::test {
namespace {

constexpr int kNoParameter = 310001;
constexpr int kNoDevice = 320002;
constexpr int kNoChannel = 320032;
constexpr int kBadAddress = 100003;
constexpr int kTooLong = 100027;

/// What becomes of a text in a form, and in the query of an address.
struct TextRow {
    const char* name;
    std::string text;
    /// In an address: what is sent of the text, or null when libcurl refuses the address.
    const char* inAddress;
};

const std::vector<TextRow>& TextRows() {
    static const std::vector<TextRow> rows = {
        {"CarriageReturnAndNewline", "A\r\nB", nullptr},
        {"Newline", "A\nB", nullptr},
        {"Blank", "A B", nullptr},
        {"Hash", "A#B", "A"},
        {"Percent", "A%B", "A%B"},
        {"EscapedLetter", "A%41B", "A%41B"},
        {"Plus", "A+B", "A+B"},
        {"Equals", "A=B", "A=B"},
        {"QuestionMark", "A?B", "A?B"},
        {"QuoteAndBackslash", "A\"B\\", "A\"B\\"},
        {"BrokenUtf8", "A\xFF\xC3(B", "A\xFF\xC3(B"},
        {"Chinese", "\xE6\xA8\x99", "\xE6\xA8\x99"},
        {"Formats", "%s%n%s%n", "%s%n%s%n"},
        {"Dots", "..", ".."},
        {"Slash", "/", "/"},
        {"Length128", std::string(128, 'S'), ""},
        {"Length129", std::string(129, 'S'), ""},
    };
    return rows;
}

FaultRow Serial(const TextRow& text) {
    FaultRow row = {.name = std::string("Serial").append(text.name), .serial = text.text};
    row.outcome = {.result = kNoDevice, .sent = "&deviceSerial=" + text.text + "&"};
    if (text.inAddress == nullptr) {
        row.consumer = Outcome{.result = kBadAddress, .requests = 0};
    } else {
        const std::string sent = *text.inAddress == '\0' ? text.text : text.inAddress;
        row.consumer = Outcome{.result = kNoDevice, .sent = "deviceSerial=" + sent};
    }
    return row;
}

std::vector<FaultRow> SerialRows() {
    std::vector<FaultRow> rows;
    for (const TextRow& text : TextRows()) {
        rows.push_back(Serial(text));
    }
    const Outcome refused = {.result = -1, .requests = 0, .logged = "a parameter has a zero byte, nothing is sent"};
    rows.push_back({.name = "SerialNul", .serial = std::string("AB\0CD", 5), .outcome = refused});
    rows.push_back({.name = "SerialEmpty",
                    .serial = "",
                    .outcome = {.result = kNoParameter, .sent = "&deviceSerial=&"},
                    .consumer = Outcome{.result = kNoParameter, .sent = "deviceSerial=&"}});
    const std::string million(1'000'000, 'S');
    rows.push_back({.name = "SerialLengthOfAMillion",
                    .families = {Family::kPlatform},
                    .serial = million,
                    .outcome = {.result = kNoDevice, .sent = "&deviceSerial=" + million + "&"}});
    // The cloud's own server does not read an address of more than some 100,000 characters; the port does. It responds
    // before it has read all, and Windows may forget the response when the connection closes then.
    rows.push_back({.name = "SerialLengthOfAMillionInAnAddress",
                    .families = {Family::kConsumer},
                    .port = {{"tls", {{"protocol", "http/1.1"}}}, {"send", "HTTP/1.1 200 OK\r\n\r\n$body"}},
                    .serial = million,
                    .outcome = {.result = 300002, .requests = 0, .connections = 1, .onWindows = {300002, 100056}}});
    // libcurl makes no request head of more than a mebibyte.
    rows.push_back({.name = "SerialLengthOfTwoMillionInAnAddress",
                    .families = {Family::kConsumer},
                    .serial = million + million,
                    .outcome = {.result = kTooLong, .requests = 0}});
    // The server sees two parameters.
    rows.push_back({.name = "SerialAmpersand",
                    .operation = "getDevDetailInfoSync",
                    .serial = "C10000001&cameraNo=1",
                    .outcome = {.sent = "&deviceSerial=C10000001&cameraNo=1&"},
                    .consumer = Outcome{.result = 300002, .sent = "deviceSerial=C10000001&cameraNo=1&"}});
    return rows;
}

std::vector<FaultRow> ChannelRows() {
    const std::pair<const char*, int> channels[] = {
        {"Zero", 0}, {"MinusOne", -1}, {"Largest", INT_MAX}, {"Smallest", INT_MIN}};
    std::vector<FaultRow> rows;
    for (const auto& [name, channel] : channels) {
        rows.push_back({.name = std::string("Channel").append(name),
                        .families = {Family::kPlatform},
                        .channel = channel,
                        .outcome = {.result = kNoChannel, .sent = "&cameraNo=" + std::to_string(channel) + "&"}});
    }
    return rows;
}

/// The credential in a form. A header value has no line breaks.
FaultRow Credential(const char* name, const std::string& text, const std::string& inHeader) {
    return {.name = std::string("Credential").append(name),
            .script = {{"body", "$body"}},
            .credential = text,
            .outcome = {.sent = "accessToken=" + text + "&"},
            .consumer = Outcome{.sent = "sessionId: " + inHeader + "\n"}};
}

std::vector<FaultRow> CredentialTextRows() {
    return {
        Credential("WithAHeader", "A\r\nX-Injected: 1", "AX-Injected: 1"),
        Credential("Hash", "A#B", "A#B"),
        Credential("Percent", "A%B", "A%B"),
        Credential("Plus", "A+B", "A+B"),
        Credential("Blank", "A B", "A B"),
        Credential("Equals", "A=B", "A=B"),
        Credential("BrokenUtf8", "A\xFF\xC3(B", "A\xFF\xC3(B"),
        Credential("Formats", "%s%n%s%n", "%s%n%s%n"),
        // The cloud's server reads heads of some 100,000 characters, but not with every TLS library on the other side.
        Credential("Of30000Characters", std::string(30'000, 't'), std::string(30'000, 't')),
    };
}

std::vector<FaultRow> UnusableCredentialRows() {
    const std::string mebibyte(1U << 20U, 't');
    return {
        {.name = "CredentialOfAMebibyte",
         .script = {{"body", "$body"}},
         .credential = mebibyte,
         .outcome = {.sent = "accessToken=" + mebibyte + "&"},
         .consumer = Outcome{.result = kTooLong, .requests = 0}},
        {.name = "CredentialNul", .credential = std::string("A\0B", 3), .outcome = {.result = -1, .requests = 0}},
        {.name = "TokenEmpty",
         .families = {Family::kPlatform},
         .credential = "",
         .outcome = {.result = -1, .requests = 0, .logged = "get strToken error"}},
        // Without a session one is asked for first.
        {.name = "SessionEmpty",
         .families = {Family::kConsumer},
         .script = Json::array(
             {{{"path", "$refresh"}, {"body", R"({"meta":{"code":200},"sessionInfo":{"sessionId":"renewed"}})"}},
              {{"body", "$body"}}}),
         .credential = "",
         .outcome = {.requests = 2, .sent = "sessionId: renewed", .renewed = "renewed"}},
    };
}

/// Both times of a list of recordings.
FaultRow Time(const char* name, const std::string& time, const Outcome& platform, const Outcome& consumer) {
    return {.name = std::string("Time").append(name),
            .operation = "getDeviceFileBySerial",
            .time = time,
            .outcome = platform,
            .consumer = consumer};
}

std::vector<FaultRow> TimeRows() {
    const Outcome refused = {.result = -1, .requests = 0};
    const Outcome badAddress = {.result = kBadAddress, .requests = 0};
    return {
        Time("Nul", std::string("2024\0x", 6), refused, refused),
        Time("Empty", "", {.sent = "&startTime="}, {.sent = "&startTime="}),
        Time("CarriageReturnAndNewline", "2024\r\n01", {.sent = "&startTime=2024\r\n01"}, badAddress),
        Time("TwoBlanks", "2024 01 02", {.sent = "&startTime=2024 01 02"}, badAddress),
        Time("Hash", "2024#01", {.sent = "&startTime=2024#01"}, {.sent = "Time=2024"}),
        Time("Percent", "2024%01", {.sent = "&startTime=2024%01"}, {.sent = "startTime=2024%01"}),
        Time("BrokenUtf8", "\xFF\xC3(", {.sent = "&startTime=\xFF\xC3("}, {.sent = "startTime=\xFF\xC3("}),
        Time("OfAMillionCharacters", std::string(1'000'000, '2'), {.sent = "&startTime=2222222222"},
             {.result = kTooLong, .requests = 0}),
    };
}

}  // namespace

std::vector<FaultRow> ArgumentRows() {
    std::vector<FaultRow> rows = SerialRows();
    for (auto* const more : {ChannelRows, CredentialTextRows, UnusableCredentialRows, TimeRows}) {
        for (FaultRow& row : more()) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

}  // namespace vantix::test
