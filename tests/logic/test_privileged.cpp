#include "base/failure_codes.h"
#include "chrony/reports/running_check.h"
#include "roothelper/client/privileged_actions.h"
#include "roothelper/jobs/administrative_jobs.h"
#include "roothelper/jobs/daemon_watch.h"
#include "roothelper/jobs/old_installation.h"
#include "settings/suppressible_alert.h"
#include "settings/warning_register.h"
#include "support/fake_job_machine.h"
#include "support/fake_privileged_channel.h"
#include "support/manual_dispatch.h"
#include "support/memory_stores.h"
#include "support/scripted_execute.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace tickervantage {
namespace {

TEST(RunningCheck, OptionThatForbidsAdjustmentIsFoundAmongTheOthers) {
    for (const char* line :
         {"chronyd -x", "/usr/sbin/chronyd -n -U -x -u root -f a.conf", "chronyd -Ux", "chronyd -nxd"})
        EXPECT_TRUE(forbids_adjustment(line)) << line;
    for (const char* line : {"/usr/sbin/chronyd -F 1", "chronyd", "chronyd -u x", "chronyd -f x -n", "chronyd -fx",
                             "chronyd -u -x", "/opt/x -n", "chronyd 'server x'", "chronyd -- x"})
        EXPECT_FALSE(forbids_adjustment(line)) << line;
}

struct RunningCheckTest : ::testing::Test {
    testing::ScriptedExecute execute;
    std::filesystem::path proc =
        std::filesystem::path(::testing::TempDir()) / ("running_check_proc-" + std::to_string(::getpid()));

    void SetUp() override { std::filesystem::remove_all(proc); }
    void TearDown() override { std::filesystem::remove_all(proc); }
    void set_command_line(const std::string& pid, const std::string& text) {
        std::filesystem::create_directories(proc / pid);
        std::ofstream(proc / pid / "cmdline") << text;
    }
};

TEST_F(RunningCheckTest, AnyDaemonThatAdjustsTheClockCounts) {
    struct Case {
        const char* pgrep;
        ClockDiscipline expected;
    };
    for (const auto& [pgrep, expected] : {
             Case{"", ClockDiscipline::not_running},
             Case{"99 [chronyd] <defunct>\n", ClockDiscipline::not_running},
             Case{"99 chronyd -x\n", ClockDiscipline::forbidden},
             Case{"98 chronyd -x\n99 /usr/sbin/chronyd -F 1\n", ClockDiscipline::adjusting},
             Case{"98 /usr/sbin/chronyd -F 1\n99 chronyd -x\n", ClockDiscipline::adjusting},
             Case{"pgrep: no such option\n", ClockDiscipline::not_running},
         }) {
        execute.answer("pgrep", pgrep);
        EXPECT_EQ(RunningCheck(execute, "", proc).check(), expected) << pgrep;
    }
}

TEST_F(RunningCheckTest, ProcessThatIsStillThereIsNotSearchedAgain) {
    execute.answer("pgrep", "99 chronyd -x\n");
    set_command_line("99", "chronyd -x");
    RunningCheck check(execute, "/run/pid", proc);
    EXPECT_EQ(check.check(), ClockDiscipline::forbidden);
    EXPECT_EQ(check.check(), ClockDiscipline::forbidden);
    EXPECT_EQ(execute.calls, std::vector<std::string>{"pgrep|-a|-x|-F|/run/pid|chronyd"});

    execute.answer("pgrep", "99 chronyd\n");
    set_command_line("99", "chronyd");
    EXPECT_EQ(check.check(), ClockDiscipline::adjusting);
    execute.answer("pgrep", "");
    std::filesystem::remove_all(proc / "99");
    EXPECT_EQ(check.check(), ClockDiscipline::not_running);
    EXPECT_EQ(check.check(), ClockDiscipline::not_running);
    EXPECT_EQ(execute.calls.size(), 4U);
}

struct OldInstallationTest : ::testing::Test {
    testing::FakePrivilegedChannel channel;
    std::shared_ptr<PrivilegedActions> actions = std::make_shared<PrivilegedActions>(channel);
    testing::ManualQueue queue;
    testing::FakeJobMachine machine;

