#pragma once

/// @file
/// One row of the fault matrix: what goes wrong, and what a call then does. Everything is data; the one procedure that
/// all rows go through stands in FaultFixture.h.

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "faults/Subject.h"
#include "support/TestJson.h"

namespace vantix::test {

/// Some code of a failed transfer: which one depends on who notices first.
inline constexpr int kSomeTransportFailure = 100000;

/// What a call does. Counts are exact.
struct Outcome {
    int result = 0;
    size_t requests = 1;        ///< That the servers received: of both families, of renewals too.
    size_t requestsAtMost = 0;  ///< Where the number depends on which thread is first.
    size_t connections = 0;     ///< That ports of the row's own have accepted.
    /// The requests in words, in order: domain, method, and "form", "session" or "token" for what each had with it.
    std::vector<std::string> journal{};
    std::string sent{};            ///< Stands in the last request: its query, form, "sessionId: " or "host: ".
    std::string kept{};            ///< Stands in what the call hands out.
    std::string renewed{};         ///< The credential afterwards, when another one than before.
    std::vector<int> onWindows{};  ///< There the result is one of these, when it is another one; the row says why.
    std::string logged{};          ///< Stands in a line.
    Json handedOut = nullptr;      ///< Members of what the call hands out, as in `ToJson` of the outputs.
    bool isAsBefore = false;       ///< What is handed out is what the good call before handed out.
    size_t idLength = 0;           ///< Of the channel's id, where that is what is large.
    double secondsAtLeast = 0;
    double secondsAtMost = 0;  ///< 0: not looked at.
    size_t peakMiB = 0;        ///< What the call takes at most at once; 0: not looked at.
    size_t keptMiB = 2;        ///< What the process holds more of afterwards.
};

/// What the process lacks, or finds changed, while the object exists.
using Condition = std::shared_ptr<void> (*)(const SimulatorClient& cloud);

/// A text may hold these words, which stand for what the subject and the cloud have in their place: $path $query
/// $serial $body $half $length $hexLength (of the body) $long $list (bodies with a filler) $refresh (the path) $expired
/// (the code); $host and $port (with its colon) of the family, $other (the other family's domain), $closed (where
/// nobody listens).
struct FaultRow {
    std::string name;
    std::vector<Family> families = {Family::kPlatform, Family::kConsumer};

    Json script = nullptr;  ///< A scripted response, or several. Each is for all requests of the subject's path, when
                            ///< it does not say for how many of which.
    Json port = nullptr;    ///< What a port does that takes the place of both domains.
    Json (*portOf)(const std::string& body) = nullptr;  ///< The same, for a response that is no text.
    std::string domain{};                               ///< Takes the place of both domains.
    Condition condition = nullptr;
    Json device = nullptr;  ///< What is different in the subject's device, as the cloud stores it.

    std::optional<std::string> operation{};  ///< Instead of the subject's.
    std::optional<std::string> serial{};     ///< Instead of the subject's; in mode 2 it is shared.
    std::optional<int> channel{};
    std::optional<std::string> credential{};  ///< In the place of the access token or the session.
    std::optional<std::string> time{};        ///< In the place of both ends of a time span.
    int callers = 1;                          ///< How many make the same call at once.
    std::string hold{};                       ///< Of the script: ends when all callers wait there.

    Outcome outcome{};                  ///< Of every subject, or of those that the others do not stand for.
    std::optional<Outcome> consumer{};  ///< Of the consumer family.
    std::optional<Outcome> task{};      ///< Of the asynchronous front.
};

/// A row, met by one of the subjects.
struct FaultCase {
    FaultRow row;
    Subject subject;

    const Outcome& Expected() const;
    std::string Name() const { return row.name + "_" + subject.name; }
};

void PrintTo(const FaultCase& fault, std::ostream* out);

/// Every row for every subject of its families.
std::vector<FaultCase> CasesOf(const std::vector<FaultRow>& rows);

/// The text, or every text within the JSON, with the words replaced.
std::string Filled(std::string text, const Subject& subject, const Json& addresses);
Json Filled(const Json& json, const Subject& subject, const Json& addresses);

/// The tables, one for each paragraph of the matrix.
std::vector<FaultRow> ConnectionRows();
std::vector<FaultRow> FramingRows();
std::vector<FaultRow> StatusRows();
std::vector<FaultRow> SizeRows();
std::vector<FaultRow> RedirectRows();
std::vector<FaultRow> JsonRows();
std::vector<FaultRow> CredentialRows();
std::vector<FaultRow> ArgumentRows();
std::vector<FaultRow> HostRows();
std::vector<FaultRow> SlowRows();

}  // namespace vantix::test
