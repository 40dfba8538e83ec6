// The real daemons on loopback, and what becomes of it however the program ends.
#include "base/failure_codes.h"
#include "chrony/demonstration/demonstration.h"
#include "chrony/demonstration/recorded_day.h"
#include "linux/posix_execute.h"
#include "support/child_program.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using testing::parent_of;
using testing::Watched;

std::string chronyd() {
    return TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd";
}
std::string chronyc() {
    return TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyc";
}

pid_t pid_in(const std::string& path) {
    pid_t pid = -1;
    std::ifstream(path) >> pid;
    return pid;
}

class DemonstrationTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (access(chronyd().c_str(), X_OK) != 0 || access(chronyc().c_str(), X_OK) != 0)
            GTEST_SKIP() << "the bundle has no chrony";
    }

    testing::PrivateHome m_home;
    const std::string m_base = m_home.path();
};

TEST_F(DemonstrationTest, ThePairSynchronisesAndStopEndsItAll) {
    Demonstration demonstration;
    const auto started = demonstration.start(chronyd(), m_base + "/demo");
    ASSERT_TRUE(started) << english(started.error());
    const auto client = pid_in(demonstration.client_pidfile());
    const auto server = pid_in(demonstration.folder() + "/server/chronyd.pid");
    for (const auto pid : {client, server}) {
        std::ifstream file("/proc/" + std::to_string(pid) + "/cmdline");
        const std::string command(std::istreambuf_iterator<char>(file), {});
        EXPECT_NE(command.find(std::string("\0-x\0", 4)), std::string::npos) << "the system clock is not protected";
    }
    PosixExecute execute;
    const auto ready = demonstration.wait_until_synchronised(execute, chronyc(), std::chrono::seconds(10));
    EXPECT_TRUE(ready) << english(ready.error());
    const auto report = execute.run({chronyc(), {"-h", demonstration.socket(), "-n", "tracking"}}).output;
    EXPECT_NE(report.find("Leap status     : Normal"), std::string::npos) << report;
    EXPECT_TRUE(fs::exists(demonstration.tracking_log()));
    EXPECT_TRUE(fs::exists(demonstration.client_config()));

    const Watched client_end(client);
    const Watched server_end(server);
    demonstration.stop();
    EXPECT_TRUE(client_end.ends_within(std::chrono::milliseconds(0)));
    EXPECT_TRUE(server_end.ends_within(std::chrono::milliseconds(0)));
    EXPECT_FALSE(fs::exists(m_base + "/demo"));
    EXPECT_EQ(demonstration.socket(), "");
}

TEST_F(DemonstrationTest, AKilledSupervisorTakesTheDaemonsWithIt) {
    Demonstration demonstration;
    const auto started = demonstration.start(chronyd(), m_base + "/demo");
    ASSERT_TRUE(started) << english(started.error());
    const auto pid = pid_in(demonstration.client_pidfile());
    const Watched client(pid);
    const Watched server(pid_in(demonstration.folder() + "/server/chronyd.pid"));
    kill(parent_of(pid), SIGKILL);
    EXPECT_TRUE(client.ends_within(std::chrono::seconds(5)));
    EXPECT_TRUE(server.ends_within(std::chrono::seconds(5)));
    demonstration.stop();
    EXPECT_FALSE(fs::exists(m_base + "/demo"));
}

struct RunningDemonstration : DemonstrationTest {
    void SetUp() override {
        DemonstrationTest::SetUp();
        if (IsSkipped())
            return;
        const auto started = demonstration.start(chronyd(), m_base + "/demo");
        ASSERT_TRUE(started) << english(started.error());
        ASSERT_TRUE(demonstration.wait_until_synchronised(execute, chronyc(), std::chrono::seconds(10)));
    }
    [[nodiscard]] std::string asked(const std::string& command) {
        return execute.run({chronyc(), {"-h", demonstration.socket(), "-n", "-c", command}}).output;
    }
    // By its line in chronyc's report: '*', '+', '?'.
    [[nodiscard]] char letter_of(const char* server) {
        const std::string sources = asked("sources");
        const auto line = sources.find(std::string(",") + server + ",");
        return line == std::string::npos || line == 0 ? '\0' : sources[line - 1];
    }

