#include "studies/history/history_view.h"

#include "base/quantile.h"
#include "draw/graph_geometry.h"
#include "draw/plots/graph_label.h"
#include "studies/history/label_width.h"
#include "studies/history/lane_painter.h"
#include "studies/history/limit_share.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace tickervantage {
namespace {

constexpr double margin_left = 104;
constexpr double margin_right = 14;
constexpr double flags_height = 18;
constexpr double times_height = 44;
constexpr double title_height = 19;
constexpr double panel_gap = 7;
constexpr double smallest_panel = 30;
constexpr double lane_room = 22;
constexpr double tick_room = 17;
constexpr double least_tick_room = 12;
constexpr double time_room = 64;
constexpr double time_room_of_seconds = 76;
constexpr double flag_side = 9;
constexpr double grid_opacity = 0.22;

constexpr Color blue{0.0, 0.40, 0.85, 1};
constexpr Color amber{0.80, 0.55, 0.05, 1};
constexpr Color green{0.05, 0.55, 0.35, 1};
constexpr Color purple{0.48, 0.25, 0.75, 1};
constexpr Color orange{0.85, 0.38, 0.05, 1};
constexpr Color magenta{0.80, 0.15, 0.50, 1};
constexpr Color teal{0.0, 0.55, 0.60, 1};

// Of the sources: those of Okabe and Ito, which nearly everybody can tell apart.
constexpr std::array<Color, 8> source_colors{{{0.0, 0.45, 0.70, 1},
                                              {0.84, 0.37, 0.0, 1},
                                              {0.0, 0.62, 0.45, 1},
                                              {0.80, 0.47, 0.65, 1},
                                              {0.34, 0.71, 0.91, 1},
                                              {0.90, 0.62, 0.0, 1},
                                              {0.45, 0.40, 0.75, 1},
                                              {0.45, 0.45, 0.45, 1}}};

struct LineLook {
    HistoryLine line;
    const char* key;
    HistoryPanel panel;
    AxisUnit unit;
    CurveForm form;
    Color color;
};

// In the order in which they are drawn: bands first.
constexpr std::array<LineLook, history_lines> looks{{
    {HistoryLine::bound, "bound", HistoryPanel::error, AxisUnit::seconds, CurveForm::bound, amber},
    {HistoryLine::offset, "offset", HistoryPanel::error, AxisUnit::seconds, CurveForm::spread, blue},
    {HistoryLine::skew_band, "skew", HistoryPanel::frequency, AxisUnit::ppm, CurveForm::band, green},
    {HistoryLine::frequency, "frequency", HistoryPanel::frequency, AxisUnit::ppm, CurveForm::line, green},
    {HistoryLine::root_delay, "root_delay", HistoryPanel::delay, AxisUnit::seconds, CurveForm::line, purple},
    {HistoryLine::root_dispersion, "root_dispersion", HistoryPanel::delay, AxisUnit::seconds, CurveForm::line, orange},
    {HistoryLine::compensation, "compensation", HistoryPanel::frequency, AxisUnit::ppm, CurveForm::line, magenta},
}};

bool is_bad(MarkKind kind) {
    using enum EventKind;
    static constexpr std::array bad{stop, step, lost, falseticker, no_majority, gap, backwards};
    return std::ranges::find(bad, kind, mark_kind) != bad.end();
}

// The middle gives way: the ends of addresses tell them apart.
std::string shortened(const std::string& text, std::size_t most) {
    if (text.size() <= most)
        return text;
    const std::size_t half = (most - 1) / 2;
    return text.substr(0, most - 1 - half) + "…" + text.substr(text.size() - half);
}

} // namespace

// What the curves of one panel are drawn with.
struct HistoryView::Frame {
    ColumnGrid grid;
    struct Curve {
        HistoryCurve curve;
        std::vector<ValueColumn> columns;
    };
    std::vector<Curve> curves;

