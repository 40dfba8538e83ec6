#include "draw/graph_geometry.h"
#include "draw/plots/performance_graph.h"
#include "studies/tracking/value_fit.h"
#include "support/manual_timer.h"
#include "support/recording_canvas.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using testing::ManualMasterTimer;
using testing::RecordingCanvas;

constexpr double NOON = 1'795'262'400; // 2026-11-21 12:00:00 UTC
constexpr Rect FRAME{0, 0, 1000, 400};

class PerformanceGraphTest : public ::testing::Test {
protected:
    ManualMasterTimer timer;
    double now = NOON;
    int redraws = 0;
    ZoneOffset zone = [](std::int64_t) {
        return 0;
    };
    PerformanceGraph graph{GraphParts{.master_timer = timer,
                                      .now = [this] { return now; },
                                      .redraw = [this] { ++redraws; },
                                      .zone =
                                          [this](std::int64_t moment) {
                                              return zone(moment);
                                          }}};

    RecordingCanvas drawn(Rect bounds = FRAME) { return drawn(bounds, bounds); }
    RecordingCanvas drawn(Rect bounds, Rect visible) {
        if (graph.paused)
            graph.awakeFromNib();
        RecordingCanvas canvas;
        graph.drawRect(canvas, bounds, visible);
        return canvas;
    }
};

bool meet(Rect one, Rect other) {
    return one.x < right_edge(other) && other.x < right_edge(one) && one.y < upper_edge(other) &&
           other.y < upper_edge(one);
}

TEST(TimeAxis, StepsAndLabelsFollowTheScale) {
    struct Case {
        double xscale;
        int step;
        int labelled; // seconds: the smallest interval that is labelled
    };
    for (const auto& one : {Case{1, 60, 60}, Case{1.0 / 12, 60, 900}, Case{1.0 / 15, 300, 900}, Case{32.0 / 15, 60, 60},
                            Case{1.0 / 60, 300, 3600}, Case{1.0 / 61, 600, 3600}, Case{1.0 / 240, 1200, 14400},
                            Case{1e-4, 50100, 0}, Case{1.0 / 60 * 5 / 7, 600, 3600}}) {
        EXPECT_EQ(minor_time_step(one.xscale), one.step) << one.xscale;
        EXPECT_EQ(time_label_interval(one.xscale), one.labelled) << one.xscale;
    }
    for (const double none : {0.0, -1.0, std::nan(""), 1e-300})
        EXPECT_EQ(minor_time_step(none), 0);
}

// Central European time, and one whose clocks are put forward over midnight; both over the night of 2026-03-28.
constexpr std::int64_t LAST_OF_MARCH = 1'774'656'000; // 2026-03-28 00:00 UTC
std::int64_t central_european(std::int64_t moment) {
    return moment < LAST_OF_MARCH + 25 * 3600 ? 3600 : 7200;
}
std::int64_t without_midnight(std::int64_t moment) {
    return moment < LAST_OF_MARCH + 19 * 3600 ? 5 * 3600 : 6 * 3600;
}
std::int64_t back_over_midnight(std::int64_t moment) {
    return moment < LAST_OF_MARCH + 19 * 3600 ? 5 * 3600 : 4 * 3600;
}
std::int64_t india(std::int64_t) {
    return 19'800;
}

TEST(LocalClock, DaysBeginWhereTheCalendarChanges) {
    constexpr std::int64_t THE_29TH = LAST_OF_MARCH / 86400 + 1;
    struct Case {
        const char* name;
        ZoneOffset zone;
        std::int64_t day;
        std::int64_t hours; // after LAST_OF_MARCH
        const char* clock;
    };
    for (const auto& one : {Case{"winter", central_european, THE_29TH, 23, "00:00"},
                            {"summer", central_european, THE_29TH + 1, 46, "00:00"},
                            {"no midnight", without_midnight, THE_29TH, 19, "01:00"}}) {
        const std::int64_t start = day_start(one.day, one.zone);
        EXPECT_EQ(start, LAST_OF_MARCH + one.hours * 3600) << one.name;
        EXPECT_EQ(hours_minutes(start, one.zone), one.clock) << one.name;
        EXPECT_EQ(date_of_day(day_of(start - 1, one.zone)), date_of_day(one.day - 1)) << one.name;
    }
    const std::int64_t twice = day_start(THE_29TH, back_over_midnight);
    EXPECT_EQ(day_of(twice, back_over_midnight), THE_29TH);
    EXPECT_LT(day_of(twice - 1, back_over_midnight), THE_29TH);
    EXPECT_EQ(date_of_day(-1), "1969-12-31");
}

