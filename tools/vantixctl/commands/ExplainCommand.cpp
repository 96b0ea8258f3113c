#include "Explain.h"

#include "Report.h"
#include "commands/Commands.h"
#include "text/Unicode.h"

namespace vantix::ctl {

int RunExplain(Context& context, const ArgumentValues& arguments) {
    const int code = arguments.Number("code");
    const Explanation explanation = Explain(code);
    if (context.json) {
        const Json document = {{"code", code},
                               {"layer", explanation.layer},
                               {"meaning", explanation.meaning},
                               {"advice", explanation.advice}};
        Print(Dumped(document) + "\n");
        return kSuccess;
    }
    const Style style = code == 0 ? Style::Good : Style::Bad;
    Print(context.paint(style, std::to_string(code)) + "  " + explanation.meaning + "\n");
    const std::string indent(std::to_string(code).size() + 2, ' ');
    for (const std::string& line : Wrapped(explanation.advice, context.width - static_cast<int>(indent.size()))) {
        Print(line.empty() ? "" : indent + context.paint(Style::Faint, line) + "\n");
    }
    return kSuccess;
}

}  // namespace vantix::ctl
