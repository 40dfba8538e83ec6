// Where the program's files lie, its private temporary folder, its log, and the files that it follows.
#include "chrony/log/log_pieces.h"
#include "linux/file_logger.h"
#include "linux/posix_followed_file.h"
#include "linux/private_temporary.h"
#include "linux/xdg_paths.h"
#include "support/child_program.h"
#include "support/manual_dispatch.h"
#include "support/test.h"

#include <fcntl.h>

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

// Standard input may be closed, and then any file may come to be number 0.
TEST(FileDescriptor, ClosesWhatItOwnsAlsoNumber0) {
    const int kept = fcntl(0, F_DUPFD_CLOEXEC, 0);
    for (const bool is_given_away : {false, true}) {
        ASSERT_EQ(dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), 0), 0);
        {
            FileDescriptor owner(0);
            EXPECT_TRUE(owner.valid());
            if (is_given_away) {
                const FileDescriptor taker(std::move(owner));
                EXPECT_EQ(taker.get(), 0);
                EXPECT_FALSE(owner.valid()); // NOLINT(bugprone-use-after-move): that it is empty is the question
            }
        }
        EXPECT_EQ(fcntl(0, F_GETFD), -1);
    }
    if (kept >= 0) {
        dup2(kept, 0);
        close(kept);
    }
}

std::string compressed_to(const std::string& path) {
    std::string text;
    for (long i = 0; i < 500'000; ++i) // more than what is kept of the end
        text += std::to_string(i * 7919) + "\n";
    gzFile file = gzopen(path.c_str(), "wb1");
    EXPECT_EQ(gzwrite(file, text.data(), static_cast<unsigned>(text.size())), static_cast<int>(text.size()));
    EXPECT_EQ(gzclose(file), Z_OK);
    return text;
}

// Of a damaged one, what comes before the damage.
TEST(PosixFollowedFiles, ACompressedFileReadsAsItsTextFromAnyPlace) {
    const testing::PrivateHome home;
    const std::string text = compressed_to(home.path("log.gz"));
    for (const bool is_damaged : {false, true}) {
        if (is_damaged)
            std::fstream(home.path("log.gz"), std::ios::in | std::ios::out).seekp(1'000'000) << std::string(99, '\xFF');
        std::unique_ptr<FollowedFile> file;
        FileStatus status;
        std::optional<Failure> reason;
        ASSERT_EQ(PosixFollowedFiles().open(home.path("log.gz"), file, status, reason), 0);
        std::uint64_t length = 0;
        EXPECT_EQ(file->length([] { return false; }, length, reason), -1) << "nobody waits for it";
        EXPECT_EQ(file->length([] { return true; }, length, reason), 0);
        EXPECT_EQ(reason.has_value(), is_damaged);
        EXPECT_EQ(length < text.size(), is_damaged);
        ASSERT_GT(length, 3U << 19U);
        std::array<char, 100> buffer{};
        std::vector<std::uint64_t> places{0, 1'500'000, 1'500'100, 100};
        if (!is_damaged)
            places.insert(places.end(), {length - (1U << 21U), length - 10, length, length + 1});
        for (const std::uint64_t at : places) {
            std::size_t count = 0;
            ASSERT_EQ(file->read(at, buffer, count, reason), 0) << at;
            EXPECT_EQ(std::string(buffer.data(), count), text.substr(std::min(at, length), buffer.size())) << at;
        }
    }
}

TEST(PosixFollowedFiles, ACompressedFileThatWasCutSaysSoBehindWhatItHas) {
    const testing::PrivateHome home;
    const std::string name = home.path("log.gz");
    const std::string text = compressed_to(name);
    PosixFollowedFiles files;
    std::string all;
    const auto read = [&] {
        all.clear();
        return read_log(files, name, [&](std::string_view line) { all.append(line).append(1, '\n'); });
    };
    EXPECT_TRUE(read());
    EXPECT_TRUE(all == text);
    fs::resize_file(name, fs::file_size(name) / 2);
    const auto cut = read();
    ASSERT_FALSE(cut);
    EXPECT_TRUE(english(cut.error()).ends_with("cannot be read: its end is missing."));
    EXPECT_GT(all.size(), text.size() / 3);
    EXPECT_TRUE(text.starts_with(all.substr(0, all.rfind('\n', all.size() - 2))));
}

} // namespace
} // namespace tickervantage