    [[nodiscard]] static Frame of(const HistoryView& view, const PanelPlace& place, double pixel) {
        Frame frame{ColumnGrid(place.area, view.m_range, pixel), {}};
        for (HistoryCurve& curve : view.curves())
            if (curve.panel == place.panel && view.is_shown(curve)) {
                auto columns = curve.values->columns(frame.grid.columns_range(), frame.grid.count);
                frame.curves.push_back({std::move(curve), std::move(columns)});
            }
        return frame;
    }
};

void add_differences(const TimedValues& one, const TimedValues& other, TimedValues& found) {
    if (one.empty() || other.empty())
        return;
    const double near = 2 * std::max(one.usual_interval(), other.usual_interval());
    const auto distance = [&](std::size_t beside, double time) {
        return std::abs(other.time(beside) - time);
    };
    constexpr double end = std::numeric_limits<double>::infinity();
    std::size_t at = found.empty() ? 0 : one.first_from(std::nextafter(found.time(found.size() - 1), end));
    if (at == one.size())
        return;
    std::size_t beside = *other.nearest(one.time(at));
    for (; at < one.size(); ++at) {
        const double time = one.time(at);
        while (beside + 1 < other.size() && distance(beside + 1, time) <= distance(beside, time))
            ++beside;
        if (distance(beside, time) <= near)
            found.add(time, one.mean(at) - other.mean(beside));
    }
}

void HistoryView::set_data(std::shared_ptr<const HistoryData> data) {
    m_data = std::move(data);
    set_other(m_other);
}

void HistoryView::set_other(std::shared_ptr<const HistoryData> other) {
    m_other = std::move(other);
    m_spreads = {};
    m_difference = {};
    data_grew();
}

void HistoryView::data_grew() {
    if (!m_other)
        return;
    for (const HistoryLine line : {HistoryLine::offset, HistoryLine::frequency})
        add_differences(m_data->line(line), m_other->line(line), m_difference[static_cast<std::size_t>(line)]);
}

std::vector<HistoryCurve> HistoryView::curves() const {
    std::vector<HistoryCurve> all;
    all.reserve(looks.size());
    for (const LineLook& look : looks)
        all.push_back({look.key, look.panel, &m_data->line(look.line), look.unit, look.form, look.color});
    if (m_other)
        add_other_curves(all);
    if (!options.lanes)
        for (std::size_t at = 0; at < m_data->lanes().size(); ++at) {
            const HistoryLane& lane = m_data->lanes()[at];
            all.push_back({"source " + lane.source, HistoryPanel::sources, &lane.offsets, AxisUnit::seconds,
                           CurveForm::line, source_colors[at % source_colors.size()]});
        }
    for (std::size_t at = 0; at < m_data->temperatures().size(); ++at) {
        const HistoryTemperature& one = m_data->temperatures()[at];
        all.push_back({"temperature " + one.sensor, HistoryPanel::temperature, &one.values, AxisUnit::celsius,
                       CurveForm::line, source_colors[at % source_colors.size()]});
    }
    std::erase_if(all, [this](const HistoryCurve& curve) {
        return curve.values->empty() || !options.panels[static_cast<std::size_t>(curve.panel)];
    });
    return all;
}

void HistoryView::add_other_curves(std::vector<HistoryCurve>& curves) const {
    for (const LineLook& look : looks) {
        if (look.form == CurveForm::band || look.line == HistoryLine::compensation)
            continue;
        const auto form = look.form == CurveForm::bound ? CurveForm::bound : CurveForm::line;
        curves.push_back({std::string("other ") + look.key, look.panel, &m_other->line(look.line), look.unit, form,
                          look.line == HistoryLine::root_dispersion ? teal : magenta});
        const auto panel = look.panel == HistoryPanel::error ? HistoryPanel::difference : look.panel;
        curves.push_back({std::string("difference ") + look.key, panel,
                          &m_difference[static_cast<std::size_t>(look.line)], look.unit, CurveForm::line, teal});
    }
}