// The moment that a place on the drawing stands for, and the label's box as wide as its letters may be.
struct Placed {
    std::string text;
    double moment;
    Rect box;
};

TEST_F(PerformanceGraphTest, LabelsTellTheTimeOfTheirPlaceAndNeverMeet) {
    now = static_cast<double>(LAST_OF_MARCH + 40 * 3600 + 754);
    for (const auto& one : {ZoneOffset(central_european), ZoneOffset(without_midnight), ZoneOffset(india)}) {
        zone = one;
        for (double zoom = -12; zoom <= 5; zoom += 0.05)
            for (const double width : {120.0, 251.0, 1000.0, 2600.0}) {
                graph.set_horizontal_zoom(zoom);
                const double lower = std::fmod(std::abs(zoom) * 100, 230); // up to where the zero line is out of sight
                const auto canvas = drawn({0, 0, width, 400}, {0, lower, width, 400 - lower});
                std::vector<Placed> labels;
                for (const auto& text : canvas.texts) {
                    const bool is_date = text.text.size() == 10 && text.text[4] == '-';
                    if (!is_date && (text.text.size() != 5 || text.text[2] != ':'))
                        continue;
                    const double x = text.box.x + (is_date ? -3 : 13);
                    labels.push_back({text.text,
                                      now - (width - 60 - x) / graph.xscale,
                                      {text.box.x, text.box.center().y - 6, is_date ? 66.0 : 29.9, 12}});
                }
                for (std::size_t i = 0; i < labels.size(); ++i) {
                    const auto moment = static_cast<std::int64_t>(std::llround(labels[i].moment));
                    const auto slack = static_cast<std::int64_t>(1.5 / graph.xscale) + 1; // whole points
                    if (labels[i].text.size() == 5) {
                        const std::int64_t interval = time_label_interval(graph.xscale);
                        ASSERT_NE(interval, 0);
                        const std::int64_t at = (moment + slack) / interval * interval;
                        EXPECT_NEAR(static_cast<double>(at), labels[i].moment, static_cast<double>(slack));
                        EXPECT_EQ(labels[i].text, hours_minutes(at, zone)) << "zoom " << zoom;
                    } else {
                        EXPECT_EQ(labels[i].text, date_of_day(day_of(moment, zone))) << "zoom " << zoom;
                    }
                    for (std::size_t j = i + 1; j < labels.size(); ++j)
                        EXPECT_FALSE(meet(labels[i].box, labels[j].box))
                            << labels[i].text << " and " << labels[j].text << " at zoom " << zoom;
                }
                EXPECT_EQ(std::ranges::any_of(labels, [](const auto& label) { return label.text.size() == 10; }),
                          width > 140)
                    << "zoom " << zoom << ": what day it is";
            }
    }
}

TEST_F(PerformanceGraphTest, FrameOfYearsDrawsOnlyWhatIsInSight) {
    const Rect years{0, 0, 1e9, 1e12};
    for (const bool logarithmic : {true, false}) {
        graph.use_logscale = logarithmic;
        const auto canvas = drawn(years, {4e8, 5e11 - 200, 1600, 900});
        EXPECT_LT(canvas.texts.size(), 80U);
        EXPECT_GT(canvas.texts.size(), 20U);
        for (const auto& stroke : canvas.styled_strokes)
            for (const auto& line : stroke.path.elements) {
                EXPECT_LT(std::abs(line.from.x) + std::abs(line.to.x), 4000);
                EXPECT_LT(std::abs(line.from.y) + std::abs(line.to.y), 4000);
            }
    }
}

