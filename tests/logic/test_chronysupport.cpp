// The verbs of chronysupport, in a private folder, on scripted programs and a clock that only remembers.
#include "roothelper/support/verbs.h"
#include "support/child_program.h"
#include "support/scripted_execute.h"
#include "support/test.h"

#include <grp.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace tickervantage::testing {
namespace {

namespace fs = std::filesystem;

class RememberingClock : public SteppedClock {
public:
    std::vector<ClockOffset> steps;
    [[nodiscard]] int step(const ClockOffset& offset) override {
        steps.push_back(offset);
        return 0;
    }
};

class ChronysupportTest : public ::testing::Test {
protected:
    bool run(const std::vector<std::string>& words) {
        const auto said = run_verb(words, m_parts);
        m_line = answer_line(said);
        return said.has_value();
    }
    bool install(const std::string& source, const std::string& destination, const std::string& mode = "0644") {
        return run({"installitem", source, destination, m_owner, mode});
    }
    [[nodiscard]] std::string in(const std::string& name) const { return m_home.path("config/" + name); }

    PrivateHome m_home;
    ScriptedExecute m_execute;
    RememberingClock m_clock;
    struct Looks : Pause {
        int count = 0;
        std::function<void()> meanwhile; // what happens between two looks at a daemon
        void pause(std::chrono::milliseconds) override {
            ++count;
            if (meanwhile)
                meanwhile();
        }
    } m_looks;
    // Root owns what it installs; for anybody else the same holds with their own name.
    std::string m_owner = ::geteuid() == 0
                              ? "root:wheel"
                              : std::string(getpwuid(::geteuid())->pw_name) + ":" + getgrgid(::getegid())->gr_name;
    SupportParts m_parts{
        .rules = {.self = ::geteuid()}, .units = {m_execute, m_looks}, .clock = m_clock, .configurations = {}};
    std::string m_line;
};

TEST_F(ChronysupportTest, AReplacedConfigurationCanBeBroughtBack) {
    fs::create_directory_symlink("config", m_home.path("way")); // /var/run is such a one
    const auto conf = m_home.path("way/chrony.conf");
    write_file(m_home.path("first"), "first\n");
    write_file(m_home.path("second"), "second\n");
    ASSERT_TRUE(install(m_home.path("first"), conf)) << m_line;
    EXPECT_EQ(m_line, "200 OK");
    EXPECT_EQ(mode_of(conf), 0644U);
    EXPECT_FALSE(run({"restoreformer", conf})); // nothing was replaced so far
    ASSERT_TRUE(install(m_home.path("second"), conf, "0755")) << m_line;
    ASSERT_TRUE(install(m_home.path("second"), conf, "0755")) << m_line; // again: the same former one
    EXPECT_EQ(contents(conf), "second\n");
    EXPECT_EQ(contents(conf + ".former"), "first\n");
    ASSERT_TRUE(run({"restoreformer", conf})) << m_line;
    EXPECT_EQ(contents(conf), "first\n");
    EXPECT_EQ(mode_of(conf), 0644U);
    EXPECT_EQ(m_home.found_in("config").size(), 1U); // nothing is left beside
}

TEST_F(ChronysupportTest, RefusesWhatWouldOpenADoor) {
    const auto source = m_home.path("source");
    write_file(source, "source\n");
    write_file(in("plain"), "untouched\n");
    fs::create_directory(in("open"));
    fs::permissions(in("open"), fs::perms::all);
    fs::create_directory(in("open/below"));
    fs::create_directory(in("folder"));
    fs::create_symlink(in("plain"), in("link"));
    fs::create_symlink(source, m_home.path("linked-source"));
    fs::create_symlink(in("folder"), m_home.path() + "-way");
    mkfifo(m_home.path("pipe").c_str(), 0600);
    write_file(m_home.path("huge"), "");
    fs::resize_file(m_home.path("huge"), (64U << 20U) + 1);
    const auto before = m_home.found_in("");
    std::vector<std::vector<std::string>> hostile{
        {"installitem", source, in("new"), "nobody-at-all:wheel", "0644"},
        {"installitem", source, in("new"), m_owner.substr(0, m_owner.find(':')), "0644"},
        {"restoreformer", in("plain")},
        {"removeitem", in("folder")},
        {"removeitem", in("open/below")},
        {"createdirectory", "", in("plain")},
        {"createdirectory", "", in("plain/below")},
        {"createdirectory", "", in("open/new")},
        {"createdirectory", "root", in("new")},
        {"adduser", "-o"},
        {"adduser", "some one"},
        {"rotatelogs", in("open/below"), in("folder")},
        {"rotatelogs", in("plain"), in("link")},
        {"installitem", source, in("new"), m_owner},
        {"shell", "id"},
        {}};
    for (const auto& place : {in("link"), in("folder"), in("open/new"), in("open/below/new"), in("missing/new"),
                              in("folder/../new"), std::string("config/new"), in("new\nline"), std::string("/"),
                              in(std::string(300, 'n')), m_home.path() + "-way/new"}) // the last by others' link
        hostile.push_back({"installitem", source, place, m_owner, "0644"});
    for (const auto* mode : {"4755", "0666", "755", "+755"})
        hostile.push_back({"installitem", source, in("new"), m_owner, mode});
    for (const auto* other : {"linked-source", "pipe", "", "huge"})
        hostile.push_back({"installitem", m_home.path(other), in("new"), m_owner, "0644"});
    for (const auto& words : hostile) {
        std::string said;
        for (const auto& word : words)
            said += word.substr(0, 80) + "|";
        EXPECT_FALSE(run(words)) << said;
        EXPECT_TRUE(m_line.ends_with('.') && m_line.find('\n') == std::string::npos) << said << m_line;
        EXPECT_EQ(m_home.found_in(""), before) << said;
    }
    fs::remove(m_home.path() + "-way");
    EXPECT_EQ(contents(in("plain")), "untouched\n");
    EXPECT_TRUE(m_execute.calls.empty());
}

TEST_F(ChronysupportTest, RemovesFilesSocketsAndLinksAndNothingElse) {
    write_file(in("file"), "x");
    fs::create_symlink(in("file"), in("link"));
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    in("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM, 0));
    ASSERT_EQ(::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const auto* name : {"link", "socket", "missing", "missing/too"})
        EXPECT_TRUE(run({"removeitem", in(name)})) << m_line;
    EXPECT_EQ(m_home.found_in("config"), std::vector{in("file")});
}

TEST_F(ChronysupportTest, MakesFoldersForTheUserOfTheConfigurationThatNamesThem) {
    write_file(m_home.path("other.conf"), "logdir /elsewhere\nuser nobody\n");
    write_file(m_home.path("chrony.conf"), "user " + m_owner.substr(0, m_owner.find(':')) + "\nlogdir " + in("logs/") +
                                               "\ndumpdir " + in("missing-user") + "\n");
    write_file(m_home.path("broken.conf"), "user no-such-user\ndumpdir " + in("a/dump") + "\n");
    m_parts.configurations = {m_home.path("gone.conf"), m_home.path("other.conf"), m_home.path("chrony.conf"),
                              m_home.path("broken.conf")};
    ASSERT_TRUE(run({"createdirectory", "", in("a/b/c")})) << m_line;
    EXPECT_EQ(mode_of(in("a/b/c")), 0755U);
    ASSERT_TRUE(run({"createdirectory", in("logs")})) << m_line;
    EXPECT_EQ(mode_of(in("logs")), 0750U);
    EXPECT_FALSE(run({"createdirectory", in("a/dump")}));
    EXPECT_FALSE(fs::exists(in("a/dump")));
    fs::permissions(in("logs"), fs::perms::owner_all);
    ASSERT_TRUE(run({"createdirectory", in("logs")})) << m_line;
    EXPECT_EQ(mode_of(in("logs")), 0700U); // one that is there stays as it is
}

TEST_F(ChronysupportTest, StepsTheClockByWholeAndBrokenSeconds) {
    struct Case {
        const char* text;
        std::int64_t seconds;
        std::int32_t nanoseconds;
    };
    for (const Case& one : {Case{"12", 12, 0}, Case{"-1.5", -2, 500'000'000}, Case{"0.0001", 0, 100'000},
                            Case{"-1e-10", 0, 0}, Case{"-0.25", -1, 750'000'000}, Case{"1e+06", 1'000'000, 0}}) {
        EXPECT_TRUE(run({"steptime", one.text})) << one.text;
        EXPECT_EQ(m_clock.steps.back().seconds, one.seconds) << one.text;
        EXPECT_EQ(m_clock.steps.back().nanoseconds, one.nanoseconds) << one.text;
    }
    m_clock.steps.clear();
    EXPECT_TRUE(run({"steptime", "0"}));
    for (const auto* text : {"", "nan", "inf", "-inf", "5e9", "1,5", "1 ", "+1", "0x10", "1s"})
        EXPECT_FALSE(run({"steptime", text})) << text;
    EXPECT_TRUE(m_clock.steps.empty());
}

std::string unit(const std::string& id, const std::string& state, const std::string& run = "7") {
    return "Id=" + id + "\nLoadState=loaded\nActiveState=" + state + "\nSubState=x\nInvocationID=i" + run +
           "\nMainPID=" + run + "\nExecMainPID=" + run + "\nNeedDaemonReload=no\n";
}

class ChronysupportUnitsTest : public ChronysupportTest {
protected:
    void SetUp() override {
        for (const auto& name : {ours, chrony, chronyd})
            m_execute.answer("systemctl " + name, "Id=" + name + "\nLoadState=not-found\nActiveState=inactive\n");
        m_execute.answer("journalctl", "Fatal error : Could not open /dev/pps7\n");
    }
    const std::string ours = "org.chrony-project.chronyd.service";
    const std::string chrony = "chrony.service";
    const std::string chronyd = "chronyd.service";
};

TEST_F(ChronysupportUnitsTest, ADaemonThatDiesWhileWatchedIsAFailureInItsOwnWords) {
    for (const auto& later : {unit(ours, "activating"), unit(ours, "failed"), unit(ours, "active", "8")}) {
        m_execute.answer("systemctl " + ours, unit(ours, "active"));
        m_looks.count = 0;
        m_looks.meanwhile = [&] {
            if (m_looks.count == 3)
                m_execute.answer("systemctl " + ours, later);
        };
        EXPECT_FALSE(run({"startchrony"})) << later;
        EXPECT_EQ(m_line, ours + " does not stay up: Fatal error : Could not open /dev/pps7");
        EXPECT_EQ(m_looks.count, 3);
        EXPECT_TRUE(m_execute.calls.back().ends_with("|_SYSTEMD_INVOCATION_ID=i7|+|_PID=7")) << m_execute.calls.back();
    }
}

TEST_F(ChronysupportUnitsTest, AUnitThatChangedIsReadAgainBeforeItsStart) {
    for (const auto* changed : {"no", "yes"}) {
        m_execute.calls.clear();
        m_execute.answer("systemctl " + ours,
                         unit(ours, "active").replace(unit(ours, "active").rfind("no"), 2, changed));
        EXPECT_TRUE(run({"startchrony"})) << m_line;
        const auto reload = std::ranges::find(m_execute.calls, "systemctl|daemon-reload");
        const auto start = std::ranges::find(m_execute.calls, "systemctl|start|" + ours);
        EXPECT_NE(start, m_execute.calls.end());
        EXPECT_EQ(reload < start, std::string(changed) == "yes") << changed;
    }
}

TEST_F(ChronysupportUnitsTest, StopsEveryRunningDaemonOnce) {
    EXPECT_TRUE(run({"stopchrony"}));
    EXPECT_EQ(m_line, ours + " was not running.");
    m_execute.answer("systemctl " + chrony, unit(chrony, "active"));
    m_execute.answer("systemctl " + chronyd, unit(chrony, "active")); // a second name of the same
    m_execute.answer("systemctl " + ours, unit(ours, "activating"));  // waits to be started again
    EXPECT_TRUE(run({"stopchrony"})) << m_line;
    EXPECT_EQ(m_execute.calls.back(), "systemctl|stop|" + ours + "|" + chrony);
}

TEST_F(ChronysupportTest, LogsAreRotatedInTheirFolderByItsOwner) {
    write_file(in("rotate.sh"), "", 0755);
    fs::create_directory(in("logs"));
    m_execute.answer("env", "");
    m_execute.answer("setpriv", "no socket\n", 1);
    const auto words = in("logs") + "|/bin/sh|" + in("rotate.sh") + "|" + in("chronyc") + "|" + in("logs");
    EXPECT_TRUE(run({"rotatelogs", in("rotate.sh"), in("logs")})) << m_line;
    EXPECT_EQ(m_execute.calls.back(), "env|-C|" + words);
    fs::permissions(in("rotate.sh"), fs::perms::all);
    EXPECT_FALSE(run({"rotatelogs", in("rotate.sh"), in("logs")}));
    if (::geteuid() != 0)
        return; // only root runs it for others
    fs::permissions(in("rotate.sh"), fs::perms::owner_all);
    ASSERT_EQ(::chown(in("logs").c_str(), 1234, 1235), 0);
    EXPECT_FALSE(run({"rotatelogs", in("rotate.sh"), in("logs")}));
    EXPECT_TRUE(m_line.ends_with(": no socket")) << m_line;
    EXPECT_EQ(m_execute.calls.back(),
              "setpriv|--reuid|1234|--regid|1235|--clear-groups|--no-new-privs|--|/usr/bin/env|-C|" + words);
}

} // namespace
} // namespace tickervantage::testing