Rect HistoryView::plot_area(Rect bounds) const {
    return {bounds.x + margin_left, bounds.y + times_height, std::max(20.0, bounds.width - margin_left - margin_right),
            std::max(20.0, bounds.height - times_height - flags_height)};
}

// Of each panel how much of the height it gets, lanes apart; 0: it has nothing to show, or there is no room for it.
HistoryView::PanelShares HistoryView::shares(Rect area) const {
    PanelShares found;
    for (const HistoryCurve& curve : curves())
        found.weights[static_cast<std::size_t>(curve.panel)] = curve.panel == HistoryPanel::error ? 3 : 2;
    if (options.lanes && options.panels[static_cast<std::size_t>(HistoryPanel::sources)])
        found.lanes = std::min(lane_room * static_cast<double>(m_data->lanes().size()), area.height * 0.3);
    const auto measure = [&] {
        const auto count = std::ranges::count_if(found.weights, [](double weight) { return weight > 0; });
        const double titles = (title_height + panel_gap) * static_cast<double>(count + (found.lanes > 0 ? 1 : 0));
        const double total = std::accumulate(found.weights.begin(), found.weights.end(), 0.0);
        found.unit = total > 0 ? (area.height + panel_gap - titles - found.lanes) / total : 0;
    };
    measure();
    for (const HistoryPanel last : {HistoryPanel::temperature, HistoryPanel::delay, HistoryPanel::frequency})
        if (found.unit * 2 < smallest_panel && found.weights[0] > 0) {
            found.weights[static_cast<std::size_t>(last)] = 0;
            measure();
        }
    return found;
}

std::vector<HistoryView::PanelPlace> HistoryView::places(Rect bounds) const {
    const Rect area = plot_area(bounds);
    const PanelShares all = shares(area);
    std::vector<PanelPlace> found;
    double top = upper_edge(area);
    for (std::size_t at = 0; at < history_panels; ++at) {
        const bool is_lanes = static_cast<HistoryPanel>(at) == HistoryPanel::sources && all.lanes > 0;
        if (all.weights[at] == 0 && !is_lanes)
            continue;
        const double height = std::max(8.0, std::floor(is_lanes ? all.lanes : all.unit * all.weights[at]));
        top -= title_height + height;
        found.push_back({static_cast<HistoryPanel>(at), {area.x, std::round(top), area.width, height}});
        top -= panel_gap;
    }
    return found;
}

double HistoryView::time_at(double x, Rect bounds) const {
    const Rect area = plot_area(bounds);
    return m_range.from + (x - area.x) / area.width * m_range.length();
}

double HistoryView::place_of(double time, Rect bounds) const {
    const Rect area = plot_area(bounds);
    return area.x + (time - m_range.from) / m_range.length() * area.width;
}

// How far up it goes. Bands run over the panel's edge where a few of their values are absurd: chronyd begins with a
// skew of a million ppm.
double HistoryView::reach_of(std::vector<double> highs, bool is_band) {
    constexpr double absurd = 1000;
    const double most = std::ranges::max(highs);
    const double middle = quantile(highs, 0.5);
    const double usual = quantile(highs, 0.98);
    return is_band && most - middle > absurd * (usual - middle) ? usual : most;
}

// `usual`: what the signed values are mostly like, as far as columns of pixels tell.
AxisSpan HistoryView::span_of(HistoryPanel panel, const Frame& frame, double& usual) const {
    std::optional<AxisSpan> span;
    std::vector<double> sizes;
    const auto widen = [&span](double low, double high) {
        span = span ? AxisSpan{std::min(span->low, low), std::max(span->high, high)} : AxisSpan{low, high};
    };
    for (const auto& [curve, columns] : frame.curves) {
        const bool is_band = curve.form == CurveForm::bound || curve.form == CurveForm::band;
        std::vector<double> highs;
        std::vector<double> depths;
        for (const ValueColumn& column : columns) {
            if (column.count == 0)
                continue;
            highs.push_back(column.high);
            depths.push_back(curve.form == CurveForm::bound ? column.high : -column.low);
            if (!is_band)
                sizes.push_back(std::max(std::abs(column.low), std::abs(column.high)));
        }
        if (!highs.empty())
            widen(-reach_of(std::move(depths), is_band), reach_of(std::move(highs), is_band));
    }
    usual = sizes.empty() ? 0 : quantile(sizes, 0.5);
    const double least = panel == HistoryPanel::delay && !sizes.empty() ? std::ranges::min(sizes) : 0;
    if (panel == HistoryPanel::delay)
        usual = least;
    return span.value_or(AxisSpan{0, 0});
}

