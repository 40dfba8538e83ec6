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
constexpr double NEEDLE_RADIUS = 87;
constexpr double INFINITE = std::numeric_limits<double>::infinity();

double length(const Path::Element& line) {
    return std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);
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
