#include "studies/freqtemp/kept_plot.h"

#include "draw/graph_geometry.h"
#include "studies/freqtemp/plot_look.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

using Kind = PlotPiece::Kind;
using PixelsOf = std::optional<CanvasPixels>;

constexpr double REACH = 8; // points, of a ring beyond the drawing area

// Of the area, among the pixels.
PixelBox pixel_box(Rect area, const CanvasPixels& pixels) {
    constexpr double hair = 1e-6; // rounding must not add a pixel
    const auto low = [](double at) {
        return static_cast<int>(std::floor(at + hair));
    };
    const auto high = [](double at) {
        return static_cast<int>(std::ceil(at - hair));
    };
    return common({low(pixels.x(area.x)), low(pixels.y(upper_edge(area))), high(pixels.x(right_edge(area))),
                   high(pixels.y(area.y))},
                  {0, 0, pixels.width, pixels.height});
}

PixelsOf own_pixels(Canvas& canvas, Rect area) {
    auto pixels = canvas.begin_pixels(grown(area, REACH));
    if (!pixels || pixels->is_canvas)
        return pixels;
    canvas.end_pixels();
    return std::nullopt;
}

// Calls use(name, entry) for each one that is drawn.
template <class Use>
void for_each_shown(const ScatterMap& scatter, const Use& use) {
    for (const auto& [name, entry] : scatter)
        if (plot_look::is_shown(entry))
            use(name, entry);
}

} // namespace

KeptPlot::Inks::Inks(const Color& color)
    : dots(color), band(plot_look::lighter(color)), line(plot_look::solid(color)), newest(color) {}

KeptPlot::Setup KeptPlot::setup_of(const CanvasPixels& pixels, const PlotContent& content) {
    Setup setup{.ranges = content.scale.ranges,
                .options = content.options,
                .area = content.scale.area,
                .pixels = {0, 0, pixels.width, pixels.height},
                .origin = {pixels.left, pixels.bottom},
                .density = {pixels.scale_x, pixels.scale_y},
                .text = pixels.text,
                .background = pixels.background,
                .sensors = {}};
    for_each_shown(content.scatter, [&](const std::string& name, const scatterEntry& entry) {
        setup.sensors.emplace_back(name, entry.color.color());
    });
    return setup;
}

bool KeptPlot::paint_whole(Canvas& canvas, const PlotContent& content) {
    m_setup.reset();
    const PixelsOf pixels = own_pixels(canvas, content.scale.area);
    if (!pixels)
        return false;
    begin(canvas, *pixels, content);
    m_cells.mark_all();
    paint_marked();
    canvas.end_pixels();
    return true;
}

bool KeptPlot::paint_changes(Canvas& canvas, const PlotContent& content) {
    const PixelsOf pixels = m_setup ? own_pixels(canvas, content.scale.area) : std::nullopt;
    if (!pixels)
        return false;
    m_rows = pixels->rows;
    const bool is_known = setup_of(*pixels, content) == *m_setup;
    if (is_known)
        for (std::size_t i = m_sensors.size(); i-- > 0;)
            take_ring_off(m_sensors[i]);
    if (is_known && take_changes(content))
        paint_marked();
    else
        m_setup.reset();
    canvas.end_pixels();
    return m_setup.has_value();
}

void KeptPlot::begin(const Canvas& canvas, const CanvasPixels& pixels, const PlotContent& content) {
    m_setup = setup_of(pixels, content);
    m_scale = PixelScale(content.scale, pixels);
    m_density = pixels.scale_x;
    m_rows = pixels.rows;
    m_inside = pixel_box(content.scale.area, pixels);
    if (m_inside.width() > 0 && m_inside.height() > 0)
        m_paper = m_rows.first[m_inside.top * m_rows.stride + m_inside.left];
    m_text.emplace(m_setup->text);
    m_background.emplace(m_setup->background);
    const int side = std::max(1, static_cast<int>(std::lround(plot_look::DOT * m_density)));
    m_counts.emplace(pixels.width, pixels.height, side);
    m_cells.resize(pixels.width, pixels.height, side);
    m_sensors.clear();
    for_each_shown(content.scatter, [&](const std::string&, const scatterEntry& entry) {
        m_sensors.push_back(sensor_of(entry, canvas.readable(entry.color.color())));
    });
}