ValueAxis HistoryView::axis_of(HistoryPanel panel, const Frame& frame) const {
    constexpr double too_wide = 30; // for an even axis
    double usual = 0;
    AxisSpan span = span_of(panel, frame, usual);
    const AxisUnit unit = panel == HistoryPanel::frequency     ? AxisUnit::ppm
                          : panel == HistoryPanel::temperature ? AxisUnit::celsius
                                                               : AxisUnit::seconds;
    if (panel == HistoryPanel::error && options.limit)
        span = {std::min(span.low, -*options.limit), std::max(span.high, *options.limit)};
    const double largest = std::max(std::abs(span.low), std::abs(span.high));
    const bool bends = unit == AxisUnit::seconds && usual > 0 &&
                       (options.scale == ScaleChoice::logarithmic ||
                        (options.scale == ScaleChoice::automatic && largest > too_wide * usual));
    const double room = (span.high - span.low) * 0.06;
    AxisShape shape = AxisShape::linear;
    if (!bends)
        span = {panel == HistoryPanel::delay ? 0 : span.low - room, span.high + room};
    else if (panel == HistoryPanel::delay)
        shape = AxisShape::logarithmic, span = {span.low * 0.8, span.high * 1.25};
    else
        shape = AxisShape::symmetric_log, span = {span.low * 1.3, span.high * 1.3};
    ValueAxis axis(unit, shape, span, usual);
    axis.place_between(frame.grid.area.y, upper_edge(frame.grid.area));
    return axis;
}

void HistoryView::draw_title(Canvas& canvas, const PanelPlace& place, const std::string& unit) const {
    std::string title = words.panels[static_cast<std::size_t>(place.panel)];
    if (!unit.empty())
        title += " (" + unit + ")";
    drawLabel(canvas, title, 11, ColorRole::text, place.area.x, upper_edge(place.area) + title_height / 2, 1);
}

void HistoryView::draw_axis(Canvas& canvas, const PanelPlace& place, const ValueAxis& axis) const {
    // One label tells no scale; and two decades to each side tell that it is one of decades.
    const std::size_t fewest = axis.shape() == AxisShape::symmetric_log ? 5 : 2;
    const auto labels =
        std::ranges::count_if(axis.ticks(tick_room), [](const auto& tick) { return !tick.label.empty(); });
    const double room = std::cmp_less(labels, fewest) ? least_tick_room : tick_room;
    const std::string unit = axis.unit_text(room);
    const bool is_even = axis.shape() == AxisShape::linear;
    draw_title(canvas, place, is_even ? unit : unit + ", " + words.by_decades);
    Path grid;
    Path zero;
    for (const AxisTick& tick : axis.ticks(room)) {
        const double y = axis.place_of(tick.value);
        (tick.value == 0 ? zero : grid).add_line({place.area.x, y}, {right_edge(place.area), y});
        constexpr double half = TEXT_MIDDLE * LABEL_SIZE;
        if (!tick.label.empty())
            canvas.text(tick.label, {place.area.x - margin_left, y - half, margin_left - 7, 2 * half},
                        {.size = LABEL_SIZE, .color = ColorRole::text, .align = TextAlign::right});
    }
    canvas.stroke(grid, {.ink = Ink(ColorRole::grey, grid_opacity)});
    canvas.stroke(zero, {.ink = Ink(ColorRole::grey, 0.7)});
}

