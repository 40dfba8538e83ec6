// The desktop program as a process: how it starts, what it leaves alone, and what becomes of it however it ends.
#include "support/child_program.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::contents;
using testing::eventually;
using testing::Watched;

constexpr auto patience = 40s;

// The program with its home.
class Instance {
public:
    Instance() { m_home.environment["QT_QPA_PLATFORM"] = "offscreen"; }

    [[nodiscard]] testing::PrivateHome& home() { return m_home; }
    [[nodiscard]] testing::ChildProgram& start(std::vector<std::string> options) {
        options.insert(options.begin(), TICKERVANTAGE_PROGRAM);
        return m_child.emplace(options, m_home.environment, m_home.path());
    }

    // The two daemons of a demonstration; fewer before they are up.
    [[nodiscard]] std::vector<pid_t> daemons() const {
        std::vector<pid_t> found;
        std::error_code ignored; // the program makes and removes folders meanwhile
        for (const auto& folder : fs::directory_iterator(m_home.path("run"), ignored))
            for (const auto* name : {"/demonstration/server/chronyd.pid", "/demonstration/client/chronyd.pid"})
                if (const auto text = contents(folder.path().string() + name); text.ends_with('\n'))
                    found.push_back(std::stoi(text));
        return found;
    }
    [[nodiscard]] bool brings_up_daemons() const {
        return eventually(patience, [&] { return daemons().size() == 2; });
    }
    [[nodiscard]] bool left_no_folder() const { return m_home.found_in("run").empty(); }
    [[nodiscard]] std::string log() const { return contents(m_home.path("state/Tickervantage/tickervantage.log")); }

private:
    testing::PrivateHome m_home;
    std::optional<testing::ChildProgram> m_child;
};

