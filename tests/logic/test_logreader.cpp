// Following a log without a thread, a file or a clock: the loop's waits turn the crank.
#include "chrony/log/log_pieces.h"
#include "chrony/log/logreader.h"
#include "support/fake_followed_files.h"
#include "support/manual_dispatch.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using namespace std::chrono_literals;
using testing::FakeFollowedFiles;
using Lines = std::vector<std::pair<std::string, bool>>;
using Texts = std::vector<std::string>;

class LogReaderTest : public ::testing::Test {
protected:
    LogReaderTest() {
        LogReaderTiming timing;
        timing.now = [this] {
            return m_now;
        };
        timing.wait = [this](std::condition_variable&, std::unique_lock<std::mutex>& lock,
                             std::chrono::microseconds time) {
            lock.unlock();
            wait(time);
            lock.lock();
        };
        const auto on_line = [this](std::string_view line, bool last) {
            m_now += m_line_takes;
            m_lines.emplace_back(line, last);
            if (m_on_line)
                m_on_line();
        };
        const auto on_problem = [this](const std::optional<Failure>& problem) {
            m_problems.push_back(problem ? english(*problem) : std::string());
        };
        m_reader = std::make_unique<LogReader>("log", m_files, m_queue, m_main,
                                               LogReader::Handlers{on_line, on_problem}, timing);
    }

    // The loop waits: for the main thread, or for a second, or for a line to be finished.
    void wait(std::chrono::microseconds time) {
        m_waits.push_back(time);
        const auto before = m_lines.size();
        const bool has_turned = m_main.turn();
        m_most_lines_in_a_turn = std::max(m_most_lines_in_a_turn, m_lines.size() - before);
        if (time == 1s)
            next_second();
        else if (!has_turned && m_on_short_wait)
            m_on_short_wait();
    }

    void next_second() {
        if (m_seconds.empty()) {
            if (m_reader)
                m_reader->stop();
            return;
        }
        const auto happens = std::move(m_seconds.front());
        m_seconds.pop_front();
        happens();
    }

    // Follows, second by second, until nothing is left to happen.
    void follow(std::deque<std::function<void()>> seconds = {}) {
        m_seconds = std::move(seconds);
        m_reader->follow();
        finish();
    }
    void finish() {
        while (m_queue.turn() || m_main.turn()) {
        }
    }

    Texts texts() const {
        Texts all;
        for (const auto& [text, last] : m_lines)
            all.push_back(text);
        return all;
    }
    void append(const std::string& text) { m_files.at("log").text += text; }
    auto appends(const std::string& text) {
        return [this, text] {
            append(text);
        };
    }

    FakeFollowedFiles m_files;
    testing::ManualQueue m_queue;
    testing::ManualMainThread m_main;
    LogReaderTiming::Clock::time_point m_now;
    std::chrono::microseconds m_line_takes{1};
    Lines m_lines;
    Texts m_problems;
    std::vector<std::chrono::microseconds> m_waits;
    std::size_t m_most_lines_in_a_turn = 0;
    std::deque<std::function<void()>> m_seconds;
    std::function<void()> m_on_line;
    std::function<void()> m_on_short_wait;
    std::unique_ptr<LogReader> m_reader;
};

TEST_F(LogReaderTest, TheLastFlagComparesTexts) {
    m_files.create("log", "a\nb\n\n\na\n");
    follow({appends("c\n")});
    EXPECT_EQ(m_lines, (Lines{{"a", true}, {"b", false}, {"a", true}, {"c", true}}));
}

TEST(LogStart, ABannerOrARecordMakesALog) {
    for (const char* log : {"=====\n   Date (UTC)", "2026-11-21 03:59:00 192.0.2.1  2", "\n\n====================="})
        EXPECT_TRUE(begins_as_log(log)) << log;
    for (const char* other : {"", "\n", "# chrony.conf\n2026-11-21 03:59:00", "server a.example", "2026-11-21",
                              "2026-11-2x 03", "=== ours ==="})
        EXPECT_FALSE(begins_as_log(other)) << other;
}

