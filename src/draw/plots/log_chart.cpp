#include "draw/plots/log_chart.h"

#include "draw/graph_geometry.h"
#include "draw/plots/chart_frames.h"
#include "draw/plots/graph_label.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace tickervantage {

using namespace chart;

namespace {

constexpr double MARK_RADIUS = 4;
constexpr double BAR_HALF = 3;
constexpr double LABEL_ROOM = 62; // of the level axis
constexpr double TICK_ROOM = 24;  // of an upright one
constexpr double BAND = 0.2;      // how strong
constexpr double HALF = 0.5;
constexpr double LETTER = 6; // of a label
constexpr double PIECE = 18; // of a curve, beside its name
const Ink GRID(ColorRole::grey, 0.3);

void box(Canvas& canvas, const Rect& rect, const Ink& ink) {
    canvas.fill_rects(std::span(&rect, 1), ink);
}

Rect text_box(double x, double middle, double width) {
    return {x, middle - TEXT_MIDDLE * LABEL_SIZE, width, 2 * TEXT_MIDDLE * LABEL_SIZE};
}

class Painter {
public:
    Painter(Canvas& canvas, const LogChart& chart, const LogAxis& across, const Frame& frame, const ChartPanel& panel)
        : m_canvas(canvas), m_chart(chart), m_across(across), m_frame(frame), m_panel(panel) {}

    void draw() const {
        draw_grid();
        for (const ChartLevel& level : m_panel.levels)
            draw_level(level);
        for (const ChartSeries& series : m_panel.series)
            draw_band(series);
        for (const ChartSeries& series : m_panel.series)
            draw_series(series);
        draw_flags();
        draw_outline();
    }

    [[nodiscard]] Point place_of(double x, double y) const { return {m_across.place_of(x), m_frame.axis.place_of(y)}; }

private:
    void draw_grid() const {
        const Rect& area = m_frame.area;
        for (const AxisTick& tick : m_frame.axis.ticks(TICK_ROOM, m_chart.decimal_point)) {
            const double place = m_frame.axis.place_of(tick.value);
            box(m_canvas, {area.x, place - HALF, area.width, 1}, GRID);
            m_canvas.text(tick.label, text_box(area.x - LEFT, place, LEFT - 6),
                          {.size = LABEL_SIZE, .align = TextAlign::right});
        }
        for (const auto& mark : m_across.marks(LABEL_ROOM, m_chart.decimal_point))
            box(m_canvas, {mark.place - HALF, area.y, 1, area.height}, GRID);
        const std::string unit = m_frame.axis.unit_text(TICK_ROOM, m_chart.decimal_point);
        const std::string title = unit.empty() ? m_panel.title : m_panel.title + " (" + unit + ")";
        const double above =
            upper_edge(area) + TITLE * HALF + (&m_panel == &m_chart.panels.front() && m_chart.has_periods ? TITLE : 0);
        m_canvas.text(title, text_box(area.x - LEFT + 4, above, LEFT + area.width),
                      {.size = LABEL_SIZE, .align = TextAlign::left});
        draw_names(above, area.x - LEFT + width_of(title));
    }

    static double width_of(std::string_view text) {
        return LETTER * static_cast<double>(std::ranges::count_if(text, [](char one) { return (one & 0xC0) != 0x80; }));
    }

    // Of the curves, from the right, with a piece of each, as far as there is room. Widths are those of usual letters.
    void draw_names(double middle, double left) const {
        double right = right_edge(m_frame.area);
        for (std::size_t at = m_panel.series.size(); at-- > 0;) {
            const ChartSeries& series = m_panel.series[at];
            const double width = width_of(series.name) + PIECE + 1.5 * GAP;
            if (series.name.empty() || series.points.empty() || right - width < left)
                continue;
            m_canvas.text(series.name, text_box(m_frame.area.x, middle, right - m_frame.area.x),
                          {.size = LABEL_SIZE, .align = TextAlign::right});
            right -= width;
            draw_piece(series, {right + GAP, middle});
            right -= 2 * GAP;
        }
    }

    void draw_piece(const ChartSeries& series, Point left) const {
        if (series.has_band)
            box(m_canvas, {left.x, left.y - MARK_RADIUS, PIECE, 2 * MARK_RADIUS}, inked(series).faded(BAND));
        if (series.has_line)
            draw_line({left, {left.x + PIECE, left.y}}, series);
        if (!series.has_line && !series.has_band && !series.points.empty())
            draw_mark({left.x + PIECE * HALF, left.y}, series.points.front(), inked(series));
    }