void HistoryView::draw_curve(Canvas& canvas, const Frame& frame, const ValueAxis& axis,
                             const HistoryCurve& curve) const {
    const auto found = std::ranges::find(frame.curves, curve.key, [](const auto& one) { return one.curve.key; });
    const auto& columns = found->columns;
    LinePainter painter(canvas, frame.grid, axis);
    const Ink ink = canvas.readable(curve.color);
    switch (curve.form) {
    case CurveForm::line:
        // The sources' intervals reach over each other.
        painter.draw_line(*curve.values, columns, ink, curve.panel == HistoryPanel::sources ? frame.curves.size() : 1);
        break;
    case CurveForm::spread: {
        const bool few = LinePainter::are_few(columns);
        static const std::vector<ValueSpread> none;
        painter.draw_spread(*curve.values, columns,
                            few ? none : m_spreads.spreads(*curve.values, m_data->version(), frame.grid, columns), ink);
        break;
    }
    case CurveForm::bound:
        painter.draw_band(*curve.values, columns, true, ink.faded(0.22));
        break;
    case CurveForm::band:
        painter.draw_band(*curve.values, columns, false, ink.faded(0.2));
        break;
    }
}

// The limit to both sides of zero, and a bar at the panel's upper edge where the error may have been larger.
void HistoryView::draw_limit(Canvas& canvas, const PanelPlace& place, const ValueAxis& axis) const {
    constexpr double bar = 4;
    constexpr double least_width = 3; // so that a short time is seen
    Path lines;
    for (const double value : {-*options.limit, *options.limit})
        lines.add_line({place.area.x, axis.place_of(value)}, {right_edge(place.area), axis.place_of(value)});
    canvas.stroke(lines, {.ink = Ink(ColorRole::red, 0.8), .dash = {6, 3}});
    const ColumnGrid grid(place.area, m_range, canvas.pixel());
    const auto columns = m_data->line(HistoryLine::bound).columns(grid.columns_range(), grid.count);
    std::vector<Rect> bars;
    std::optional<std::size_t> before; // the column of the record before, from which on a record counts
    for (std::size_t at = 0; at < columns.size(); ++at) {
        if (columns[at].count == 0)
            continue;
        const bool goes_on = before && static_cast<double>(at - *before) * grid.step <= longest_pause;
        const double left = grid.left_of(goes_on ? *before + 1 : at);
        before = at;
        if (columns[at].high > *options.limit)
            bars.push_back(
                {left, upper_edge(place.area) - bar, std::max(grid.left_of(at + 1) - left, least_width), bar});
    }
    canvas.fill_rects(bars, ColorRole::red);
}

void HistoryView::draw_lanes(Canvas& canvas, const PanelPlace& place) const {
    draw_title(canvas, place, "");
    const ColumnGrid grid(place.area, m_range, canvas.pixel());
    const LaneLayout layout{place.area, m_data->lanes().size()};
    const bool has_names = layout.height() >= LABEL_SIZE;
    constexpr double half = TEXT_MIDDLE * LABEL_SIZE;
    for (std::size_t at = 0; at < layout.count; ++at) {
        const Rect box = layout.lane(at);
        draw_lane(canvas, grid, box, m_data->lanes()[at]);
        if (has_names)
            canvas.text(shortened(m_data->lanes()[at].source, 15),
                        {place.area.x - margin_left, box.center().y - half, margin_left - 7, 2 * half},
                        {.size = LABEL_SIZE, .color = ColorRole::text, .align = TextAlign::right});
    }
}

void HistoryView::draw_panel(Canvas& canvas, const PanelPlace& place) const {
    if (place.panel == HistoryPanel::sources && options.lanes) {
        draw_lanes(canvas, place);
        return;
    }
    const Frame frame = Frame::of(*this, place, canvas.pixel());
    const ValueAxis axis = axis_of(place.panel, frame);
    draw_axis(canvas, place, axis);
    for (const auto& one : frame.curves)
        draw_curve(canvas, frame, axis, one.curve);
    if (place.panel == HistoryPanel::error && options.limit)
        draw_limit(canvas, place, axis);
}