KeptPlot::Sensor KeptPlot::sensor_of(const scatterEntry& entry, const Color& color) {
    Sensor sensor(color);
    sensor.points = entry.points;
    sensor.digest = entry.digest;
    const auto& ranges = m_setup->ranges;
    if (entry.digest) {
        sensor.means = entry.digest->means;
    } else {
        if (m_setup->options.means)
            sensor.means =
                mean_frequencies(entry.points, ranges.min_temp, degree_bins(ranges.min_temp, ranges.max_temp));
        sensor.dots.reserve(entry.points.size());
        for (const auto& part : entry.points.spans())
            for (std::size_t i = 0; i < part.x.size(); ++i)
                sensor.dots.push_back(dot({part.x[i], part.y[i]}, sensor.means.size()));
    }
    make_shapes(sensor, entry);
    return sensor;
}

KeptPlot::Dot KeptPlot::dot(freqPoint point, std::size_t bins) const {
    const Point at = m_scale.pixel(point);
    const auto corner = m_counts->corner(at.x, at.y);
    const std::size_t bin = degree_bin(point.temperature, m_setup->ranges.min_temp).value_or(bins);
    return {.corner = corner.value_or(DotCounts::Corner()),
            .place = static_cast<std::uint32_t>(corner ? m_cells.place_of(*corner) : m_cells.nowhere()),
            .bin = static_cast<std::uint32_t>(std::min(bin, bins))};
}

bool KeptPlot::take_changes(const PlotContent& content) {
    std::size_t number = 0;
    bool is_known = true;
    for_each_shown(content.scatter, [&](const std::string&, const scatterEntry& entry) {
        is_known = is_known && take_changes(m_sensors[number++], entry);
    });
    return is_known;
}

bool KeptPlot::take_changes(Sensor& sensor, const scatterEntry& entry) {
    const auto steps = entry.points.since(sensor.points);
    if (!steps || entry.digest || sensor.digest)
        return false;
    if (steps->dropped + steps->appended > 0)
        take_points(sensor, entry.points, *steps);
    make_shapes(sensor, entry);
    return true;
}

void KeptPlot::take_points(Sensor& sensor, const PointList& points, PointList::Steps steps) {
    std::vector<char> stale(sensor.means.size() + 1);
    const auto changed = [&](const Dot& dot) {
        if (m_setup->options.points && dot.place != m_cells.nowhere())
            m_cells.mark(m_cells.cells_of(m_counts->box(dot.corner)));
        stale[dot.bin] = 1;
    };
    for (std::size_t i = 0; i < steps.dropped; ++i)
        changed(sensor.dots[sensor.first_dot + i]);
    drop_dots(sensor, steps.dropped);
    for (std::size_t i = points.size() - steps.appended; i < points.size(); ++i) {
        sensor.dots.push_back(dot(points[i], sensor.means.size()));
        changed(sensor.dots.back());
    }
    sensor.points = points;
    stale.back() = 0;
    remake_means(sensor, stale);
}

// Of all points in their order, as when they are made from nothing.
void KeptPlot::remake_means(Sensor& sensor, const std::vector<char>& stale) {
    for (std::size_t bin = 0; bin < sensor.means.size(); ++bin)
        if (stale[bin])
            sensor.means[bin] = {};
    for (std::size_t i = sensor.first_dot; i < sensor.dots.size(); ++i)
        if (const auto bin = sensor.dots[i].bin; stale[bin])
            sensor.means[bin].add(sensor.points[i - sensor.first_dot].frequency);
}

void KeptPlot::drop_dots(Sensor& sensor, std::size_t count) {
    sensor.first_dot += count;
    if (sensor.first_dot * 2 < sensor.dots.size())
        return;
    sensor.dots.erase(sensor.dots.begin(), sensor.dots.begin() + static_cast<std::ptrdiff_t>(sensor.first_dot));
    sensor.first_dot = 0;
}