TEST(FormatValue, TableOfUnits) {
    struct Case {
        std::int64_t n;
        double yscale;
        const char* text;
    };
    const Case cases[] = {{1, 1e6, "0"},
                          {0, 1e6, "0 ns"},
                          {2, 1e6, "2 µs"},
                          {999, 1e9, "999 ns"},
                          {1000, 1e9, "1 µs"},
                          {999'999, 1e9, "999 µs"},
                          {1'000'000, 1e9, "1 ms"},
                          {999'999'999, 1e9, "999 ms"},
                          {1'000'000'000, 1e9, "1 s"},
                          {10'000'000'000, 1e6, "10000 s"},
                          {-5'000'000, 1e6, "-5000000000 ns"},
                          {-1, 1e9, "-1 ns"},
                          {3, 2e9, "1 ns"},
                          {std::numeric_limits<std::int64_t>::max(), 1e-9, "9223372036 s"}};
    for (const auto& one : cases)
        EXPECT_EQ(formatValue(one.n, one.yscale), one.text) << one.n;
}

TEST(FitValues, FillTheHeightAndKeepTheAxisTrue) {
    for (double largest = 2.3e-9; largest < 40; largest *= 3.7)
        for (const double height : {90.0, 260.0, 900.0}) {
            const std::vector<double> values{0, -largest, std::nan(""), largest / 3, -largest / 20};
            for (const bool logarithmic : {true, false}) {
                const auto fit = fit_values(values, logarithmic, height);
                ASSERT_TRUE(fit);
                const double linear_scale = std::exp2(fit->vertical_zoom);
                const ValueScale scale{.use_logscale = logarithmic,
                                       .yscale = std::pow(10, 6 + fit->vertical_scale),
                                       .linear_scale = linear_scale,
                                       .decade_scale = 50 * linear_scale};
                const double share = scale.offset(largest) / (height / 2);
                EXPECT_EQ(fit->vertical_scale, std::round(fit->vertical_scale));
                EXPECT_LE(share, 0.91) << largest << " in " << height;
                EXPECT_GT(share, logarithmic ? 0.5 : 0.07) << largest << " in " << height;
                for (double y = 50; !logarithmic && largest > 2e-8 && y < height / 2; y += 50) {
                    const double units = std::round(y / linear_scale);
                    EXPECT_NEAR(labelled_value(to_integer(units), scale.yscale), y / linear_scale / scale.yscale,
                                1e-9 * largest)
                        << largest << " in " << height << " at " << y;
                }
            }
        }
    EXPECT_FALSE(fit_values({0, std::nan("")}, true, 400));
    EXPECT_FALSE(fit_values({}, false, 400));
}

TEST(ResizedFrame, GrowsAndKeepsRightAndUpperEdges) {
    struct Case {
        double data_width;
        OffsetRange range;
        Rect expected;
    };
    const Rect old{10, 20, 800, 300};
    const double infinite = std::numeric_limits<double>::infinity();
    for (const auto& one :
         {Case{2000, {-50, 400}, {-1190, -490, 2000, 810}}, Case{100, {-10, 10}, {210, 20, 600, 300}},
          Case{600, {-500, 3}, {210, -690, 600, 1010}}, Case{std::nan(""), {-infinite, infinite}, {210, 20, 600, 300}}})
        EXPECT_EQ(resized_frame(old, {0, 0, 600, 300}, one.data_width, one.range), one.expected) << one.data_width;
}

TEST_F(PerformanceGraphTest, RedrawsEveryFifteenSecondsUnlessPaused) {
    graph.awakeFromNib();
    EXPECT_FALSE(graph.paused);
    timer.advance(31);
    EXPECT_EQ(redraws, 2);
    graph.pause(true);
    now += 600;
    graph.pause(true); // changes nothing: the time axis stays at the first moment
    timer.advance(60);
    EXPECT_EQ(redraws, 2);
    EXPECT_EQ(graph.right_end(), NOON);
    graph.pause(false);
    timer.advance(15);
    EXPECT_EQ(redraws, 3);
    EXPECT_EQ(graph.right_end(), NOON + 600);
}

TEST(ValueScale, IsMonotoneFiniteAndMirrored) {
    for (const bool logarithmic : {true, false}) {
        const ValueScale scale{.use_logscale = logarithmic};
        double before = -std::numeric_limits<double>::infinity();
        for (double value = -1e300; value <= 1e300; value = value < -1e-12  ? value / 10
                                                            : value < 1e-12 ? value + 4e-13
                                                                            : value * 10) {
            const double offset = scale.offset(value);
            ASSERT_TRUE(std::isfinite(offset)) << value;
            ASSERT_GE(offset, before) << value;
            ASSERT_EQ(scale.offset(-value), -offset);
            before = offset;
        }
    }
    EXPECT_EQ(ValueScale{}.offset(9.9e-7), 0) << "less than one plotted unit rests on the zero line";
    EXPECT_NEAR(ValueScale{}.offset(-1e-3), -150, 1e-9);
    EXPECT_EQ((ValueScale{.use_logscale = false, .linear_scale = 2}.offset(5e-6)), 10);
    EXPECT_TRUE(std::isnan(ValueScale{}.offset(std::nan(""))));
}

} // namespace
} // namespace tickervantage
