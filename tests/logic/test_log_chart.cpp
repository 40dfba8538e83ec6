#include "draw/plots/log_chart.h"
#include "support/recording_canvas.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using testing::RecordingCanvas;

constexpr Rect bounds{0, 0, 700, 400};

// Five decades downwards, the first point with limits and hollow.
LogChart falling() {
    ChartSeries curve{.name = "curve", .ink = ColorRole::blue, .has_bars = true};
    for (int decade = 0; decade < 6; ++decade)
        curve.points.push_back({.x = std::pow(10, decade), .y = std::pow(10, -6 - decade), .shape = MarkShape::square});
    curve.points.front().low = 5e-7;
    curve.points.front().high = 2e-6;
    curve.points.front().is_hollow = true;
    LogChart chart{.from = 0.5, .to = 2e5};
    chart.panels.push_back({.title = "Deviation", .series = {curve}});
    return chart;
}

std::vector<std::string> texts_of(const RecordingCanvas& canvas) {
    std::vector<std::string> texts;
    for (const auto& text : canvas.texts)
        texts.push_back(text.text);
    return texts;
}

TEST(LogAxis, LabelsRoundSpansWhereTheyStand) {
    const LogAxis axis(LogAxisKind::duration, 0.5, 3e6, 0, 700);
    std::vector<std::string> texts;
    for (const auto& mark : axis.marks(60, ",")) {
        texts.push_back(mark.text);
        EXPECT_NEAR(axis.value_at(mark.place) / mark.value, 1, 1e-9) << mark.text;
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"1 s", "10 s", "1 min", "10 min", "1 h", "6 h", "1 d", "10 d"}));
    const LogAxis fine(LogAxisKind::duration, 0.01, 1, 0, 700);
    EXPECT_EQ(fine.marks(100, ",").front().text, "10 ms");
}