void KeptPlot::make_shapes(Sensor& sensor, const scatterEntry& entry) {
    const auto& options = m_setup->options;
    const auto& fit = *entry.quadRegression;
    const bool has_fit = plot_look::has_drawn_fit(entry);
    FitPlace place = has_fit ? place_of(fit, m_scale) : FitPlace();
    if (place != sensor.fit || place.heights.empty())
        replace(sensor.fit_shapes, has_fit ? fit_pieces(fit, place, options.band, m_scale) : std::vector<PlotPiece>());
    sensor.fit = std::move(place);
    const double first = entry.digest ? entry.digest->first_degree : m_setup->ranges.min_temp;
    std::vector<PlotPiece> others;
    if (options.means)
        add_line(others, Kind::mean, plot_look::mean_line(sensor.means, first), m_scale);
    if (options.newest) {
        sensor.newest = m_scale.spot(plot_look::newest_of(entry));
        others.push_back({.kind = Kind::newest, .from = *sensor.newest, .to = {}, .lower_from = {}, .lower_to = {}});
    }
    replace(sensor.other_shapes, std::move(others));
}

// Where they differ all that may be covered is to be painted.
void KeptPlot::replace(Shapes& shapes, std::vector<PlotPiece> pieces) {
    std::vector<PixelBox> cells(pieces.size());
    for (std::size_t i = 0; i < std::max(pieces.size(), shapes.pieces.size()); ++i) {
        const bool was = i < shapes.pieces.size();
        if (was && i < pieces.size() && pieces[i] == shapes.pieces[i]) {
            cells[i] = shapes.cells[i];
            continue;
        }
        if (was)
            m_cells.mark(shapes.cells[i]);
        if (i < pieces.size()) {
            cells[i] = m_cells.cells_of(pieces[i].box(thickness(pieces[i])));
            m_cells.mark(cells[i]);
        }
    }
    shapes = {.pieces = std::move(pieces), .cells = std::move(cells)};
}

double KeptPlot::thickness(const PlotPiece& piece) const {
    switch (piece.kind) {
    case Kind::curve:
        return plot_look::FIT_WIDTH * m_density;
    case Kind::newest:
        return FreqTempView::POINT_SIZE * m_density;
    case Kind::band:
    case Kind::mean:
        break;
    }
    return plot_look::MEAN_WIDTH * m_density;
}

void KeptPlot::paint_marked() {
    for (const std::size_t cell : m_cells.marked()) {
        const PixelBox box = inside(cell);
        for (int row = box.top; row < box.bottom; ++row)
            std::fill_n(m_rows.first + row * m_rows.stride + box.left, box.width(), m_paper);
    }
    for (const Sensor& sensor : m_sensors) {
        if (m_setup->options.points)
            paint_dots(sensor);
        put(sensor.fit_shapes, 0);
        put(sensor.other_shapes, sensor.fit_shapes.pieces.size());
        m_cells.take_items([&](std::size_t cell, const auto& items) { paint_pieces(sensor, cell, items); });
    }
    for (const Sensor& sensor : m_sensors)
        paint_curve(sensor);
    m_cells.unmark_all();
    for (Sensor& sensor : m_sensors)
        put_ring_on(sensor);
}

void KeptPlot::paint_dots(const Sensor& sensor) {
    count_dots(sensor);
    if (m_cells.are_all_marked()) {
        m_counts->paint({0, 0, m_setup->pixels.right, m_setup->pixels.bottom}, m_inside, sensor.inks.dots, m_rows);
        return;
    }
    for (const std::size_t cell : m_cells.marked())
        if (m_cells.has_square(cell))
            m_counts->paint(m_cells.box(cell), m_inside, sensor.inks.dots, m_rows);
    for (const auto& corner : m_counted)
        m_counts->erase(corner); // it may reach beyond those cells
}

