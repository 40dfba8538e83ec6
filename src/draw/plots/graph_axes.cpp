#include "draw/plots/graph_axes.h"

#include "draw/graph_geometry.h"
#include "draw/plots/graph_label.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tickervantage {

namespace {

constexpr std::int64_t EPOCH_2001 = 978'307'200; // 2001-01-01 00:00:00 UTC, in seconds since 1970
constexpr double NARROWEST_TICKS = 5;
constexpr double NARROWEST_LABELS = 30;
constexpr double LABEL_WIDTH = 30; // of a time
constexpr double LABEL_HEIGHT = 20;
constexpr double LABEL_MARGIN = 64; // a label is in sight up to here from its tick; "-10000 s" is the longest
constexpr double LONG_TICK = 8;
constexpr double SHORT_TICK = 5;
constexpr double LINEAR_STEP = 10;
constexpr int LINEAR_STEPS_PER_LABEL = 5;
constexpr double GRID_DASH = 3;
constexpr double GRID_GAP = 2;
constexpr std::int64_t LAST_DECADE = 10'000'000'000;
constexpr double LONGEST_STEP = 1e12; // seconds; far beyond any log
constexpr std::int64_t DAY = 86400;
constexpr double TIMES_BELOW = 17; // the zero line: the labels' middles
constexpr double DATES_ABOVE = 10; // the lower edge in sight: there seldom are data
constexpr double DATES_ASIDE = 18; // above the zero line, where that edge is too near the times
constexpr double DATE_WIDTH = 68;  // of "2026-11-21" in the wider among the usual fonts
constexpr double DATE_AIR = 8;     // least distance of two dates
constexpr double DATE_GAP = 3;     // from the mark where a day begins
constexpr double DATE_MARK = 6;    // half its length

// The labels are drawn as they come; the lines are gathered into two paths and drawn over the data at the end.
class AxesPainter {
public:
    AxesPainter(Canvas& canvas, const AxesInput& input, Point origin)
        : m_canvas(canvas), m_input(input), m_origin(origin), m_sight(grown(input.visible, LABEL_MARGIN)),
          m_axis_x(contains(input.visible, origin) ? origin.x : right_edge(input.visible) - input.right_margin) {}

    void draw() {
        add_line(m_axes, m_origin, {0, m_origin.y});
        if (std::abs(m_input.time) < LONGEST_STEP && minor_time_step(m_input.xscale) > 0) {
            add_time_ticks();
            add_time_labels();
            add_dates();
        }
        add_line(m_axes, {m_axis_x, 0}, {m_axis_x, m_input.bounds.height});
        if (m_input.values.use_logscale)
            add_logarithmic_ticks();
        else
            add_linear_ticks();
        m_canvas.begin_layer(m_input.visible);
        m_canvas.stroke(m_grid, LineStyle{ColorRole::grey, 1, {GRID_DASH, GRID_GAP}});
        m_canvas.stroke(m_axes, LineStyle{m_input.color, 1});
        m_canvas.end_layer();
    }

private:
    template <typename Add>
    void walk_back(std::int64_t step, const Add& add) const;
    void add_time_ticks();
    void add_time_labels();
    void add_time_label(std::int64_t moment, double x);
    void add_dates();
    [[nodiscard]] double middle_of_dates() const;
    void add_date(std::int64_t day, double x, double limit);
    void add_day_mark(double x);
    void add_linear_ticks();
    void add_logarithmic_ticks();
    bool add_logarithmic_tick(std::int64_t value, std::int64_t decade);
    void add_decade_labels(std::int64_t decade, double offset);

    void add_line(Path& path, Point from, Point to) {
        if (const auto part = clipped({from, to}, m_sight))
            path.add_line(part->from, part->to);
    }
    void add_value_tick(double y, double length) { add_line(m_axes, {m_axis_x, y}, {m_axis_x + length, y}); }
    void add_level_grid(double y) { add_line(m_grid, {m_axis_x, y}, {m_input.bounds.x, y}); }
    void add_upright_grid(double x);
    void value_label(const std::string& text, double x, double y, double alpha) {
        if (y >= m_sight.y && y <= upper_edge(m_sight))
            drawLabel(m_canvas, text, LABEL_SIZE, m_input.color, x, y, alpha);
    }
    [[nodiscard]] std::string value_text(std::int64_t units) const { return formatValue(units, m_input.values.yscale); }

