#include "studies/tracking/series_layout.h"
#include "studies/tracking/tracking_rows.h"
#include "studies/tracking/tracking_settings.h"
#include "studies/tracking/tracking_view.h"
#include "support/manual_timer.h"
#include "support/recording_canvas.h"
#include "support/test.h"

#include <fmt/chrono.h>

namespace tickervantage {
namespace {

using testing::ManualMasterTimer;
using testing::RecordingCanvas;

constexpr LogTime NOON = 1'795'262'400; // 2026-11-21 12:00:00 UTC

std::string log_line(LogTime time, const std::string& offset, const std::string& rem_cor = "2.000e-06") {
    return fmt::format("{:%F %T} 192.0.2.1 2 -5.123 0.010 {} N 1 3.000e-06 {} 1.000e-03 4.000e-04 5.000e-04",
                       fmt::gmtime(time), offset, rem_cor);
}

std::string number(double value) {
    return fmt::format("{:.3e}", value);
}

class TrackingViewTest : public ::testing::Test {
protected:
    ManualMasterTimer timer;
    double now = static_cast<double>(NOON);
    TrackingView view{GraphParts{.master_timer = timer,
                                 .now = [this] { return now; },
                                 .redraw = {},
                                 .zone =
                                     [](std::int64_t) {
                                         return 0;
                                     }}};

    void SetUp() override {
        view.awakeFromNib();
        view.filtertimestamps = false;
        view.use_logscale = false;
        show_only(Series::offset);
    }
    void show_only(Series series) {
        view.shown.fill(false);
        view.shown[static_cast<std::size_t>(series)] = true;
    }
    RecordingCanvas drawn(Rect bounds, Rect visible) {
        RecordingCanvas canvas;
        view.drawRect(canvas, bounds, visible);
        canvas.boxes.erase(canvas.boxes.begin()); // the background
        return canvas;
    }
};

// What is inked in each column of pixels, as upright pieces.
class Coverage {
public:
    explicit Coverage(Rect visible) : m_width(visible.width), m_columns(static_cast<std::size_t>(visible.width)) {}

    void add(Point from, Point to) {
        if (from.x > to.x)
            std::swap(from, to);
        const double left = std::max(0.0, from.x);
        const double right = std::min(m_width - 1e-9, to.x);
        const auto y_at = [&](double x) {
            return std::lerp(from.y, to.y, std::clamp((x - from.x) / (to.x - from.x), 0.0, 1.0));
        };
        for (double column = std::floor(left); column <= right; ++column) {
            const bool upright = to.x == from.x;
            const double one = upright ? from.y : y_at(std::max(column, left));
            const double other = upright ? to.y : y_at(std::min(column + 1, right));
            m_columns[static_cast<std::size_t>(column)].push_back(std::minmax(one, other));
        }
    }
    void add_box(Rect box) {
        const double column = std::floor(box.x + 0.5);
        if (column >= 0 && column < m_width)
            m_columns[static_cast<std::size_t>(column)].emplace_back(box.y, box.y + box.height);
    }

    // How far the other's ink lies outside of this one's at worst, in points; within the heights in sight. Ink so many
    // columns beside counts too.
    [[nodiscard]] double missing(const Coverage& other, double height, std::size_t beside) const {
        double worst = 0;
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            Pieces pieces;
            for (std::size_t j = i - std::min(i, beside); j <= std::min(i + beside, m_columns.size() - 1); ++j)
                pieces.insert(pieces.end(), m_columns[j].begin(), m_columns[j].end());
            for (auto [low, high] : other.m_columns[i]) {
                low = std::clamp(low, 0.0, height);
                high = std::clamp(high, 0.0, height);
                for (double y = low; y <= high; y += 0.5)
                    worst = std::max(worst, distance(pieces, y));
                worst = std::max(worst, distance(pieces, high));
            }
        }
        return worst;
    }

private:
    using Pieces = std::vector<std::pair<double, double>>;

    static double distance(const Pieces& pieces, double y) {
        double nearest = 1e9;
        for (const auto& [low, high] : pieces)
            nearest = std::min(nearest, std::max({low - y, y - high, 0.0}));
        return nearest;
    }

