// Responses that are no proper HTTP, and statuses that say one thing while the body says another.

#include "faults/FaultRow.h"

namespace vantix::test {
namespace {

constexpr char kOk[] = "HTTP/1.1 200 OK\r\n";
constexpr char kLength[] = "Content-Length: $length\r\n";

/// A whole HTTP response, as it stands on the wire; then the connection ends.
Json Raw(const std::string& head, const std::string& body = "") { return {{"raw", head + "\r\n" + body}}; }

Json Chunked(const std::string& body) { return Raw(std::string(kOk) + "Transfer-Encoding: chunked\r\n", body); }

/// 40 headers of 9,000 characters each: more than 300 KiB together.
std::string ManyHeaders() {
    std::string headers;
    for (int i = 0; i < 40; ++i) {
        headers += std::string("X-").append(std::to_string(i)) + ": " + std::string(9000, 'x') + "\r\n";
    }
    return headers;
}

/// The end of the connection is the end of the response. Without a close_notify some TLS libraries of Windows report a
/// failure of their own.
Outcome Early(int result) { return {.result = result, .onWindows = {result, 100056}}; }

std::vector<FaultRow> BodyRows() {
    const std::string ok = kOk;
    return {
        {.name = "ShortContent", .script = {{"truncated", true}}, .outcome = Early(100018)},
        {.name = "ExcessBody", .script = Raw(ok + kLength, "$bodyand more that nobody asked for")},
        {.name = "NoLengthAndHalfAJson", .script = Raw(ok, "$half"), .outcome = Early(300001)},
        {.name = "NoLengthAndAWholeJson", .script = Raw(ok, "$body"), .outcome = Early(0)},
        {.name = "WholeJsonAndTheEndOfAShortContent",
         .script = Raw(ok + "Content-Length: 100000\r\n", "$body"),
         .outcome = Early(100018)},
        {.name = "LengthOfTenToThe18",
         .script = Raw(ok + "Content-Length: 1000000000000000000\r\n", "$body"),
         .outcome = Early(100018)},
        // Beyond 64 bits: libcurl reads to the end of the connection.
        {.name = "LengthOfTenToThe20",
         .script = Raw(ok + "Content-Length: 100000000000000000000\r\n", "$body"),
         .outcome = Early(0)},
        {.name = "NegativeLength",
         .script = Raw(ok + "Content-Length: -5\r\n", "$body"),
         .outcome = {.result = 100008}},
        {.name = "BadChunkSize", .script = Chunked("zz\r\nnothing\r\n0\r\n\r\n"), .outcome = {.result = 100056}},
        {.name = "MissingLastChunk", .script = Chunked("2\r\n{}\r\n"), .outcome = Early(100018)},
        {.name = "ChunksWithTrailers", .script = Chunked("$hexLength\r\n$body\r\n0\r\nX-Trailer: late\r\n\r\n")},
        {.name = "NoReply", .script = {{"closeWithoutResponse", true}}, .outcome = Early(100052)},
        {.name = "ResetBeforeTheResponse", .script = {{"reset", true}}, .outcome = {.result = 100056}},
        {.name = "EmptyBody", .script = {{"body", ""}}, .outcome = {.result = 300001}},
    };
}

std::vector<FaultRow> HeadRows() {
    const std::string ok = kOk;
    return {
        {.name = "ResponseWithoutAStatusLine", .script = Raw("hello"), .outcome = {.result = 100001}},
        {.name = "StatusZero", .script = Raw("HTTP/1.1 000 Nothing\r\n"), .outcome = {.result = 100001}},
        {.name = "NulInAHeader",
         .script = Raw(ok + "X-Malformed: a" + std::string(1, '\0') + "b\r\n" + kLength, "$body"),
         .outcome = {.result = 100008}},
        {.name = "HeadersOver300Kibibytes",
         .script = Raw(ok + ManyHeaders() + kLength, "$body"),
         .outcome = {.result = 100056}},
        {.name = "HeaderOf110Kilobytes",
         .script = Raw(ok + "X-Long: " + std::string(110 * 1024, 'x') + "\r\n"),
         .outcome = {.result = 100027}},
        {.name = "SwitchingProtocols", .script = Raw("HTTP/1.1 101 Switching Protocols\r\n"), .outcome = Early(100052)},
        {.name = "LoneContinue", .script = Raw("HTTP/1.1 100 Continue\r\n"), .outcome = Early(100052)},
        {.name = "LoneEarlyHints",
         .script = Raw("HTTP/1.1 103 Early Hints\r\nLink: </style.css>\r\n"),
         .outcome = Early(100052)},
        {.name = "ContinueThenTheResponse", .script = Raw("HTTP/1.1 100 Continue\r\n\r\n" + ok + kLength, "$body")},
        {.name = "NoContent", .script = Raw("HTTP/1.1 204 No Content\r\n"), .outcome = {.result = 300001}},
    };
}

}  // namespace

std::vector<FaultRow> FramingRows() {
    std::vector<FaultRow> rows = BodyRows();
    for (FaultRow& row : HeadRows()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<FaultRow> StatusRows() {
    return {
        {.name = "NotFoundWithAResponse", .script = {{"status", 404}, {"body", "$body"}}},
        {.name = "ServerErrorWithAResponse", .script = {{"status", 500}, {"body", "$body"}}},
        {.name = "BadGatewayWithAResponse", .script = {{"status", 502}, {"body", "$body"}}},
        {.name = "NotFoundWithACode", .script = {{"status", 404}, {"code", "20002"}}, .outcome = {.result = 320002}},
        {.name = "NotFoundWithHtml", .script = {{"status", 404}}, .outcome = {.result = 300001}},
        {.name = "UnauthorizedWithHtml", .script = {{"status", 401}}, .outcome = {.result = 300001}},
        {.name = "GzipThatNobodyAskedFor",
         .script = {{"headers", {{"Content-Encoding", "gzip"}}},
                    {"bodyHex", "1f8b0800000000000003abae0500430bd2bf02000000"}},
         .outcome = {.result = 300001}},
    };
}

/// Peaks are measured, and 15 % more: a further copy of the text is found. They are those of a program that meets the
/// rows of this paragraph alone, on glibc; under a sanitizer and on Windows none is read, and nothing asserted.
std::vector<FaultRow> SizeRows() {
    constexpr size_t kTextLength = 50UL * 1024 * 1024;
    return {
        // Three times the text at once. The platform's: the body, the reader's copy of it, and the text as it is read;
        // measured 184, and 219 on the thread of a task. The consumer servers': the body, the text as it is read, and
        // the parsed value; 172. What is above 150 is what the allocator keeps of blocks that grew. Afterwards the
        // cached record keeps the room of its longest text, also when a shorter one takes its place.
        {.name = "TextOfFiftyMebibytes",
         .script = {{"body", "$long"}, {"filler", {{"text", "k"}, {"times", kTextLength}}}},
         .outcome = {.idLength = kTextLength, .peakMiB = 212, .keptMiB = 52},
         .consumer = Outcome{.idLength = kTextLength, .peakMiB = 198, .keptMiB = 52},
         .task = Outcome{.idLength = kTextLength, .peakMiB = 242}},
        {.name = "TextOfOneMebibyte",
         .script = {{"body", "$long"}, {"filler", {{"text", "k"}, {"times", 1U << 20U}}}},
         .outcome = {.idLength = 1U << 20U}},
        // Texts: of a number a checking C library looks at all that follows it.
        {.name = "TwoMillionElements",
         .script = {{"body", "$list"}, {"filler", {{"text", R"(,"")"}, {"times", 2'000'000}}}}},
        {.name = "MebibyteThatIsNoJson",
         .script = {{"body", "$filler"}, {"filler", {{"text", "x"}, {"times", 1U << 20U}}}},
         .outcome = {.result = 300001}},
        // The body alone, once: measured 122.
        {.name = "HundredMebibytesOfBlanks",
         .script = {{"body", "$filler$body"}, {"filler", {{"text", " "}, {"times", 100UL << 20U}}}},
         .outcome = {.peakMiB = 139}},
    };
}

}  // namespace vantix::test
