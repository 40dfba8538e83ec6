#include "base/failure_codes.h"
#include "chrony/reports/running_check.h"
#include "roothelper/client/privileged_actions.h"
#include "roothelper/jobs/administrative_jobs.h"
#include "roothelper/jobs/daemon_watch.h"
#include "roothelper/jobs/old_installation.h"
#include "settings/warning_register.h"
#include "support/child_program.h"
#include "support/fake_job_machine.h"
#include "support/fake_privileged_channel.h"
#include "support/manual_dispatch.h"
#include "support/memory_stores.h"
#include "support/scripted_execute.h"
#include "support/test.h"

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

// A made-up process file system, in which no process's open files may be read unless a test says what they are.
struct RunningCheckTest : ::testing::Test {
    const testing::PrivateHome home;
    const std::string root = home.path();
    const std::filesystem::path proc = root + "/proc";

    void SetUp() override { listens("0100007F:0143", "0", "77"); }

    void write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((proc / name).parent_path());
        std::ofstream(proc / name) << text;
    }
    void listens(const std::string& address, const std::string& maker, const std::string& inode) const {
        write("net/udp", "  sl  local_address rem_address   st tx_queue rx_queue\n 1: " + address +
                             " 00000000:0000 07 00000000:00000000 00:00000000 00000000 " + maker + " 0 " + inode +
                             " 2 00000000a646e8a1 0\n");
    }
    void runs(const std::string& pid, const std::string& command_line, const std::string& name = "chronyd") const {
        write(pid + "/comm", name + "\n");
        write(pid + "/cmdline", command_line);
    }
    void holds(const std::string& pid, const std::string& inode) const {
        std::filesystem::create_directories(proc / pid / "fd");
        std::filesystem::create_symlink("socket:[" + inode + "]", proc / pid / "fd" / inode);
    }
    [[nodiscard]] ClockDiscipline check(const std::vector<std::string>& arguments = {"-h", "127.0.0.1"}) const {
        return RunningCheck(arguments, root).check();
    }
};

TEST_F(RunningCheckTest, OnlyTheProcessThatHoldsTheSocketCounts) {
    EXPECT_EQ(check(), ClockDiscipline::unknown) << "somebody listens, but no chronyd is to be seen";
    runs("98", "chronyd -x");
    runs("99", "/usr/sbin/chronyd -F 1");
    runs("100", "", "chronyd"); // ended
    runs("101", "chronyd -x", "chronyc");
    EXPECT_EQ(check(), ClockDiscipline::unknown) << "either may hold it";
    holds("98", "77");
    EXPECT_EQ(check(), ClockDiscipline::forbidden);
    std::filesystem::remove_all(proc / "98/fd");
    holds("98", "78");
    EXPECT_EQ(check(), ClockDiscipline::adjusting) << "it holds another one";
    std::filesystem::remove_all(proc / "98/fd");
    write("98/net/udp", "1: 0100007F:0143 00000000:0000 07 0:0 0:0 0 0 0 79 2 0 0\n");
    EXPECT_EQ(check(), ClockDiscipline::adjusting) << "it lives in another network";
    listens("0100007F:0143", "4000000", "77");
    EXPECT_EQ(check(), ClockDiscipline::unknown) << "neither can have made it";
}

TEST_F(RunningCheckTest, ChronycsOptionsSayWhichSocketIsAsked) {
    runs("99", "chronyd -x");
    struct Case {
        std::vector<std::string> arguments;
        ClockDiscipline expected;
    };
    for (const auto& [arguments, expected] :
         {Case{{"-h", "127.0.0.1", "-p", "323"}, ClockDiscipline::forbidden},
          Case{{"-h", "127.0.0.1", "-p", "324"}, ClockDiscipline::not_running},
          Case{{"-h", "/no/such/socket,127.0.0.1"}, ClockDiscipline::forbidden},
          Case{{"-h", "/no/such/socket"}, ClockDiscipline::not_running},
          Case{{"-h", "192.0.2.1"}, ClockDiscipline::unknown}, Case{{"-h", "time.example"}, ClockDiscipline::unknown},
          Case{{"-p", "x"}, ClockDiscipline::unknown}})
        EXPECT_EQ(check(arguments), expected) << arguments[1];
    listens("00000000:0143", "0", "77");
    EXPECT_EQ(check(), ClockDiscipline::forbidden) << "it listens at every address";
}

TEST_F(RunningCheckTest, WhatWasFoundIsOnlyLookedAtAgain) {
    runs("99", "chronyd -x");
    RunningCheck check({"-h", "127.0.0.1"}, root);
    EXPECT_EQ(check.check(), ClockDiscipline::forbidden);
    runs("98", "chronyd");
    EXPECT_EQ(check.check(), ClockDiscipline::forbidden) << "who comes later does not hold this socket";
    listens("0100007F:0143", "0", "78");
    EXPECT_EQ(check.check(), ClockDiscipline::unknown) << "another socket";
    std::filesystem::remove_all(proc / "99");
    EXPECT_EQ(check.check(), ClockDiscipline::adjusting);
    write("net/udp", "");
    EXPECT_EQ(check.check(), ClockDiscipline::not_running);
    EXPECT_EQ(steers(check.check()), std::nullopt);
}

TEST(CommandSockets, AreReadFromTheKernelsTables) {
    const std::string table = "Num       RefCount Protocol Flags    Type St Inode Path\n"
                              "0000000012345678: 00000002 00000000 00000000 0002 01 41 /no such place/../s\n"
                              "0000000012345678: 00000002 00000000 00010000 0001 01 42 /s\n"
                              "0000000012345678: 00000002 00000000 00000000 0002 01 43\n"
                              "0000000012345678: 00000002 00000000 00000000 0002 01 44 @/s\n"
                              "0000000012345678: 00000002 00000000 00000000 0002 01 45 /t/s\n";
    const auto found = sockets_named(table, "/s");
    ASSERT_EQ(found.size(), 1U) << "datagrams, by their place";
    EXPECT_EQ(found[0].inode, "41");
    EXPECT_TRUE(sockets_at("a b c\n1: 0100007F:0143 0:0 07 0:0 0:0 0 nobody 0 9 2\n", "0100007F:0143").empty());
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
    struct : AlertPresenter {
        int shown = 0;
        void show(const Alert&, AlertAnswered answered) override { answered({.button = 1, .suppress = ++shown == 2}); }
    } presenter;
    for (const bool expected : {true, true, false})
        EXPECT_EQ(show_unless_suppressed(warnings, presenter, {.identifier = "PasswordRequired"},
                                         [&pressed](std::size_t button) { pressed = button; }),
                  expected);
    EXPECT_EQ(pressed, 1U);
}

} // namespace
} // namespace tickervantage