    void draw_outline() const {
        Path path;
        path.add_rounded_rect(m_frame.area, 0, 0);
        m_canvas.stroke(path, {.ink = Ink(ColorRole::grey)});
    }

    void draw_level(const ChartLevel& level) const {
        const Point left = place_of(m_chart.from, level.y);
        Path path;
        path.add_line(left, {right_edge(m_frame.area), left.y});
        m_canvas.stroke(path, {.ink = level.ink, .width = 1, .dash = {2, 3}});
        m_canvas.text(level.text, text_box(m_frame.area.x + 4, left.y + LABEL_SIZE, m_frame.area.width - 8),
                      {.size = LABEL_SIZE, .color = level.ink, .align = TextAlign::right});
    }

    void draw_band(const ChartSeries& series) const {
        if (!series.has_band)
            return;
        std::vector<Point> corners;
        for (const ChartPoint& point : series.points)
            corners.push_back(place_of(point.x, point.high.value_or(point.y)));
        for (std::size_t at = series.points.size(); at-- > 0;)
            corners.push_back(place_of(series.points[at].x, series.points[at].low.value_or(series.points[at].y)));
        const auto inside = clipped_polygon(corners, m_frame.area);
        if (inside.size() > 2)
            m_canvas.fill_polygon(inside, inked(series).faded(BAND));
    }

    void draw_series(const ChartSeries& series) const {
        std::vector<Point> line;
        for (const ChartPoint& point : series.points)
            line.push_back(place_of(point.x, point.y));
        if (series.has_line)
            for (const auto& part : clipped_line(line, m_frame.area))
                draw_line(part, series);
        for (std::size_t at = 0; at < line.size(); ++at) {
            if (!contains(grown(m_frame.area, MARK_RADIUS), line[at]))
                continue;
            if (series.has_bars)
                draw_bar(series.points[at], inked(series));
            draw_mark(line[at], series.points[at], inked(series));
        }
    }

    void draw_line(const std::vector<Point>& part, const ChartSeries& series) const {
        if (!series.is_dashed) {
            m_canvas.polyline(part, inked(series), 1.5);
            return;
        }
        Path path;
        for (std::size_t at = 1; at < part.size(); ++at)
            path.add_line(part[at - 1], part[at]);
        m_canvas.stroke(path, {.ink = inked(series), .width = 1.5, .dash = {6, 4}});
    }

    void draw_bar(const ChartPoint& point, const Ink& ink) const {
        if (!point.low || !point.high)
            return;
        const Point low = place_of(point.x, *point.low);
        const Point high = place_of(point.x, *point.high);
        const auto upright = clipped({low, high}, m_frame.area);
        if (!upright)
            return;
        box(m_canvas, {low.x - HALF, upright->from.y, 1, upright->to.y - upright->from.y}, ink);
        for (const Point& end : {upright->from, upright->to})
            box(m_canvas, {end.x - BAR_HALF, end.y - HALF, 2 * BAR_HALF, 1}, ink);
    }

    static std::vector<Point> corners_of(Point middle, MarkShape shape) {
        const double radius = shape == MarkShape::dot ? MARK_RADIUS / 2 : MARK_RADIUS;
        const auto polygon = [middle, radius](int corners, double first) {
            std::vector<Point> found(static_cast<std::size_t>(corners));
            for (int corner = 0; corner < corners; ++corner)
                found[static_cast<std::size_t>(corner)] =
                    polar(middle, radius, first + 2 * std::numbers::pi * corner / corners);
            return found;
        };
        switch (shape) {
        case MarkShape::diamond:
            return polygon(4, 0);
        case MarkShape::square:
            return polygon(4, std::numbers::pi / 4);
        case MarkShape::triangle:
            return polygon(3, std::numbers::pi / 2);
        case MarkShape::inverted_triangle:
            return polygon(3, -std::numbers::pi / 2);
        default:
            return polygon(16, 0);
        }
    }

    void draw_mark(Point middle, const ChartPoint& point, const Ink& ink) const {
        if (point.shape == MarkShape::none)
            return;
        auto corners = corners_of(middle, point.shape);
        m_canvas.fill_polygon(corners, point.is_hollow ? Ink(ColorRole::text_background) : ink);
        corners.push_back(corners.front());
        m_canvas.polyline(corners, ink, 1.2);
    }

