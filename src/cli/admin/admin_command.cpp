#include "cli/admin/admin_command.h"

#include "base/text_lines.h"
#include "cli/json_text.h"
#include "cli/terminal.h"
#include "roothelper/jobs/installation_offers.h"
#include "roothelper/jobs/job_steps.h"
#include "settings/preferences.h"
#include "settings/warning_register.h"

#include <fmt/format.h>

#include <ostream>
#include <utility>

namespace tickervantage {
namespace {

Json text_or_null(const std::string& text) {
    return text.empty() ? Json() : Json(text);
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

Json sentence_or_null(const Result<>& outcome) {
    return outcome ? Json() : Json(english(outcome.error()));
}

int tell(const Result<>& outcome, std::ostream& err) {
    if (!outcome)
        err << "tickerctl: " << english(outcome.error()) << '\n';
    return outcome ? 0 : answer_is_no;
}

// Tells of every command what it answered.
class HeardSteps : public SentSteps {
public:
    HeardSteps(PrivilegedActions& actions, JobMachine& machine, OutputForm form, std::ostream& out)
        : SentSteps(actions, machine), m_form(form), m_out(out) {}

    StepReply execute(const std::string& command) override {
        StepReply reply = SentSteps::execute(command);
        hear(command, reply.text);
        return reply;
    }
    [[nodiscard]] Result<> write(const std::string& path, const std::string& text) override {
        auto written = SentSteps::write(path, text);
        if (!written)
            hear("write " + path, english(written.error()));
        return written;
    }
    [[nodiscard]] const Json& replies() const { return m_replies; }

private:
    void hear(const std::string& command, const std::string& reply) {
        m_replies.push_back({{"request", "EXECUTE " + command}, {"reply", reply}});
        if (m_form == OutputForm::text && !reply.empty())
            m_out << trimmed(reply) << '\n' << std::flush;
    }

    OutputForm m_form;
    std::ostream& m_out;
    Json m_replies = Json::array();
};

} // namespace

int AdminCommand::dry_run(const AdminRequest& request) const {
    RecordedSteps steps;
    const JobResult result = play(request, setting, machine, steps);
    if (form == OutputForm::json) {
        Json series = Json::array();
        for (const auto& step : steps.steps())
            series.push_back(as_json(step));
        out << json_text(series);
    } else {
        for (const auto& step : steps.steps())
            print(step, out);
    }
    return tell(result.outcome, err);
}

int AdminCommand::carry_out(const AdminRequest& request, PrivilegedActions& actions) const {
    if (const JobResult rehearsed = rehearse(request, setting, machine); !rehearsed.outcome)
        return tell(rehearsed.outcome, err); // nobody types a password for that
    if (!actions.blessHelper())
        return answer_is_no; // the reason was told when it came up
    HeardSteps steps(actions, machine, form, out);
    const JobResult result = play(request, setting, machine, steps);
    if (ended)
        ended(request.job, result.outcome);
    actions.quit(); // a farewell: what the job left stopped is to stay so
    if (form == OutputForm::json)
        out << json_text({{"done", result.outcome.has_value()},
                          {"sentence", sentence_or_null(result.outcome)},
                          {"output", text_or_null(result.output)},
                          {"replies", steps.replies()}});
    if (form == OutputForm::text && result.outcome && request.job == AdminJob::install)
        out << "chrony is installed; it runs once you start it: tickerctl admin start\n";
    return tell(result.outcome, err);
}

bool tell_unasked_choice(const PreferencesGeneral& general, WarningRegister& warnings, std::ostream& err) {
    warnings.load();
    if (!general.uses_distribution_unasked() || warnings.contains(system_chrony_identifier))
        return false;
    warnings.register_warning(system_chrony_identifier);
    err << fmt::format("tickerctl: The chrony of this system is used, with {}, {} and {}; other paths can be set with "
                       "\"tickerctl settings set\".\n",
                       general.config, general.chronyd, general.chronyc)
        << std::flush;
    return true;
}

} // namespace tickervantage
