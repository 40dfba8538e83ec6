#include "studies/history/before_after.h"
#include "studies/history/cause.h"
#include "studies/history/limit_share.h"
#include "studies/history/pointer_notes.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::int64_t noon = 1795262400;

SourceRow row(std::int64_t after, const char* source, SelectionRule rule) {
    return {.time = noon + after, .source = source, .rule = rule, .letter = '?', .reach = 255};
}

struct Causes : ::testing::Test {
    HistoryData data;

    // Readings a minute apart about noon.
    void tell(const char* source, SelectionRule before, SelectionRule after) {
        for (int minute = -5; minute <= 5; ++minute)
            data.add_logged(row(minute * 60, source, minute < 0 ? before : after));
    }
    Cause cause(MarkKind kind, const std::string& to = {}, const std::string& source = {}) {
        return cause_of(data, {.time = noon, .kind = kind, .to = to, .source = source});
    }
};

TEST_F(Causes, OfALossTheSourcesTell) {
    using enum SelectionRule;
    EXPECT_EQ(cause(MarkKind::lost).culprit, Culprit::unknown) << "of no source anything is known";
    tell("192.0.2.1", best, unreachable);
    EXPECT_EQ(cause(MarkKind::lost).culprit, Culprit::silent) << "the only one";
    tell("192.0.2.2", combined, unreachable);
    EXPECT_EQ(cause(MarkKind::lost).culprit, Culprit::way);
    EXPECT_EQ(cause(MarkKind::verdict, "holdover").sources, 2U);
    EXPECT_EQ(cause(MarkKind::verdict, "synchronised").culprit, Culprit::unknown) << "nothing was lost";
    EXPECT_EQ(cause(MarkKind::verdict, "unavailable").culprit, Culprit::machine);
    tell("192.0.2.3", combined, combined);
    EXPECT_EQ(cause(MarkKind::lost).culprit, Culprit::silent);
    EXPECT_EQ(cause(MarkKind::lost).source, "192.0.2.1");
}

TEST_F(Causes, OfAnotherSourceTheFormerOneTells) {
    using enum SelectionRule;
    struct Case {
        SelectionRule after;
        Culprit culprit;
    };
    for (const auto& [after, culprit] :
         {Case{combined, Culprit::choice}, Case{falseticker, Culprit::refused}, Case{unreachable, Culprit::silent}}) {
        data = {};
        tell("192.0.2.1", best, after);
        tell("192.0.2.2", combined, best);
        const Cause found = cause(MarkKind::source, {}, "192.0.2.2");
        EXPECT_EQ(found.culprit, culprit);
        EXPECT_EQ(found.source, "192.0.2.1");
    }
}

TEST_F(Causes, AJumpOfTheFrequencyIsTheTemperaturesWhereThatMoved) {
    const MarkKind jump = mark_kind(EventKind::frequency);
    data.add_temperature("crystal", noon - 3600, 40);
    data.add_temperature("crystal", noon, 40.5);
    EXPECT_EQ(cause(jump).culprit, Culprit::unknown) << "half a degree is nothing";
    data.add_temperature("crystal", noon + 10, 37);
    EXPECT_EQ(cause_of(data, {.time = noon + 20, .kind = jump}).culprit, Culprit::temperature);
    EXPECT_NEAR(cause_of(data, {.time = noon + 20, .kind = jump}).degrees, -3, 1e-9);
}

TEST(BeforeAfter, SecondsCountFromZeroAndOtherUnitsFromTheirMiddle) {
    std::vector<double> values;
    for (int at = 0; at < 40; ++at)
        values.push_back(at % 2 == 0 ? 8e-6 : -8e-6);
    for (int at = 0; at < 30; ++at)
        values.push_back(at % 2 == 0 ? 2e-6 : -2e-6);
    const BeforeAfter better = compare_before_after(values, 40, AxisUnit::seconds);
    EXPECT_EQ(better.change(), BeforeAfter::Change::smaller);
    EXPECT_NEAR(better.times(), 4, 1e-9);
    EXPECT_EQ(better.count_after, 30U);
    for (double& value : values)
        value += 12;
    EXPECT_EQ(compare_before_after(values, 40, AxisUnit::seconds).change(), BeforeAfter::Change::same);
    EXPECT_NEAR(compare_before_after(values, 40, AxisUnit::ppm).times(), 4, 1e-3);
    EXPECT_EQ(compare_before_after(values, 60, AxisUnit::ppm).change(), BeforeAfter::Change::unknown) << "ten values";
    EXPECT_EQ(compare_before_after(values, 500, AxisUnit::ppm).count_before, 70U);
    const std::vector<double> none(60, 0.0);
    EXPECT_EQ(compare_before_after(none, 30, AxisUnit::seconds).change(), BeforeAfter::Change::same);
}

TEST(LimitShare, TheLaterRecordTellsOfTheTimeBeforeItAndALongPauseTellsNothing) {
    const std::vector<double> times{0, 10, 30, 40, 5000, 5010, 5020};
    const std::vector<double> bounds{9, 1, 9, 9, 9, 1, 9};
    const LimitShare share = share_within(times, bounds, 1);
    EXPECT_EQ(share.within, 20);
    EXPECT_EQ(share.outside, 40);
    EXPECT_EQ(share.without, 4960);
    EXPECT_EQ(share.excursions, 2U);
    EXPECT_EQ(share.longest, 30);
    EXPECT_EQ(share_within({}, {}, 1).within, 0);
}

TEST(PointerNotes, StandBesideTheCrosshairInTheirPanelAndInSight) {
    auto data = std::make_shared<HistoryData>();
    LogValues log;
    for (int at = 0; at < 100; ++at) {
        const double time = noon + at;
        log.lines[0].push_back({time, 1e-6, 1e-6, 1e-6});
        log.lines[2].push_back({time, 5, 5, 5});
        log.times.push_back(time);
    }
    data->set_log(std::move(log));
    HistoryView view;
    view.set_data(data);
    view.set_range({noon, noon + 100.0});
    constexpr Rect bounds{0, 0, 600, 400};
    const auto drawn = [&](double time) {
        testing::RecordingCanvas canvas;
        draw_notes(canvas, view, bounds,
                   {.time = time,
                    .moment = "12:00",
                    .event = "it happened",
                    .values = {{HistoryPanel::error, Color{}, "offset"}, {HistoryPanel::frequency, {}, "frequency"}}});
        return canvas;
    };
    for (const double after : {5.0, 95.0}) {
        const auto canvas = drawn(noon + after);
        const double x = view.place_of(noon + after, bounds);
        for (const char* words : {"12:00", "it happened", "offset", "frequency"})
            EXPECT_EQ(std::ranges::count(canvas.texts, words, &testing::RecordingCanvas::Text::text), 1) << words;
        const auto offset = std::ranges::find(canvas.texts, "offset", &testing::RecordingCanvas::Text::text);
        EXPECT_EQ(offset->box.x > x, after < 50) << "to the side where there is room";
        const Rect panel = view.places(bounds).front().area;
        EXPECT_GT(offset->box.y, panel.y) << "in its panel";
    }
    EXPECT_TRUE(drawn(noon - 50).texts.empty());
}

} // namespace
} // namespace tickervantage
