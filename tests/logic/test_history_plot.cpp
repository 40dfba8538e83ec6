// Axes, columns of pixels, and what the history window shows: without any window.
#include "draw/plots/timed_values.h"
#include "draw/plots/value_axis.h"
#include "draw/plots/view_path.h"
#include "studies/history/history_data.h"
#include "studies/history/history_files.h"
#include "studies/history/history_statistics.h"
#include "studies/history/history_table.h"
#include "studies/history/lane_painter.h"
#include "support/fake_followed_files.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace tickervantage {
namespace {

std::string joined(const std::vector<AxisTick>& ticks) {
    std::string text;
    for (const AxisTick& tick : ticks)
        if (!tick.label.empty())
            text += (text.empty() ? "" : " ") + tick.label;
    return text;
}

TEST(ValueAxis, LabelsAreRoundInOneUnitAndTrueWhereTheyStand) {
    struct Case {
        AxisUnit unit;
        AxisShape shape;
        AxisSpan span;
        double even_to;
        std::string unit_text;
        std::string labels;
    };
    using enum AxisUnit;
    using enum AxisShape;
    const std::vector<Case> cases{
        {seconds, linear, {-25e-6, 31e-6}, 0, "µs", "−20 −10 0 10 20 30"},
        {seconds, linear, {0, 1.7e-3}, 0, "ms", "0 0.5 1.0 1.5"},
        {seconds, linear, {-2e-9, 2e-9}, 0, "ns", "−2 −1 0 1 2"},
        {ppm, linear, {-5.31, -4.79}, 0, "ppm", "−5.3 −5.2 −5.1 −5.0 −4.9 −4.8"},
        {ppm, linear, {-5.12345, -5.12340}, 0, "ppb + −5.123 ppm", "−0.45 −0.44 −0.43 −0.42 −0.41 −0.40"},
        {celsius, linear, {41, 44}, 0, "°C", "41.0 41.5 42.0 42.5 43.0 43.5 44.0"},
        {seconds, symmetric_log, {-2e-3, 2e-3}, 1e-6, "µs", "−1000 −10 0 10 1000"},
        {seconds, logarithmic, {2e-5, 3e-2}, 2e-5, "ms", "0.1 1 10"},
        {seconds, linear, {NAN, NAN}, 0, "s", "−1.0 −0.5 0 0.5 1.0"},
    };
    for (const Case& one : cases) {
        ValueAxis axis(one.unit, one.shape, one.span, one.even_to);
        axis.place_between(0, 200);
        EXPECT_EQ(axis.unit_text(30), one.unit_text) << one.labels;
        EXPECT_EQ(joined(axis.ticks(30)), one.labels) << one.unit_text;
        for (const AxisTick& tick : axis.ticks(30))
            EXPECT_NEAR(axis.value_at(axis.place_of(tick.value)), tick.value, 1e-9 + std::abs(tick.value) * 1e-9);
    }
}

TEST(ValueAxis, DecadesWithoutRoomForTheirLabelsKeepTheirLines) {
    ValueAxis axis(AxisUnit::seconds, AxisShape::symmetric_log, {-2e-3, 2e-3}, 1e-6);
    axis.place_between(0, 200);
    const auto ticks = axis.ticks(30);
    ASSERT_EQ(ticks.size(), 9U) << "1, 10, 100 and 1000 to both sides of zero";
    EXPECT_NEAR(ticks[5].value, 1e-6, 1e-12);
    EXPECT_TRUE(ticks[5].label.empty());
    EXPECT_NEAR(ticks[7].value, 1e-4, 1e-10);
    EXPECT_TRUE(ticks[7].label.empty());
}

TEST(ValueAxis, ValuesHaveThreeDigitsAndTheirOwnUnit) {
    struct Case {
        double value;
        AxisUnit unit;
        const char* text;
    };
    for (const auto& [value, unit, text] :
         {Case{-2.344e-5, AxisUnit::seconds, "−23.4 µs"}, Case{0.9999, AxisUnit::seconds, "1.00 s"},
          Case{0, AxisUnit::seconds, "0.00 s"}, Case{7200, AxisUnit::seconds, "7200 s"},
          Case{-5.1234, AxisUnit::ppm, "−5.12 ppm"}, Case{NAN, AxisUnit::ppm, "–"}})
        EXPECT_EQ(value_text(value, unit, 3, "."), text);
}

// Central Europe in the autumn of 2026: the clocks go back on 25 October at 01:00 UTC.
std::int64_t berlin(std::int64_t moment) {
    return moment < 1792890000 ? 7200 : 3600;
}

std::string joined(const std::vector<TimeMark>& marks) {
    std::string text;
    for (const TimeMark& mark : marks)
        text += (text.empty() ? "" : " ") + mark.label;
    return text;
}

TEST(TimeMarks, AreRoundTimesOfTheZonesClocks) {
    constexpr double noon = 1792843200; // 2026-10-24 12:00:00 UTC
    struct Case {
        TimeRange range;
        std::string times;
        std::string beyond;
    };
    const std::vector<Case> cases{
        {{noon, noon + 20}, "14:00:00 14:00:05 14:00:10 14:00:15 14:00:20", "2026-10-24"},
        {{noon + 100, noon + 3700}, "14:10 14:20 14:30 14:40 14:50 15:00", "2026-10-24"},
        {{noon + 36000, noon + 54000}, "00:00 01:00 02:00 02:00 03:00 04:00", "2026-10-25"},
        {{noon, noon + 2 * 86400}, "00:00 12:00 00:00 12:00", "2026-10-24 2026-10-25 2026-10-26"},
        {{noon, noon + 20 * 86400.0}, "10-26 11-02 11-09", "2026"},
        {{noon, noon + 200 * 86400.0}, "2027-01 2027-04", ""},
        {{noon, noon + 3000 * 86400.0}, "2028 2030 2032 2034", ""},
        {{noon, noon}, "", ""},
        {{noon, 1e300}, "", ""},
    };
    for (const Case& one : cases) {
        const TimeMarks marks = time_marks(one.range, 400, 64, berlin);
        EXPECT_EQ(joined(marks.times), one.times);
        EXPECT_EQ(joined(marks.beyond), one.beyond);
        for (const TimeMark& mark : marks.times)
            if (mark.label.size() == 5 && mark.label[2] == ':') {
                EXPECT_EQ(hours_minutes(static_cast<std::int64_t>(mark.time), berlin), mark.label);
            }
    }
    EXPECT_EQ(zone_text(noon, berlin), "UTC+02:00");
    EXPECT_EQ(zone_text(noon, [](std::int64_t) { return -12600; }), "UTC−03:30");
}

TEST(ViewPath, SmallMovementsAreOneStepBack) {
    ViewPath path;
    path.follow({0, 100});
    path.go({50, 60});
    path.slide({51, 61});
    path.slide({52, 62});
    path.go({0, 10});
    path.back();
    EXPECT_EQ(path.now(), (TimeRange{52, 62}));
    path.back();
    EXPECT_EQ(path.now(), (TimeRange{50, 60}));
    path.back();
    EXPECT_EQ(path.now(), (TimeRange{0, 100}));
    EXPECT_FALSE(path.can_go_back());
    path.forward();
    EXPECT_EQ(path.now(), (TimeRange{50, 60}));
    path.go({1, 2});
    EXPECT_FALSE(path.can_go_forward());
    path.go({50, 60});
    path.slide({50, 60}); // to where it is
    path.slide({51, 61});
    path.back();
    EXPECT_EQ(path.now(), (TimeRange{50, 60}));
    path.extend({50, 60}, {50, 70});
    path.extend({1, 2}, {1, 3}); // behind it
    EXPECT_EQ(path.now(), (TimeRange{50, 70}));
    path.back();
    EXPECT_EQ(path.now(), (TimeRange{1, 3}));
    EXPECT_EQ(zoomed({0, 1}, 0, 0.1, 0.5), (TimeRange{0, 0.5}));
    EXPECT_EQ(zoomed({0, 100}, 25, 0.5), (TimeRange{12.5, 62.5}));
    EXPECT_EQ(kept_within({90, 110}, {0, 100}), (TimeRange{80, 100}));
    EXPECT_EQ(kept_within({-50, 250}, {0, 100}), (TimeRange{-100, 200}));
}

TEST(TimedValues, ColumnsHoldWhatASlowCountFinds) {
    std::mt19937 random{7};
    std::normal_distribution<double> normal;
    TimedValues values;
    std::vector<TimedExtent> all;
    double time = 0;
    for (int at = 0; at < 5000; ++at) {
        time += std::abs(normal(random)) + (at == 2500 ? 400 : 0);
        const double mean = normal(random);
        const double around = at % 3 == 0 ? 0.5 : 0;
        all.push_back({time, mean - around, mean, mean + around});
    }
    std::swap(all[3000], all[3001]); // a clock that was set back
    for (const TimedExtent& one : all)
        values.add(one);
    values.add(NAN, 1);
    ASSERT_EQ(values.size(), all.size());
    for (const std::size_t count : {1U, 7U, 300U, 9000U}) {
        const TimeRange range{100, time - 100};
        const auto columns = values.columns(range, count);
        ASSERT_EQ(columns.size(), count);
        std::size_t seen = 0;
        std::size_t expected = 0;
        for (std::size_t at = 0; at < count; at += std::max<std::size_t>(1, count / 50)) {
            const double left = range.from + range.length() / static_cast<double>(count) * static_cast<double>(at);
            const double right = left + range.length() / static_cast<double>(count);
            ValueColumn slow;
            for (const TimedExtent& one : all)
                if (one.time >= left && one.time < right) {
                    slow.low = slow.count == 0 ? one.low : std::min(slow.low, one.low);
                    slow.high = slow.count == 0 ? one.high : std::max(slow.high, one.high);
                    slow.mean += one.mean;
                    ++slow.count;
                }
            seen += columns[at].count;
            expected += slow.count;
            if (count == 7) { // so many that whole blocks go to one column or the other
                EXPECT_NEAR(static_cast<double>(columns[at].count), static_cast<double>(slow.count), 32) << at;
                continue;
            }
            ASSERT_EQ(columns[at].count, slow.count) << count << ' ' << at;
            if (slow.count == 0)
                continue;
            EXPECT_NEAR(columns[at].low, slow.low, 1e-6);
            EXPECT_NEAR(columns[at].high, slow.high, 1e-6);
            EXPECT_NEAR(columns[at].mean, slow.mean / static_cast<double>(slow.count), 1e-9);
        }
        EXPECT_GT(seen, 0U);
        EXPECT_EQ(seen, expected);
    }
}

TEST(HistoryStatistics, HistogramCountsEachValueOnce) {
    std::vector<double> even(10'000);
    for (std::size_t at = 0; at < even.size(); ++at)
        even[at] = static_cast<double>(at);
    const Histogram histogram = histogram_of(even, 10);
    std::size_t sum = histogram.below + histogram.above;
    for (const std::size_t count : histogram.counts) {
        EXPECT_NEAR(static_cast<double>(count), 1000, 130) << "fewer in the first and the last, which reach further";
        sum += count;
    }
    EXPECT_EQ(sum, even.size());
}

constexpr std::int64_t begin = 1'795'262'400;

HistoryRow row_at(std::int64_t time, double offset, int span = 0) {
    HistoryRow row{.time = time, .span = span};
    row.values[static_cast<std::size_t>(HistoryQuantity::last_offset)] = Extent{offset - span, offset, offset + span};
    row.values[static_cast<std::size_t>(HistoryQuantity::frequency_ppm)] = Extent{-5, -5, -5};
    row.values[static_cast<std::size_t>(HistoryQuantity::skew_ppm)] = Extent{0.1, 0.1, 0.1};
    return row;
}

SourceRow source_at(std::int64_t time, SelectionRule rule, unsigned reach = 255) {
    return {.time = time, .source = "192.0.2.1", .rule = rule, .letter = '*', .reach = reach};
}

TEST(HistoryData, TheLogStandsWhereItTellsOfATimeAndTheStoreElsewhere) {
    testing::FakeFollowedFiles files;
    std::string log;
    for (const char* time : {"00:00:00", "00:01:04", "05:00:00", "05:01:04"})
        log += std::string("2026-11-22 ") + time + " 192.0.2.1 2 -5.1 0.02 -1e-6 N 1 1e-6 2e-6 1e-3 2e-3 3e-3\n";
    files.create("/tracking.log", log);
    LoadedHistory loaded = load_history(files, {.store = "/none", .logs = {"/tracking.log", "/missing.log"}});
    EXPECT_EQ(loaded.log_problems.size(), 1U);
    EXPECT_TRUE(loaded.store_problem.has_value());
    EXPECT_EQ(loaded.logs, std::vector<std::string>{"/tracking.log"});
    HistoryData& data = *loaded.data;
    const auto midnight = static_cast<std::int64_t>(*moment_in("2026-11-22T00:00:00Z"));
    EXPECT_TRUE(data.add({.rows = {row_at(midnight - 100, 5), row_at(midnight + 30, 6), row_at(midnight + 9000, 7),
                                   row_at(midnight + 18'100, 8)}}));
    EXPECT_FALSE(data.add({.rows = {row_at(midnight + 18'100, 8)}})) << "known already";
    const TimedValues& offsets = data.line(HistoryLine::offset);
    std::vector<double> found;
    for (std::size_t at = 0; at < offsets.size(); ++at)
        found.push_back(offsets.mean(at));
    EXPECT_EQ(found, (std::vector<double>{5, -1e-6, -1e-6, 7, -1e-6, -1e-6, 8}));
    EXPECT_EQ(data.line(HistoryLine::bound).mean(0), 3e-3);
    EXPECT_NEAR(data.line(HistoryLine::skew_band).at(1).low, -5.12, 1e-6);
    EXPECT_EQ(data.extent()->from, static_cast<double>(midnight - 100));
}

TEST(HistoryData, LanesAreStretchesOfOneState) {
    using enum SelectionRule;
    HistoryData data;
    StoredHistory stored;
    for (const auto& [time, rule] : {std::pair{0, best}, {10, best}, {20, falseticker}, {30, falseticker}, {900, best}})
        stored.sources.push_back(source_at(begin + time, rule));
    for (const int time : {0, 10, 20, 30, 900})
        stored.rows.push_back(row_at(begin + time, 1e-6));
    stored.events = {{begin + 20, HistoryEventKind::reference, "192.0.2.1", ""},
                     {begin + 10, HistoryEventKind::chronyd, "", "gone"}};
    EXPECT_TRUE(data.add(stored));
    ASSERT_EQ(data.lanes().size(), 1U);
    const HistoryLane& lane = data.lanes()[0];
    ASSERT_EQ(lane.stretches.size(), 3U);
    EXPECT_EQ(lane.stretches[0].range, (TimeRange{begin, begin + 20.0}));
    EXPECT_EQ(lane.stretches[1].range, (TimeRange{begin + 20.0, begin + 30.0})) << "nothing is known until the next";
    EXPECT_EQ(lane.at(begin + 25)->rule, falseticker);
    EXPECT_EQ(lane.at(begin + 400), nullptr);
    EXPECT_EQ(lane.at(begin - 1), nullptr);
    ASSERT_EQ(data.marks().size(), 2U);
    EXPECT_EQ(data.marks()[0].kind, MarkKind::stop);
    EXPECT_EQ(data.marks()[1].kind, MarkKind::lost);
}

struct HistoryViewTest : ::testing::Test {
    HistoryView view;
    Rect bounds{0, 0, 800, 500};

    void SetUp() override {
        auto data = std::make_shared<HistoryData>();
        StoredHistory stored;
        for (int at = 0; at < 200; ++at) {
            stored.rows.push_back(row_at(begin + 10 * at, at == 100 ? 2e-4 : 1e-6 * (at % 7)));
            stored.sources.push_back(source_at(begin + 10 * at, SelectionRule::best, at < 100 ? 255 : 15));
        }
        (void)data->add(stored);
        data->add(ClockEvent{.time = begin + 500.0, .kind = EventKind::step});
        view.set_data(data);
        view.set_range({begin, begin + 2000.0});
        view.zone = [](std::int64_t) {
            return 0;
        };
    }

    testing::RecordingCanvas drawn() {
        testing::RecordingCanvas canvas;
        view.draw(canvas, bounds);
        return canvas;
    }
    std::vector<std::string> texts() {
        std::vector<std::string> all;
        for (const auto& text : drawn().texts)
            all.push_back(text.text);
        return all;
    }
};

TEST_F(HistoryViewTest, PanelsShareTheTimeAxisAndNameTheirUnits) {
    const auto all = texts();
    for (const char* text :
         {"Error (µs, decades)", "Frequency (ppm)", "Sources", "192.0.2.1", "12:10", "2026-11-21", "UTC"})
        EXPECT_NE(std::ranges::find(all, text), all.end()) << text;
    const auto places = view.places(bounds);
    ASSERT_EQ(places.size(), 3U) << "nothing is known of delays";
    for (const auto& place : places) {
        EXPECT_EQ(place.area.x, places[0].area.x);
        EXPECT_EQ(place.area.width, places[0].area.width);
        EXPECT_GE(place.area.y, view.plot_area(bounds).y - 1);
    }
    EXPECT_NEAR(view.time_at(view.place_of(begin + 700, bounds), bounds), begin + 700, 1e-3);
}

TEST_F(HistoryViewTest, WhatTheLegendHidesIsNeitherDrawnNorRead) {
    const auto keys = [this] {
        std::string all;
        for (const CurveReading& one : view.readings_at(begin + 1000))
            all += one.key + ' ';
        return all;
    };
    EXPECT_EQ(keys(), "offset skew frequency ");
    EXPECT_EQ(view.readings_at(begin + 1000)[0].value.mean, 2e-4);
    view.options.hidden.insert("offset");
    EXPECT_EQ(keys(), "skew frequency ");
    EXPECT_EQ(csv_of(table_of(view)).find("offset"), std::string::npos);
    view.options.hidden.clear();
    view.set_range({begin + 995.0, begin + 1005.0});
    EXPECT_NE(csv_of(table_of(view)).find("2026-11-21T12:16:40Z,offset,2e-04,2e-04,2e-04\n"), std::string::npos);
}

TEST_F(HistoryViewTest, FlagsAndLanesAreFoundUnderThePointer) {
    const double x = view.place_of(begin + 500, bounds);
    EXPECT_EQ(view.marks_at({x + 2, 495}, bounds).size(), 1U);
    EXPECT_TRUE(view.marks_at({x + 40, 495}, bounds).empty());
    EXPECT_TRUE(view.marks_at({x, 200}, bounds).empty());
    view.options.marks[static_cast<std::size_t>(EventKind::step)] = false;
    EXPECT_TRUE(view.marks_at({x, 495}, bounds).empty());
    const Rect lanes = view.places(bounds).back().area;
    ASSERT_NE(view.lane_at(lanes.center(), bounds), nullptr);
    EXPECT_EQ(view.lane_at({lanes.x, lanes.y + lanes.height + 30}, bounds), nullptr);
}

TEST_F(HistoryViewTest, ASecondLogIsLaidOverWithTheDifference) {
    auto other = std::make_shared<HistoryData>();
    StoredHistory stored;
    for (int at = 0; at < 200; ++at)
        stored.rows.push_back(row_at(begin + 10 * at + 3, 1e-6 * (at % 7) - 5e-5));
    (void)other->add(stored);
    view.set_other(other);
    std::map<std::string, double> found;
    for (const CurveReading& one : view.readings_at(begin + 300))
        found[one.key] = one.value.mean;
    EXPECT_NEAR(found.at("difference offset"), 5e-5, 1e-9);
    EXPECT_TRUE(found.contains("other offset") && found.contains("other frequency"));
    view.set_other(nullptr);
    EXPECT_EQ(view.curves().size(), 3U);
}

TEST(LanePainter, MissedPollsAndNarrowStretchesCanBeSeen) {
    HistoryLane lane;
    using enum SelectionRule;
    lane.stretches = {{{0, 500}, combined, '+', 255},
                      {{500, 501}, best, '*', 255},
                      {{501, 502}, falseticker, 'x', 255},
                      {{502, 1000}, combined, '+', 0}};
    testing::RecordingCanvas canvas;
    const ColumnGrid grid({0, 0, 100, 20}, {0, 1000}, 1);
    draw_lane(canvas, grid, {0, 0, 100, 16}, lane);
    const auto ink_of = [](SourceStanding standing) {
        return color_of(standing);
    };
    bool refused_is_seen = false;
    double missed = 0;
    for (const auto& [boxes, ink] : canvas.boxes) {
        refused_is_seen |= ink.own == ink_of(SourceStanding::refused) && boxes[0].width >= 1;
        if (ink.role == ColorRole::red && !ink.own)
            missed += boxes[0].width;
    }
    EXPECT_TRUE(refused_is_seen);
    EXPECT_NEAR(missed, 50, 2);
}

} // namespace
} // namespace tickervantage
