// chronysupport and chronywake as they are started: killed in the middle, on a full disk, with a real chronyd and a
// bus.
#include "chrony/demonstration/demonstration.h"
#include "support/child_program.h"
#include "support/small_disk.h"
#include "support/test.h"

#include <pwd.h>
#include <systemd/sd-bus.h>

namespace tickervantage::testing {
namespace {

using namespace std::chrono_literals;
using Words = std::vector<std::string>;

const std::string programs = TICKERVANTAGE_BUNDLE_PROGRAMS "/";

TEST(RootToolsTest, AKilledInstallationLeavesTheOldFileOrTheNewOne) {
    PrivateHome home;
    const std::string old_bytes(600U << 10U, 'o');
    const std::string new_bytes(800U << 10U, 'n');
    write_file(home.path("old"), old_bytes);
    write_file(home.path("new"), new_bytes);
    const auto target = home.path("data/program.conf");
    const auto install = [&](const std::string& source) {
        return Words{programs + "chronysupport",
                     "installitem",
                     home.path(source),
                     target,
                     std::string(getpwuid(::geteuid())->pw_name) + ":wheel",
                     "0755"};
    };
    ASSERT_EQ(ChildProgram(install("old"), home.environment, home.path()).ends_within(20s), 0);
    int killed = 0;
    for (int round = 0; round < 100; ++round) {
        ChildProgram child(install(round % 2 == 0 ? "new" : "old"), home.environment, home.path("run"));
        const auto ended = child.ends_within(std::chrono::milliseconds(round / 16));
        child.signal(SIGKILL);
        killed += ended ? 0 : 1;
        (void)child.ends_within(20s);
        const auto found = contents(target);
        ASSERT_TRUE(found == old_bytes || found == new_bytes) << round << ": " << found.size() << " bytes";
    }
    EXPECT_GT(killed, 20) << killed; // else the disk is too fast for this test to say anything
    ASSERT_EQ(ChildProgram(install("new"), home.environment, home.path()).ends_within(20s), 0);
    EXPECT_EQ(contents(target), new_bytes);
    EXPECT_LE(home.found_in("data").size(), 2U); // it and its former one: nothing that a killed run left
}

TEST(RootToolsTest, AFullDiskKeepsTheOldFile) {
    const SmallDisk disk("1m");
    if (::geteuid() != 0)
        GTEST_SKIP() << "the disk would belong to nobody";
    if (disk.path().empty()) {
        if (!disk.runs_the_test())
            GTEST_SKIP() << "This machine lets nobody here mount a disk.";
        return;
    }
    const PrivateHome home;
    ASSERT_EQ(chmod(disk.path().c_str(), 0700), 0);
    const auto target = disk.path() + "/x.conf";
    for (const auto& text : {std::string("old\n"), std::string(2U << 20U, 'n')}) {
        write_file(home.path("new"), text);
        ChildProgram child({programs + "chronysupport", "installitem", home.path("new"), target, "root:wheel", "0644"},
                           home.environment, home.path());
        const bool fits = text.size() == 4;
        EXPECT_EQ(child.ends_within(20s), fits ? 0 : 1) << child.err();
        EXPECT_EQ(child.out().find("No space left on device.\n") == std::string::npos, fits) << child.out();
        EXPECT_EQ(contents(target), "old\n");
        const std::filesystem::directory_iterator left(disk.path());
        EXPECT_EQ(std::distance(begin(left), end(left)), 1);
    }
}

// A bus that stands in for the system's, and somebody on it who says what logind says.
class Bus {
public:
    explicit Bus(PrivateHome& home) : m_socket(home.path("bus")) {
        write_file(
            home.path("bus.conf"),
            "<busconfig><type>system</type><listen>unix:path=" + m_socket +
                "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\"/>"
                "<allow receive_sender=\"*\"/><allow own=\"*\"/><allow eavesdrop=\"false\"/></policy></busconfig>");
        home.environment["DBUS_SYSTEM_BUS_ADDRESS"] = "unix:path=" + m_socket;
        start(home);
    }
    void start(const PrivateHome& home) {
        m_logind.reset();
        m_daemon.reset();
        m_daemon = std::make_unique<ChildProgram>(
            Words{"/usr/bin/dbus-daemon", "--nofork", "--config-file=" + home.path("bus.conf")}, home.environment,
            home.path());
        m_logind = connect("org.freedesktop.login1");
    }
    void end() { m_daemon.reset(); }
    [[nodiscard]] bool ready() const { return m_logind != nullptr; }
    void say_prepare_for_sleep(bool falls_asleep) { say(*m_logind, falls_asleep); }
    void say_as_somebody_else() { say(*connect(nullptr), false); }

private:
    struct Close {
        void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
    };
    using Connection = std::unique_ptr<sd_bus, Close>;

