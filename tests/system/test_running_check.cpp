// Chronyds side by side, one of them asked: whether the clock is steered is told of that one, by whoever asks.
#include "chrony/reports/running_check.h"
#include "linux/posix_execute.h"
#include "linux/user_name.h"
#include "roothelper/jobs/mending.h"
#include "roothelper/jobs/this_machine.h"
#include "support/child_program.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>

namespace tickervantage {
namespace {

using testing::ChildProgram;

const std::string chronyd_program = "/usr/sbin/chronyd";
constexpr std::chrono::seconds patience{20};
constexpr uid_t observer = 4242;
constexpr uid_t stranger = 4243;

// Each test process its own, so that two may run side by side.
const int port = 41000 + ::getpid() % 9000;

std::vector<std::string> at(int udp_port) {
    return {"-h", "127.0.0.1", "-p", std::to_string(udp_port)};
}

// A process called chronyd, without the option -x, that may listen at a port and may have given its rights up.
class StandIn {
public:
    StandIn(int udp_port, uid_t user) {
        int told[2];
        if (::pipe(told) != 0)
            std::abort();
        m_pid = ::fork();
        if (m_pid == 0)
            live(udp_port, user, told[1]);
        ::close(told[1]);
        char ready = 0;
        m_is_ready = ::read(told[0], &ready, 1) == 1;
        ::close(told[0]);
    }
    ~StandIn() {
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;
    [[nodiscard]] bool is_ready() const { return m_is_ready; }

private:
    [[noreturn]] static void live(int udp_port, uid_t user, int tell) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::prctl(PR_SET_NAME, "chronyd");
        sockaddr_in address{.sin_family = AF_INET,
                            .sin_port = htons(static_cast<std::uint16_t>(udp_port)),
                            .sin_addr = {htonl(INADDR_LOOPBACK)},
                            .sin_zero = {}};
        const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
        const bool listens =
            udp_port == 0 || ::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        const bool changed = user == ::geteuid() || ::setresuid(user, user, user) == 0;
        if (listens && changed && ::write(tell, "+", 1) == 1)
            while (true)
                ::pause();
        ::_exit(1);
    }

    pid_t m_pid = -1;
    bool m_is_ready = false;
};

ClockDiscipline check_as(uid_t user, const std::vector<std::string>& arguments) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool changed = ::setresgid(user, user, user) == 0 && ::setresuid(user, user, user) == 0;
        ::_exit(changed ? static_cast<int>(RunningCheck(arguments).check()) : 99);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return static_cast<ClockDiscipline>(WEXITSTATUS(status));
}

class AskedDaemon : public ::testing::Test {
protected:
    void SetUp() override {
        if (::access(chronyd_program.c_str(), X_OK) != 0)
            GTEST_SKIP() << "chrony is not installed";
        ::chmod(home.path().c_str(), 0755);
        std::filesystem::copy_file("/bin/sleep", home.path("chronyd"));
    }

    // One that leaves the clock alone, and that this user may or may not look into.
    std::vector<std::string> real(const std::string& user) {
        const std::string folder = home.path("d");
        mkdir(folder.c_str(), 0700);
        testing::write_file(folder + "/conf", "local stratum 5\nport 0\ncmdport " + std::to_string(port) +
                                                  "\nbindcmdaddress 127.0.0.1\nbindcmdaddress " + socket() +
                                                  "\npidfile " + folder + "/pid\n");
        return {chronyd_program, "-x", "-U", "-u", user, "-d", "-f", folder + "/conf"};
    }
    [[nodiscard]] std::string socket() const { return home.path("d/s"); }