class ProgramDemonstration : public ::testing::Test {
protected:
    void SetUp() override {
        if (access(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd", X_OK) != 0)
            GTEST_SKIP() << "chrony was not installed when this was built: the bundle has no chronyd";
    }

    Instance m_instance;
};

TEST_F(ProgramDemonstration, ATourLeavesPicturesAndNothingElse) {
    const auto folder = m_instance.home().path("new/pictures");
    auto& program = m_instance.start({"--demo", "--screenshots", folder});
    EXPECT_EQ(program.ends_within(patience), 0) << program.err();
    int pictures = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() != ".png")
            continue;
        ++pictures;
        const auto picture = contents(entry.path());
        const auto size = testing::png_size(picture);
        ASSERT_TRUE(size) << entry.path();
        EXPECT_TRUE(size->first >= 200 && size->first <= 4000 && size->second >= 200 && size->second <= 4000);
        EXPECT_GT(picture.size(), 10'000U) << entry.path() << " is too even to show a window";
    }
    EXPECT_GE(pictures, 4);
    EXPECT_TRUE(contents(folder + "/status.txt").starts_with("Verdict         : Synchronised"));

    for (const auto* untouched : {"config", "data", "state"})
        EXPECT_EQ(m_instance.home().found_in(untouched), std::vector<std::string>()) << untouched;
    EXPECT_TRUE(m_instance.left_no_folder());
}

TEST_F(ProgramDemonstration, AskedToEndItEndsItsOwnDaemonsAndNoOthers) {
    Instance bystander;
    auto& other = bystander.start({"--demo"});
    auto& program = m_instance.start({"--demo"});
    ASSERT_TRUE(m_instance.brings_up_daemons()) << program.err();
    ASSERT_TRUE(bystander.brings_up_daemons()) << other.err();
    const Watched others[] = {Watched(bystander.daemons()[0]), Watched(bystander.daemons()[1]), Watched(other.pid())};
    const Watched first(m_instance.daemons()[0]);
    const Watched second(m_instance.daemons()[1]);

    program.signal(SIGTERM);
    EXPECT_EQ(program.ends_within(patience), 0) << program.err();
    EXPECT_TRUE(first.ends_within(0ms));
    EXPECT_TRUE(second.ends_within(0ms));
    EXPECT_TRUE(m_instance.left_no_folder());
    EXPECT_TRUE(std::ranges::all_of(others, [](const Watched& one) { return one.runs(); }));
    for (const auto* untouched : {"config", "data", "state"})
        EXPECT_EQ(m_instance.home().found_in(untouched), std::vector<std::string>()) << untouched;

    other.signal(SIGINT);
    EXPECT_EQ(other.ends_within(patience), 0) << other.err();
}

TEST_F(ProgramDemonstration, KilledItLeavesNoDaemonAndItsFolderToTheNextRun) {
    auto& program = m_instance.start({"--demo"});
    ASSERT_TRUE(m_instance.brings_up_daemons()) << program.err();
    const Watched first(m_instance.daemons()[0]);
    const Watched second(m_instance.daemons()[1]);
    const Watched supervisor(testing::parent_of(m_instance.daemons()[0])); // the last that holds the folder's lock
    program.signal(SIGKILL);
    EXPECT_EQ(program.ends_within(patience), 128 + SIGKILL);
    for (const auto* other : {&first, &second, &supervisor})
        EXPECT_TRUE(other->ends_within(patience));
    EXPECT_TRUE(eventually(patience, [&] { return m_instance.daemons().empty(); }));

    auto& next = m_instance.start({"--demo"});
    ASSERT_TRUE(m_instance.brings_up_daemons()) << next.err();
    next.signal(SIGTERM);
    EXPECT_EQ(next.ends_within(patience), 0) << next.err();
    EXPECT_TRUE(m_instance.left_no_folder());
}

TEST_F(ProgramDemonstration, EndedBeforeItStandsItLeavesNothing) {
    auto& program = m_instance.start({"--demo"});
    ASSERT_TRUE(eventually(patience, [&] { return !m_instance.left_no_folder(); }));
    program.signal(SIGTERM);
    EXPECT_EQ(program.ends_within(patience), 0) << program.err();
    EXPECT_TRUE(m_instance.left_no_folder());
}

TEST(Program, ADemonstrationThatDoesNotComeUpIsSaidAndEndsIt) {
    Instance instance;
    const std::string programs = instance.home().path("Tickervantage.app/Contents/MacOS/");
    fs::create_directories(programs);
    fs::copy(TICKERVANTAGE_PROGRAM, programs + "tickervantage");
    testing::write_file(programs + "chronyd", "#!/bin/sh\necho 'no clock today' >&2\nexit 1\n", 0700);
    testing::ChildProgram program({programs + "tickervantage", "--demo"}, instance.home().environment,
                                  instance.home().path());
    EXPECT_EQ(program.ends_within(patience), 1);
    EXPECT_NE(program.err().find("no clock today"), std::string::npos) << program.err();
    EXPECT_TRUE(instance.left_no_folder());
}

TEST(Program, StartsWithDamagedSettingsAndKeepsThemAside) {
    Instance instance;
    const std::string damaged = std::string("\xff\xfe\0[[[", 6) + "\nmeter_view";
    fs::create_directories(fs::path(instance.home().settings_file()).parent_path());
    testing::write_file(instance.home().settings_file(), damaged);
    auto& program = instance.start({});
    const auto kept = [&] {
        const auto files = instance.home().found_in("config");
        const auto found =
            std::ranges::find_if(files, [](const auto& path) { return path.find(".damaged-") != path.npos; });
        return found == files.end() ? std::string() : contents(*found);
    };
    EXPECT_TRUE(eventually(patience, [&] { return !kept().empty(); }));
    EXPECT_EQ(kept(), damaged);
    program.signal(SIGTERM);
    EXPECT_EQ(program.ends_within(patience), 0) << program.err();
    EXPECT_TRUE(instance.left_no_folder());
}

// A session bus of the test's own.
class SessionBus {
public:
    explicit SessionBus(testing::PrivateHome& home)
        : m_socket(home.path("session-bus")), m_daemon({"/usr/bin/dbus-daemon", "--session", "--nofork", "--nopidfile",
                                                        "--nosyslog", "--address=unix:path=" + m_socket},
                                                       home.environment, home.path()) {
        home.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + m_socket;
    }
    [[nodiscard]] bool comes_up() const {
        return eventually(patience, [this] { return fs::exists(m_socket); });
    }

private:
    std::string m_socket;
    testing::ChildProgram m_daemon;
};

TEST(Program, ASecondStartHandsItsLogsToTheFirst) {
    if (access("/usr/bin/dbus-daemon", X_OK) != 0)
        GTEST_SKIP() << "This machine has no dbus-daemon.";
    Instance instance;
    const SessionBus bus(instance.home());
    ASSERT_TRUE(bus.comes_up());
    auto& first = instance.start({});
    ASSERT_TRUE(eventually(patience, [&] { return instance.log().find(" starts.") != std::string::npos; }));

    const std::string log = instance.home().path("näxt %20 &.log");
    testing::write_file(log, "");
    testing::ChildProgram second({TICKERVANTAGE_PROGRAM, log}, instance.home().environment, instance.home().path());
    EXPECT_EQ(second.ends_within(patience), 0) << second.err();
    EXPECT_TRUE(eventually(patience, [&] { // the log is written behind the main thread
        return instance.log().find("Files to open: " + log) != std::string::npos;
    })) << instance.log();

    first.signal(SIGTERM);
    EXPECT_EQ(first.ends_within(patience), 0) << first.err();
    testing::ChildProgram third({TICKERVANTAGE_PROGRAM}, instance.home().environment, instance.home().path());
    EXPECT_TRUE(eventually(patience, [&] { // nobody has the name any more
        const std::string text = instance.log();
        return text.rfind(" starts.") != text.find(" starts.");
    })) << third.out();
    third.signal(SIGTERM);
    EXPECT_EQ(third.ends_within(patience), 0) << third.err();
}

TEST(Program, ADeadBusLeavesAStartAlone) {
    Instance instance;
    instance.home().environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nowhere/bus";
    auto& program = instance.start({});
    EXPECT_TRUE(eventually(patience, [&] { return instance.log().find(" starts.") != std::string::npos; }));
    program.signal(SIGTERM);
    EXPECT_EQ(program.ends_within(patience), 0) << program.err();
}

TEST(Program, WrongOptionsEndItWithStatusTwo) {
    Instance instance;
    for (const auto* option : {"--bogus", "--screenshots"})
        EXPECT_EQ(instance.start({option}).ends_within(patience), 2) << option;
    auto& program = instance.start({"--screenshots", "/proc/no/folder"});
    EXPECT_EQ(program.ends_within(patience), 1);
    EXPECT_EQ(program.err(), "tickervantage: The folder /proc/no/folder cannot be made.\n");
    EXPECT_TRUE(instance.left_no_folder());
}

// The alert waits for its button, which nobody presses here; the log has its words, and a signal still ends it all.
TEST(Program, AChronycWithoutAVersionIsSaidAndCanBeEnded) {
    Instance instance;
    const auto chronyc = instance.home().path("chronyc");
    testing::write_file(chronyc, "#!/bin/sh\necho 'chronyc 9'\n", 0700);
    fs::create_directories(fs::path(instance.home().settings_file()).parent_path());
    testing::write_file(instance.home().settings_file(), "[General]\nfile_chronyc=" + chronyc + "\n");
    auto& program = instance.start({});
    EXPECT_TRUE(eventually(patience, [&] { return instance.log().find(" error ") != std::string::npos; }));
    EXPECT_NE(instance.log().find("chronyc 9"), std::string::npos) << instance.log();
    program.signal(SIGTERM);
    EXPECT_TRUE(program.ends_within(patience)) << program.err();
    EXPECT_TRUE(instance.left_no_folder());
}

} // namespace
} // namespace tickervantage