    [[nodiscard]] Connection connect(const char* name) const {
        Connection connection;
        (void)eventually(5s, [&] {
            sd_bus* bus = nullptr;
            const bool done = sd_bus_new(&bus) >= 0 &&
                              sd_bus_set_address(bus, ("unix:path=" + m_socket).c_str()) >= 0 &&
                              sd_bus_set_bus_client(bus, 1) >= 0 && sd_bus_start(bus) >= 0 &&
                              (name == nullptr || sd_bus_request_name(bus, name, 0) >= 0);
            connection.reset(done ? bus : sd_bus_unref(bus));
            return done;
        });
        return connection;
    }
    static void say(sd_bus& bus, bool falls_asleep) {
        (void)sd_bus_emit_signal(&bus, "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PrepareForSleep",
                                 "b", static_cast<int>(falls_asleep));
        (void)sd_bus_flush(&bus);
    }

    std::string m_socket;
    std::unique_ptr<ChildProgram> m_daemon;
    Connection m_logind;
};

TEST(RootToolsTest, ChronywakeCorrectsOnceAndAfterEachWakeUp) {
    PrivateHome home;
    Demonstration pair;
    if (const auto started = pair.start(programs + "chronyd", home.path("pair")); !started)
        GTEST_SKIP() << "no pair of daemons: " << english(started.error());
    const Words once{programs + "chronywake", "--chronyc", programs + "chronyc", "--socket", pair.socket()};
    ChildProgram first(once, home.environment, home.path());
    EXPECT_EQ(first.ends_within(5s), 0);
    EXPECT_EQ(first.out(), "200 OK\n");

    Bus bus(home);
    if (!bus.ready())
        GTEST_SKIP() << "dbus-daemon does not run here";
    auto words = once;
    words.insert(words.end(), {"--make-thresh", "0.1", "--burst-netmask", "127.0.0.1"});
    ChildProgram stays(words, home.environment, home.path());
    // In this order; how a bus that is ending refuses, and how often, depends on the moment.
    std::size_t heard = 0;
    const auto says = [&](const std::string& line) {
        return eventually(5s, [&] {
            const auto found = stays.out().find(line, heard);
            if (found == std::string::npos)
                return false;
            heard = found + line.size();
            return true;
        });
    };
    ASSERT_TRUE(says("Waiting for the machine to wake up.\n")) << stays.out() << stays.err();
    bus.say_as_somebody_else();
    bus.say_prepare_for_sleep(true);
    bus.say_prepare_for_sleep(false);
    EXPECT_TRUE(says("After waking up: 200 OK\n")) << stays.out();
    bus.end();
    EXPECT_TRUE(says("The system bus has gone; waiting for it.\nCannot listen on the system bus: ")) << stays.out();
    bus.start(home);
    EXPECT_TRUE(says("Waiting for the machine to wake up.\n")) << stays.out();
    pair.stop();
    bus.say_prepare_for_sleep(false);
    EXPECT_TRUE(says("After waking up: Could not open connection to daemon\n")) << stays.out();
    ChildProgram last(once, home.environment, home.path());
    EXPECT_EQ(last.ends_within(5s), 1);
    EXPECT_EQ(last.out(), "Could not open connection to daemon\n");
}

} // namespace
} // namespace tickervantage::testing
