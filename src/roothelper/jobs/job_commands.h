// The commands of one administrative job. No failed command stops a job, but the first one is what its end tells.
#pragma once

#include "base/failure.h"
#include "chrony/services/chrony_services.h"
#include "chrony/services/compensation_sensor.h"
#include "roothelper/jobs/job_steps.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage {

// The command lines that the support tool of the bundle takes, as the root helper understands them.
//
// A quoted argument stands between double quotes as it is: a quote inside it is not escaped, and the helper refuses the
// line.
class SupportTool {
public:
    static constexpr const char* owner = "root:wheel";
    static constexpr const char* file_mode = "0644";
    static constexpr const char* program_mode = "0755";

    explicit SupportTool(const std::string& bundle) : m_tool('"' + bundle + "/Contents/MacOS/chronysupport\"") {}

    [[nodiscard]] std::string install_item(const std::string& source, const std::string& destination,
                                           const std::string& mode) const;
    // Judges what install_item would install, asking what there is to be asked.
    [[nodiscard]] std::string check_item(const std::string& source, const std::string& destination,
                                         const std::string& mode) const;
    // Puts back what the last configuration installed there had replaced.
    [[nodiscard]] std::string restore_former(const std::string& destination) const;
    [[nodiscard]] std::string remove_item(const std::string& path) const;
    // The folder that something is installed into.
    [[nodiscard]] std::string create_parent(const std::string& folder) const;
    // A folder of the daemon's own.
    [[nodiscard]] std::string create_directory(const std::string& folder) const;
    [[nodiscard]] std::string add_user(const std::string& name) const;
    [[nodiscard]] std::string step_time(double seconds) const;
    // Of the distribution's chrony.
    [[nodiscard]] std::string adjust_clock(bool on) const;
    [[nodiscard]] std::string rotate_logs(const std::string& script, const std::string& log_folder) const;
    [[nodiscard]] std::string use_sensor(const SensorPlace& sensor) const;
    // A verb without arguments: stopchrony, startchrony, stopwake, startwake, checksensor,
    // dropsensor; guardchrony before a stop
    // that must not last, resumechrony to undo it.
    [[nodiscard]] std::string verb(const std::string& name) const;

private:
    std::string m_tool; // in quotes
};

class JobCommands {
public:
    // `temporary` has a slash at its end. The steps outlive the commands.
    JobCommands(const std::string& bundle, std::string temporary, ServiceForm form, JobSteps& steps)
        : m_tool(bundle), m_temporary(std::move(temporary)), m_form(form), m_steps(steps) {}

    [[nodiscard]] const SupportTool& tool() const { return m_tool; }
    [[nodiscard]] bool are_carried_out() const { return m_steps.carries_out(); }

    StepReply run(const std::string& command);
    void run(const std::vector<ServiceLine>& lines);
    // Those that may fail: they take away what need not be there, or their failure shows later.
    StepReply attempt(const std::string& command) { return m_steps.execute(command); }
    void attempt(const std::vector<ServiceLine>& lines);
    // Done, unless a command failed: then not, and the code says of what that is the end.
    [[nodiscard]] Result<> outcome(FailureCode code) const;

    StepReply install_item(const std::string& source, const std::string& destination, const char* mode,
                           bool with_parent);
    void install_program(const std::string& source, const std::string& destination) {
        (void)install_item(source, destination, SupportTool::program_mode, true);
    }

    // Writes a file to be installed; its path.
    [[nodiscard]] Result<std::string> prepare_file(const std::string& name, const std::string& text);
    // These fail where the definitions cannot be written as the user.
    [[nodiscard]] Result<> place_service(const ServiceDescription& service, bool with_parent);
    [[nodiscard]] Result<> install_service(const ServiceDescription& service, bool with_parent);
    void remove_service(const ServiceDescription& service);

private:
    SupportTool m_tool;
    std::string m_temporary;
    ServiceForm m_form;
    JobSteps& m_steps;
    std::optional<Failure> m_failure;
};

// The failure of a job because of what a command answered: of many lines the first one, and the answer alone where it
// says the same.
[[nodiscard]] tl::unexpected<Failure> because(FailureCode code, const Failure& answer);

// The directory part; empty where there is none.
[[nodiscard]] std::string folder_of(const std::string& path);

} // namespace tickervantage