    Canvas& m_canvas;
    const AxesInput& m_input;
    Point m_origin;
    Rect m_sight;    // what is in sight and a little more, for labels that reach into it
    double m_axis_x; // of the value axis
    Path m_axes;
    Path m_grid;
};

// From the newest multiple of the step (counted from 2001) to the left, as far as it is in sight.
template <typename Add>
void AxesPainter::walk_back(std::int64_t step, const Add& add) const {
    const std::int64_t now = static_cast<std::int64_t>(std::floor(m_input.time + 0.5)) - EPOCH_2001;
    const std::int64_t past_tick = ((now % step) + step) % step;
    const double step_points = static_cast<double>(step) * m_input.xscale;
    const double first_x = m_origin.x - static_cast<double>(past_tick) * m_input.xscale;
    const double leftmost = std::max(0.0, m_sight.x);
    const double out_of_sight = std::max(0.0, std::floor((first_x - right_edge(m_sight)) / step_points));
    for (auto tick = static_cast<std::int64_t>(out_of_sight);; ++tick) {
        const double x = first_x - static_cast<double>(tick) * step_points;
        if (!(x > 0 && x >= leftmost))
            return;
        add(now - past_tick - tick * step, x);
    }
}

void AxesPainter::add_time_ticks() {
    walk_back(minor_time_step(m_input.xscale), [this](std::int64_t moment, double x) {
        const double half = tick_half_length(moment);
        add_line(m_axes, {x, m_origin.y - half}, {x, m_origin.y + half});
    });
}

void AxesPainter::add_time_labels() {
    const std::int64_t interval = time_label_interval(m_input.xscale);
    if (interval == 0)
        return;
    walk_back(interval, [this](std::int64_t moment, double x) {
        add_time_label(moment, x);
        add_upright_grid(x);
    });
}

void AxesPainter::add_time_label(std::int64_t moment, double x) {
    const Rect box = integral({x + 2 - LABEL_WIDTH / 2, m_origin.y - TIMES_BELOW, LABEL_WIDTH, LABEL_HEIGHT});
    const bool in_sight = box.y >= m_sight.y && box.y <= upper_edge(m_sight);
    if (in_sight && right_edge(box) < m_origin.x)
        drawLabel(m_canvas, hours_minutes(moment + EPOCH_2001, m_input.zone), LABEL_SIZE, m_input.color, box.x, box.y,
                  0.75);
}

// From right to left. What is left of the leftmost date belongs to the day before.
void AxesPainter::add_dates() {
    const std::int64_t days = date_label_days(m_input.xscale);
    const auto moment_at = [this](double x) {
        return to_integer(std::floor(m_input.time + (x - m_origin.x) / m_input.xscale));
    };
    const double left = std::max(0.0, m_input.visible.x);
    const double right = std::min(m_origin.x, right_edge(m_input.visible));
    if (days == 0 || !(left < right))
        return;
    const bool has_times = time_label_interval(m_input.xscale) != 0;
    const std::int64_t oldest = day_of(moment_at(left), m_input.zone);
    constexpr std::int64_t FIRST_MONDAY = 4; // 1970-01-05
    std::int64_t day = day_of(moment_at(right), m_input.zone);
    day -= ((day - FIRST_MONDAY) % days + days) % days;
    double leftmost = m_axis_x;
    for (; day > oldest; day -= days) {
        const auto start = static_cast<double>(day_start(day, m_input.zone));
        const double x = m_origin.x - (m_input.time - start) * m_input.xscale;
        leftmost = x;
        add_day_mark(x);
        if (!has_times)
            add_upright_grid(x);
        add_date(day, x + DATE_GAP, m_axis_x); // without room for it the mark stands alone
    }
    add_date(oldest, left + DATE_GAP, leftmost - DATE_AIR);
}

double AxesPainter::middle_of_dates() const {
    const double middle = std::floor(m_input.visible.y) + DATES_ABOVE;
    const bool meets_times = std::abs(middle - (m_origin.y - TIMES_BELOW)) < 2 * DATE_MARK + 2;
    const bool meets_line = std::abs(middle - m_origin.y) < DATES_ASIDE;
    return meets_times || meets_line ? std::floor(m_origin.y) + DATES_ASIDE : middle;
}

void AxesPainter::add_date(std::int64_t day, double x, double limit) {
    if (x + DATE_WIDTH <= limit)
        value_label(date_of_day(day), x, middle_of_dates(), 0.75);
}

void AxesPainter::add_day_mark(double x) {
    const double middle = middle_of_dates();
    add_line(m_axes, {x, middle - DATE_MARK}, {x, middle + DATE_MARK});
}

// Starts below what is in sight by whole dashes, so that they do not crawl while the user scrolls.
void AxesPainter::add_upright_grid(double x) {
    constexpr double PERIOD = GRID_DASH + GRID_GAP;
    const Rect& bounds = m_input.bounds;
    const double hidden = std::max(0.0, std::floor((m_sight.y - bounds.y) / PERIOD) * PERIOD);
    const double top = std::min(upper_edge(bounds), upper_edge(m_sight));
    if (bounds.y + hidden < top)
        m_grid.add_line({x, bounds.y + hidden}, {x, top});
}

void AxesPainter::add_linear_ticks() {
    const double lowest = std::max(-std::ceil(m_origin.y / LINEAR_STEP), // the first at or below the frame's edge
                                   std::ceil((m_sight.y - m_origin.y) / LINEAR_STEP));
    const double top = std::min(m_input.bounds.height, upper_edge(m_sight));
    for (double step = lowest; m_origin.y + step * LINEAR_STEP < top; ++step) {
        const double y = m_origin.y + step * LINEAR_STEP;
        const bool labelled = std::fmod(step, LINEAR_STEPS_PER_LABEL) == 0;
        if (labelled) {
            const Rect box = integral({m_axis_x + 10, y, LABEL_WIDTH, LABEL_HEIGHT});
            const double units = std::round(step * LINEAR_STEP / m_input.values.linear_scale);
            value_label(value_text(to_integer(units)), box.x, box.y, 1);
            add_level_grid(y);
        }
        add_value_tick(y, labelled ? LONG_TICK : SHORT_TICK);
    }
}

void AxesPainter::add_logarithmic_ticks() {
    for (std::int64_t decade = 1; decade <= LAST_DECADE; decade *= 10)
        for (std::int64_t multiple = 1; multiple < 10; ++multiple)
            if (!add_logarithmic_tick(multiple * decade, decade))
                return;
}

// False when the frame's edge is reached. Of the multiples of a decade the odd ones would stand too close.
bool AxesPainter::add_logarithmic_tick(std::int64_t value, std::int64_t decade) {
    const double offset = std::log10(static_cast<double>(value)) * m_input.values.decade_scale;
    if (!(m_origin.y + offset < m_input.bounds.height))
        return false;
    const std::int64_t multiple = value / decade;
    if (multiple != 1 && multiple % 2 != 0)
        return true;
    if (multiple == 1)
        add_decade_labels(decade, offset);
    const double length = multiple == 1 ? LONG_TICK : SHORT_TICK;
    add_value_tick(m_origin.y + offset, length);
    if (offset != 0)
        add_value_tick(m_origin.y - offset, length);
    return true;
}

void AxesPainter::add_decade_labels(std::int64_t decade, double offset) {
    const std::string text = value_text(decade);
    value_label(text, m_axis_x + 10, m_origin.y + offset, 0.75);
    if (offset == 0)
        return;
    add_level_grid(m_origin.y + offset);
    value_label("-" + text, m_axis_x + 10, m_origin.y - offset, 1);
    add_level_grid(m_origin.y - offset);
}

} // namespace

