// The day before a demonstration: what its log says is what its history says.
#include "history/history_reader.h"
#include "history/recording.h"
#include "studies/tracking/tracking_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace tickervantage {
namespace {

constexpr std::int64_t end = 1'795'000'005;
constexpr std::int64_t hour = 3600;

void read_log(const RecordedDay& day, TrackingRecords& records) {
    std::istringstream text(day.logs.tracking);
    for (std::string line; std::getline(text, line);)
        records.add_line(line);
}

TEST(RecordedDay, IsWholeWheneverItEnds) {
    for (std::int64_t begun = end; begun < end + 20; begun += 5) {
        const RecordedDay day = recorded_day(begun);
        ASSERT_GE(day.readings.size(), 8638U);
        ASSERT_LT(static_cast<double>(begun) - *day.readings.back().now, 11);
    }
}

TEST(RecordedDay, TheLogHasWhatTheReadingsHave) {
    const RecordedDay day = recorded_day(end);
    TrackingRecords records;
    read_log(day, records);
    const auto time_of = [&records](std::size_t index) {
        return static_cast<double>(records.record(index).timestamp);
    };
    ASSERT_GT(records.size(), 4000U);
    ASSERT_GT(day.readings.size(), 8600U);
    EXPECT_LT(time_of(records.size() - 1), end);
    EXPECT_GT(time_of(records.size() - 1), end - 20);
    EXPECT_LT(day.readings.back().now, end);
    std::size_t newest = 0;
    int compared = 0;
    for (const ChronyReports& reading : day.readings) {
        while (newest + 1 < records.size() && time_of(newest + 1) <= *reading.now)
            ++newest;
        const tracking logged = records.record(newest);
        if (!reading.tracking || time_of(newest) > *reading.now)
            continue;
        ++compared;
        const TrackingData& said = *reading.tracking;
        ASSERT_NEAR(logged.offset.value(), *said.last_offset, 1e-3 * std::abs(*said.last_offset) + 1e-12);
        ASSERT_NEAR(logged.frequency.value() * 1e6, *said.frequency_ppm, 6e-4);
        ASSERT_EQ(logged.address, said.address) << logged.timestamp;
        ASSERT_EQ(logged.stratum, *said.stratum);
        ASSERT_EQ(time_of(newest), *said.reference_time);
    }
    EXPECT_GT(compared, 8600);
    EXPECT_LT(day.logs.tracking.size() + day.logs.measurements.size() + day.logs.statistics.size(), 6'000'000U);
}

struct RecordedHistory : ::testing::Test {
    std::string folder;
    std::string path;

    RecordedHistory() {
        std::string pattern = std::filesystem::temp_directory_path() / "recorded-XXXXXX";
        folder = ::mkdtemp(pattern.data());
        path = folder + "/history.sqlite";
    }
    ~RecordedHistory() override { std::filesystem::remove_all(folder); }

    std::vector<HistoryRow> rows(double from_hours, double to_hours) {
        return HistoryReader::open(path)
            .value()
            .rows(
                {end - static_cast<std::int64_t>(from_hours * hour), end - static_cast<std::int64_t>(to_hours * hour)})
            .value();
    }
    void SetUp() override { ASSERT_TRUE(keep_recording(path, recorded_day(end))); }
};

double bound(const HistoryRow& row) {
    return row.values.at(static_cast<std::size_t>(HistoryQuantity::bound)).value().mean;
}

TEST_F(RecordedHistory, TellsWhatHappened) {
    std::string told;
    auto history = HistoryReader::open(path).value();
    const auto events = history.events({}).value();
    for (const auto& event : events)
        told += (event.kind == HistoryEventKind::job ? event.from : event.from + ">" + event.to) + " ";
    EXPECT_EQ(told, "127.0.0.1>127.0.0.2 127.0.0.2>127.0.0.1 "
                    "synchronised>holdover holdover>correcting correcting>synchronised install-config >gone "
                    "synchronised>unavailable >appeared unavailable>synchronised recording ");
}

TEST_F(RecordedHistory, TheBoundGrowsWhileNobodyIsHeard) {
    const auto silent = rows(9.1, 8.1);
    ASSERT_EQ(silent.size(), 360U);
    for (std::size_t at = 1; at < silent.size(); ++at) {
        ASSERT_EQ(silent[at].verdict, Verdict::holdover);
        ASSERT_GT(bound(silent[at]), bound(silent[at - 1]));
    }
    EXPECT_GT(bound(silent.back()), 10 * bound(rows(10, 9.9).front()));
    EXPECT_LT(bound(rows(1, 0.9).front()), 1e-3);
}

TEST_F(RecordedHistory, OneServerIsOutvotedForAWhile) {
    auto history = HistoryReader::open(path).value();
    const auto worst = [&history](double from, double to) {
        double most = 0;
        int used = 0;
        const HistoryPeriod period{end - static_cast<std::int64_t>(from * hour),
                                   end - static_cast<std::int64_t>(to * hour)};
        const auto readings = history.sources(period, "127.0.0.3").value();
        for (const auto& row : readings) {
            most = std::max(most, std::abs(row.offset->mean));
            used += row.rule == SelectionRule::falseticker ? 0 : 1;
        }
        return std::pair(most > 3e-3, used > 0);
    };
    EXPECT_EQ(worst(21.4, 20.1), std::pair(true, false));
    EXPECT_EQ(worst(19.9, 10), std::pair(false, true));
}

} // namespace
} // namespace tickervantage
