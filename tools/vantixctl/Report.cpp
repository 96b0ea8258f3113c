#include "Report.h"

#include <chrono>
#include <cstdio>

#include "DetailTable.h"
#include "Explain.h"
#include "Readable.h"
#include "commands/Commands.h"
#include "session/StandardError.h"
#include "text/Unicode.h"

namespace vantix::ctl {
namespace {

/// The text for the outcome of a successful operation.
std::string Shown(const Context& context, const Command& command, const Outcome& outcome) {
    const Json value = outcome.isServerResponse ? WithoutEnvelope(outcome.value) : outcome.value;
    if (value.is_null()) {
        return context.paint(Style::Good, "done") + "\n";
    }
    return outcome.isDetail ? DetailTable(context, value)
                            : Readable(context, value, context.showSecrets ? "" : command.secret);
}

}  // namespace

void Print(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

Json Document(const Command& command, const Outcome& outcome, int64_t milliseconds) {
    Json document = {{"operation", command.name}};
    if (command.IsOperation()) {
        document["slot"] = command.slot;
    }
    document["code"] = outcome.code;
    document["meaning"] = Explain(outcome.code).meaning;
    document["milliseconds"] = milliseconds;
    document["result"] = outcome.value;
    return document;
}

void PrintFailure(std::string_view operation, int32_t code) {
    const Explanation explanation = Explain(code, operation);
    PrintError(std::string(operation) + ": " + std::to_string(code) + ": " + explanation.meaning);
    if (!explanation.advice.empty()) {
        for (const std::string& line : Wrapped(explanation.advice, 86)) {
            std::fputs(("           " + line + "\n").c_str(), StandardError::Stream());
        }
    }
}

int RunOperation(const Context& context, const Session& session, const Command& command,
                 const ArgumentValues& arguments, Json& document) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    const Outcome outcome = command.operation({session.Center(), arguments});
    const auto cost = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
    document = Document(command, outcome, cost);
    if (!context.json && outcome.code != VANTIX_NOERROR) {
        PrintFailure(command.name, outcome.code);
    } else if (!context.json) {
        Print(Shown(context, command, outcome));
    }
    return outcome.code == VANTIX_NOERROR ? kSuccess : kFailure;
}

}  // namespace vantix::ctl
