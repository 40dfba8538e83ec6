#include "draw/instruments/analog_clock_view.h"
#include "draw/instruments/clock_performance.h"
#include "draw/instruments/dial.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tickervantage {
namespace {

using testing::RecordingCanvas;

constexpr Rect BOUNDS{0, 0, 200, 200};
constexpr double FACE_RADIUS = 97;
constexpr double NEEDLE_RADIUS = 87;
constexpr double INFINITE = std::numeric_limits<double>::infinity();

double length(const Path::Element& line) {
    return std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);
}

void expect_near(Point actual, Point expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

// From straight up, clockwise, in degrees from 0 to 360.
double bearing(Point from, Point to) {
    const double degrees = std::atan2(to.x - from.x, to.y - from.y) * 180 / 3.14159265358979323846;
    return degrees < -1e-9 ? degrees + 360 : degrees;
}

RecordingCanvas drawn_meter(double value, bool per_second = false) {
    ClockPerformance meter;
    meter.setValue(value, per_second);
    RecordingCanvas canvas;
    meter.draw(canvas, BOUNDS);
    return canvas;
}

RecordingCanvas drawn_clock(ClockTime time) {
    AnalogClockView clock([time] { return time; });
    RecordingCanvas canvas;
    clock.draw(canvas, BOUNDS);
    return canvas;
}

TEST(ClockPerformance, FullScaleFollowsTheValueInDecades) {
    struct Case {
        double value;
        bool per_second;
        std::uint64_t scale;
        const char* text;
        int exponent;
        double deflection;
    };
    const Case cases[] = {
        {0, false, 1, "Max: 100 ns", 9, 0},
        {100, false, 1, "Max: 100 ns", 9, 100},
        {-100, true, 1, "Max: 100 ns/s", 9, -100},
        {std::nextafter(100, 101), false, 10, "Max: 1 \xC2\xB5s", 6, 10},
        {101, false, 10, "Max: 1 \xC2\xB5s", 6, 10.1},
        {-250, false, 10, "Max: 1 \xC2\xB5s", 6, -25},
        {1000, false, 10, "Max: 1 \xC2\xB5s", 6, 100},
        {1001, true, 100, "Max: 10 \xC2\xB5s/s", 6, 10.01},
        {99'999, false, 1000, "Max: 100 \xC2\xB5s", 6, 99.999},
        {1e6, false, 10'000, "Max: 1 ms", 3, 100},
        {1.2e7, false, 1'000'000, "Max: 100 ms", 3, 12},
        {1e9, false, 10'000'000, "Max: 1 s", 0, 100},
        {-5e13, false, 1'000'000'000'000, "Max: 100000 s", 0, -50},
        {1e15, false, 10'000'000'000'000, "Max: 1000000 s", 0, 100},
        {2e15, true, 10'000'000'000'000, "Max: 1000000 s/s", 0, 100},
        {-1e300, false, 10'000'000'000'000, "Max: 1000000 s", 0, -100},
        {INFINITE, false, 10'000'000'000'000, "Max: 1000000 s", 0, 100},
        {-INFINITE, false, 10'000'000'000'000, "Max: 1000000 s", 0, -100},
        {std::numeric_limits<double>::quiet_NaN(), false, 1, "Max: 100 ns", 9, 0},
    };
    for (const auto& one : cases) {
        ClockPerformance meter;
        meter.setValue(one.value, one.per_second);
        EXPECT_EQ(meter.scale(), one.scale) << one.value;
        EXPECT_EQ(meter.full_scale_text(), one.text) << one.value;
        EXPECT_EQ(meter.scale_exp(), one.exponent) << one.value;
        EXPECT_NEAR(meter.deflection(), one.deflection, 1e-9) << one.value;
    }
}

TEST(ClockPerformance, ScaleComesBackDownAndEveryValueAsksForARedraw) {
    int redraws = 0;
    ClockPerformance meter([&redraws] { ++redraws; });
    meter.setValue(1e12, true);
    meter.setValue(5, false);
    EXPECT_EQ(meter.full_scale_text(), "Max: 100 ns");
    EXPECT_EQ(redraws, 2);
}

TEST(ClockPerformance, MarksReadInUnitsOfTheFullScale) {
    struct Case {
        double value;
        std::vector<std::string> marks;
    };
    const Case cases[] = {
        {500, {"-1.0", "-.8", "-.6", "-.4", "-.2", "0", ".2", ".4", ".6", ".8", "1.0"}},
        {5000, {"-10", "-8", "-6", "-4", "-2", "0", "2", "4", "6", "8", "10"}},
        {50, {"-100", "-80", "-60", "-40", "-20", "0", "20", "40", "60", "80", "100"}},
        {5e13, {"-100", "-80", "-60", "-40", "-20", "0", "20", "40", "60", "80", "100"}},
    };
    for (const auto& one : cases) {
        const auto canvas = drawn_meter(one.value);
        ASSERT_EQ(canvas.texts.size(), 12U);
        for (std::size_t mark = 0; mark < one.marks.size(); ++mark)
            EXPECT_EQ(canvas.texts[mark].text, one.marks[mark]) << one.value;
    }
}

TEST(ClockPerformance, LabelsLieOnTheDial) {
    const auto canvas = drawn_meter(0, true);
    const Rect& top = canvas.texts[5].box;
    expect_near({top.x, top.y}, {85, 100 + FACE_RADIUS - 21 - 13});
    expect_near({top.width, top.height}, {30, 20});
    EXPECT_EQ(canvas.texts[5].style.size, 10.0);
    EXPECT_EQ(canvas.texts[11].text, "Max: 100 ns/s");
    EXPECT_EQ(canvas.texts[11].box, (Rect{13, 13, 174, 20}));
}

TEST(ClockPerformance, FortyOneTicksLongAtTheMarks) {
    const auto canvas = drawn_meter(0);
    const auto& ticks = canvas.strokes.at(0);
    ASSERT_EQ(ticks.path.elements.size(), 41U);
    EXPECT_EQ(ticks.color, ColorRole::text);
    for (int at = 0; at < 41; ++at) {
        const auto& tick = ticks.path.elements[static_cast<std::size_t>(at)];
        EXPECT_NEAR(length(tick), at % 4 == 0 ? 10 : 5, 1e-9) << at;
        EXPECT_NEAR(bearing({100, 100}, tick.from), at < 20 ? 240 + 6 * at : 6 * at - 120, 1e-6) << at;
    }
    expect_near(ticks.path.elements[20].from, {100, 100 + FACE_RADIUS});
    expect_near(ticks.path.elements[20].to, {100, 100 + FACE_RADIUS - 10});
}

TEST(ClockPerformance, TicksFollowTheBounds) {
    ClockPerformance meter;
    RecordingCanvas canvas;
    meter.draw(canvas, BOUNDS);
    meter.draw(canvas, {0, 0, 150, 150});
    expect_near(canvas.strokes.at(2).path.elements[20].from, {75, 147});
}

TEST(ClockPerformance, NeedleTurnsClockwiseWithPositiveValues) {
    struct Case {
        double value;
        double bearing;
    };
    for (const auto& one : {Case{0, 0}, Case{75, 90}, Case{-25, 330}, Case{100, 120}, Case{INFINITE, 120}}) {
        const auto needle = drawn_meter(one.value).strokes.at(1);
        const auto& line = needle.path.elements.at(0);
        EXPECT_NEAR(bearing(line.from, line.to), one.bearing, 1e-6) << one.value;
        EXPECT_NEAR(length(line), NEEDLE_RADIUS * 1.18, 1e-9);
        EXPECT_EQ(needle.shadow, Shadow::soft);
    }
}

TEST(Dial, RingFaceAndHubAreFilledInTheirColours) {
    const auto canvas = drawn_meter(0);
    ASSERT_EQ(canvas.fills.size(), 3U);
    EXPECT_EQ(canvas.fills[0].color, ColorRole::blue);
    EXPECT_EQ(canvas.fills[0].rule, FillRule::even_odd);
    EXPECT_EQ(canvas.fills[0].path.elements.at(0).rect, BOUNDS);
    EXPECT_EQ(canvas.fills[0].path.elements.at(0).radius, (Point{100, 100}));
    EXPECT_EQ(canvas.fills[0].path.elements.at(1).rect, (Rect{3, 3, 194, 194}));
    EXPECT_EQ(canvas.fills[1].color, ColorRole::text_background);
    EXPECT_EQ(canvas.fills[2].path.elements.at(0).rect, (Rect{96, 96, 8, 8}));
}

TEST(Dial, IsMagnifiedOnlyBeyondItsLayoutSide) {
    EXPECT_EQ(dial_magnification(0), 1);
    EXPECT_EQ(dial_magnification(240), 1);
    EXPECT_EQ(dial_magnification(480), 2);
    EXPECT_EQ(dial_square({10, 0, 300, 200}), (Rect{60, 0, 200, 200}));
}

TEST(AnalogClockView, SixtyTicksLongAtTheNumerals) {
    const auto canvas = drawn_clock({});
    const auto& ticks = canvas.strokes.at(0).path.elements;
    ASSERT_EQ(ticks.size(), 60U);
    for (int at = 0; at < 60; ++at)
        EXPECT_NEAR(length(ticks[static_cast<std::size_t>(at)]), at % 5 == 0 ? 10 : 5, 1e-9) << at;
}

TEST(AnalogClockView, NumeralsRunClockwiseFromOne) {
    const auto canvas = drawn_clock({});
    ASSERT_EQ(canvas.texts.size(), 12U);
    for (int numeral = 1; numeral <= 12; ++numeral) {
        const auto& label = canvas.texts[static_cast<std::size_t>(numeral - 1)];
        const Point at{label.box.x + 10, label.box.y + 13};
        EXPECT_EQ(label.text, std::to_string(numeral));
        EXPECT_NEAR(bearing({100, 100}, at), numeral % 12 * 30, 1e-6);
        EXPECT_NEAR(std::hypot(at.x - 100, at.y - 100), FACE_RADIUS - 16, 1e-9);
    }
}

TEST(AnalogClockView, HandsPointAtTheTime) {
    EXPECT_DOUBLE_EQ(AnalogClockView::hour_value({15, 30, 0}), 77.5);
    struct Case {
        ClockTime time;
        double hour;
        double minute;
        double second;
    };
    const Case cases[] = {{{15, 30, 0}, 105, 180, 0},
                          {{3, 30, 0}, 105, 180, 0},
                          {{10, 9, 36}, 304.8, 57.6, 216},
                          {{0, 0, 0}, 0, 0, 0},
                          {{23, 59, 60}, 0, 0, 0}};
    for (const auto& one : cases) {
        const auto canvas = drawn_clock(one.time);
        ASSERT_EQ(canvas.strokes.size(), 4U);
        const double expected[] = {one.hour, one.minute, one.second};
        const double reach[] = {0.6, 0.85, 0.98};
        for (std::size_t hand = 0; hand < 3; ++hand) {
            const auto& line = canvas.strokes[hand + 1].path.elements.at(0);
            EXPECT_NEAR(bearing(line.from, line.to), expected[hand], 1e-6) << one.time.hour << " hand " << hand;
            EXPECT_NEAR(length(line), NEEDLE_RADIUS * (reach[hand] + 0.2), 1e-9);
            EXPECT_EQ(canvas.strokes[hand + 1].width, 3.0 - static_cast<double>(hand));
        }
        EXPECT_EQ(canvas.strokes[3].color, ColorRole::red);
    }
}

TEST(AnalogClockView, ReadsTheTimeAtEveryDraw) {
    int asked = 0;
    AnalogClockView clock([&asked] { return ClockTime{0, 0, 15 * asked++}; });
    RecordingCanvas canvas;
    clock.draw(canvas, BOUNDS);
    clock.draw(canvas, BOUNDS);
    const auto& line = canvas.strokes.at(7).path.elements.at(0);
    EXPECT_NEAR(bearing(line.from, line.to), 90, 1e-6);
}

} // namespace
} // namespace tickervantage
