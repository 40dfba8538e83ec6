// The administrative jobs around chrony, each a fixed series of requests to the root helper.
//
// A job looks at the machine through its probes and acts through its steps alone. What is to be installed is judged
// before anything is stopped. After that no failed command stops a series, but the first one is what the job's result
// tells; each series can be run again from its start, whatever the machine looks like. Every job blocks for as long as
// its steps do.
#pragma once

#include "chrony/configuration/config_error.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/jobs/distribution_chrony.h"
#include "roothelper/jobs/job_steps.h"
#include "roothelper/jobs/started_daemon.h"
#include "roothelper/jobs/support_tool.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

// What the preferences and the machine say when a job begins.
struct JobSetting {
    std::string config = {}; // paths
    std::string chronyc = {};
    std::string chronyd = {};
    std::string chronywake = {};
    bool install_wake = true;
    bool adj_system = true;
    bool restart_gpsd = false;                  // when chronyd was started by hand
    std::vector<std::string> wake_options = {}; // of the installed wake tool
    std::string bundle = {};
    std::string temporary = {}; // WITH a slash at its end
    ServiceForm form = native_service_form;
};

struct JobProbes {
    FileExists file_exists;
    std::function<std::optional<std::string>(const std::string& path)> read_file = {}; // none: it cannot be read
    std::function<std::vector<std::string>(const std::string& folder)> file_names = {};
    std::function<ConfigError(const std::string& text)> check_syntax = {};
    std::function<std::string()> find_chronywake = {}; // in the folders of programs; empty: not there
    // Whether the daemon that was just started stays up. The unit is empty for our own. May take seconds.
    std::function<bool(const std::string& unit)> daemon_survives = {};
    // The daemon that a start brings up, of the unit or, where that is empty, of the one that the support tool chooses.
    std::function<std::optional<StartedDaemon>(const std::string& unit)> started_daemon = {};
    // Whether the bundle's chronyd can have the kernel refuse system calls that it does not need. Runs it.
    std::function<bool()> filters_calls = {};
    bool carried_out = true; // false: the steps are only written down, and what they would change is not looked for
};

struct JobResult {
    bool done = true;          // false: the sentence says what failed; what was stopped meanwhile runs again
    std::string sentence = {}; // for people; empty: there is nothing to say
    std::string output = {};   // of the one command that the job is about, where it is about one
};

class ChronyJobs {
public:
    // The steps outlive the jobs.
    ChronyJobs(JobSetting setting, JobProbes probes, JobSteps& steps);

    JobResult install();
    JobResult uninstall();
    JobResult start();
    JobResult stop();
    JobResult wake_tool(); // installs or removes it, as the setting has it
    JobResult run_chronywake();
    JobResult install_configuration(const std::string& text);
    JobResult rotate_logs();
    JobResult log_permission();
    JobResult adjust_clock(); // or leave it alone, as the setting has it: the installed service, at once
    JobResult restart_gpsd();
    JobResult remove_old();
    JobResult step(double offset_seconds);
    JobResult synchronise(const std::string& server, int timeout_seconds, bool restart);
    JobResult running_check();

private:
    // Has a command run; the first one that fails is what the outcome tells.
    StepReply run(const std::string& command);
    // The same for one that may fail: it takes away what need not be there, or shows later.
    void attempt(const std::string& command) { (void)m_steps.execute(command); }
    void run(const std::vector<ServiceLine>& lines);
    void attempt(const std::vector<ServiceLine>& lines);
    // Done, unless a command failed: then not, and the words say of what that is the end.
    [[nodiscard]] JobResult outcome(const char* words) const;
    // Of the one command that a job is about.
    [[nodiscard]] JobResult with_output(const std::string& command, const char* words);
    [[nodiscard]] JobResult restart_gpsd_if_there();
    void guard();
    JobResult resumed(JobResult result); // with what guard() watched over running again
    void stop_daemon();
    void start_daemon();
    [[nodiscard]] JobResult started();
    [[nodiscard]] int place_service(const ServiceDescription& service, bool with_parent);
    [[nodiscard]] int install_service(const ServiceDescription& service, bool with_parent);
    void disable_service(const ServiceDescription& service);
    void remove_service(const ServiceDescription& service);
    void install_program(const std::string& source, const std::string& destination);
    StepReply install_item(const std::string& source, const std::string& destination, const char* mode,
                           bool with_parent);
    void prepare_configuration(const std::string& text);
    // The text of the configuration, from the bundle where there is none yet, or why there can be none.
    [[nodiscard]] JobResult find_configuration(std::string& text);
    // Whether everything that an installation brings along may be installed.
    [[nodiscard]] JobResult judge_installation();
    [[nodiscard]] JobResult install_all(const std::string& configuration);
    [[nodiscard]] int install_rotation(const std::string& configuration);
    [[nodiscard]] int place_wake_tool();
    [[nodiscard]] StepReply place_configuration(const std::string& temporary, const std::string& text);
    [[nodiscard]] bool has_service() const;
    [[nodiscard]] std::string read_by_nobody() const; // a sentence, when the configuration's path is not the daemon's
    [[nodiscard]] bool holds(const std::string& text) const; // the installed configuration
    JobResult recover(bool had_former);
    [[nodiscard]] JobResult missing_after(const std::vector<std::string>& paths) const;
    [[nodiscard]] bool comes_up();
    [[nodiscard]] std::string daemon_complaint();
    [[nodiscard]] std::string log_folder() const; // as the installed configuration has it
    [[nodiscard]] std::string script() const;
    [[nodiscard]] std::string bundle_program(const char* name) const;
    [[nodiscard]] std::string bundle_resource(const char* name) const;
    [[nodiscard]] ServiceDescription daemon() const;
    [[nodiscard]] ServiceDescription wake() const;
    [[nodiscard]] JobResult cannot_write() const;

    JobSetting m_setting;
    JobProbes m_probes;
    JobSteps& m_steps;
    SupportTool m_tool;
    std::optional<std::string> m_failure; // what the first command that failed answered
    StepReply m_start_reply;              // what the latest start of the daemon answered
    std::string m_unit;                   // of the distribution, when its chrony is the one in use; empty: our own
};

// "The words: the first line of the detail.", or the detail alone where it says the same.
[[nodiscard]] std::string job_sentence(std::string_view words, std::string_view detail);

// What chronyd's syntax check found wrong.
[[nodiscard]] std::string not_accepted(const ConfigError& error);

// What the daemon complained of, out of the answer to a start or the service manager's report; empty when that says
// nothing.
[[nodiscard]] std::string complaint_in(const std::string& report);

// The command lines that are no support tool's.
[[nodiscard]] std::string synchronise_line(const std::string& chronyd, const std::string& server, int timeout_seconds);
inline constexpr const char* running_check_line = "/usr/bin/pgrep -l -f chronyd";

} // namespace tickervantage
