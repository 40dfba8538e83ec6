#include "base/failure_codes.h"
#include "roothelper/jobs/chrony_jobs.h"
#include "roothelper/jobs/daemon_watch.h"
#include "roothelper/jobs/job_catalogue.h"
#include "roothelper/jobs/synchronize.h"
#include "support/child_program.h"
#include "support/fake_job_machine.h"
#include "support/kept_text.h"
#include "support/scripted_execute.h"
#include "support/test.h"

#include <fmt/format.h>

namespace tickervantage {
namespace {

using Lines = std::vector<std::string>;

// One line a step, short enough for a table: TOOL is the support tool in quotes, B/ the bundle, T/ the temporary
// folder.
std::string shortened(std::string text) {
    for (const auto& [from, to] : {std::pair{"\"/B.app/Contents/MacOS/chronysupport\"", "TOOL"},
                                   {" \"root:wheel\"", ""},
                                   {"/B.app/Contents/", "B/"},
                                   {"/Library/LaunchDaemons/", "L/"},
                                   {"/etc/systemd/system/", "S/"}})
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from))
            text.replace(at, std::string_view(from).size(), to);
    return text;
}

std::string shown(const RecordedSteps::Step& step) {
    if (const auto* command = std::get_if<RecordedSteps::Execute>(&step))
        return shortened(command->command);
    if (const auto* sleep = std::get_if<RecordedSteps::Sleep>(&step))
        return "sleep " + std::to_string(sleep->seconds);
    return "write " + std::get<RecordedSteps::Write>(step).path;
}

class AnsweringSteps : public RecordedSteps {
public:
    std::function<std::string(const std::string& command)> answer;
    std::map<std::string, std::string> failing; // words of a command, and what it fails with
    std::optional<Failure> why;                 // in place of the words
    bool disk_is_full = false;
    bool carried_out = false;

    StepReply execute(const std::string& command) override {
        (void)RecordedSteps::execute(command);
        for (const auto& [words, reply] : failing)
            if (command.find(words) != std::string::npos)
                return {reply, tl::unexpected(why.value_or(said_by_others(reply)))};
        return {answer ? answer(command) : std::string()};
    }
    Result<> write(const std::string& path, const std::string& text) override {
        if (disk_is_full)
            return failed(FailureCode::cannot_write, {path}, ENOSPC);
        return RecordedSteps::write(path, text);
    }
    [[nodiscard]] bool carries_out() const override { return carried_out; }
};

struct ChronyJobsTest : ::testing::Test {
    testing::FakeJobMachine machine;
    std::map<std::string, std::string>& files = machine.files;
    JobSetting setting{.config = "/etc/chrony.d/chrony.conf",
                       .chronyc = "/usr/local/bin/chronyc",
                       .chronyd = "/usr/local/sbin/chronyd",
                       .chronywake = "/usr/local/bin/chronywake",
                       .wake_options = {"--make-limit", "3"},
                       .bundle = "/B.app",
                       .temporary = "T/",
                       .form = ServiceForm::launchd};
    AnsweringSteps steps;
    std::vector<bool> survivals; // what the daemon does, start by start; then it stays up

    void SetUp() override {
        files["/B.app/Contents/Resources/chrony.conf"] = "logdir /var/log/chrony\n";
        machine.checked = [](const std::string& text) {
            auto error =
                parse_check_answer(text.starts_with("bad") ? "1 Fatal error : Invalid at line 1 in file x" : "");
            if (text.starts_with("doubtful"))
                error.m_doubt = said_by_others("No chronyd may read it.");
            return error;
        };
        machine.survives = [this] {
            const bool up = survivals.empty() || survivals.front();
            if (!survivals.empty())
                survivals.erase(survivals.begin());
            return up;
        };
    }
    // What the job did not do; empty: nothing.
    std::string run(const AdminRequest& request) {
        const JobResult result = play(request, setting, machine, steps);
        return result.outcome ? "" : english(result.outcome.error());
    }
    Lines series(const AdminRequest& request) {
        (void)run(request);
        return series();
    }
    Lines series() const {
        Lines lines;
        for (const auto& step : steps.steps())
            lines.push_back(shown(step));
        return lines;
    }
    // The texts that a form's definitions have.
    std::string written(const std::string& path) const {
        for (const auto& step : steps.steps())
            if (const auto* write = std::get_if<RecordedSteps::Write>(&step); write != nullptr && write->path == path)
                return write->text;
        return "not written";
    }
};

