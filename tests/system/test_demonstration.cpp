// The pair of real daemons on loopback, and what becomes of it however the program ends.
#include "chrony/demonstration/demonstration.h"
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