TimeMarks HistoryView::time_labels(Rect bounds) const {
    const double width = plot_area(bounds).width;
    const bool shows_seconds = m_range.length() * time_room_of_seconds / width < 60;
    return time_marks(m_range, width, shows_seconds ? time_room_of_seconds : time_room, zone);
}

void HistoryView::draw_time_grid(Canvas& canvas, Rect bounds, const std::vector<PanelPlace>& all) const {
    const TimeMarks marks = time_labels(bounds);
    Path grid;
    Path days;
    for (const PanelPlace& place : all) {
        for (const TimeMark& mark : marks.times)
            grid.add_line({place_of(mark.time, bounds), place.area.y},
                          {place_of(mark.time, bounds), upper_edge(place.area)});
        for (std::size_t at = 1; at < marks.beyond.size(); ++at)
            days.add_line({place_of(marks.beyond[at].time, bounds), place.area.y},
                          {place_of(marks.beyond[at].time, bounds), upper_edge(place.area)});
    }
    canvas.stroke(grid, {.ink = Ink(ColorRole::grey, grid_opacity)});
    canvas.stroke(days, {.ink = Ink(ColorRole::grey, 2 * grid_opacity)});
}

void HistoryView::draw_times(Canvas& canvas, Rect bounds) const {
    const TimeMarks marks = time_labels(bounds);
    const Rect area = plot_area(bounds);
    const double times_y = bounds.y + 27;
    const double dates_y = bounds.y + 11;
    constexpr double half = TEXT_MIDDLE * LABEL_SIZE;
    for (const TimeMark& mark : marks.times) {
        const double width = width_of(mark.label, LABEL_SIZE);
        const double x = place_of(mark.time, bounds);
        if (x + width / 2 <= right_edge(bounds) && x - width / 2 >= bounds.x)
            canvas.text(mark.label, {x - width / 2, times_y - half, width, 2 * half}, {.size = LABEL_SIZE});
    }
    const std::string zone_words = zone_text(m_range.to, zone);
    canvas.text(zone_words, {bounds.x + 8, times_y - half, margin_left - 30, 2 * half},
                {.size = LABEL_SIZE, .color = Ink(ColorRole::grey), .align = TextAlign::left});
    double end = bounds.x;
    for (std::size_t at = 0; at < marks.beyond.size(); ++at) {
        const TimeMark& mark = marks.beyond[at];
        const double x = std::max(place_of(mark.time, bounds), area.x);
        const double width = width_of(mark.label, LABEL_SIZE);
        // The first gives way to a day that begins right behind it.
        const bool is_crowded =
            at + 1 < marks.beyond.size() && at == 0 && place_of(marks.beyond[1].time, bounds) < x + width + 8;
        if (x < end + 8 || is_crowded || x + width > right_edge(bounds))
            continue;
        drawLabel(canvas, mark.label, LABEL_SIZE, ColorRole::text, x, dates_y, 1);
        end = x + width;
    }
}

void HistoryView::draw_origins(Canvas& canvas, Rect bounds) const {
    const Rect area = plot_area(bounds);
    for (const OriginStretch& one : m_data->origins()) {
        const double left = std::max(place_of(one.range.from, bounds), area.x);
        const double right = std::min(std::max(place_of(one.range.to, bounds), left + 1), right_edge(area));
        if (right <= left)
            continue;
        const Rect strip{left, area.y - 6, right - left, 3};
        const bool is_log = one.origin == HistoryOrigin::log;
        canvas.fill_rects(std::span(&strip, 1), is_log ? Ink(ColorRole::blue, 0.8) : Ink(ColorRole::grey, 0.6));
    }
}

std::vector<HistoryMark> HistoryView::marks_of(const TimeRange& range) const {
    std::vector<HistoryMark> found;
    const auto& all = m_data->marks();
    for (auto at = std::ranges::lower_bound(all, range.from, {}, &HistoryMark::time);
         at != all.end() && at->time <= range.to; ++at)
        if (options.marks[static_cast<std::size_t>(at->kind)])
            found.push_back(*at);
    return found;
}