TEST_F(LogReaderTest, AReplacedFileIsReadFromItsTop) {
    m_files.create("log", "1\n2\n");
    const auto rename = [&] {
        append("3\n"); // after the last look: must not be lost
        m_files.rename("log", "log.1");
        m_files.create("log");
    };
    const auto recreate = [&] {
        m_files.remove("log");
        m_files.create("log", "5\n");
    };
    follow({rename, appends("4\n"), recreate, appends("6\n")});
    EXPECT_EQ(texts(), (Texts{"1", "2", "3", "4", "5", "6"}));
}

TEST_F(LogReaderTest, AMissingFileIsWaitedForAndSaidOnce) {
    follow({[] {}, [] {}, [&] { m_files.create("log", "1\n"); },
            [&] {
                m_files.remove("log");
            }});
    EXPECT_EQ(texts(), Texts{"1"});
    EXPECT_EQ(m_problems, (Texts{"There is no file \"log\".", "", "There is no file \"log\"."}));
}

TEST_F(LogReaderTest, AnUnreadableFileIsTriedAgain) {
    for (const bool hidden : {false, true}) {
        m_lines.clear();
        m_problems.clear();
        m_files.create("log", "1\n");
        auto& log = m_files.at("log");
        (hidden ? log.hidden : log.readable) = hidden;
        const auto mend = [&] {
            (hidden ? log.hidden : log.readable) = !hidden;
        };
        follow({[] {}, mend});
        EXPECT_EQ(texts(), Texts{"1"});
        EXPECT_EQ(m_problems, (Texts{"log cannot be read: Permission denied.", ""}));
    }
}

TEST_F(LogReaderTest, StopIsNoticedWhileTheFileCannotBeOpened) {
    m_files.create("log");
    m_files.at("log").readable = false;
    follow(); // returns
    EXPECT_FALSE(m_reader->is_following());
}

TEST_F(LogReaderTest, AReadErrorLosesNothing) {
    m_files.create("log", "1\n");
    m_files.at("log").fails_when_read = true;
    follow({[&] {
        m_files.at("log").fails_when_read = false;
    }});
    EXPECT_EQ(texts(), Texts{"1"});
    EXPECT_EQ(m_problems, (Texts{"log cannot be read: Input/output error.", ""}));
}

TEST_F(LogReaderTest, ACutFileIsReadBeyondWhereItWas) {
    m_files.create("log", "1\n2\n");
    follow({[&] { m_files.at("log").text = "3\n"; }, appends("4\n"), appends("5\n")});
    EXPECT_EQ(texts(), (Texts{"1", "2", "5"}));
}

TEST_F(LogReaderTest, FollowingAgainDeliversTheWholeFile) {
    m_files.create("log", "1\n2\n");
    follow();
    m_on_line = [&] {
        if (m_lines.size() == 3)
            m_reader->follow(); // in the midst of the block
    };
    follow();
    EXPECT_EQ(texts(), (Texts{"1", "2", "1", "1", "2"}));
}

TEST_F(LogReaderTest, ALargeLogArrivesInSlices) {
    std::string text;
    constexpr int count = 400000; // 3 pieces
    for (int i = 0; i < count; ++i)
        text += std::to_string(i) + "\n";
    m_files.create("log", text);
    m_line_takes = 10us;
    follow();
    ASSERT_EQ(m_lines.size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const auto& [line, last] = m_lines[static_cast<std::size_t>(i)];
        ASSERT_EQ(line, std::to_string(i));
        ASSERT_EQ(last, i == count - 1);
    }
    EXPECT_LE(m_most_lines_in_a_turn, 4ms / m_line_takes + 64);
    EXPECT_GE(m_most_lines_in_a_turn, 4ms / m_line_takes);
}

TEST_F(LogReaderTest, SlowLinesEndTheirSliceAtOnce) {
    m_files.create("log", "1\n2\n3\n4\n5\n");
    m_line_takes = 3ms;
    follow();
    EXPECT_EQ(m_lines.size(), 5U);
    EXPECT_EQ(m_most_lines_in_a_turn, 2U);
}