    void SetUp() override {
        machine.paused = [this](int seconds) {
            channel.commands.push_back("pause " + std::to_string(seconds));
        };
    }
};

TEST_F(OldInstallationTest, NothingRunsWhereNothingIsInstalled) {
    remove_old_installations(machine, ServiceForm::systemd, actions, queue);
    EXPECT_EQ(queue.waiting(), 0U);
}

TEST_F(OldInstallationTest, ServiceIsStoppedThenItsDefinitionRemoved) {
    machine.put({"/Library/LaunchDaemons/org.tuxfamily.chronyd.plist"});
    remove_old_installations(machine, ServiceForm::launchd, actions, queue);
    machine.put({"/etc/systemd/system/org.tuxfamily.chronyc.service"});
    remove_old_installations(machine, ServiceForm::systemd, actions, queue);
    queue.turn();
    EXPECT_EQ(channel.commands, (std::vector<std::string>{
                                    "/bin/launchctl bootout system /Library/LaunchDaemons/org.tuxfamily.chronyd.plist",
                                    "pause 2", "rm -f /Library/LaunchDaemons/org.tuxfamily.chronyd.plist", "pause 1",
                                    "/bin/systemctl disable --now org.tuxfamily.chronyc.service", "pause 2",
                                    "rm -f /etc/systemd/system/org.tuxfamily.chronyc.service", "pause 1",
                                    "/bin/systemctl daemon-reload"}));
}

TEST_F(OldInstallationTest, ClientIsRemovedFirstAndNothingRunsOnceTheActionsAreGone) {
    machine.put(
        {"/etc/systemd/system/org.tuxfamily.chronyc.service", "/etc/systemd/system/org.tuxfamily.chronyd.service"});
    remove_old_installations(machine, ServiceForm::systemd, actions, queue);
    EXPECT_EQ(queue.waiting(), 2U);
    actions.reset();
    queue.turn();
    EXPECT_TRUE(channel.commands.empty());
}

struct PrivilegedActionsTest : ::testing::Test {
    testing::FakePrivilegedChannel channel;
    testing::MemoryLogger logger;
    std::vector<PrivilegedProblem> problems;
    std::shared_ptr<PrivilegedActions> actions = std::make_shared<PrivilegedActions>(
        channel, PrivilegedReports{.logger = &logger, .problem = [this](PrivilegedProblem problem, const Failure&) {
                                       problems.push_back(problem);
                                   }});
};

TEST_F(PrivilegedActionsTest, MessagesCarryTheAuthorisationOnlyOnceThereIsOne) {
    (void)actions->execute("a \"b c\"");
    EXPECT_EQ(channel.requests, std::vector<std::string>{"EXECUTE a \"b c\""});
    EXPECT_FALSE(channel.last_auth);
    EXPECT_TRUE(actions->blessHelper() && actions->blessHelper());
    EXPECT_EQ(channel.asked, 1);
    (void)actions->execute("d");
    EXPECT_EQ(channel.last_auth, testing::FakePrivilegedChannel::token);
    actions->quit();
    EXPECT_EQ(channel.requests.back(), "QUIT");
    EXPECT_TRUE(channel.disconnected);
    EXPECT_FALSE(actions->helper_ready());
}

TEST_F(PrivilegedActionsTest, ReplyWithoutTextIsLoggedAndEmpty) {
    channel.reply = std::nullopt;
    EXPECT_EQ(actions->execute("a"), "");
    EXPECT_EQ(logger.sentences, std::vector<std::string>{"Received empty reply"});
}

TEST_F(PrivilegedActionsTest, WhatWasNotDoneHasAFailureWhetherTheHelperNamesItOrOnlySpeaks) {
    channel.reply = "\n No.\nSee the manual.\n";
    EXPECT_FALSE(actions->execute_in_job("a").failure);
    channel.failing = {"a"};
    EXPECT_EQ(actions->execute_in_job("a").failure, said_by_others("No."));
    channel.failure = Failure{.code = FailureCode::authorisation_needed};
    EXPECT_EQ(actions->execute_in_job("a").failure, channel.failure);
}

TEST_F(PrivilegedActionsTest, RefusalAndMissingHelperAreReportedAndAskedForAgain) {
    channel.grants = false;
    EXPECT_FALSE(actions->blessHelper());
    channel.installs = false;
    EXPECT_FALSE(actions->blessHelper());
    EXPECT_EQ(problems, (std::vector{PrivilegedProblem::refused, PrivilegedProblem::not_installed}));
    channel.installs = channel.grants = true;
    EXPECT_TRUE(actions->blessHelper());
}

TEST_F(PrivilegedActionsTest, LapsedAuthorisationIsAskedForAgainByAJobButNotByAReport) {
    ASSERT_TRUE(actions->blessHelper());
    const char* lapsed = words_of(FailureCode::authorisation_lapsed);
    int lapses = 2;
    channel.answer = [&](const std::string&) {
        return lapses-- > 0 ? std::string(lapsed) : "done";
    };
    EXPECT_EQ(actions->execute("report"), lapsed);
    EXPECT_FALSE(actions->helper_ready());
    EXPECT_EQ(channel.asked, 1);
    EXPECT_EQ(actions->execute_in_job("job").reply, "done");
    EXPECT_EQ(channel.asked, 2);
}

struct AdministrativeJobsTest : PrivilegedActionsTest, JobsOwner, JobQueues {
    testing::ManualQueue one_queue;
    testing::ManualMainThread main_thread;
    testing::FakeJobMachine machine;
    std::vector<std::string> events;
    std::unique_ptr<AdministrativeJobs> jobs = std::make_unique<AdministrativeJobs>(AdministrativeJobsParts{
        .actions = actions, .main_thread = main_thread, .queues = *this, .machine = machine, .owner = *this});

