#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "Help.h"
#include "Report.h"
#include "commands/Commands.h"
#include "session/StandardError.h"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#endif

namespace {

using namespace vantix::ctl;

constexpr int kUsageFailure = 2;

/// Runs operations one after the other with one data center.
int RunChain(const Context& context, const std::vector<Invocation>& invocations) {
    const Session session(context.session);
    Json documents = Json::array();
    int status = kSuccess;
    for (const Invocation& invocation : invocations) {
        Json document;
        if (RunOperation(context, session, *invocation.command, invocation.values, document) != kSuccess) {
            status = kFailure;
        }
        documents.push_back(std::move(document));
    }
    if (context.json) {
        Print(Dumped(documents.size() == 1 ? documents.front() : documents) + "\n");
    }
    return status;
}

int Run(const std::vector<std::string>& words) {
    const CommandLine line = ReadCommandLine(words);
    Context context{line.session, line.json, line.showSecrets, Painter(ColourSuits(stdout, line.colour)),
                    ScreenWidth()};
    if (line.version) {
        Print(std::string("vantixctl ") + VANTIXCTL_VERSION + "\n");
        return kSuccess;
    }
    for (const Invocation& invocation : line.invocations) {
        if (invocation.help) {
            Print(HelpText(context, *invocation.command));
            return kSuccess;
        }
    }
    if (line.help) {
        Print(HelpText(context));
        return kSuccess;
    }
    if (line.invocations.empty()) {
        throw UsageError("no command is given; \"vantixctl --help\" lists the commands");
    }
    const Invocation& first = line.invocations.front();
    const bool onlyOperations =
        std::all_of(line.invocations.begin(), line.invocations.end(),
                    [](const Invocation& invocation) { return invocation.command->IsOperation(); });
    if (!onlyOperations && line.invocations.size() > 1) {
        throw UsageError("only operations of the interface can be chained with \"then\"");
    }
    return onlyOperations ? RunChain(context, line.invocations) : first.command->run(context, first.values);
}

}  // namespace

int main(int argc, char** argv) {
#if defined(_WIN32)
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);  // no carriage returns: other programs read the output
#endif
    try {
        return Run({argv + 1, argv + argc});
    } catch (const UsageError& error) {
        PrintError(error.what());
        return kUsageFailure;
    } catch (const std::exception& error) {
        PrintError(error.what());
        return kFailure;
    }
}