// Every step, with the texts of the files, in both forms of services.
TEST_F(ChronyJobsTest, SeriesAreAsApproved) {
    std::string told;
    const auto tell = [&](const std::string& what, const AdminRequest& request) {
        steps = {};
        told += "== " + what + "\n";
        for (const auto& line : series(request))
            told += line + "\n";
        for (const auto& step : steps.steps())
            if (const auto* write = std::get_if<RecordedSteps::Write>(&step))
                told += "-- " + write->path + "\n" + write->text;
    };
    const AdminRequest sync{.job = AdminJob::synchronise, .server = "a b", .timeout_seconds = 120};
    AdminRequest no_restart = sync;
    no_restart.restart = false;
    const auto empty_machine = files;
    for (const auto form : {ServiceForm::launchd, ServiceForm::systemd}) {
        const bool lists = form == ServiceForm::launchd;
        const auto definition = [lists](const std::string& name) {
            return (lists ? "/Library/LaunchDaemons/" : "/etc/systemd/system/") + name +
                   (lists ? ".plist" : ".service");
        };
        files = empty_machine;
        setting.form = form;
        setting.adj_system = setting.install_wake = true;
        tell("install on an empty machine", {AdminJob::install});
        setting.adj_system = setting.install_wake = false;
        files[setting.config] = "user root\nlogdir /logs\n";
        tell("install over a configuration, without adjustment and chronywake", {AdminJob::install});
        files[definition("net.brisklane.gpsdstart")] = "";
        files[definition("org.tuxfamily.chronyd")] = "";
        setting.restart_gpsd = true;
        for (const auto& request : std::vector<AdminRequest>{{AdminJob::start},
                                                             {AdminJob::stop},
                                                             {AdminJob::uninstall},
                                                             {AdminJob::wake_tool},
                                                             {AdminJob::run_wake},
                                                             {AdminJob::rotate_logs},
                                                             {AdminJob::log_permission},
                                                             {AdminJob::restart_gpsd},
                                                             {AdminJob::remove_old},
                                                             {.job = AdminJob::step, .offset_seconds = 0.0001},
                                                             {.job = AdminJob::step, .offset_seconds = -1.5},
                                                             {.job = AdminJob::step, .offset_seconds = 0},
                                                             sync,
                                                             no_restart,
                                                             {AdminJob::running_check}})
            tell(std::string(entry_of(request.job).name), request);
        setting.restart_gpsd = false;
    }
    told += "== steps and servers\n";
    for (const double seconds : {0.0, 1.5, -59.999, 61.0, 3600.0, -90'061.5, 4e9, 4.1e9, 1e-5, std::nan("")}) {
        const auto length = length_of_step(std::isfinite(seconds) ? seconds : 0);
        told += fmt::format("{} is sent as {}: {} d {} h {} min {:.3f} s\n", seconds, step_offset(seconds).value_or(0),
                            length.days, length.hours, length.minutes, length.seconds);
    }
    for (const char* name : {"a", "a b", "a  b", " a", "a ", "", "fe80::1%eth0", "a.example nts", "a;b", "-a"})
        told += fmt::format("\"{}\" {}\n", name, is_server_name(name));
    testing::expect_as_kept(told, "jobs");
}

TEST_F(ChronyJobsTest, OnlyAServiceThatIsThereIsDisabled) {
    files["/etc/systemd/system/net.brisklane.chronywake.service"] = "";
    setting.form = ServiceForm::systemd;
    Lines disabled = series({AdminJob::uninstall});
    std::erase_if(disabled, [](const std::string& line) { return line.find(" disable ") == std::string::npos; });
    EXPECT_EQ(disabled, Lines{"/bin/systemctl disable --now net.brisklane.chronywake.service"});
}

TEST_F(ChronyJobsTest, ConfigurationWithoutLogsInstallsNoRotation) {
    files["/B.app/Contents/Resources/chrony.conf"] = "local\n";
    EXPECT_EQ(run({AdminJob::install}), "");
    EXPECT_EQ(written("T/chronylogrotate.plist"), "not written");
}

TEST_F(ChronyJobsTest, WhatMayNotBeInstalledStopsNothing) {
    files["/B.app/Contents/Resources/chrony.conf"] = "bad\n";
    EXPECT_EQ(run({AdminJob::install}), "chronyd refuses this configuration: Fatal error : Invalid at line 1.");
    files.erase("/B.app/Contents/Resources/chrony.conf");
    EXPECT_EQ(run({AdminJob::install}),
              "There is no configuration to be installed: /B.app/Contents/Resources/chrony.conf cannot be read.");
    EXPECT_TRUE(steps.steps().empty());

    files["/B.app/Contents/Resources/chrony.conf"] = "local\n";
    steps.failing = {{"checkitem", "The configuration was not installed: line 1 (user foo) needs an authorisation."}};
    const AdminRequest request{.job = AdminJob::install_config, .configuration = "user foo\nlogdir /logs\n"};
    EXPECT_EQ(run(request), steps.failing["checkitem"]) << "the words are not doubled";
    EXPECT_NE(run({AdminJob::install}), "");
    EXPECT_NE(run({.job = AdminJob::synchronise, .server = "bad\"name", .restart = false}), "");
    for (const auto& line : series())
        for (const char* verb : {"stopchrony", "adduser", "createdirectory", "installitem", " -q "})
            EXPECT_EQ(line.find(verb), std::string::npos) << line;
}

TEST_F(ChronyJobsTest, InstallationThatFailsMidwayStartsAgainWhatItStopped) {
    steps.failing = {{"installitem", "Cannot write: No space left on device."}};
    EXPECT_EQ(run({AdminJob::install}), "chrony was not installed: Cannot write: No space left on device.");
    EXPECT_EQ(series().back(), "TOOL resumechrony");
    for (const auto& line : series())
        EXPECT_EQ(line.find("TOOL createdirectory /var"), std::string::npos)
            << "nothing is prepared for no configuration";
}

TEST_F(ChronyJobsTest, ConfigurationThatCannotBePlacedIsNotPreparedAndTheDaemonRunsAgain) {
    steps.failing = {{"installitem", "Cannot write: No space left on device."}};
    EXPECT_EQ(run({.job = AdminJob::install_config, .configuration = "user ntp\nlogdir /logs\n"}),
              "The configuration was not installed: Cannot write: No space left on device.");
    for (const auto& line : series())
        EXPECT_TRUE(line.find("adduser") == std::string::npos && line.find("createdirectory") == std::string::npos);
    EXPECT_EQ(series().back(), "TOOL startchrony");
}

TEST_F(ChronyJobsTest, JobWhoseCommandFailsIsNotDoneAndSaysWhy) {
    files[setting.config] = "logdir /logs\n";
    files["/Library/LaunchDaemons/net.brisklane.gpsdstart.plist"] = "";
    const AdminRequest sync{.job = AdminJob::synchronise, .server = "a"};
    const struct {
        AdminRequest request;
        const char* command;
        const char* reply;
        const char* sentence;
    } cases[] = {
        {{AdminJob::start}, "startchrony", "a.service does not stay up: No key", "chronyd was not started: No key."},
        {{AdminJob::start}, "startchrony", "", "chronyd was not started."},
        {{AdminJob::stop}, "stopchrony", "Cannot stop it.", "chronyd was not stopped: Cannot stop it."},
        {{AdminJob::wake_tool}, "startwake", "No unit.\nSee it.", "chronywake was not installed: No unit."},
        {{AdminJob::run_wake},
         "chronywake",
         "506 Cannot talk",
         "chronywake did not correct the clock: 506 Cannot talk."},
        {{AdminJob::rotate_logs}, "rotatelogs", "No script.", "The logs were not rotated: No script."},
        {{AdminJob::log_permission}, "chmod", "No log.", "The tracking log was not made readable: No log."},
        {{AdminJob::restart_gpsd}, "bootstrap", "No.", "The GPS daemon was not restarted: No."},
        {{AdminJob::uninstall}, "removeitem", "Busy.", "chrony was not removed as a whole: Busy."},
        {{.job = AdminJob::step, .offset_seconds = 1},
         "steptime",
         "Not permitted.",
         "The clock was not stepped: Not permitted."},
        {sync, " -q ", "no source\n", "The clock was not synchronised."},
        {sync, "startchrony", "No.", "chronyd was not started: No."},
        {{AdminJob::running_check}, "pgrep", "No.", "The processes could not be listed: No."}};
    for (const auto& [request, command, reply, sentence] : cases) {
        steps = {};
        steps.failing = {{command, reply}};
        EXPECT_EQ(run(request), sentence) << command;
    }
    files.clear();
    EXPECT_NE(run({AdminJob::restart_gpsd}), "") << "there is none";
}

TEST_F(ChronyJobsTest, WhyACommandFailedStaysARecordAndIsNotSaidTwice) {
    steps.failing = {{"checkitem", "words"}, {"stopchrony", "words"}};
    const Failure full = failed(FailureCode::cannot_write, {"/x"}, ENOSPC).value();
    const Failure refused = failed(FailureCode::configuration_not_installed, {}, full).value();
    const AdminRequest request{.job = AdminJob::install_config, .configuration = "local\n"};
    steps.why = full;
    EXPECT_EQ(play(request, setting, machine, steps).outcome.error(), refused);
    EXPECT_EQ(run({AdminJob::stop}), "chronyd was not stopped: Cannot write /x: No space left on device.");
    steps.why = Failure{.code = FailureCode::others_words}; // as a helper may send it
    EXPECT_EQ(run({AdminJob::stop}), "chronyd was not stopped.");
    steps.why = refused;
    EXPECT_EQ(play(request, setting, machine, steps).outcome.error(), refused);
}

TEST_F(ChronyJobsTest, NewConfigurationIsPreparedAndTheFormerOneComesBackWhenTheDaemonDies) {
    const AdminRequest request{.job = AdminJob::install_config,
                               .configuration =
                                   "user ntp\nlogdir /logs\ndumpdir /dump\nbindcmdaddress /run/chrony/chronyd.sock\n"};
    const Lines placed{"write T/to_be_installed_chrony.conf",
                       R"(TOOL checkitem "T/to_be_installed_chrony.conf" "/etc/chrony.d/chrony.conf" "0644")",
                       "TOOL guardchrony",
                       "TOOL stopchrony",
                       R"(TOOL installitem "T/to_be_installed_chrony.conf" "/etc/chrony.d/chrony.conf" "0644")",
                       "TOOL adduser ntp",
                       "TOOL createdirectory /logs",
                       "TOOL createdirectory /dump",
                       R"(TOOL removeitem "/run/chrony/chronyd.sock")",
                       "TOOL startchrony"};
    EXPECT_EQ(series(request), placed);

    // Carried out, by a helper that does install what it is asked to.
    files[setting.config] = "local stratum 10\n";
    files["/Library/LaunchDaemons/org.chrony-project.chronyd.plist"] = "";
    survivals = {false};
    steps = {};
    steps.carried_out = true;
    steps.answer = [&](const std::string& command) {
        if (command.find("installitem") != std::string::npos)
            files[setting.config] = request.configuration;
        return command.starts_with("/bin/launchctl")
                   ? "x chronyd[9]: start\nx chronyd[9]: Fatal error : Could not open /dev/pps9\nx systemd[1]: Failed\n"
                   : "";
    };
    EXPECT_EQ(run(request),
              "chronyd ended soon after it was started with this configuration: Could not open /dev/pps9. "
              "The former configuration is back, and chronyd runs with it again.");
    Lines expected = placed;
    expected.insert(expected.end(),
                    {"/bin/launchctl print system/org.chrony-project.chronyd", "TOOL guardchrony", "TOOL stopchrony",
                     R"(TOOL restoreformer "/etc/chrony.d/chrony.conf")", "TOOL startchrony"});
    EXPECT_EQ(series(), expected);

    survivals = {false};
    steps.failing = {{"restoreformer", "There is none."}};
    EXPECT_EQ(run(request),
              "chronyd ended soon after it was started with this configuration: Could not open /dev/pps9. "
              "The former configuration did not come back: There is none.");
}

TEST_F(ChronyJobsTest, CompensationComesWithItsConfigurationAndGoesWithIt) {
    setting.form = ServiceForm::systemd;
    setting.chronyd = "/usr/sbin/chronyd";
    setting.config = "/etc/chrony/chrony.conf";
    const std::string former = "pool a\ntempcomp /sys/class/hwmon/hwmon0/temp1_input 1 /etc/old\nlogdir /l\n";
    for (const char* path : {"/usr/sbin/chronyd", "/lib/systemd/system/chrony.service"})
        files[path] = "";
    files[setting.config] = former;
    AdminRequest request{
        .job = AdminJob::install_tempcomp,
        .compensation = {.points = "20000 1\n30000 -1\n",
                         .name = "my.points",
                         .sensor = {"/sys/devices/platform/coretemp.0/hwmon", "coretemp", "temp2_input"}}};
    const Lines placed{"write T/to_be_installed.tempcomp",
                       R"(TOOL checkitem "T/to_be_installed.tempcomp" "/etc/chrony/tickervantage.tempcomp" "0644")",
                       "write T/to_be_installed_chrony.conf",
                       R"(TOOL checkitem "T/to_be_installed_chrony.conf" "/etc/chrony/chrony.conf" "0644")",
                       "TOOL guardchrony",
                       "/bin/systemctl stop chrony.service",
                       R"(TOOL installitem "T/to_be_installed.tempcomp" "/etc/chrony/tickervantage.tempcomp" "0644")",
                       R"(TOOL usesensor "/sys/devices/platform/coretemp.0/hwmon" "coretemp" "temp2_input")",
                       R"(TOOL installitem "T/to_be_installed_chrony.conf" "/etc/chrony/chrony.conf" "0644")",
                       "TOOL createdirectory /l",
                       "/bin/systemctl start chrony.service"};
    EXPECT_EQ(series(request), placed);
    const std::string text = written("T/to_be_installed_chrony.conf");
    EXPECT_EQ(text, "pool a\nlogdir /l\ntempcomp /etc/chrony/tickervantage.temperature 10 "
                    "/etc/chrony/tickervantage.tempcomp\nlog tracking tempcomp\n");

    // The daemon runs, and says that it has no temperature: what there was comes back, the former sensor too.
    steps = {};
    steps.carried_out = true;
    steps.answer = [&](const std::string& command) -> std::string {
        if (command.find("installitem") != std::string::npos)
            files[setting.config] = text;
        return "";
    };
    steps.failing = {{"checksensor", ""}};
    steps.why = Failure{.code = FailureCode::compensation_without_temperature};
    const std::string sensors = "/etc/systemd/system/chrony.service.d/tickervantage-sensor.conf";
    files[sensors] = sensor_drop_in({"/sys/devices/a/hwmon", "lm75", "temp1_input"});
    files["/etc/chrony/tickervantage.tempcomp"] = "1000 1\n2000 1\n";
    EXPECT_EQ(run(request), "chronyd cannot read the temperature with this configuration. The former configuration is "
                            "back, and chronyd runs with it again.");
    const Lines back{
        R"(TOOL restoreformer "/etc/chrony/chrony.conf")", R"(TOOL restoreformer "/etc/chrony/tickervantage.tempcomp")",
        R"(TOOL usesensor "/sys/devices/a/hwmon" "lm75" "temp1_input")", "/bin/systemctl start chrony.service"};
    const Lines all = series();
    ASSERT_GE(all.size(), back.size());
    EXPECT_EQ(Lines(all.end() - 4, all.end()), back);

    // Points that cannot be placed leave the former configuration where it is.
    steps = {};
    files[setting.config] = former;
    files.erase(sensors);
    files.erase("/etc/chrony/tickervantage.tempcomp");
    steps.why.reset();
    steps.failing = {{"usesensor", "No such sensor."}};
    EXPECT_EQ(run(request), "The configuration was not installed: No such sensor.");
    const Lines undone{R"(TOOL removeitem "/etc/chrony/tickervantage.tempcomp")", "TOOL dropsensor",
                       "/bin/systemctl start chrony.service"};
    const Lines tried = series();
    EXPECT_EQ(Lines(tried.end() - 3, tried.end()), undone);

    steps = {};
    request.compensation.points = "20 1\n30 -1\n";
    EXPECT_EQ(run(request), "my.points has temperatures in degrees, while the sensor gives thousandths of a degree.");
    EXPECT_EQ(run({AdminJob::remove_tempcomp}), "The configuration holds no compensation that was installed here.");
    EXPECT_TRUE(steps.steps().empty());
    files[setting.config] = text;
    EXPECT_EQ(run({AdminJob::remove_tempcomp}), "");
    EXPECT_EQ(written("T/to_be_installed_chrony.conf"), "pool a\nlogdir /l\n");
    const Lines removed = series();
    EXPECT_EQ(Lines(removed.end() - 2, removed.end()),
              (Lines{R"(TOOL removeitem "/etc/chrony/tickervantage.tempcomp")", "TOOL dropsensor"}));
}

TEST_F(ChronyJobsTest, FileThatIsNotThereAfterwardsWasNotInstalledWhateverTheReplies) {
    steps.carried_out = true;
    EXPECT_EQ(run({.job = AdminJob::install_config, .configuration = "local\n"}),
              "The configuration was not installed.");
    EXPECT_EQ(run({AdminJob::install}), "/etc/chrony.d/chrony.conf was not installed.");
}

TEST(Complaint, IsTheDaemonsOwnWords) {
    EXPECT_EQ(complaint_in("a.service does not stay up: Fatal error : No /dev/pps9\n"), "No /dev/pps9");
    EXPECT_EQ(complaint_in("a.service does not stay up: Wrong owner of /run/chrony\n"), "Wrong owner of /run/chrony");
    EXPECT_EQ(complaint_in("x chronyd[7]: first\nx chronyd[7]: last\nx systemd[1]: Failed\n"), "last");
    EXPECT_EQ(complaint_in("a.service is active (running).\n"), "");
}

TEST_F(ChronyJobsTest, NothingIsTouchedWhenTheConfigurationIsBadOrTheFileCannotBeWritten) {
    for (const auto& [text, sentence] :
         {std::pair{"bad", "chronyd refuses this configuration: Fatal error : Invalid at line 1."},
          {"doubtful", "This configuration could not be checked and is not installed: No chronyd may read it."}}) {
        EXPECT_EQ(run({.job = AdminJob::install_config, .configuration = text}), sentence);
        files["/B.app/Contents/Resources/chrony.conf"] = text;
        EXPECT_EQ(run({AdminJob::install}), sentence);
    }
    steps.disk_is_full = true;
    EXPECT_EQ(run({.job = AdminJob::install_config, .configuration = "good"}),
              "The files to be installed cannot be written to T/. "
              "Cannot write T/to_be_installed_chrony.conf: No space left on device.");
    EXPECT_TRUE(steps.steps().empty());
}

TEST_F(ChronyJobsTest, DistributionsChronyIsStartedByItsUnitAndNeverReplaced) {
    setting.form = ServiceForm::systemd;
    setting.chronyd = "/usr/sbin/chronyd";
    for (const char* path : {"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd"})
        files[path] = "";
    EXPECT_FALSE(find_distribution_chrony(machine.looks_for_files()));
    files["/lib/systemd/system/chrony.service"] = "";
    EXPECT_EQ(
        find_distribution_chrony(machine.looks_for_files()),
        (DistributionChrony{"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd", "chrony.service"}));
    EXPECT_EQ(series({AdminJob::start}), Lines{"/bin/systemctl start chrony.service"});
    EXPECT_NE(run({AdminJob::install}), "");
    EXPECT_NE(run({AdminJob::uninstall}), "");
    EXPECT_EQ(steps.steps().size(), 1U);
}

TEST_F(ChronyJobsTest, UsualPathsAreTheDistributionsWhereNoneIsOfOurs) {
    const auto usual = [this] {
        return usual_chrony_paths(machine.looks_for_files());
    };
    EXPECT_EQ(usual(), documented_paths());
    for (const char* path : {"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd",
                             "/lib/systemd/system/chrony.service", "/etc/chrony.d/chrony.conf"})
        files[path] = "";
    EXPECT_EQ(usual(), (ChronyPaths{"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd",
                                    documented_paths().chronywake, true}));
    for (const char* ours : {"/usr/local/sbin/chronyd", "/usr/local/bin/chronyc",
                             "/etc/systemd/system/org.chrony-project.chronyd.service"}) {
        files[ours] = "";
        EXPECT_EQ(usual(), documented_paths()) << ours;
        files.erase(ours);
    }
    files.erase("/usr/bin/chronyc");
    EXPECT_EQ(usual(), documented_paths());
}

TEST_F(ChronyJobsTest, ConfigurationThatNobodyReadsIsNotInstalled) {
    steps.carried_out = true;
    machine.started = StartedDaemon{"chrony.service", "/etc/chrony/chrony.conf"};
    EXPECT_EQ(run({.job = AdminJob::install_config, .configuration = "good"}),
              "Nothing was changed: chrony.service reads /etc/chrony/chrony.conf, while the "
              "preferences name /etc/chrony.d/chrony.conf as the configuration.");
    EXPECT_TRUE(steps.steps().empty());
    for (const auto& daemon :
         {std::optional<StartedDaemon>{}, std::optional(StartedDaemon{"own.service", "/etc/chrony.d//chrony.conf"})}) {
        machine.started = daemon;
        (void)run({.job = AdminJob::install_config, .configuration = "good"});
        EXPECT_FALSE(steps.steps().empty());
        steps = {};
        steps.carried_out = true;
    }
}

TEST_F(ChronyJobsTest, StartedDaemonIsToldByItsProcessOrItsUnit) {
    struct Case {
        const char* shown; // by systemctl
        const char* process;
        const char* config; // empty: it cannot be told
    };
    const std::string unit = "LoadState=loaded\nMainPID=0\nEnvironmentFiles=/env (ignore_errors=yes)\nExecStart={ "
                             "path=/usr/sbin/chronyd ; argv[]=/usr/sbin/chronyd $OPTIONS ; ignore_errors=no }\n";
    const std::string running = "LoadState=loaded\nMainPID=7\nExecStart={ argv[]=/x/chronyd -f /old ; }\n";
    files["/etc/chrony.conf"] = "";
    files["/env"] = "# OPTIONS=\"-f /no\"\nOPTIONS=\"-F 1 -f /from/variable\"\n";
    const testing::PrivateHome home;
    const std::filesystem::path proc = home.path("run");
    std::filesystem::create_directories(proc / "7");
    for (const auto& [shown, process, config] :
         {Case{"LoadState=not-found\nMainPID=0\n", "", ""}, Case{"", "", ""}, Case{unit.c_str(), "", "/from/variable"},
          Case{running.c_str(), "", "/old"}, Case{running.c_str(), "/x/chronyd -nxf /run", "/run"},
          Case{running.c_str(), "/x/chronyd -F 1 -f/glued", "/glued"},
          Case{running.c_str(), "/x/chronyd -F 1", "/etc/chrony.conf"}}) {
        std::string words = process;
        std::ranges::replace(words, ' ', '\0');
        std::ofstream(proc / "7" / "cmdline") << words;
        testing::ScriptedExecute execute;
        execute.answer("systemctl chrony.service", shown);
        const StartedDaemonLook look{execute, machine, proc.string()};
        const auto daemon = look.started_daemon(""); // there is none of ours
        EXPECT_EQ(daemon ? daemon->config : "", config) << shown << process;
        EXPECT_EQ(daemon ? daemon->unit : "", *config == '\0' ? "" : "chrony.service");
    }
}

} // namespace
} // namespace tickervantage