void draw_axes(Canvas& canvas, const AxesInput& input, Point origin) {
    AxesPainter(canvas, input, origin).draw();
}

std::int64_t minor_time_step(double xscale) {
    const double minute = 60 * xscale;
    const double enough = std::ceil(NARROWEST_TICKS / minute);
    if (!(minute > 0) || !(enough * 60 < LONGEST_STEP))
        return 0;
    auto minutes = std::max<std::int64_t>(1, static_cast<std::int64_t>(enough));
    if (static_cast<double>(minutes) * minute < NARROWEST_TICKS) // the quotient was rounded down
        ++minutes;
    if (minutes > 1)
        minutes = (minutes + 4) / 5 * 5;
    return minutes * 60;
}

double tick_half_length(std::int64_t moment) {
    const std::int64_t minute = ((moment / 60) % 60 + 60) % 60;
    if (minute % 15 == 0)
        return minute == 0 ? 7 : minute == 30 ? 6 : 5;
    return minute % 5 == 0 ? 4 : 3;
}

std::int64_t time_label_interval(double xscale) {
    constexpr std::array<std::int64_t, 8> CANDIDATES{60, 300, 900, 1800, 3600, 7200, 14400, 28800};
    const auto* found = std::ranges::find_if(CANDIDATES, [xscale](std::int64_t interval) {
        return static_cast<double>(interval) * xscale > NARROWEST_LABELS;
    });
    return found == CANDIDATES.end() ? 0 : *found;
}

std::int64_t date_label_days(double xscale) {
    constexpr double ROOM = DATE_GAP + DATE_WIDTH + DATE_AIR;
    constexpr std::int64_t WEEK = 7;
    if (minor_time_step(xscale) == 0)
        return 0;
    // A day may be an hour or two shorter than usual.
    const auto has_room = [xscale](std::int64_t days) {
        return (static_cast<double>(days * DAY) - 7200) * xscale >= ROOM;
    };
    for (const std::int64_t few : {1, 2})
        if (has_room(few))
            return few;
    std::int64_t days = WEEK;
    while (!has_room(days))
        days *= 2;
    return days;
}

} // namespace tickervantage
