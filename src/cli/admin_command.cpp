#include "cli/admin_command.h"

#include "base/text_lines.h"
#include "cli/terminal.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <utility>

namespace tickervantage {
namespace {

using Json = nlohmann::ordered_json;

Json text_or_null(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

// What came back from a command may be any bytes.
std::string document(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

Json as_json(const RecordedSteps::Step& step) {
    if (const auto* command = std::get_if<RecordedSteps::Execute>(&step))
        return {{"request", "EXECUTE " + command->command}};
    if (const auto* sleep = std::get_if<RecordedSteps::Sleep>(&step))
        return {{"sleep", sleep->seconds}};
    const auto& file = std::get<RecordedSteps::Write>(step);
    return {{"write", {{"path", file.path}, {"text", file.text}}}};
}

void print(const RecordedSteps::Step& step, std::ostream& out) {
    if (const auto* command = std::get_if<RecordedSteps::Execute>(&step)) {
        out << "EXECUTE " << command->command << '\n';
    } else if (const auto* sleep = std::get_if<RecordedSteps::Sleep>(&step)) {
        out << "sleep " << sleep->seconds << '\n';
    } else {
        const auto& file = std::get<RecordedSteps::Write>(step);
        out << "write " << file.path << '\n';
        for (const auto line : non_empty_lines(file.text))
            out << "    " << line << '\n';
    }
}

int tell(const JobResult& result, std::ostream& err) {
    if (!result.sentence.empty())
        err << "tickerctl: " << result.sentence << '\n';
    return result.done ? 0 : answer_is_no;
}

} // namespace

int AdminCommand::dry_run(const AdminRequest& request) const {
    JobProbes looking = probes;
    looking.carried_out = false;
    RecordedSteps steps;
    ChronyJobs jobs(setting, looking, steps);
    const JobResult result = play(request, jobs);
    if (form == OutputForm::json) {
        Json series = Json::array();
        for (const auto& step : steps.steps())
            series.push_back(as_json(step));
        out << document(series);
    } else {
        for (const auto& step : steps.steps())
            print(step, out);
    }
    return tell(result, err);
}

int AdminCommand::carry_out(const AdminRequest& request, PrivilegedActions& actions, SentStepsParts parts) const {
    if (const JobResult rehearsed = rehearse(request, setting, probes); !rehearsed.done)
        return tell(rehearsed, err); // nobody types a password for that
    if (!actions.blessHelper())
        return answer_is_no; // the reason was told when it came up
    Json replies = Json::array();
    parts.heard = [&](const std::string& command, const std::string& reply) {
        replies.push_back({{"request", "EXECUTE " + command}, {"reply", reply}});
        if (form == OutputForm::text && !reply.empty())
            out << trimmed(reply) << '\n' << std::flush;
    };
    SentSteps steps(actions, parts);
    ChronyJobs jobs(setting, probes, steps);
    const JobResult result = play(request, jobs);
    actions.quit(); // a farewell: what the job left stopped is to stay so
    if (form == OutputForm::json)
        out << document({{"done", result.done},
                         {"sentence", text_or_null(result.sentence)},
                         {"output", text_or_null(result.output)},
                         {"replies", replies}});
    if (form == OutputForm::text && result.done && request.job == AdminJob::install)
        out << "chrony is installed; it runs once you start it: tickerctl admin start\n";
    return tell(result, err);
}

} // namespace tickervantage