    // Labels that would lie on each other take the next line.
    void draw_flags() const {
        std::vector<Rect> taken;
        for (const ChartFlag& flag : m_panel.flags) {
            if (!is_in_sight(m_chart, flag.x))
                continue;
            const Point place = place_of(flag.x, flag.y);
            const double width = width_of(flag.text);
            const double left = std::clamp(place.x - width / 2, m_frame.area.x, right_edge(m_frame.area) - width);
            Rect label = text_box(left, place.y + LABEL_SIZE, width);
            const auto meets = [&label](const Rect& other) {
                return clipped_box(label, other).has_value();
            };
            while (std::ranges::any_of(taken, meets))
                label.y += 2 * TEXT_MIDDLE * LABEL_SIZE;
            taken.push_back(label);
            m_canvas.text(flag.text, label, {.size = LABEL_SIZE});
        }
    }

    [[nodiscard]] Ink inked(const ChartSeries& series) const {
        return series.ink.own ? Ink(m_canvas.readable(*series.ink.own), series.ink.opacity) : series.ink;
    }

    Canvas& m_canvas;
    const LogChart& m_chart;
    const LogAxis& m_across;
    const Frame& m_frame;
    const ChartPanel& m_panel;
};

void draw_level_axis(Canvas& canvas, Rect bounds, const LogChart& chart, const LogAxis& across) {
    const auto put = [&](const LogAxis::Mark& mark, double middle) {
        canvas.text(mark.text, text_box(mark.place - LABEL_ROOM / 2, middle, LABEL_ROOM), {.size = LABEL_SIZE});
    };
    for (const auto& mark : across.marks(LABEL_ROOM, chart.decimal_point))
        put(mark, bounds.y + BELOW - 10);
    const Rect title = text_box(bounds.x + LEFT, bounds.y + 9, bounds.width - LEFT - RIGHT);
    canvas.text(chart.axis_title, title, {.size = LABEL_SIZE});
    if (!chart.has_periods)
        return;
    const double above = upper_edge(frames_of(chart, bounds).front().area);
    for (const auto& mark : across.period_marks(LABEL_ROOM, chart.decimal_point)) {
        box(canvas, {mark.place - HALF, above, 1, 4}, ColorRole::grey);
        put(mark, above + 11);
    }
}

} // namespace

void draw_chart(Canvas& canvas, Rect bounds, const LogChart& chart) {
    box(canvas, bounds, ColorRole::text_background);
    const LogAxis across = level_axis(chart, bounds);
    const auto frames = frames_of(chart, bounds);
    if (frames.empty())
        return;
    for (std::size_t at = 0; at < frames.size(); ++at)
        Painter(canvas, chart, across, frames[at], chart.panels[at]).draw();
    draw_level_axis(canvas, bounds, chart, across);
    if (!chart.upright || !is_in_sight(chart, *chart.upright))
        return;
    const double x = across.place_of(*chart.upright);
    box(canvas, {x - HALF, frames.back().area.y, 1, upper_edge(frames.front().area) - frames.back().area.y},
        ColorRole::red);
}

void draw_pointer(Canvas& canvas, Rect bounds, const LogChart& chart, const ChartPlace& place) {
    const auto frames = frames_of(chart, bounds);
    if (place.panel >= frames.size())
        return;
    const Rect& area = frames[place.panel].area;
    const ChartPoint& point = point_at(chart, place);
    if (!is_in_sight(chart, point.x))
        return;
    const Point at{level_axis(chart, bounds).place_of(point.x), frames[place.panel].axis.place_of(point.y)};
    const Ink faint(ColorRole::text, HALF);
    box(canvas, {at.x - HALF, area.y, 1, area.height}, faint);
    box(canvas, {area.x, at.y - HALF, area.width, 1}, faint);
    Path ring;
    ring.add_ellipse({at.x - 2 * MARK_RADIUS, at.y - 2 * MARK_RADIUS, 4 * MARK_RADIUS, 4 * MARK_RADIUS});
    canvas.stroke(ring, {.ink = ColorRole::text, .width = 1.5});
}

const char* sign_of(MarkShape shape, bool is_hollow) {
    static constexpr std::array<std::pair<const char*, const char*>, 7> signs{
        {{"·", "·"}, {"·", "·"}, {"●", "○"}, {"◆", "◇"}, {"■", "□"}, {"▲", "△"}, {"▼", "▽"}}};
    const auto& sign = signs.at(static_cast<std::size_t>(shape));
    return is_hollow ? sign.second : sign.first;
}

} // namespace tickervantage