    Demonstration demonstration;
    PosixExecute execute;
};

TEST_F(RunningDemonstration, ItsLogsGoOnWhereTheRecordedDayEnds) {
    const auto recorded = recorded_day(demonstration.begun()).logs;
    for (const auto& [name, text] : {std::pair{"tracking.log", &recorded.tracking},
                                     {"measurements.log", &recorded.measurements},
                                     {"statistics.log", &recorded.statistics}}) {
        const auto is_behind_it = [&, name = name, text = text] {
            const std::string log = testing::contents(demonstration.folder() + "/client/" + name);
            return log.starts_with(*text) &&
                   std::count(log.begin(), log.end(), '\n') > std::count(text->begin(), text->end(), '\n') + 3;
        };
        EXPECT_TRUE(testing::eventually(std::chrono::seconds(10), is_behind_it)) << name;
    }
}

TEST_F(RunningDemonstration, AnotherConfigurationIsInstalledOrTheFormerOneComesBack) {
    const std::string former = testing::contents(demonstration.client_config());
    const auto before = pid_in(demonstration.client_pidfile());
    ASSERT_TRUE(demonstration.install(former + "maxupdateskew 50\n"));
    EXPECT_NE(pid_in(demonstration.client_pidfile()), before);
    EXPECT_NE(asked("tracking"), "");
    for (const char* bad : {"nonsense\n", ""}) { // with the second one chronyd runs, out of sight
        const auto refused = demonstration.install(bad);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().code, FailureCode::demonstration_keeps_former) << english(refused.error());
        EXPECT_EQ(testing::contents(demonstration.client_config()), former + "maxupdateskew 50\n");
        EXPECT_NE(asked("tracking"), "");
    }
}

TEST_F(RunningDemonstration, ServersArePulledOutAndPutBack) {
    constexpr std::chrono::seconds patience(30);
    ASSERT_TRUE(testing::eventually(patience, [this] { return letter_of("127.0.0.1") == '*'; }));
    ASSERT_TRUE(demonstration.pull_out(0, true));
    EXPECT_TRUE(testing::eventually(patience, [this] {
        return letter_of("127.0.0.1") == '?' && (letter_of("127.0.0.2") == '*' || letter_of("127.0.0.3") == '*');
    })) << asked("sources");
    ASSERT_TRUE(demonstration.pull_out(0, false));
    EXPECT_TRUE(testing::eventually(patience, [this] { return letter_of("127.0.0.1") == '*'; })) << asked("sources");
}

TEST_F(DemonstrationTest, ALongPathIsReplacedByAShortOne) {
    Demonstration demonstration;
    const auto folder = m_base + "/" + std::string(90, 'x');
    const auto started = demonstration.start(chronyd(), folder);
    ASSERT_TRUE(started) << english(started.error());
    EXPECT_NE(demonstration.folder(), folder);
    const auto used = demonstration.folder();
    demonstration.stop();
    EXPECT_FALSE(fs::exists(used));
}

TEST_F(DemonstrationTest, WhatFailsIsSaidInOneSentence) {
    std::ofstream(m_base + "/broken") << "#!/bin/sh\necho '2026-11-21T05:20:32Z No port for me' >&2\nexit 1\n";
    chmod((m_base + "/broken").c_str(), 0700);
    fs::create_directory(m_base + "/taken");
    const std::array<std::array<std::string, 3>, 3> cases{
        {{"/nonexistent/chronyd", m_base + "/demo", "/nonexistent/chronyd cannot be run: No such file or directory."},
         {m_base + "/broken", m_base + "/demo", "ended (No port for me)."},
         {chronyd(), m_base + "/taken", "cannot be made: File exists."}}};
    for (const auto& [program, folder, expected] : cases) {
        Demonstration demonstration;
        const auto started = demonstration.start(program, folder);
        ASSERT_FALSE(started);
        const std::string said = english(started.error());
        EXPECT_TRUE(said.ends_with(expected)) << said;
        EXPECT_EQ(std::ranges::count(said, '\n'), 0);
        EXPECT_FALSE(demonstration.is_running());
        EXPECT_FALSE(fs::exists(m_base + "/demo"));
    }
    EXPECT_TRUE(fs::exists(m_base + "/taken"));
}

} // namespace
} // namespace tickervantage
