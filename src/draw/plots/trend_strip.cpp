#include "draw/plots/trend_strip.h"

#include "draw/plots/graph_label.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double AXIS_WIDTH = 62;  // of the values' labels
constexpr double RIGHT = 14;       // half of a time's label
constexpr double TOP = 8;          // half of a value's label
constexpr double TIME_HEIGHT = 18; // of the times' labels
constexpr double LANE = 5;         // of the states
constexpr double LANE_GAP = 3;
constexpr double VALUE_ROOM = 14; // between two labels: so that one stands beside zero on the lowest strip
constexpr double TICK = 4;
constexpr double MARK = 4;        // half of the width of a mark's triangle
constexpr double LEAST_WIDTH = 2; // of what stands alone
constexpr double BAND = 0.16;     // how strong it is
constexpr double EDGE = 0.55;
constexpr double GRID = 0.28;

using Points = std::vector<TrendPoint>;

double x_of(const TrendStrip& strip, const Rect& field, double moment) {
    return field.x + (moment - strip.from) / (strip.to - strip.from) * field.width;
}

void fill(Canvas& canvas, const Rect& box, const Ink& ink) {
    if (box.width > 0 && box.height > 0)
        canvas.fill_rects(std::span(&box, 1), ink);
}

std::string unit_in(const std::string& label) {
    const auto blank = label.rfind(' ');
    return blank == std::string::npos ? std::string() : label.substr(blank + 1);
}

// Calls with each run of points that follow each other and all have what is drawn.
template <typename Has, typename Draw>
void for_each_run(const Points& points, Has has, Draw draw) {
    auto begin = points.begin();
    while (begin != points.end()) {
        begin = std::find_if(begin, points.end(), has);
        auto end = begin;
        while (end != points.end() && has(*end) && (end == begin || end->joins))
            ++end;
        if (begin != end)
            draw(std::span(begin, end));
        begin = end;
    }
}

class Drawing {
public:
    Drawing(Canvas& canvas, const TrendStrip& strip)
        : m_canvas(canvas), m_strip(strip), m_field(trend_field(strip)), m_scale(trend_scale(strip)) {}

    void draw_values() const;
    void draw_times() const;
    void draw_band() const;
    void draw_line() const;
    void draw_lane() const;
    void draw_changes() const;
    void draw_pointer() const;

private:
    [[nodiscard]] double x(double moment) const { return x_of(m_strip, m_field, moment); }
    [[nodiscard]] double y(double value) const { return m_scale.place_of(value); }
    void draw_band_of(std::span<const TrendPoint> run) const;

    Canvas& m_canvas;
    const TrendStrip& m_strip;
    Rect m_field;
    IntervalScale m_scale;
};

void Drawing::draw_values() const {
    const std::string unit = trend_unit(m_strip);
    for (auto [value, text] : m_scale.marks(VALUE_ROOM, m_strip.decimal_point)) {
        if (!unit.empty() && unit_in(text) == unit)
            text.resize(text.size() - unit.size() - 1);
        const double place = y(value);
        fill(m_canvas, {m_field.x, place, m_field.width, 1}, Ink(ColorRole::grey, value == 0 ? 2 * GRID : GRID));
        const Rect label{m_strip.bounds.x, place - 2 * LABEL_SIZE + TEXT_MIDDLE * LABEL_SIZE, AXIS_WIDTH - 6,
                         2 * LABEL_SIZE};
        m_canvas.text(text, label, {.size = LABEL_SIZE, .color = ColorRole::text, .align = TextAlign::right});
    }
}

void Drawing::draw_times() const {
    const std::int64_t step = trend_time_step(m_strip.to - m_strip.from, m_field.width, m_strip.time_room);
    const double foot = m_field.y - LANE_GAP - LANE;
    const auto first = static_cast<std::int64_t>(std::ceil(m_strip.from));
    const std::int64_t ahead = m_strip.zone(first); // full hours are those of the zone
    for (std::int64_t moment = (first + ahead + step - 1) / step * step - ahead;
         static_cast<double>(moment) <= m_strip.to; moment += step) {
        const double place = x(static_cast<double>(moment));
        fill(m_canvas, {place, m_field.y, 1, m_field.height}, Ink(ColorRole::grey, GRID));
        fill(m_canvas, {place, foot - TICK, 1, TICK}, ColorRole::grey);
        const double half = m_strip.time_room / 2;
        m_canvas.text(m_strip.time_text ? m_strip.time_text(moment) : hours_minutes(moment, m_strip.zone),
                      {place - half, m_strip.bounds.y, 2 * half, TIME_HEIGHT - TICK},
                      {.size = LABEL_SIZE, .color = ColorRole::text});
    }
}

void Drawing::draw_band_of(std::span<const TrendPoint> run) const {
    std::vector<Point> upper;
    std::vector<Point> lower;
    for (const TrendPoint& point : run) {
        upper.push_back({x(point.time), y(*point.bound)});
        lower.push_back({x(point.time), y(-*point.bound)});
    }
    if (run.size() == 1) {
        fill(m_canvas, {upper[0].x - LEAST_WIDTH / 2, lower[0].y, LEAST_WIDTH, upper[0].y - lower[0].y},
             Ink(ColorRole::blue, EDGE));
        return;
    }
    std::vector<Point> corners = upper;
    corners.insert(corners.end(), lower.rbegin(), lower.rend());
    m_canvas.fill_polygon(corners, Ink(ColorRole::blue, BAND));
    m_canvas.polyline(upper, Ink(ColorRole::blue, EDGE), 1);
    m_canvas.polyline(lower, Ink(ColorRole::blue, EDGE), 1);
}

