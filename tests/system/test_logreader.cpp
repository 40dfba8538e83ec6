// The follower on real files and threads, and on the log of a real daemon.
#include "chrony/demonstration/demonstration.h"
#include "chrony/demonstration/recorded_day.h"
#include "chrony/log/logreader.h"
#include "linux/posix_followed_file.h"
#include "linux/serial_queue.h"
#include "studies/tracking/tracking_records.h"
#include "support/child_program.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

constexpr auto patience = 20s;

class QueueAsMainThread : public MainThread {
public:
    void main_async(Work work) override { m_queue.async(std::move(work)); }

private:
    SerialQueue m_queue{"main"};
};

class FollowTest : public ::testing::Test {
protected:
    void follow(const std::string& name) {
        LogReaderTiming timing; // real waits, cut to what a test has patience for
        timing.wait = [](std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
                         std::chrono::microseconds time) {
            condition.wait_for(lock, std::min(time, 10000us));
        };
        const auto on_line = [this](std::string_view line, bool) {
            const std::lock_guard lock(m_mutex);
            m_lines.emplace_back(line);
            m_news.notify_all();
        };
        const auto on_problem = [this](const std::optional<Failure>& problem) {
            const std::lock_guard lock(m_mutex);
            m_problem = problem ? english(*problem) : std::string();
            m_news.notify_all();
        };
        m_reader = std::make_unique<LogReader>(name, m_files, m_queue, m_main, LogReader::Handlers{on_line, on_problem},
                                               timing);
        m_reader->follow();
    }
    [[nodiscard]] bool arrives(const Texts& lines) {
        std::unique_lock lock(m_mutex);
        return m_news.wait_for(lock, patience, [&] { return m_lines == lines; });
    }
    [[nodiscard]] bool hears(const std::string& ending) {
        std::unique_lock lock(m_mutex);
        return m_news.wait_for(lock, patience, [&] { return m_problem && m_problem->ends_with(ending); });
    }
    void append(const std::string& text) const { std::ofstream(m_log, std::ios::app) << text; }

    testing::PrivateHome m_home;
    std::string m_log = m_home.path("log");
    std::mutex m_mutex; // guards m_lines and m_problem
    std::condition_variable m_news;
    Texts m_lines;
    std::optional<std::string> m_problem;
    PosixFollowedFiles m_files;
    QueueAsMainThread m_main;
    SerialQueue m_queue{std::string(LogReader::QUEUE_LABEL)};
    std::unique_ptr<LogReader> m_reader;
};

TEST_F(FollowTest, ThroughRotationDeletionAndTruncation) {
    follow(m_log);
    EXPECT_TRUE(hears("There is no file \"" + m_log + "\"."));
    append("1\n");
    EXPECT_TRUE(arrives({"1"}));
    fs::rename(m_log, m_log + ".1");
    append("2\n");
    EXPECT_TRUE(arrives({"1", "2"}));
    fs::remove(m_log);
    append("3\n4\n");
    EXPECT_TRUE(arrives({"1", "2", "3", "4"}));
    fs::resize_file(m_log, 0);
    append("1234567\n"); // read from where the file had been read before: behind "1234"
    EXPECT_TRUE(arrives({"1", "2", "3", "4", "567"}));
    EXPECT_TRUE(hears(""));
}

TEST_F(FollowTest, GoesOnWhenThePermissionComes) {
    append("1\n");
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is unreadable for root";
    chmod(m_log.c_str(), 0000);
    follow(m_log);
    EXPECT_TRUE(hears("cannot be read: Permission denied."));
    chmod(m_log.c_str(), 0600);
    EXPECT_TRUE(arrives({"1"}));
    EXPECT_TRUE(hears(""));
}

TEST_F(FollowTest, AFolderIsNoLogUntilAFileTakesItsPlace) {
    fs::create_directory(m_log);
    follow(m_log);
    EXPECT_TRUE(hears("cannot be read: it is a folder."));
    fs::remove(m_log);
    append("1\n");
    EXPECT_TRUE(arrives({"1"}));
}

TEST_F(FollowTest, ARealDaemonsLog) {
    Demonstration demonstration;
    if (access(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd", X_OK) != 0)
        GTEST_SKIP() << "the bundle has no chronyd";
    const auto started = demonstration.start(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd", m_home.path("demo"));
    ASSERT_TRUE(started) << english(started.error());
    follow(demonstration.tracking_log());
    TrackingRecords records;
    {
        std::unique_lock lock(m_mutex);
        const std::string recorded = recorded_day(demonstration.begun()).logs.tracking;
        const auto behind_it = static_cast<std::size_t>(std::ranges::count(recorded, '\n')) + 6;
        ASSERT_TRUE(m_news.wait_for(lock, patience, [&] { return m_lines.size() >= behind_it; }));
        for (const auto& line : m_lines)
            records.add_line(line);
    }
    ASSERT_GE(records.size(), 2U);
    const tracking last = records.record(records.size() - 1);
    EXPECT_EQ(last.address, "127.0.0.1");
    EXPECT_EQ(last.stratum, 6);
    EXPECT_TRUE(last.offset && last.rem_cor && last.rootdispersion && last.mean_offset);
    m_reader.reset();
}

TEST_F(FollowTest, MayBeDestroyedAtAnyMoment) {
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += std::to_string(i) + "\n";
    append(text);
    for (int i = 0; i < 50; ++i) {
        follow(m_log);
        if (i % 3 == 0) {
            std::unique_lock lock(m_mutex);
            m_news.wait_for(lock, patience, [&] { return !m_lines.empty(); });
        }
        m_reader.reset();
        const std::lock_guard lock(m_mutex);
        m_lines.clear();
    }
}

} // namespace
} // namespace tickervantage
