#include "studies/history/history_follower.h"
#include "support/fake_followed_files.h"
#include "support/made_day.h"

#include <gtest/gtest.h>

namespace tickervantage {
namespace {

// Counts what is read of the files behind it.
class CountedFiles : public FollowedFiles {
public:
    testing::FakeFollowedFiles files;
    std::size_t bytes = 0;

    Found status(const std::string& name, FileStatus& status, std::optional<Failure>& reason) override {
        return files.status(name, status, reason);
    }
    std::optional<std::vector<std::string>> names_in(const std::string& folder) override {
        return files.names_in(folder);
    }
    int open(const std::string& name, std::unique_ptr<FollowedFile>& file, FileStatus& status,
             std::optional<Failure>& reason) override {
        std::unique_ptr<FollowedFile> behind;
        const int done = files.open(name, behind, status, reason);
        file = std::make_unique<File>(std::move(behind), bytes);
        return done;
    }

private:
    struct File : FollowedFile {
        File(std::unique_ptr<FollowedFile> file, std::size_t& all) : behind(std::move(file)), bytes(all) {}
        int length(const GoOn& go_on, std::uint64_t& length, std::optional<Failure>& reason) override {
            return behind->length(go_on, length, reason);
        }
        int read(std::uint64_t offset, std::span<char> buffer, std::size_t& count,
                 std::optional<Failure>& reason) override {
            const int done = behind->read(offset, buffer, count, reason);
            bytes += count;
            return done;
        }
        std::unique_ptr<FollowedFile> behind;
        std::size_t& bytes;
    };
};

// All that is known, as text, so that two can be compared.
std::string told(const HistoryData& data) {
    std::string text;
    for (std::size_t line = 0; line < history_lines; ++line) {
        const TimedValues& values = data.line(static_cast<HistoryLine>(line));
        for (std::size_t at = 0; at < values.size(); ++at)
            text += fmt::format("{} {} {}\n", line, values.time(at), values.mean(at));
    }
    for (const HistoryMark& mark : data.marks())
        text += fmt::format("{} {} {}\n", mark.time, static_cast<int>(mark.kind),
                            mark.sentence ? english(*mark.sentence) : mark.to);
    for (const HistoryLane& lane : data.lanes())
        for (const LaneStretch& stretch : lane.stretches)
            text += fmt::format("{} {} {} {}\n", lane.source, stretch.range.from, stretch.range.to, stretch.letter);
    for (const HistoryTemperature& one : data.temperatures())
        text += fmt::format("{} {}\n", one.sensor, one.values.size());
    for (const OriginStretch& one : data.origins())
        if (one.origin == HistoryOrigin::log)
            text += fmt::format("log {} {}\n", one.range.from, one.range.to);
    return text + fmt::format("{} {}\n", data.extent()->from, data.extent()->to);
}

struct Follower : ::testing::Test {
    CountedFiles counted;
    testing::FakeFollowedFiles& files = counted.files;
    HistoryPlaces places{.logs = {"/logs"}};
    HistoryFollower follower{counted, places};
    std::unique_ptr<HistoryData> data;

