#include "DetailTable.h"
#include "Report.h"
#include "commands/Commands.h"

namespace vantix::ctl {

int RunDetail(Context& context, const ArgumentValues& arguments) {
    const Session session(context.session);
    const Command& command = *FindCommand("detail");
    ArgumentValues fresh = arguments;
    fresh.Set("force", "1");
    const Outcome outcome = FindCommand("getDevDetailInfoSync")->operation({session.Center(), fresh});
    if (context.json) {
        const int64_t cost =
            outcome.code == VANTIX_NOERROR ? outcome.value["device"]["iRequestCost"].get<int64_t>() : 0;
        Print(Dumped(Document(command, outcome, cost)) + "\n");
    } else if (outcome.code == VANTIX_NOERROR) {
        Print(DetailTable(context, outcome.value));
    } else {
        PrintFailure("detail", outcome.code);
    }
    return outcome.code == VANTIX_NOERROR ? kSuccess : kFailure;
}

}  // namespace vantix::ctl