TEST(LogAxis, FrequenciesHaveTheirPeriodsAbove) {
    const LogAxis axis(LogAxisKind::frequency, 3e-7, 0.5, 0, 900);
    std::vector<std::string> periods;
    for (const auto& mark : axis.period_marks(60, ".")) {
        periods.push_back(mark.text);
        EXPECT_EQ(mark.place, axis.place_of(mark.value));
    }
    EXPECT_TRUE(std::ranges::find(periods, "1 d") != periods.end());
    EXPECT_NEAR(axis.place_of(1.0 / 86400), std::log(1 / 86400.0 / 3e-7) / std::log(0.5 / 3e-7) * 900, 1e-6);
    for (const auto& [hertz, text] : std::vector<std::pair<double, const char*>>{
             {3e-7, "300 nHz"}, {1.1574e-5, "11.6 µHz"}, {0.1, "100 mHz"}, {2, "2.00 Hz"}})
        EXPECT_EQ(frequency_text(hertz, 3, "."), text);
    EXPECT_EQ(span_text(129'600, 2, ","), "1,5 d");
}

TEST(LogChart, ShowsAllDecadesOfAPanel) {
    RecordingCanvas canvas;
    draw_chart(canvas, bounds, falling());
    const auto is_curve = [](const RecordingCanvas::Polyline& one) {
        return one.points.size() == 6; // none is cut off; marks and the piece beside the name have fewer
    };
    const auto found = std::ranges::find_if(canvas.polylines, is_curve);
    ASSERT_NE(found, canvas.polylines.end());
    const auto& line = found->points;
    for (std::size_t at = 1; at < line.size(); ++at)
        EXPECT_NEAR(line[at].y - line[at - 1].y, line[1].y - line[0].y, 1e-6) << "a decade is a decade";
    const auto texts = texts_of(canvas);
    for (const char* text : {"Deviation", "curve", "10⁻⁷", "10⁻¹¹", "1 h", "1 s"})
        EXPECT_TRUE(std::ranges::find(texts, text) != texts.end()) << text;
}

TEST(LogChart, APartFitsItsPanelsAndHasLabelsOfItsOwn) {
    LogChart chart = falling();
    chart.panels.front().flags = {{1, 1e-6, "before"}, {15, 2e-7, "here"}};
    chart.panels.front().series.push_back( // from one end to the other
        {.points = {{.x = 0.5, .y = 1e-9}, {.x = 2e5, .y = 1e-9 / 4e5}}, .is_told = false});
    chart.from = 11;
    chart.to = 20;
    chart.panels.front().unit = AxisUnit::seconds;
    RecordingCanvas canvas;
    draw_chart(canvas, bounds, chart);
    const auto texts = texts_of(canvas);
    for (const char* text : {"12 s", "20 s", "here"})
        EXPECT_TRUE(std::ranges::find(texts, text) != texts.end()) << text;
    EXPECT_TRUE(std::ranges::find(texts, "before") == texts.end());
    EXPECT_FALSE(nearest(chart, bounds, {300, 200})) << "no point lies in that part";
    // A decade downwards for a decade to the right: between the edges of a part, as of the whole.
    std::vector<double> falls;
    for (const auto& line : canvas.polylines)
        if (line.points.front().x < 60 && line.points.back().x > 680)
            falls.push_back(line.points.front().y - line.points.back().y);
    ASSERT_EQ(falls.size(), 2U);
    EXPECT_NEAR(falls[0], falls[1], 1e-6);
    EXPECT_GT(falls[0], 10);
    chart.from = 10;
    chart.panels.front().series.pop_back();
    RecordingCanvas pointed;
    draw_pointer(pointed, bounds, chart, {0, 0, 0});
    EXPECT_TRUE(pointed.boxes.empty());
    draw_pointer(pointed, bounds, chart, {0, 0, 1});
    EXPECT_FALSE(pointed.boxes.empty());
}

TEST(ValueAxis, APartOfADecadeHasEvenLabelsThatAreTrue) {
    for (const auto& [unit, span, wanted] : std::vector<std::tuple<AxisUnit, AxisSpan, std::string>>{
             {AxisUnit::none, {2.1e-8, 4.8e-8}, "2.5·10⁻⁸ 3.0·10⁻⁸ 3.5·10⁻⁸ 4.0·10⁻⁸ 4.5·10⁻⁸ "},
             {AxisUnit::seconds, {0.0011, 0.0019}, "1100 1200 1300 1400 1500 1600 1700 1800 1900 "},
             {AxisUnit::none, {11, 14}, "11.0 11.5 12.0 12.5 13.0 13.5 14.0 "}}) {
        ValueAxis axis(unit, AxisShape::logarithmic, span, span.low);
        axis.place_between(0, 300);
        std::string found;
        for (const AxisTick& tick : axis.ticks(24))
            found += tick.label + ' ';
        EXPECT_EQ(found, wanted);
    }
}

TEST(LogChart, PanelsStandAboveEachOtherAndFlagsOverNothing) {
    LogChart chart = falling();
    chart.panels.push_back(chart.panels.front());
    chart.panels.back().title = "Second";
    chart.panels.front().flags = {{100, 1e-8, "a day"}, {101, 1e-8, "beside"}};
    chart.upright = 1000;
    RecordingCanvas canvas;
    draw_chart(canvas, bounds, chart);
    std::map<std::string, Rect> boxes;
    for (const auto& text : canvas.texts)
        boxes[text.text] = text.box;
    EXPECT_GT(boxes["Deviation"].y, boxes["Second"].y + 100);
    EXPECT_GT(std::abs(boxes["a day"].y - boxes["beside"].y), 10);
    const auto& upright = canvas.boxes.back().boxes.front();
    EXPECT_NEAR(upright.x + 0.5, LogAxis(LogAxisKind::duration, 0.5, 2e5, 58, 684).place_of(1000), 1e-6);
}

TEST(LogChart, PointersFindTheNearestPointAndKeysTheNextOne) {
    LogChart chart = falling();
    ChartSeries band{.points = chart.panels[0].series[0].points, .is_told = false};
    chart.panels[0].series.push_back(band);
    ChartSeries other = chart.panels[0].series[0];
    for (ChartPoint& point : other.points)
        point.x *= 3;
    chart.panels[0].series.push_back(other);
    const LogAxis across(LogAxisKind::duration, 0.5, 2e5, 58, 684);
    const auto found = nearest(chart, bounds, {across.place_of(950), 250});
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, (ChartPlace{0, 0, 3}));
    EXPECT_FALSE(nearest(chart, bounds, {5, 250})) << "beside the panel";
    EXPECT_EQ(moved(chart, found, 1)->point, 4U);
    EXPECT_EQ(moved(chart, found, 99)->point, 5U);
    EXPECT_EQ(*on_next_curve(chart, *found, 1), (ChartPlace{0, 2, 3})) << "what is not told is passed over";
    EXPECT_EQ(*moved(chart, std::nullopt, 1), (ChartPlace{0, 0, 0}));
    EXPECT_FALSE(moved(LogChart{}, std::nullopt, 1));
    RecordingCanvas nothing;
    draw_chart(nothing, bounds, LogChart{});
    draw_chart(nothing, {0, 0, 10, 10}, chart);
}

} // namespace
} // namespace tickervantage
