// Where the program's files lie, its private temporary folder, and its log.
#include "linux/file_logger.h"
#include "linux/private_temporary.h"
#include "linux/xdg_paths.h"
#include "support/child_program.h"
#include "support/manual_dispatch.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using Variables = std::map<std::string, std::string>;

EnvironmentLookup lookup_in(const Variables& variables) {
    return [variables](const std::string& name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
}

// Puts TMPDIR back, which a private temporary folder changes for the whole process.
class KeepTmpdir {
public:
    KeepTmpdir() : m_value(process_environment("TMPDIR")) {}
    ~KeepTmpdir() { m_value ? setenv("TMPDIR", m_value->c_str(), 1) : unsetenv("TMPDIR"); }
    KeepTmpdir(const KeepTmpdir&) = delete;
    KeepTmpdir& operator=(const KeepTmpdir&) = delete;

private:
    std::optional<std::string> m_value;
};

TEST(XdgPaths, FollowTheBaseDirectoryRules) {
    const std::string of_a = "/home/a/.config/Tickervantage/Tickervantage.ini /home/a/.local/share "
                             "/home/a/.local/state/Tickervantage /tmp/";
    struct Case {
        const char* what;
        Variables variables;
        std::string paths;
    };
    const Case cases[] = {{"defaults", {{"HOME", "/home/a"}}, of_a},
                          {"absolute values count, slashes at their end do not",
                           {{"HOME", "/home/a"},
                            {"XDG_CONFIG_HOME", "/c/"},
                            {"XDG_DATA_HOME", "/d"},
                            {"XDG_STATE_HOME", "/s"},
                            {"TMPDIR", "/t"}},
                           "/c/Tickervantage/Tickervantage.ini /d /s/Tickervantage /t/"},
                          {"relative and empty values are passed over",
                           {{"HOME", "/home/a"}, {"XDG_CONFIG_HOME", "c"}, {"XDG_DATA_HOME", ""}, {"TMPDIR", ""}},
                           of_a},
                          {"without HOME the user database decides",
                           {{"TMPDIR", "/t/"}},
                           "/home/b/.config/Tickervantage/Tickervantage.ini /home/b/.local/share "
                           "/home/b/.local/state/Tickervantage /t/"}};
    for (const auto& [what, variables, expected] : cases) {
        const auto paths = work_out_paths({lookup_in(variables), "/x", "/home/b"});
        EXPECT_EQ(paths.settings + ' ' + paths.data_home + ' ' + paths.state + ' ' + paths.temporary, expected) << what;
    }
}

TEST(XdgPaths, FindTheBundleAroundTheProgram) {
    const std::pair<std::string, std::string> cases[] = {
        {"/opt/Tickervantage.app/Contents/MacOS/tickerctl", "/opt/Tickervantage.app"},
        {"/opt/Other.app/Contents/MacOS/tickerctl", "/usr/lib/tickervantage/Tickervantage.app"},
        {"/home/a/build/test", "/usr/lib/tickervantage/Tickervantage.app"},
        {"", "/usr/lib/tickervantage/Tickervantage.app"}};
    for (const auto& [program, bundle] : cases)
        EXPECT_EQ(work_out_paths({lookup_in({}), program, "/h"}).bundle, bundle) << program;
}

TEST(PrivateTemporary, IsPrivateExportedAndRemovedWithoutFollowingLinks) {
    const KeepTmpdir keep;
    const testing::PrivateHome home;
    const std::string runtime = home.path("run");
    std::ofstream(home.path("data/precious")) << "x";
    std::string path;
    {
        const PrivateTemporary temporary(lookup_in({{"XDG_RUNTIME_DIR", runtime}}), runtime);
        path = temporary.path();
        EXPECT_EQ(temporary.problem(), "");
        EXPECT_TRUE(path.starts_with(runtime) && path.ends_with("/")) << path;
        EXPECT_EQ(process_environment("TMPDIR"), path);
        EXPECT_EQ(testing::mode_of(path.substr(0, path.size() - 1)), 0700U);
        fs::create_directory_symlink(home.path("data"), path + "link");
        fs::create_directories(path + "deep/er");
        std::ofstream(path + "deep/er/file") << "x";
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(testing::contents(home.path("data/precious")), "x");
}

TEST(PrivateTemporary, RemovesWhatDeadRunsLeftAndNothingElse) {
    const KeepTmpdir keep;
    const testing::PrivateHome home;
    fs::create_directory(home.path("run/tickervantage-dead"));
    std::ofstream(home.path("run/tickervantage-dead/lock")) << "";
    fs::create_directory(home.path("run/tickervantage-being-made"));
    fs::create_directory(home.path("run/foreign"));
    const PrivateTemporary alive(lookup_in({}), home.path("run"));
    const PrivateTemporary another(lookup_in({}), home.path("run"));
    EXPECT_FALSE(fs::exists(home.path("run/tickervantage-dead")));
    EXPECT_TRUE(fs::exists(home.path("run/tickervantage-being-made")));
    EXPECT_TRUE(fs::exists(home.path("run/foreign")));
    EXPECT_TRUE(fs::exists(alive.path()));
    EXPECT_NE(alive.path(), another.path());
}

TEST(PrivateTemporary, FallsBackToTmpWithAReason) {
    const KeepTmpdir keep;
    const PrivateTemporary temporary(lookup_in({{"XDG_RUNTIME_DIR", "/nonexistent"}}), "/nonexistent");
    EXPECT_EQ(temporary.path(), "/tmp/");
    EXPECT_EQ(process_environment("TMPDIR"), "/tmp/");
    EXPECT_NE(temporary.problem(), "");
}

const std::chrono::system_clock::time_point november =
    std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) + std::chrono::seconds(5 * 3600 + 20 * 60 + 32);

TEST(LogLine, CarriesTimeLevelAndAHarmlessSentence) {
    struct Case {
        LogLevel level;
        std::string sentence, line;
    };
    const std::string time = "2026-11-21T05:20:32Z ";
    const Case cases[] = {
        {LogLevel::info, "Started.", time + "info Started."},
        {LogLevel::warning, "", time + "warning "},
        {LogLevel::error, "a\nb\t\x1b[2J\x7f", time + "error a\\x0ab\\x09\\x1b[2J\\x7f"},
        {LogLevel::info, "µs \u20ac \U0001F552", time + "info µs \u20ac \U0001F552"},
        {LogLevel::info, "c1 \xc2\x9b", time + "info c1 \\xc2\\x9b"},
        {LogLevel::info, "cut \xe2\x82", time + "info cut \\xe2\\x82"},
        {LogLevel::info, std::string("nul\0", 4), time + "info nul\\x00"},
        {LogLevel::info, std::string(4095, 'a') + "µ", time + "info " + std::string(4095, 'a') + "..."}};
    for (const auto& c : cases)
        EXPECT_EQ(log_line(november, c.level, c.sentence), c.line);
}

TEST(FileLogger, WritesOnTheQueueAndTheRestAtClose) {
    const testing::PrivateHome home;
    testing::ManualQueue queue;
    FileLogger logger(queue, home.path("data/state"), [] { return november; });
    const auto file = home.path("data/state/tickervantage.log");
    logger.log(LogLevel::info, "one");
    logger.log(LogLevel::info, "two");
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(queue.waiting(), 1U);
    queue.turn();
    logger.log(LogLevel::info, "three");
    logger.close();
    logger.log(LogLevel::info, "four");
    queue.turn();
    EXPECT_EQ(testing::contents(file), "2026-11-21T05:20:32Z info one\n2026-11-21T05:20:32Z info two\n"
                                       "2026-11-21T05:20:32Z info three\n");
    EXPECT_EQ(testing::mode_of(file), 0600U);
    EXPECT_EQ(testing::mode_of(home.path("data/state")), 0700U);
    FileLogger(queue, home.path("data/gone"), [] { return november; }).log(LogLevel::info, "last words");
    EXPECT_EQ(testing::contents(home.path("data/gone/tickervantage.log")), "2026-11-21T05:20:32Z info last words\n");
}

TEST(FileLogger, KeepsOneOldFileAndBoundsItsBacklog) {
    const testing::PrivateHome home;
    testing::ManualQueue queue;
    FileLogger logger(queue, home.path("data"), [] { return november; });
    const auto file = home.path("data/tickervantage.log");
    std::ofstream(file) << std::string((1U << 20U) - 10, 'x');
    std::ofstream(file + ".1") << "older";
    for (int i = 0; i < 1003; ++i)
        logger.log(LogLevel::info, "line");
    queue.turn();
    EXPECT_EQ(fs::file_size(file + ".1"), (1U << 20U) - 10);
    const auto text = testing::contents(file);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1001);
    EXPECT_TRUE(text.ends_with(" warning 3 lines were dropped here.\n"));
}

TEST(FileLogger, ComplainsOnceWhenTheFileCannotBeWritten) {
    testing::ManualQueue queue;
    ::testing::internal::CaptureStderr();
    FileLogger logger(queue, "/proc/nowhere");
    for (int i = 0; i < 3; ++i) {
        logger.log(LogLevel::info, "lost");
        queue.turn();
    }
    const auto complaint = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(complaint.find("/proc/nowhere/tickervantage.log cannot be written"), std::string::npos);
    EXPECT_EQ(std::count(complaint.begin(), complaint.end(), '\n'), 1);
}

} // namespace
} // namespace tickervantage