void KeptPlot::count_dots(const Sensor& sensor) {
    m_counted.clear();
    m_cells.forget_squares();
    if (sensor.digest) {
        for (const auto& dot : sensor.digest->dots) {
            const Point at = m_scale.pixel(dot.point);
            m_counts->add(at.x, at.y, dot.count);
        }
        return;
    }
    for (std::size_t i = sensor.first_dot; i < sensor.dots.size(); ++i) {
        const Dot& dot = sensor.dots[i];
        if (!m_cells.is_near(dot.place))
            continue;
        m_counts->add(dot.corner, 1);
        m_cells.note_square(dot.place);
        m_counted.push_back(dot.corner);
    }
}

void KeptPlot::put(const Shapes& shapes, std::size_t first_item) {
    for (std::size_t i = 0; i < shapes.cells.size(); ++i)
        m_cells.put(shapes.cells[i], static_cast<PlotCells::Item>(first_item + i));
}

// They come in the order of their kinds.
void KeptPlot::paint_pieces(const Sensor& sensor, std::size_t cell, const std::vector<PlotCells::Item>& items) {
    const auto& fit = sensor.fit_shapes.pieces;
    m_painter.begin(inside(cell), m_rows);
    Kind kind = Kind::band;
    for (const PlotCells::Item item : items) {
        const PlotPiece& piece = item < fit.size() ? fit[item] : sensor.other_shapes.pieces[item - fit.size()];
        if (piece.kind != std::exchange(kind, piece.kind))
            m_painter.finish(sensor.inks.line);
        if (kind == Kind::band)
            m_painter.fill_band(piece, sensor.inks.band);
        else if (kind == Kind::newest)
            m_painter.fill_disc(piece.from, thickness(piece), sensor.inks.newest);
        else
            m_painter.add_line(piece, thickness(piece), sensor.inks.line);
    }
    m_painter.finish(sensor.inks.line);
}

// Over all sensors' points: in one of their colours among thousands of dots no curve is found.
void KeptPlot::paint_curve(const Sensor& sensor) {
    const auto& shapes = sensor.fit_shapes;
    for (std::size_t i = 0; i < shapes.pieces.size(); ++i)
        if (shapes.pieces[i].kind == Kind::curve)
            m_cells.put(shapes.cells[i], static_cast<PlotCells::Item>(i));
    m_cells.take_items([&](std::size_t cell, const std::vector<PlotCells::Item>& items) {
        m_painter.begin(inside(cell), m_rows);
        for (const auto& [width, brush] :
             {std::pair(plot_look::FIT_HALO, &*m_background), std::pair(plot_look::FIT_CURVE, &*m_text)}) {
            for (const PlotCells::Item item : items)
                m_painter.add_line(shapes.pieces[item], width * m_density, *brush);
            m_painter.finish(*brush);
        }
    });
}

// What it hides is kept, for it moves with every point: then nothing needs to be painted where it was.
void KeptPlot::put_ring_on(Sensor& sensor) {
    if (!sensor.newest)
        return;
    const double size = plot_look::NEWEST_SIZE * m_density;
    const double halo = plot_look::NEWEST_HALO * m_density;
    const PlotPiece ring{.kind = Kind::newest, .from = *sensor.newest, .to = {}, .lower_from = {}, .lower_to = {}};
    sensor.under = common(ring.box(size + halo), m_setup->pixels);
    sensor.under_pixels.clear();
    for (int row = sensor.under.top; row < sensor.under.bottom; ++row) {
        const std::uint32_t* first = m_rows.first + row * m_rows.stride + sensor.under.left;
        sensor.under_pixels.insert(sensor.under_pixels.end(), first, first + sensor.under.width());
    }
    m_painter.begin(sensor.under, m_rows);
    m_painter.stroke_circle(*sensor.newest, size,
                            {std::pair(halo, &*m_background), {plot_look::NEWEST_RING * m_density, &*m_text}});
}

void KeptPlot::take_ring_off(const Sensor& sensor) {
    const int width = sensor.under.width();
    for (int row = 0; row < sensor.under.height() && sensor.newest; ++row)
        std::copy_n(sensor.under_pixels.data() + std::ptrdiff_t{row} * width, width,
                    m_rows.first + (sensor.under.top + row) * m_rows.stride + sensor.under.left);
}

} // namespace tickervantage