    void load() { data = follower.load().data; }
    // Takes the news over; whether it was read anew.
    bool follow() {
        HistoryNews news = follower.news(-1);
        if (news.anew)
            data = std::move(news.anew->data);
        else
            data->add(news.logged);
        return news.anew.has_value();
    }
    std::string at_once() { return told(*load_history(files, places).data); }
};

TEST_F(Follower, PieceByPieceTheSameIsKnownAsAtOnceAndNothingIsReadTwice) {
    testing::MadeDay day;
    testing::scripted_day(day);
    const testing::MadeLogs& all = day.logs();
    files.create("/logs/tracking.log", all.tracking.substr(0, all.tracking.find('\n', 5000) + 1));
    files.create("/logs/selection.log", all.selection.substr(0, all.selection.find('\n', 9000) + 1));
    files.create("/logs/measurements.log", "");
    files.create("/logs/notes", "nothing\n");
    load();
    counted.bytes = 0;
    std::size_t looks = 0;
    const auto grow = [](std::string& text, const std::string& whole, std::size_t by) {
        text += whole.substr(text.size(), by); // in the middle of a line, too
    };
    for (; files.at("/logs/tracking.log").text.size() < all.tracking.size() ||
           files.at("/logs/selection.log").text.size() < all.selection.size();
         ++looks) {
        grow(files.at("/logs/tracking.log").text, all.tracking, 3001);
        grow(files.at("/logs/selection.log").text, all.selection, 9001);
        files.at("/logs/notes").text += "still nothing\n";
        ASSERT_FALSE(follow()) << looks;
        if (looks % 7 == 0) {
            const auto whole_lines = [](std::string& text) {
                const std::string before = text;
                text.resize(text.rfind('\n') + 1);
                return before;
            };
            const std::string tracking = whole_lines(files.at("/logs/tracking.log").text);
            const std::string selection = whole_lines(files.at("/logs/selection.log").text);
            EXPECT_EQ(told(*data), at_once()) << looks;
            files.at("/logs/tracking.log").text = tracking;
            files.at("/logs/selection.log").text = selection;
        }
    }
    EXPECT_GT(looks, 30U);
    EXPECT_EQ(told(*data), at_once());
    const std::size_t text = all.tracking.size() + all.selection.size();
    EXPECT_LT(counted.bytes, 4 * text + looks * 16384) << "each line once, and what tells that it is the same log";
}

TEST_F(Follower, WhatIsNoLongerTheSameLogIsReadAnew) {
    const auto line = [](int minute, double offset) {
        return fmt::format("2026-11-21 10:{:02}:00 192.0.2.1 2 -5.1 0.02 {:.3e} N 1 1e-6 2e-6 1e-3 2e-4 3e-4\n", minute,
                           offset);
    };
    const auto count = [this] {
        return data->line(HistoryLine::offset).size();
    };
    files.create("/logs/tracking.log", line(0, 1e-6) + line(1, 1e-6));
    load();
    files.at("/logs/tracking.log").text += line(2, 1e-6);
    EXPECT_FALSE(follow());
    EXPECT_EQ(count(), 3U);
    files.rename("/logs/tracking.log", "/logs/tracking.log.1");
    files.create("/logs/tracking.log", "");
    EXPECT_TRUE(follow()) << "rotated";
    EXPECT_EQ(count(), 3U);
    files.at("/logs/tracking.log").text += line(3, 1e-6);
    EXPECT_TRUE(follow()) << "only now it is a log";
    EXPECT_EQ(count(), 4U);
    files.at("/logs/tracking.log").text = line(4, 2e-6) + line(5, 2e-6);
    EXPECT_TRUE(follow()) << "written anew, and longer than before";
    EXPECT_EQ(count(), 5U);
    files.at("/logs/tracking.log").text = line(6, 2e-6);
    EXPECT_TRUE(follow()) << "cut";
    files.at("/logs/tracking.log").text += line(7, 2e-6).substr(0, 50);
    EXPECT_FALSE(follow());
    EXPECT_EQ(count(), 4U) << "half a line is not read";
    files.at("/logs/tracking.log").text += line(7, 2e-6).substr(50);
    EXPECT_FALSE(follow());
    EXPECT_EQ(count(), 5U);
    files.remove("/logs/tracking.log.1");
    EXPECT_TRUE(follow());
    EXPECT_EQ(count(), 2U);
}

TEST_F(Follower, ALossThatEndsIsToldAnewAndNotTwice) {
    testing::MadeDay day;
    day.run_to(testing::MadeDay::at(1));
    files.create("/logs/tracking.log", day.logs().tracking);
    load();
    EXPECT_TRUE(data->marks().empty());
    day.lose_reference();
    files.at("/logs/tracking.log").text = day.logs().tracking;
    EXPECT_FALSE(follow());
    ASSERT_EQ(data->marks().size(), 1U);
    const std::string open = english(*data->marks()[0].sentence);
    day.pass_to(day.now() + 300);
    day.run_to(testing::MadeDay::at(2));
    files.at("/logs/tracking.log").text = day.logs().tracking;
    EXPECT_FALSE(follow());
    EXPECT_NE(english(*data->marks()[0].sentence), open) << "now it is known how long it was";
    EXPECT_EQ(told(*data), at_once());
}

TEST_F(Follower, WhereTheLogArrivesTheStoreGivesWay) {
    const auto at = [](int minute) {
        return 1795255200 + 60 * minute;
    }; // 10:00
    const auto line = [](int minute) {
        return fmt::format("2026-11-21 10:{:02}:00 192.0.2.1 2 -5.1 0.02 1e-6 N 1 1e-6 2e-6 1e-3 2e-4 3e-4\n", minute);
    };
    const auto row = [&](int minute) {
        HistoryRow one{.time = at(minute), .reference = "192.0.2.1"};
        one.values[static_cast<std::size_t>(HistoryQuantity::last_offset)] =
            Extent{minute + .0, minute + .0, minute + .0};
        return one;
    };
    files.create("/logs/tracking.log", line(0) + line(1));
    load();
    EXPECT_TRUE(data->add({.rows = {row(2), row(3), row(4), row(9)},
                           .events = {{at(3), HistoryEventKind::reference, "192.0.2.1", "192.0.2.2"},
                                      {at(3), HistoryEventKind::job, "step", "done"}}}));
    files.at("/logs/tracking.log").text += line(5);
    EXPECT_FALSE(follow());
    const TimedValues& offsets = data->line(HistoryLine::offset);
    ASSERT_EQ(offsets.size(), 4U) << "three records, and the reading behind them";
    EXPECT_EQ(offsets.time(2), at(5));
    EXPECT_EQ(offsets.time(3), at(9));
    ASSERT_EQ(data->marks().size(), 1U) << "what the log tells is not told twice";
    EXPECT_EQ(data->marks()[0].kind, MarkKind::job);
    for (const OriginStretch& one : data->origins())
        EXPECT_TRUE(one.origin == HistoryOrigin::log || one.range.from >= at(5));
}

TEST_F(Follower, MessagesAndTemperaturesAreFollowedToo) {
    std::vector<ClockEvent> messages{{.time = 1795255200, .kind = EventKind::start}};
    int degrees = 20;
    places.read_messages = [&messages](EventsRead& read) -> Result<> {
        read.events = messages;
        return {};
    };
    places.temperatures = "/map";
    places.read_temperatures = [&degrees](HistoryData& read) {
        read.add_temperature("crystal", 1795255200, degrees);
    };
    files.create("/map", "1");
    files.create("/logs/tracking.log", "2026-11-21 10:00:00 192.0.2.1 2 -5.1 0.02 1e-6 N 1 1e-6 2e-6 1e-3 2e-4 3e-4\n");
    follower = HistoryFollower(counted, places);
    follower.set_time_between_messages(std::chrono::seconds(0));
    load();
    EXPECT_EQ(data->marks().size(), 1U);
    messages.push_back({.time = 1795255260, .kind = EventKind::stop});
    ++degrees;
    HistoryNews news = follower.news(-1);
    EXPECT_EQ(news.logged.events.size(), 1U);
    EXPECT_FALSE(news.temperatures.has_value()) << "their file is the same";
    files.at("/map").text += "2";
    news = follower.news(-1);
    EXPECT_TRUE(news.logged.empty());
    ASSERT_TRUE(news.temperatures.has_value());
    EXPECT_EQ(news.temperatures->front().values.mean(0), 21);
}

} // namespace
} // namespace tickervantage
