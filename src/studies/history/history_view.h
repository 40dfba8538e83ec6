// What happened to the clock, as a picture: panels over one time axis, each with values of its own on an axis of its
// own, the sources as lanes, and flags where something happened.
//
// Holds what is to be seen; the data belong to others and may be compared with a second set, whose curves are drawn
// over them together with the difference. Texts come in the reader's language. Points, y up. One thread.
#pragma once

#include "draw/canvas.h"
#include "draw/plots/value_axis.h"
#include "studies/history/history_data.h"
#include "studies/history/line_painter.h"

#include <array>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tickervantage {

enum class HistoryPanel : unsigned char { error, difference, frequency, delay, sources, temperature };
inline constexpr std::size_t history_panels = 6;

enum class CurveForm : unsigned char { line, spread, bound, band };
enum class ScaleChoice : unsigned char { automatic, linear, logarithmic };

// What is drawn of the data: a line in the legend.
struct HistoryCurve {
    std::string key; // "offset", "source 192.0.2.1", "temperature Tctl", "other offset", "difference offset"
    HistoryPanel panel{};
    const TimedValues* values = nullptr;
    AxisUnit unit = AxisUnit::seconds;
    CurveForm form = CurveForm::line;
    Color color = {};
};

struct HistoryWords {
    std::array<std::string, history_panels> panels{"Error",   "Difference", "Frequency", "Delay and dispersion",
                                                   "Sources", "Temperature"};
    std::string by_decades = "decades"; // in a panel's title, behind its unit, where its axis goes by them
};

struct HistoryOptions {
    bool lanes = true; // else the sources' offsets
    ScaleChoice scale = ScaleChoice::automatic;
    std::optional<double> limit = {};                // s: of the error; where it was passed is marked
    std::set<std::string> hidden = {"compensation"}; // keys of curves; near zero, it would press the others flat
    std::array<bool, history_panels> panels{true, true, true, true, true, true};
    std::array<bool, mark_kinds> marks = all_marks();

    static constexpr std::array<bool, mark_kinds> all_marks() {
        std::array<bool, mark_kinds> all{};
        all.fill(true);
        return all;
    }
};

// What stands at the crosshair.
struct CurveReading {
    std::string key;
    double time = 0;
    TimedExtent value;
    AxisUnit unit{};
    HistoryPanel panel{};
    CurveForm form{};
    Color color = {}; // of the curve
};

struct HistoryPointers {
    std::optional<double> pointer; // times
    std::optional<double> first;   // the two cursors
    std::optional<double> second;
};

class HistoryView {
public:
    HistoryWords words;
    HistoryOptions options;
    ZoneOffset zone = machine_zone_offset;

    void set_data(std::shared_ptr<const HistoryData> data);
    void data_grew(); // the same data have more
    [[nodiscard]] const HistoryData& data() const { return *m_data; }
    // Laid over; null: nothing.
    void set_other(std::shared_ptr<const HistoryData> other);
    [[nodiscard]] bool is_comparing() const { return m_other != nullptr; }

    void set_range(const TimeRange& range) { m_range = range; }
    [[nodiscard]] const TimeRange& range() const { return m_range; }

    // All that the legend names, hidden ones too; those without any value are left out.
    [[nodiscard]] std::vector<HistoryCurve> curves() const;
    [[nodiscard]] bool is_shown(const HistoryCurve& curve) const { return !options.hidden.contains(curve.key); }

    void draw(Canvas& canvas, Rect bounds) const;
    // What moves with the pointer.
    void draw_pointers(Canvas& canvas, Rect bounds, const HistoryPointers& pointers) const;

    struct PanelPlace {
        HistoryPanel panel{};
        Rect area;
    };
    [[nodiscard]] std::vector<PanelPlace> places(Rect bounds) const; // from above downwards
    [[nodiscard]] Rect plot_area(Rect bounds) const;                 // around all panels
    [[nodiscard]] double time_at(double x, Rect bounds) const;
    [[nodiscard]] double place_of(double time, Rect bounds) const;

    // The shown curves at a time, each where it has a value near; within the range in sight.
    [[nodiscard]] std::vector<CurveReading> readings_at(double time) const;

    // What lies under a point: the marks whose flags are near it, a lane.
    [[nodiscard]] std::vector<HistoryMark> marks_at(Point point, Rect bounds) const;
    [[nodiscard]] const HistoryLane* lane_at(Point point, Rect bounds) const;

    // By time, of the kinds that are chosen.
    [[nodiscard]] std::vector<HistoryMark> marks_of(const TimeRange& range) const;
    [[nodiscard]] std::vector<HistoryMark> marks_in_sight() const { return marks_of(m_range); }

private:
    struct Frame;
    struct PanelShares {
        std::array<double, history_panels> weights{};
        double unit = 0;  // points a weight
        double lanes = 0; // points
    };
    [[nodiscard]] PanelShares shares(Rect area) const;
    void add_other_curves(std::vector<HistoryCurve>& curves) const;
    [[nodiscard]] ValueAxis axis_of(HistoryPanel panel, const Frame& frame) const;
    [[nodiscard]] AxisSpan span_of(HistoryPanel panel, const Frame& frame, double& usual) const;
    [[nodiscard]] static double reach_of(std::vector<double> highs, bool is_band);
    void draw_panel(Canvas& canvas, const PanelPlace& place) const;
    void draw_axis(Canvas& canvas, const PanelPlace& place, const ValueAxis& axis) const;
    void draw_limit(Canvas& canvas, const PanelPlace& place, const ValueAxis& axis) const;
    void draw_curve(Canvas& canvas, const Frame& frame, const ValueAxis& axis, const HistoryCurve& curve) const;
    void draw_lanes(Canvas& canvas, const PanelPlace& place) const;
    void draw_title(Canvas& canvas, const PanelPlace& place, const std::string& unit) const;
    void draw_time_grid(Canvas& canvas, Rect bounds, const std::vector<PanelPlace>& all) const;
    void draw_times(Canvas& canvas, Rect bounds) const;
    void draw_origins(Canvas& canvas, Rect bounds) const;
    void draw_marks(Canvas& canvas, Rect bounds) const;
    [[nodiscard]] TimeMarks time_labels(Rect bounds) const;

    std::shared_ptr<const HistoryData> m_data = std::make_shared<HistoryData>();
    std::shared_ptr<const HistoryData> m_other;
    std::array<TimedValues, history_lines> m_difference;
    TimeRange m_range{0, 3600};
    mutable SpreadMemory m_spreads;
};

// Adds the first less the second, where both have a value near, from behind the newest difference on.
void add_differences(const TimedValues& one, const TimedValues& other, TimedValues& found);

} // namespace tickervantage