    double m_width;
    std::vector<Pieces> m_columns;
};

// The rule without any thinning: from the newest record to each older one.
Coverage plain(const TrackingView& view, Series series, Rect bounds, Rect visible) {
    Coverage result(visible);
    const TimeAxis axis{view.time_origin(bounds), view.right_end(), view.xscale};
    const auto& records = view.records();
    const auto point = [&](std::size_t i) {
        return Point{axis.x(records.time(i)) - visible.x,
                     axis.origin.y + view.value_scale().offset(records.value(series, i)) - visible.y};
    };
    if (records.size() < 2 || point(records.size() - 1).x + visible.x < 0)
        return result;
    for (std::size_t i = records.size() - 1; i-- > 0;) {
        const Point from = point(i + 1);
        const Point to = point(i);
        if (!std::isnan(from.y) && !std::isnan(to.y))
            result.add(from, to);
        if (to.x + visible.x < 0)
            break;
    }
    return result;
}

Coverage thinned(const RecordingCanvas& canvas, Rect visible) {
    Coverage result(visible);
    for (const auto& line : canvas.polylines)
        for (std::size_t i = 1; i < line.points.size(); ++i)
            result.add(line.points[i - 1], line.points[i]);
    for (const auto& boxes : canvas.boxes)
        for (const auto& box : boxes.boxes)
            result.add_box(box);
    return result;
}

TEST_F(TrackingViewTest, DrawsNothingOfOneRecordOrOfAnOldLog) {
    const Rect bounds{0, 0, 400, 200};
    view.add_line(log_line(NOON - 600, "1e-5"));
    EXPECT_TRUE(drawn(bounds, bounds).polylines.empty());
    view.clear();
    for (const int second : {-9000, -8000, -5200}) // the newest is 6 points left of the frame
        view.add_line(log_line(NOON + second, "1e-5"));
    EXPECT_TRUE(drawn(bounds, bounds).polylines.empty());
    EXPECT_TRUE(drawn(bounds, bounds).boxes.empty());
}

struct RandomLog {
    const char* name;
    int records;
    int interval;     // seconds, on average
    double absent;    // share of records
    double step_back; // share of records before which the clock is stepped back
    double xscale;
    std::size_t beside = 0; // columns: where each holds hundreds of records
};

class ThinnedDrawing : public TrackingViewTest, public ::testing::WithParamInterface<RandomLog> {};

TEST_P(ThinnedDrawing, CoversWhatThePlainRuleDraws) {
    const RandomLog& log = GetParam();
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> share(0, 1);
    LogTime time = NOON - LogTime{log.records} * log.interval;
    for (int i = 0; i < log.records; ++i) {
        time += static_cast<LogTime>(share(random) * 2 * log.interval);
        if (share(random) < log.step_back)
            time -= static_cast<LogTime>(share(random) * 200 * log.interval);
        const double spike = share(random) < 0.01 ? 300e-6 : 20e-6;
        view.add_line(
            log_line(std::min(time, NOON), share(random) < log.absent ? "-" : number((share(random) - 0.5) * spike)));
    }
    view.xscale = log.xscale;
    const Rect frame = view.resizeFrame({0, 0, 300, 240}, {0, 0, 300, 240});
    const Rect bounds{0, 0, frame.width, frame.height};
    for (const double share_of_way : {0.4, 1.0})
        for (const bool logarithmic : {true, false})
            for (const Series series : {Series::offset, Series::rms_offset}) {
                view.use_logscale = logarithmic;
                show_only(series);
                const Rect visible{std::floor((frame.width - 300) * share_of_way), std::floor((frame.height - 240) / 2),
                                   300, 240};
                const auto expected = plain(view, series, bounds, visible);
                const auto actual = thinned(drawn(bounds, visible), visible);
                EXPECT_LE(actual.missing(expected, 240, log.beside), 1.0) << "ink is missing at " << share_of_way;
                if (log.absent == 0) {
                    EXPECT_LE(expected.missing(actual, 240, log.beside), 1.0) << "ink too much at " << share_of_way;
                }
            }
}

INSTANTIATE_TEST_SUITE_P(Logs, ThinnedDrawing,
                         ::testing::Values(RandomLog{"sparse", 400, 64, 0, 0, 1.0 / 15},
                                           RandomLog{"dense", 20000, 16, 0, 0, 1.0 / 1500},
                                           RandomLog{"packed", 30000, 16, 0, 0, 1.0 / 4800, 1},
                                           RandomLog{"between", 4000, 16, 0, 0, 1.0 / 32},
                                           RandomLog{"gaps", 8000, 16, 0.02, 0, 1.0 / 200},
                                           RandomLog{"steps", 8000, 16, 0, 0.002, 1.0 / 200},
                                           RandomLog{"gaps_and_steps", 8000, 16, 0.2, 0.02, 1.0 / 60},
                                           RandomLog{"wide", 3000, 16, 0, 0.01, 32.0 / 15}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(TrackingViewTest, RecordsNewerThanTheRightEndAreNeitherSeenNorRead) {
    for (int i = 0; i < 10; ++i)
        view.add_line(log_line(NOON - 540 + 60 * i, "5.000e-06"));
    const Rect bounds{0, 0, 360, 200};
    EXPECT_TRUE(drawn(bounds, bounds).boxes.empty()) << "nothing to cover";
    now -= 300; // the clock that wrote them was ahead
    const auto canvas = drawn(bounds, bounds);
    ASSERT_FALSE(canvas.boxes.empty());
    EXPECT_EQ(canvas.boxes.back().boxes, (std::vector<Rect>{{300, 0, 60, 200}}));
    EXPECT_EQ(canvas.boxes.back().ink, Ink(ColorRole::text_background));
    EXPECT_EQ(view.readout(359, bounds)->time, NOON - 300);
    std::size_t rows = 0;
    for (const RecordSpan& span : view.in_sight(bounds, bounds))
        rows += span.end - span.first;
    EXPECT_EQ(rows, 5U);
}

TEST_F(TrackingViewTest, DrawsFewThingsOfManyRecords) {
    view.shown.fill(true);
    for (int i = 0; i < 30000; ++i)
        view.add_line(log_line(NOON - 30000 + i, number((i % 7) * 1e-6)));
    view.xscale = 0.01;
    const auto canvas = drawn({0, 0, 360, 200}, {0, 0, 360, 200});
    std::size_t things = 0;
    for (const auto& line : canvas.polylines)
        things += line.points.size();
    for (const auto& boxes : canvas.boxes)
        things += boxes.boxes.size();
    EXPECT_LT(things, 9U * 4 * 360);
    EXPECT_GE(things, 8U * 299) << "the root dispersion is too high to be seen, all else is";
}

TEST_F(TrackingViewTest, WhereAllOfManyRecordsLackTheirValueNothingIsDrawn) {
    for (int i = 0; i < 9000; ++i)
        view.add_line(log_line(NOON - 9000 + i, i < 3000 || i >= 6000 ? "5.000e-06" : "-"));
    view.xscale = 0.03;
    const auto canvas = drawn({0, 0, 360, 200}, {0, 0, 360, 200});
    ASSERT_FALSE(canvas.boxes.empty());
    for (const auto& boxes : canvas.boxes)
        for (const Rect& box : boxes.boxes) {
            EXPECT_LT(box.height, 2) << "all values are the same";
            EXPECT_TRUE(box.x < 122 || box.x > 208) << box.x;
        }
    std::vector<int> hours;
    for (int index = -1; index <= range_count; ++index)
        hours.push_back(range_hours(index));
    EXPECT_EQ(hours, (std::vector{0, 0, 0, 1, 2, 3, 4, 6, 12, 24, 0}));
}

TEST_F(TrackingViewTest, ClockThatKeepsJumpingStaysBounded) {
    for (int i = 0; i < 50'000; ++i)
        view.add_line(log_line(NOON - 4000 + (i % 2 == 0 ? 0 : 3000), number(i % 2 == 0 ? 5e-6 : 9e-6)));
    const auto canvas = drawn({0, 0, 400, 200}, {0, 0, 400, 200});
    EXPECT_TRUE(canvas.polylines.empty());
    ASSERT_EQ(canvas.boxes.size(), 1U);
    EXPECT_EQ(canvas.boxes[0].boxes.size(), 2U);
}

TEST_F(TrackingViewTest, LiveLogLeavesOutWhatIsOlderThanTheRange) {
    struct Case {
        bool filter;
        bool live;
        int age;
        bool kept;
    };
    for (const auto& one : {Case{true, true, 7200, false}, Case{true, true, 3601, false}, Case{true, true, 3600, true},
                            Case{true, false, 7200, true}, Case{false, true, 7200, true}}) {
        view.clear();
        view.filtertimestamps = one.filter;
        view.m_livetracking = one.live;
        const LogTime time = NOON - one.age;
        EXPECT_EQ(view.add_line(log_line(time, "1e-6")), one.kept ? std::optional(LogEnds{time, time}) : std::nullopt);
    }
    EXPECT_EQ(view.add_line("=========="), (LogEnds{NOON - 7200, NOON - 7200})) << "no data line changes nothing";
    EXPECT_EQ(view.add_line(log_line(NOON - 60, "1e-6")), (LogEnds{NOON - 7200, NOON - 60}));
}

TEST_F(TrackingViewTest, FrameHoldsTheFirstRecordAndAllShownValues) {
    view.add_line(log_line(NOON - 15000, "-400e-6", "900e-6"));
    view.add_line(log_line(NOON - 15, "100e-6"));
    const Rect visible{0, 0, 300, 200};
    EXPECT_EQ(view.resizeFrame(visible, visible), (Rect{-760, -610, 1060, 810}));
    view.pause(true);
    now += 1500;
    EXPECT_EQ(view.resizeFrame(visible, visible).width, 1060) << "paused";
    view.pause(false);
    EXPECT_EQ(view.resizeFrame(visible, visible).width, 1160);
    view.shown.fill(false);
    EXPECT_EQ(view.resizeFrame(visible, visible).height, 200);
    EXPECT_TRUE(drawn(visible, visible).polylines.empty()) << "every series hidden";
    view.clear();
    EXPECT_EQ(view.resizeFrame(visible, visible), visible);
}

TEST_F(TrackingViewTest, RowsOfWhatIsInSight) {
    view.shown[static_cast<std::size_t>(Series::frequency)] = true;
    for (const auto& [second, offset] : {std::pair{-3000, "1e-6"}, {-1500, "-"}, {-600, "-2.5e-7"}})
        view.add_line(log_line(NOON + second, offset));
    const auto rows = [&](Rect visible, RowFormat format) {
        TrackingRows taken(view.in_sight({0, 0, 400, 200}, visible), view.shown);
        while (!taken.take(view.records(), 1)) {
        }
        EXPECT_TRUE(taken.are_still_in(view.records()));
        std::string text;
        EXPECT_EQ(taken.write(format,
                              [&](std::string_view piece) {
                                  text += piece;
                                  return true;
                              }),
                  0);
        return text;
    };
    EXPECT_EQ(rows({200, 0, 200, 200}, RowFormat::csv), "timestamp,offset,frequency\n"
                                                        "2026-11-21T11:35:00Z,,-5.123e-06\n"
                                                        "2026-11-21T11:50:00Z,-2.5e-07,-5.123e-06\n");
    EXPECT_EQ(rows({100, 0, 100, 200}, RowFormat::text), "timestamp                    offset       frequency\n"
                                                         "2026-11-21 11:10:00    1.000000e-06   -5.123000e-06\n");
    TrackingRows taken({{0, 2}}, view.shown);
    EXPECT_FALSE(taken.take(view.records(), 1));
    EXPECT_EQ(taken.write(RowFormat::csv, [](std::string_view) { return false; }), -1);
    view.add_line(log_line(NOON, "1e-6"));
    EXPECT_TRUE(taken.are_still_in(view.records())) << "the log has only grown";
    view.clear();
    for (const int second : {-10, -5, 0})
        view.add_line(log_line(NOON + second, "1e-6"));
    EXPECT_FALSE(taken.are_still_in(view.records())) << "the log was read anew";
}

} // namespace
} // namespace tickervantage
