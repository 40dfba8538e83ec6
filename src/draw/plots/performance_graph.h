// A scrollable plot over time: axes, grid, title, a redraw timer and a pause. What it plots is a subclass's matter.
//
// Time runs leftwards from an origin that stands `xaxis_offset` points left of the frame's right edge, on a zero line
// through the frame's middle; values go up and down from there. The frame is what a scroll view shows a part of: it
// grows to hold all data (resizeFrame) and keeps its right edge, where the newest data is. It may be wider than any
// toolkit can count, so whoever shows it scrolls in doubles and draws only the part in sight.
//
// Coordinates are points, y up, the frame's lower left corner at (0, 0). Times are seconds since 1970-01-01 00:00:00
// UTC. Main thread only; the timer service must outlive the graph.
#pragma once

#include "base/repeater.h"
#include "draw/canvas.h"
#include "draw/plots/graph_axes.h"
#include "draw/plots/value_scale.h"

#include <functional>
#include <memory>
#include <string>

namespace tickervantage {

// Offsets from the zero line.
struct OffsetRange {
    double low = 0;
    double high = 0;
};

struct GraphParts {
    MasterTimer& master_timer;
    std::function<double()> now;           // the present, seconds since 1970, with fractions
    std::function<void()> redraw = {};     // asks for a redraw soon; must not draw there and then
    ZoneOffset zone = machine_zone_offset; // of the times and dates on the axis
};

class PerformanceGraph {
public:
    explicit PerformanceGraph(GraphParts parts);
    virtual ~PerformanceGraph();
    PerformanceGraph(const PerformanceGraph&) = delete;
    PerformanceGraph& operator=(const PerformanceGraph&) = delete;

    static constexpr double DEFAULT_DECADE = 50; // points

    bool m_livetracking = false;   // the log is still being written
    bool paused = true;            // frozen at pauseTime; change it with pause()
    double pauseTime = 0;          // the moment at the time origin while paused
    int display_data_range = 3600; // seconds of history that a filtered live log keeps
    bool filtertimestamps = true;
    Ink axesColor = ColorRole::text;
    Ink labelColor = ColorRole::blue;
    std::string title = "Chrony Tracking";
    double xscale_default = 1.0 / 15;
    double xscale = 1.0 / 15; // points a second
    int xaxis_offset = 60;
    double yscale_default = 1e9;
    double yscale = 1e6; // plotted units a second
    bool use_logscale = true;
    double decade_scale_default = DEFAULT_DECADE;
    double decade_scale = DEFAULT_DECADE;
    double linear_scale = 1.0;

    // The three sliders. Each wants a new frame and a redraw afterwards.
    void set_vertical_zoom(double zoom);   // doubles the height with every 1
    void set_vertical_scale(double scale); // 0: microseconds, 3: nanoseconds
    void set_horizontal_zoom(double zoom); // doubles the width with every 1

    // Once, when everything is in place: from then on the graph runs.
    void awakeFromNib();
    void pause(bool pausing);

    // Draws what is in sight. `bounds` is the frame at (0, 0), `visible` the part in sight, in the frame's coordinates;
    // its lower left corner comes to lie on the canvas's. Covers all of `visible`.
    void drawRect(Canvas& canvas, Rect bounds, Rect visible);

    // The frame that holds all data, at least as large as what is in sight, with the right and upper edges of `frame`.
    // To be called when the data, a scale, the pause or the visible size changed.
    [[nodiscard]] Rect resizeFrame(Rect frame, Rect visible) const;

    // The moment at the time origin: now, or when the graph was paused.
    [[nodiscard]] double right_end() const;
    [[nodiscard]] double now() const { return m_parts.now(); }
    [[nodiscard]] Point time_origin(Rect bounds) const;
    [[nodiscard]] ValueScale value_scale() const;

protected:
    // What a subclass plots, on a layer: no text, no other shapes. It sees a canvas on the frame's own coordinates and
    // need draw only what is in sight.
    virtual void drawData(Canvas& canvas, Point origin, Rect visible);
    // Seconds between the oldest record shown and the right end of the time axis.
    [[nodiscard]] virtual double dataTimespan() const;
    [[nodiscard]] virtual OffsetRange dataRange() const;

    void drawAxes(Canvas& canvas, Point origin, Rect bounds, Rect visible) const;

private:
    void draw_title(Canvas& canvas, Rect visible) const;
    void start_timer();

    GraphParts m_parts;
    std::unique_ptr<Repeater> updatetimer;
};

// The arithmetic of resizeFrame. A span or range that is not finite counts as none.
[[nodiscard]] Rect resized_frame(Rect frame, Rect visible, double data_width, OffsetRange range);

} // namespace tickervantage
