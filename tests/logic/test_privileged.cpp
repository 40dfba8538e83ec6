#include "privileged/old_installation.h"
#include "privileged/privileged_actions.h"
#include "privileged/running_check.h"
#include "support/fake_privileged_channel.h"
#include "support/manual_dispatch.h"
#include "support/scripted_execute.h"

#include <gtest/gtest.h>

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
    std::filesystem::path proc = std::filesystem::path(::testing::TempDir()) / "running_check_proc";

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
    std::set<std::string> files;
    std::vector<std::string> events;

    OldInstallationRemoval how(ServiceForm form) {
        return {.form = form,
                .file_exists = [this](const std::string& path) { return files.contains(path); },
                .pause =
                    [this](int seconds) {
                        channel.commands.push_back("pause " + std::to_string(seconds));
                    }};
    }
};

TEST_F(OldInstallationTest, NothingRunsWhereNothingIsInstalled) {
    remove_old_installations(how(ServiceForm::systemd), actions, queue);
    EXPECT_EQ(queue.waiting(), 0U);
}

TEST_F(OldInstallationTest, ServiceIsStoppedThenItsDefinitionRemoved) {
    files = {"/Library/LaunchDaemons/org.tuxfamily.chronyd.plist"};
    remove_old_installations(how(ServiceForm::launchd), actions, queue);
    files = {"/etc/systemd/system/org.tuxfamily.chronyc.service"};
    remove_old_installations(how(ServiceForm::systemd), actions, queue);
    queue.turn();
    EXPECT_EQ(channel.commands, (std::vector<std::string>{
                                    "/bin/launchctl bootout system /Library/LaunchDaemons/org.tuxfamily.chronyd.plist",
                                    "pause 2", "rm -f /Library/LaunchDaemons/org.tuxfamily.chronyd.plist", "pause 1",
                                    "/bin/systemctl disable --now org.tuxfamily.chronyc.service", "pause 2",
                                    "rm -f /etc/systemd/system/org.tuxfamily.chronyc.service", "pause 1"}));
}

TEST_F(OldInstallationTest, ClientIsRemovedFirstAndNothingRunsOnceTheActionsAreGone) {
    files = {"/etc/systemd/system/org.tuxfamily.chronyc.service", "/etc/systemd/system/org.tuxfamily.chronyd.service"};
    remove_old_installations(how(ServiceForm::systemd), actions, queue);
    EXPECT_EQ(queue.waiting(), 2U);
    actions.reset();
    queue.turn();
    EXPECT_TRUE(channel.commands.empty());
}

} // namespace
} // namespace tickervantage
