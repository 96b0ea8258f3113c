#include "Tour.h"

#include <set>

#include "Explain.h"
#include "Journal.h"
#include "Report.h"
#include "commands/Commands.h"
#include "text/Table.h"

namespace vantix::ctl {
namespace {

Cell CodeCell(const std::optional<int32_t>& code) {
    if (!code) {
        return {"–", Style::Faint};
    }
    const Style unsuccessful = *code == VANTIX_ERROR ? Style::Notice : Style::Bad;
    return {std::to_string(*code), *code == VANTIX_NOERROR ? Style::Good : unsuccessful};
}

Cell FutureCell(const Step& step) {
    return step.takesFuture && !step.future ? Cell("untouched", Style::Faint) : CodeCell(step.future);
}

Cell CostCell(const Step& step) {
    return step.cost ? Cell(std::to_string(*step.cost) + " ms") : Cell("–", Style::Faint);
}

std::string StepTable(const Context& context, const std::vector<Step>& steps) {
    Table table({{"#", Align::Right},
                 {"step", Align::Left, true},
                 {"returned", Align::Right},
                 {"future", Align::Right},
                 {"cost", Align::Right}});
    for (size_t index = 0; index < steps.size(); ++index) {
        const Step& step = steps[index];
        if (index > 0 && step.section != steps[index - 1].section) {
            table.AddRule();
        }
        const Paragraph title = step.asExpected ? Paragraph{step.title, Style::Strong}
                                                : Paragraph{step.title + ": unexpected result", Style::Bad};
        table.Add({Cell(std::to_string(index + 1)), Cell({title, {step.call + ": " + step.remark, Style::Faint}}),
                   CodeCell(step.returned), FutureCell(step), CostCell(step)});
    }
    return table.Drawn(context.paint, context.width);
}

std::string CodeTable(const Context& context, const std::vector<Step>& steps) {
    std::set<int32_t> codes;
    for (const Step& step : steps) {
        codes.insert(step.returned.value_or(0));
        codes.insert(step.future.value_or(0));
    }
    codes.erase(0);
    Table table({{"code", Align::Right}, {"from", Align::Left}, {"what it means", Align::Left, true}});
    for (const int32_t code : codes) {
        const Explanation explanation = Explain(code);
        Cell words(explanation.meaning);
        words.paragraphs.push_back({explanation.advice, Style::Faint});
        table.Add({CodeCell(code), Cell(std::string(explanation.layer)), words});
    }
    return table.Drawn(context.paint, context.width);
}

void PrintForPeople(const Context& context, const Tour& tour) {
    const auto heading = [&](std::string_view text) { return "\n  " + context.paint(Style::Strong, text) + "\n"; };
    const bool succeeded = tour.Succeeded();
    Print(heading("A tour of the data center") + StepTable(context, tour.Steps()) +
          heading("What these return codes mean") + CodeTable(context, tour.Steps()) +
          heading("What the cloud received") + JournalTable(context, tour.ReceivedRequests()) + "\n  " +
          context.paint(succeeded ? Style::Good : Style::Bad, succeeded ? "✓" : "✗") +
          (succeeded ? " every step went as it should\n" : " not every step went as it should\n"));
}

Json CodeOrNull(const std::optional<int32_t>& code) { return code ? Json(*code) : Json(nullptr); }

Json AsJson(const Tour& tour) {
    Json steps = Json::array();
    for (const Step& step : tour.Steps()) {
        steps.push_back({{"section", step.section},
                         {"title", step.title},
                         {"call", step.call},
                         {"remark", step.remark},
                         {"returned", CodeOrNull(step.returned)},
                         {"future", CodeOrNull(step.future)},
                         {"cost", CodeOrNull(step.cost)},
                         {"asExpected", step.asExpected}});
    }
    return {{"steps", std::move(steps)}, {"requests", JournalJson(tour.ReceivedRequests())}};
}

}  // namespace

int RunTour(Context& context, const ArgumentValues& /*arguments*/) {
    if (!Cloud::IsAvailable()) {
        throw std::runtime_error("this build has no loopback cloud to tour");
    }
    Tour tour(context.session);
    tour.Run();
    if (context.json) {
        Print(Dumped(AsJson(tour)) + "\n");
    } else {
        PrintForPeople(context, tour);
    }
    return tour.Succeeded() ? kSuccess : kFailure;
}

}  // namespace vantix::ctl