// Flags that would lie over each other are one.
void HistoryView::draw_marks(Canvas& canvas, Rect bounds) const {
    const Rect area = plot_area(bounds);
    const double top = upper_edge(bounds) - 4;
    const auto marks = marks_in_sight();
    Path lines;
    for (std::size_t at = 0; at < marks.size();) {
        const double x = place_of(marks[at].time, bounds);
        bool bad = false;
        std::size_t end = at;
        for (; end < marks.size() && place_of(marks[end].time, bounds) < x + flag_side; ++end)
            bad |= is_bad(marks[end].kind);
        const std::array corners{Point{x - flag_side / 2, top}, Point{x + flag_side / 2, top},
                                 Point{x, top - flag_side}};
        canvas.fill_polygon(corners, bad ? ColorRole::red : ColorRole::blue);
        lines.add_line({x, area.y}, {x, top - flag_side});
        at = end;
    }
    canvas.stroke(lines, {.ink = Ink(ColorRole::grey, 0.55), .dash = {3, 3}});
}

std::vector<HistoryMark> HistoryView::marks_at(Point point, Rect bounds) const {
    auto marks = marks_in_sight();
    const bool is_in_row = point.y >= upper_edge(bounds) - flags_height;
    std::erase_if(marks, [&](const HistoryMark& mark) {
        return !is_in_row || std::abs(place_of(mark.time, bounds) - point.x) > flag_side;
    });
    return marks;
}

const HistoryLane* HistoryView::lane_at(Point point, Rect bounds) const {
    if (!options.lanes)
        return nullptr;
    for (const PanelPlace& place : places(bounds))
        if (place.panel == HistoryPanel::sources)
            if (const auto lane = LaneLayout{place.area, m_data->lanes().size()}.lane_at(point.y))
                return &m_data->lanes()[*lane];
    return nullptr;
}

void HistoryView::draw(Canvas& canvas, Rect bounds) const {
    canvas.fill_rects(std::span(&bounds, 1), ColorRole::text_background);
    const auto all = places(bounds);
    draw_time_grid(canvas, bounds, all);
    for (const PanelPlace& place : all)
        draw_panel(canvas, place);
    draw_times(canvas, bounds);
    draw_origins(canvas, bounds);
    draw_marks(canvas, bounds);
}

std::vector<CurveReading> HistoryView::readings_at(double time) const {
    std::vector<CurveReading> found;
    for (const HistoryCurve& curve : curves()) {
        const auto at = is_shown(curve) ? curve.values->nearest(time) : std::nullopt;
        if (!at)
            continue;
        const double far = std::max(4 * curve.values->usual_interval(), m_range.length() / 200);
        if (std::abs(curve.values->time(*at) - time) <= far)
            found.push_back({curve.key, curve.values->time(*at), curve.values->at(*at), curve.unit, curve.panel,
                             curve.form, curve.color});
    }
    return found;
}

void HistoryView::draw_pointers(Canvas& canvas, Rect bounds, const HistoryPointers& pointers) const {
    const Rect area = plot_area(bounds);
    const auto draw_line = [&](const std::optional<double>& time, const Ink& ink, std::string_view name) {
        const double x = time ? place_of(*time, bounds) : -1;
        if (x < area.x || x > right_edge(area))
            return;
        Path line;
        line.add_line({x, area.y}, {x, upper_edge(area)});
        canvas.stroke(line, {.ink = ink});
        drawLabel(canvas, name, LABEL_SIZE, ink, x + 3, upper_edge(area) - 4, 1);
    };
    draw_line(pointers.pointer, Ink(ColorRole::text, 0.45), "");
    draw_line(pointers.first, ColorRole::red, "A");
    draw_line(pointers.second, ColorRole::red, "B");
}

} // namespace tickervantage