    DispatchQueueSerial& queue(std::string_view label) override {
        events.emplace_back(label);
        return one_queue;
    }
    JobSetting job_setting() override { return {.bundle = "/B.app"}; }
    void show_progress(const std::string& text) override { events.push_back(text); }
    AdministrativeJobs::Done done() {
        return [this](const JobResult& result) {
            events.push_back(result.outcome ? "done" : "not done: " + english(result.outcome.error()));
        };
    }
};

TEST_F(AdministrativeJobsTest, JobRunsOnItsQueueWhileOthersAreRefused) {
    jobs->run({AdminJob::stop}, done());
    EXPECT_TRUE(jobs->busy());
    jobs->run({AdminJob::start}, done());
    one_queue.turn();
    EXPECT_FALSE(jobs->busy());
    EXPECT_EQ(channel.commands, std::vector<std::string>{"\"/B.app/Contents/MacOS/chronysupport\" stopchrony"});
    main_thread.turn();
    EXPECT_EQ(events, (std::vector<std::string>{"Stopping chronyd daemon", "net.brisklane.stopchrony",
                                                "not done: Another administrative job is under way.", "", "done"}));
}

TEST_F(AdministrativeJobsTest, RefusedRightsEndTheJobBeforeItsFirstCommand) {
    channel.grants = false;
    jobs->run({AdminJob::stop}, done());
    one_queue.turn();
    main_thread.turn();
    EXPECT_TRUE(channel.commands.empty());
    EXPECT_EQ(events.back(), "not done: Nothing was done.");
    EXPECT_FALSE(jobs->busy());
}

TEST_F(AdministrativeJobsTest, JobIsFinishedThoughNobodyHearsOfItAndTheHelperIsKeptForIt) {
    jobs->run({AdminJob::stop}, done());
    actions->quit();
    EXPECT_FALSE(channel.disconnected);
    jobs.reset();
    one_queue.turn();
    main_thread.turn();
    EXPECT_EQ(channel.commands.size(), 1U);
    EXPECT_EQ(events.back(), "net.brisklane.stopchrony");
}

TEST(DaemonWatch, OurOwnIsLookedAtOnceAndTheDistributionsForAWhile) {
    testing::ScriptedExecute execute;
    int pauses = 0;
    testing::FakeJobMachine machine;
    machine.paused = [&pauses](int seconds) {
        pauses += seconds;
    };
    const DaemonWatch watch{execute, machine};
    execute.answer("systemctl", "", 3);
    EXPECT_FALSE(watch.daemon_survives(""));
    execute.answer("systemctl", "");
    EXPECT_TRUE(watch.daemon_survives(""));
    EXPECT_EQ(execute.calls.back(), "systemctl|is-active|--quiet|org.chrony-project.chronyd.service");
    EXPECT_EQ(pauses, 0);
    EXPECT_TRUE(watch.daemon_survives("chrony.service"));
    EXPECT_EQ(pauses, watch_seconds);
}

TEST(SuppressibleAlert, TickedBoxIsRememberedWhicheverButtonWasPressed) {
    testing::MemorySettingsStore store;
    DefaultSettings settings(store);
    WarningRegister warnings(settings);
    std::size_t pressed = 9;
    int shown = 0;
    const ShowAlert show = [&shown](const Alert&, const std::function<void(AlertAnswer)>& answered) {
        answered({.button = 1, .suppress = ++shown == 2});
    };
    for (const bool expected : {true, true, false})
        EXPECT_EQ(show_unless_suppressed(warnings, show, {.identifier = "PasswordRequired"},
                                         [&pressed](std::size_t button) { pressed = button; }),
                  expected);
    EXPECT_EQ(pressed, 1U);
}

} // namespace
} // namespace tickervantage