void Drawing::draw_band() const {
    for_each_run(
        m_strip.points, [](const TrendPoint& point) { return point.bound.has_value(); },
        [this](std::span<const TrendPoint> run) { draw_band_of(run); });
}

void Drawing::draw_line() const {
    const auto draw = [this](std::span<const TrendPoint> run) {
        std::vector<Point> line;
        for (const TrendPoint& point : run)
            line.push_back({x(point.time), y(*point.offset)});
        if (line.size() == 1)
            fill(m_canvas, {line[0].x - LEAST_WIDTH / 2, line[0].y - LEAST_WIDTH / 2, LEAST_WIDTH, LEAST_WIDTH},
                 ColorRole::blue);
        else
            m_canvas.polyline(line, ColorRole::blue, 2);
    };
    for_each_run(
        m_strip.points, [](const TrendPoint& point) { return point.offset.has_value(); }, draw);
}

// Of each point up to the next one, or as long as a point can be seen.
void Drawing::draw_lane() const {
    const double bottom = m_field.y - LANE_GAP - LANE;
    fill(m_canvas, {m_field.x, bottom, m_field.width, LANE}, Ink(ColorRole::grey, GRID));
    const Points& points = m_strip.points;
    for (std::size_t at = 0; at < points.size(); ++at) {
        std::size_t next = at + 1;
        while (next < points.size() && points[next].joins && points[next].state == points[at].state)
            ++next;
        const bool goes_on = next < points.size() && points[next].joins;
        const double left = x(points[at].time);
        const double end = x(points[goes_on ? next : next - 1].time);
        fill(m_canvas, {left, bottom, std::max(end - left, LEAST_WIDTH), LANE}, points[at].state);
        at = next - 1;
    }
}

void Drawing::draw_changes() const {
    const double top = m_field.y + m_field.height;
    for (const double change : m_strip.changes) {
        const double place = std::round(x(change));
        Path line;
        line.add_line({place + 0.5, m_field.y}, {place + 0.5, top});
        m_canvas.stroke(line, LineStyle{.ink = Ink(ColorRole::text, 0.6), .width = 1, .dash = {3, 3}});
        const std::array<Point, 3> mark{
            {{place - MARK, top + MARK}, {place + MARK + 1, top + MARK}, {place + 0.5, top - MARK}}};
        m_canvas.fill_polygon(mark, ColorRole::text);
    }
}

void Drawing::draw_pointer() const {
    if (!m_strip.pointer)
        return;
    const double place = std::round(x(std::clamp(*m_strip.pointer, m_strip.from, m_strip.to)));
    fill(m_canvas, {place, m_field.y - LANE_GAP - LANE, 1, m_field.height + LANE_GAP + LANE}, ColorRole::text);
}

} // namespace

Rect trend_field(const TrendStrip& strip) {
    const double below = TIME_HEIGHT + LANE + LANE_GAP;
    return {strip.bounds.x + AXIS_WIDTH, strip.bounds.y + below, std::max(1.0, strip.bounds.width - AXIS_WIDTH - RIGHT),
            std::max(1.0, strip.bounds.height - below - TOP)};
}

double trend_moment_at(const TrendStrip& strip, double x) {
    const Rect field = trend_field(strip);
    return strip.from + std::clamp((x - field.x) / field.width, 0.0, 1.0) * (strip.to - strip.from);
}

const TrendPoint* trend_point_at(const TrendStrip& strip, double moment) {
    const Points& points = strip.points;
    const auto after = std::ranges::upper_bound(points, moment, {}, &TrendPoint::time);
    const double width = (strip.to - strip.from) / trend_field(strip).width * LEAST_WIDTH; // that is pointed at
    if (after != points.end() && after->time - moment <= width && (after == points.begin() || !after->joins))
        return &*after;
    if (after == points.begin())
        return nullptr;
    const bool is_within = (after != points.end() && after->joins) || moment - std::prev(after)->time <= width;
    return is_within ? &*std::prev(after) : nullptr;
}

std::int64_t trend_time_step(double seconds, double width, double room) {
    static constexpr std::array<std::int64_t, 13> steps{60,   120,   300,   600,   1200,  1800,  3600,
                                                        7200, 10800, 21600, 43200, 86400, 172800};
    const double least = seconds / std::max(width, 1.0) * room;
    const auto* const step =
        std::ranges::find_if(steps, [least](auto one) { return static_cast<double>(one) >= least; });
    return step == steps.end() ? steps.back() : *step;
}

IntervalScale trend_scale(const TrendStrip& strip) {
    double bound = 0;
    double offset = 0;
    for (const TrendPoint& point : strip.points) {
        bound = std::max(bound, point.bound.value_or(0));
        offset = std::max(offset, std::abs(point.offset.value_or(0)));
    }
    std::vector<TimeInterval> intervals;
    for (const double size : {bound, offset})
        if (size > 0)
            intervals.push_back({-size, size});
    const Rect field = trend_field(strip);
    return {intervals, field.y, field.y + field.height};
}

std::string trend_unit(const TrendStrip& strip) {
    std::string unit;
    for (const auto& [value, text] : trend_scale(strip).marks(VALUE_ROOM, strip.decimal_point)) {
        if (value == 0)
            continue;
        if (!unit.empty() && unit_in(text) != unit)
            return {};
        unit = unit_in(text);
    }
    return unit;
}

void draw_trend(Canvas& canvas, const TrendStrip& strip) {
    const Drawing drawing(canvas, strip);
    drawing.draw_values();
    drawing.draw_times();
    drawing.draw_band();
    drawing.draw_line();
    drawing.draw_lane();
    drawing.draw_changes();
    drawing.draw_pointer();
}

} // namespace tickervantage
