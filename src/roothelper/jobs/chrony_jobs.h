// The administrative jobs around chrony, each a fixed series of requests to the root helper.
//
// A job looks at the machine and acts through its steps alone. What is to be installed is judged before anything is
// stopped. After that no failed command stops a series, but the first one is what the job's end tells; each series can
// be run again from its start, whatever the machine looks like. Every job blocks for as long as its steps do.
#pragma once

#include "base/paths.h"
#include "chrony/services/compensation_sensor.h"
#include "roothelper/jobs/job_commands.h"
#include "roothelper/jobs/job_machine.h"
#include "settings/preferences.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

// What the preferences say when a job begins.
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

struct CompensationOrder {
    std::string points = {}; // as chronyd reads them, temperatures in thousandths of a degree
    std::string name = {};   // of the file that they come from, for failures
    SensorPlace sensor = {};
};

class ChronyJobs {
public:
    // For one job. The machine and the steps outlive it.
    ChronyJobs(JobSetting setting, const JobMachine& machine, JobSteps& steps);

    Result<> install();
    Result<> uninstall();
    Result<> start();
    Result<> stop();
    Result<> wake_tool(); // installs or removes it, as the setting has it
    Result<> run_chronywake();
    Result<> install_configuration(const std::string& text);
    // Puts chronyd's temperature compensation in place and restarts it. A daemon that does not survive that, or that
    // cannot read the temperature, gets back what there was.
    Result<> install_compensation(const CompensationOrder& order);
    Result<> remove_compensation();
    Result<> rotate_logs();
    Result<> log_permission();
    Result<> adjust_clock(); // or leave it alone, as the setting has it: the installed service, at once
    Result<> restart_gpsd();
    Result<> remove_old();
    Result<> step(double offset_seconds);
    Result<> synchronise(const std::string& server, int timeout_seconds, bool restart);
    Result<> running_check();

    // What the one command printed that the job was about.
    [[nodiscard]] const std::string& output() const { return m_output; }

private:
    [[nodiscard]] Result<> with_output(const std::string& command, FailureCode code);
    [[nodiscard]] Result<> restart_gpsd_if_there();
    void guard();
    Result<> resumed(Result<> outcome); // with what guard() watched over running again
    void stop_daemon();
    void start_daemon();
    [[nodiscard]] Result<> started();
    void disable_service(const ServiceDescription& service);
    void prepare_configuration(const std::string& text);
    // The text of the configuration, from the bundle where there is none yet.
    [[nodiscard]] Result<std::string> find_configuration() const;
    // Whether everything that an installation brings along may be installed.
    [[nodiscard]] Result<> judge_installation();
    [[nodiscard]] Result<> install_all(const std::string& configuration);
    [[nodiscard]] Result<> install_rotation(const std::string& configuration);
    [[nodiscard]] Result<> place_wake_tool();
    [[nodiscard]] StepReply place_configuration(const std::string& temporary, const std::string& text);
    [[nodiscard]] Result<std::string> installed_text() const; // of the configuration, for systemd's chronyd
    [[nodiscard]] Result<> place_compensation();
    void take_back_compensation();
    [[nodiscard]] bool has_temperature();
    [[nodiscard]] bool has_service() const;
    [[nodiscard]] Result<> read_by_its_daemon() const;
    [[nodiscard]] bool holds(const std::string& text) const; // the installed configuration
    [[nodiscard]] Failure recover(bool had_former);
    [[nodiscard]] Failure bring_back_former();
    [[nodiscard]] Result<> present_after(const std::vector<std::string>& paths) const;
    [[nodiscard]] bool comes_up();
    [[nodiscard]] std::string daemon_complaint();
    [[nodiscard]] std::string daemon_name() const; // of its unit, without ending
    [[nodiscard]] std::string log_folder() const;  // as the installed configuration has it
    [[nodiscard]] std::string script() const;
    [[nodiscard]] std::string bundle_program(const char* name) const;
    [[nodiscard]] std::string bundle_resource(const char* name) const;
    [[nodiscard]] ServiceDescription daemon() const;
    [[nodiscard]] ServiceDescription wake() const;

    // What is placed with the next configuration, and what was there before.
    struct CompensationChange {
        std::string points;
        std::string prepared; // the file that holds them, to be installed
        SensorPlace sensor;
        std::optional<std::string> former_points;
        std::optional<SensorPlace> former_sensor;
    };

    JobSetting m_setting;
    const JobMachine& m_machine;
    JobCommands m_commands;
    StepReply m_start_reply; // what the latest start of the daemon answered
    std::string m_unit;      // of the distribution, when its chrony is the one in use; empty: our own
    std::string m_output;
    std::optional<CompensationChange> m_compensation;
    bool m_lacks_temperature = false; // found after the latest start
};

// What chronyd's syntax check found wrong.
[[nodiscard]] Failure not_accepted(const ConfigError& error);

// What the daemon complained of, out of the answer to a start or the service manager's report; empty when that says
// nothing.
[[nodiscard]] std::string complaint_in(const std::string& report);

// The command lines that are no support tool's.
[[nodiscard]] std::string synchronise_line(const std::string& chronyd, const std::string& server, int timeout_seconds);
inline constexpr const char* running_check_line = "/usr/bin/pgrep -l -f chronyd";

// What the administrative jobs are told of the preferences.
[[nodiscard]] JobSetting make_job_setting(const PreferencesGeneral& general, const PreferencesAdvanced& advanced,
                                          const Paths& paths, ServiceForm form = native_service_form);

} // namespace tickervantage
