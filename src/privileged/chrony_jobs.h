// The administrative jobs around chrony, each a fixed series of requests to the root helper.
//
// A job looks at the machine through its probes and acts through its steps alone. What a command answers does not stop
// a series: each can be run again from its start, whatever the machine looks like. Every job blocks for as long as its
// steps do.
#pragma once

#include "config/config_error.h"
#include "platform/services/chrony_services.h"
#include "privileged/distribution_chrony.h"
#include "privileged/job_steps.h"
#include "privileged/support_tool.h"

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
    std::function<ConfigError(const std::string& text)> check_syntax = {};
    std::function<std::string()> find_chronywake = {}; // in the folders of programs; empty: not there
    // Whether the daemon that was just started stays up. The unit is empty for our own. May take seconds.
    std::function<bool(const std::string& unit)> daemon_survives = {};
    bool carried_out = true; // false: the steps are only written down, and what they would change is not looked for
};

struct JobResult {
    bool done = true;          // false: nothing was changed, or what was changed was put back
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
    JobResult restart_gpsd();
    JobResult remove_old();
    JobResult step(double offset_seconds);
    JobResult synchronise(const std::string& server, int timeout_seconds, bool restart);
    JobResult running_check();

private:
    void stop_daemon();
    void start_daemon();
    void run(const std::vector<ServiceLine>& lines);
    [[nodiscard]] int install_service(const ServiceDescription& service, bool with_parent);
    void remove_service(const ServiceDescription& service);
    void install_program(const std::string& source, const std::string& destination);
    std::string install_item(const std::string& source, const std::string& destination, const char* mode,
                             bool with_parent);
    void prepare_configuration(const std::string& text);
    [[nodiscard]] std::string ready_configuration(); // its text; an absent one is made from the bundle's
    [[nodiscard]] int install_rotation(const std::string& configuration);
    [[nodiscard]] int place_wake_tool();
    [[nodiscard]] int place_configuration(const std::string& text, std::string& reply);
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
    std::string m_start_reply; // what the latest start of the daemon answered
    std::string m_unit;        // of the distribution, when its chrony is the one in use; empty: our own
};

// What the daemon complained of, out of the answer to a start or the service manager's report; empty when that says
// nothing.
[[nodiscard]] std::string complaint_in(const std::string& report);

// The command lines that are no support tool's.
[[nodiscard]] std::string synchronise_line(const std::string& chronyd, const std::string& server, int timeout_seconds);
inline constexpr const char* running_check_line = "/usr/bin/pgrep -l -f chronyd";

} // namespace tickervantage