TEST_F(LogReaderTest, WhatIsNotUtf8IsDropped) {
    const std::string good(LogPieces::PIECE_SIZE - 2, 'x');
    m_files.create("log", "1\n" + good + "\n" + "2\n\xFF\n");
    follow({appends("\xC3(\n"), appends("\xC3\xA4 \xF0\x9F\x95\x90\n")});
    // The last line that survives bears the flag, or nobody would know that the block is over.
    EXPECT_EQ(m_lines, (Lines{{"1", true}, {"\xC3\xA4 \xF0\x9F\x95\x90", true}}));
}

TEST_F(LogReaderTest, ALineOfManyMegabytesArrivesAndAnEndlessOneIsDropped) {
    const std::string large(5 * LogPieces::PIECE_SIZE, 'x');
    const std::string endless(LogPieces::LONGEST_LINE + 3 * LogPieces::PIECE_SIZE, 'y');
    m_files.create("log", "1\n" + large + "\n" + endless + "\n2\n");
    follow();
    EXPECT_EQ(m_lines, (Lines{{"1", false}, {large, false}, {"2", true}}));
}

TEST_F(LogReaderTest, AnUnfinishedLineIsGivenTimeToBeFinished) {
    m_files.create("log", "1\nab");
    int looks = 0;
    m_on_short_wait = [&] {
        if (++looks == 4)
            append("c\n");
    };
    follow({appends("z")});
    EXPECT_EQ(m_lines, (Lines{{"1", false}, {"abc", true}, {"z", true}}));
    EXPECT_EQ(looks, 8) << "0.2 s for each of two lines";
}

TEST_F(LogReaderTest, DamageBehindTheTextIsSaid) {
    m_files.create("log", "1\n");
    m_files.at("log").damage = Failure{.code = FailureCode::its_end_is_missing};
    follow();
    EXPECT_EQ(texts(), Texts{"1"});
    EXPECT_EQ(m_problems, Texts{"log cannot be read: its end is missing."});
}

TEST_F(LogReaderTest, NothingArrivesAfterStopOrDestruction) {
    m_files.create("log", "1\n2\n3\n");
    m_on_line = [&] {
        m_reader->stop();
    };
    follow();
    EXPECT_EQ(texts(), Texts{"1"});

    m_lines.clear();
    m_on_line = [&] {
        m_reader.reset();
    };
    follow();
    EXPECT_EQ(texts(), Texts{"1"});
}

TEST_F(LogReaderTest, MayBeDestroyedBeforeTheQueueComesRound) {
    m_files.create("log", "1\n");
    m_reader->follow();
    m_reader.reset();
    finish();
    EXPECT_TRUE(m_lines.empty());
}

TEST_F(LogReaderTest, AnIdleFollowerAsksOnceASecond) {
    m_files.create("log", "1\n");
    follow({[] {}, [] {}, [] {},
            [] {
            }});
    EXPECT_EQ(m_files.asked(), 5);
    EXPECT_EQ(std::ranges::count(m_waits, std::chrono::microseconds(LogReader::POLLINTERVAL)), 5);
}

TEST(LogPieces, FindTheLastLineWhereverItStands) {
    const std::string large(3 * LogPieces::PIECE_SIZE, 'x');
    const std::vector<std::pair<std::string, std::string>> cases{{"", ""},
                                                                 {"\n\n\n", ""},
                                                                 {"a", "a"},
                                                                 {"a\nb", "b"},
                                                                 {"a\nb\n", "b"},
                                                                 {"a\n" + std::string(100000, '\n'), "a"},
                                                                 {"\n" + large, large},
                                                                 {"a\n" + large + "\n\n", large}};
    FakeFollowedFiles files;
    for (const auto& [text, expected] : cases) {
        files.create("log", text);
        std::unique_ptr<FollowedFile> file;
        FileStatus status;
        std::string line;
        std::optional<Failure> reason;
        ASSERT_EQ(files.open("log", file, status, reason), 0);
        EXPECT_EQ(LogPieces(*file, 0, text.size()).last_line(line, reason), 0);
        EXPECT_EQ(line, expected);
    }
}

} // namespace
} // namespace tickervantage