    testing::PrivateHome home;
};

TEST_F(AskedDaemon, IsToldFromAStrangerBesideIt) {
    EXPECT_EQ(RunningCheck(at(port)).check(), ClockDiscipline::not_running);
    const ChildProgram daemon(real(user_name(::geteuid())), home.environment, home.path());
    const ChildProgram sleeper({home.path("chronyd"), "600"}, home.environment, home.path());
    for (const auto& arguments : {at(port), {"-h", socket()}})
        EXPECT_TRUE(testing::eventually(patience,
                                        [&] { return RunningCheck(arguments).check() == ClockDiscipline::forbidden; }))
            << arguments[1] << ": " << static_cast<int>(RunningCheck(arguments).check());
    const StandIn steering(port + 1, ::geteuid());
    ASSERT_TRUE(steering.is_ready());
    EXPECT_EQ(RunningCheck(at(port + 1)).check(), ClockDiscipline::adjusting);
    EXPECT_EQ(RunningCheck(at(port)).check(), ClockDiscipline::forbidden);
    daemon.signal(SIGKILL);
    for (const auto& arguments : {at(port), {"-h", socket()}}) // whose file stays
        EXPECT_TRUE(testing::eventually(
            patience, [&] { return RunningCheck(arguments).check() == ClockDiscipline::not_running; }));
}

TEST_F(AskedDaemon, OfAnotherUserIsToldFromStrangersWhoCannotBeIt) {
    if (::geteuid() != 0 || ::getpwnam("_chrony") == nullptr) // NOLINT(concurrency-mt-unsafe): one thread
        GTEST_SKIP() << "needs root, and the user _chrony";
    const ChildProgram daemon(real("_chrony"), home.environment, home.path());
    const auto user = std::to_string(stranger);
    const ChildProgram sleeper(
        {"/usr/bin/setpriv", "--reuid", user, "--regid", user, "--clear-groups", home.path("chronyd"), "600"},
        home.environment, home.path());
    EXPECT_TRUE(
        testing::eventually(patience, [&] { return check_as(observer, at(port)) == ClockDiscipline::forbidden; }));
    const auto name = "/proc/" + std::to_string(sleeper.pid()) + "/comm";
    EXPECT_TRUE(testing::eventually(patience, [&] { return testing::contents(name) == "chronyd\n"; }));
    EXPECT_EQ(check_as(observer, at(port)), ClockDiscipline::forbidden);

    const StandIn dropped(0, stranger); // has been root, as the daemon was: nobody without rights can tell them apart
    ASSERT_TRUE(dropped.is_ready());
    EXPECT_EQ(check_as(observer, at(port)), ClockDiscipline::unknown);
    EXPECT_EQ(RunningCheck(at(port)).check(), ClockDiscipline::forbidden) << "root looks into both";
    const StandIn other(port + 1, stranger);
    ASSERT_TRUE(other.is_ready());
    EXPECT_EQ(RunningCheck(at(port + 1)).check(), ClockDiscipline::adjusting);
}

TEST(DaemonOfAContainer, IsNotTheOneThatThisSystemHasToStart) {
    const testing::PrivateHome home;
    const std::string chronyd = home.path("chronyd"); // no other process has this name
    std::filesystem::copy_file("/bin/sleep", chronyd);
    PosixExecute execute;
    const ThisMachine machine(execute, {}, {});
    const auto runs = [&] {
        return look_for_mending({.config = "/no/such/file", .chronyc = chronyd, .chronyd = chronyd}, false, machine)
            .is_running;
    };
    ChildProgram nested({"/usr/bin/unshare", "--user", "--map-root-user", "--pid", "--fork", "--kill-child", "/bin/sh",
                         "-c", "echo here; exec " + chronyd + " 600"},
                        home.environment, home.path());
    if (!testing::eventually(patience, [&] { return nested.out() == "here\n"; }))
        GTEST_SKIP() << "no process may be put into a namespace of its own: " << nested.err();
    const auto is_seen = [&] { // past the shell, whose last act it is
        for (const std::string& process : machine.file_names("/proc"))
            if (machine.read_file("/proc/" + process + "/cmdline").value_or("").starts_with(chronyd))
                return true;
        return false;
    };
    ASSERT_TRUE(testing::eventually(patience, is_seen));
    EXPECT_FALSE(runs());
    const ChildProgram ours({chronyd, "600"}, home.environment, home.path());
    EXPECT_TRUE(testing::eventually(patience, runs));
}

} // namespace
} // namespace tickervantage
