// The pair of real daemons on loopback, and what becomes of it however the program ends.
#include "chrony/demonstration/demonstration.h"
#include "linux/posix_execute.h"
#include "support/child_program.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using testing::parent_of;
using testing::Watched;

std::string first_program(std::initializer_list<const char*> paths) {
    for (const char* path : paths)
        if (access(path, X_OK) == 0)
            return path;
    return {};
}

std::string chronyd() {
    return first_program({TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd", "/usr/sbin/chronyd"});
}
std::string chronyc() {
    return first_program({TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyc", "/usr/bin/chronyc"});
}

pid_t pid_in(const std::string& path) {
    pid_t pid = -1;
    std::ifstream(path) >> pid;
    return pid;
}

class DemonstrationTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (chronyd().empty() || chronyc().empty())
            GTEST_SKIP() << "chrony is not installed: neither the bundle nor /usr has chronyd and chronyc";
        ASSERT_NE(mkdtemp(m_base.data()), nullptr);
    }
    void TearDown() override { fs::remove_all(m_base); }

    std::string m_base = "/tmp/tv-test-XXXXXX";
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

TEST_F(DemonstrationTest, AKilledProgramLeavesNothingBehind) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t program = fork();
    if (program == 0) {
        Demonstration demonstration;
        std::array<pid_t, 2> daemons{-1, -1};
        if (demonstration.start(chronyd(), m_base + "/demo"))
            daemons = {pid_in(demonstration.client_pidfile()), pid_in(demonstration.folder() + "/server/chronyd.pid")};
        (void)!write(ends[1], daemons.data(), sizeof daemons);
        while (true)
            pause();
    }
    std::array<pid_t, 2> daemons{-1, -1};
    ASSERT_EQ(read(ends[0], daemons.data(), sizeof daemons), static_cast<ssize_t>(sizeof daemons));
    ASSERT_GT(daemons[0], 0);
    ASSERT_GT(daemons[1], 0);
    const Watched client(daemons[0]);
    const Watched server(daemons[1]);
    const Watched supervisor(parent_of(daemons[0]));
    EXPECT_TRUE(fs::exists(m_base + "/demo"));

    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
    EXPECT_TRUE(client.ends_within(std::chrono::seconds(5)));
    EXPECT_TRUE(server.ends_within(std::chrono::seconds(5)));
    EXPECT_TRUE(supervisor.ends_within(std::chrono::seconds(5)));
    EXPECT_FALSE(fs::exists(m_base + "/demo"));

    // The supervisor kept none of the program's pipes open: this one is at its end now.
    close(ends[1]);
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 0);
    close(ends[0]);
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
    const std::array<std::array<std::string, 3>, 3> cases{{
        {"/nonexistent/chronyd", m_base + "/demo", "/nonexistent/chronyd cannot be run: No such file or directory."},
        {m_base + "/broken", m_base + "/demo", "ended (No port for me)."},
        {chronyd(), m_base + "/taken", "cannot be made: File exists."},
    }};
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
