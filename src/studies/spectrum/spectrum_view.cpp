#include "studies/spectrum/spectrum_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr double TICK = 5.0;
constexpr double LINE = 1.0;
constexpr double LABEL_SIZE = 10.0;
constexpr double LABEL_GAP = 1.0;    // from the end of a tick
constexpr double FIGURE_WIDTH = 6.4; // of the wider among the usual fonts, at that size
constexpr double TEXT_HALF = 4.0;    // half a figure's height, and a little
constexpr double LABEL_AIR = 5.0;    // least distance of two labels

// What lies right of and above the origin.
Rect plot_of(Rect bounds) {
    return {bounds.x + SpectrumView::ORIGIN, bounds.y + SpectrumView::ORIGIN,
            std::max(0.0, bounds.width - SpectrumView::ORIGIN), std::max(0.0, bounds.height - SpectrumView::ORIGIN)};
}

Path rectangle(Rect box) {
    Path path;
    path.add_rounded_rect(box, 0, 0);
    return path;
}

double width_of(std::string_view label) {
    const auto narrow = static_cast<double>(std::ranges::count(label, '.'));
    return FIGURE_WIDTH * (static_cast<double>(label.size()) - narrow / 2);
}

// Every how many divisions a label has room. The last label is moved in from the edge, so that it needs half its
// length more.
int label_step(double division, double length) {
    for (const int step : {1, 2, 5})
        if (division * step >= 1.5 * length + LABEL_AIR)
            return step;
    return SpectrumView::DIVISIONS;
}

// The bins of each column of a plot that has more bins than columns.
class Columns {
public:
    Columns(std::size_t bins, double width, double column_width)
        : m_bins(static_cast<double>(bins)), m_columns(width / column_width) {}

    [[nodiscard]] bool are_needed() const { return m_bins > m_columns; }
    [[nodiscard]] std::size_t count() const { return static_cast<std::size_t>(std::ceil(m_columns)); }
    // The first bin that begins in the column or after it; the number of bins when none does.
    [[nodiscard]] std::size_t first(std::size_t column) const {
        return static_cast<std::size_t>(std::min(m_bins, std::ceil(static_cast<double>(column) * m_bins / m_columns)));
    }

private:
    double m_bins;
    double m_columns;
};

// Of the bars that begin in the column, of which there is one at least.
std::size_t highest(const std::vector<double>& magnitudes, std::size_t first, std::size_t end) {
    const auto begin = magnitudes.begin();
    const auto found =
        std::max_element(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(end));
    return static_cast<std::size_t>(found - begin);
}

std::size_t count_bars(const ComputedSpectrum& spectrum) {
    if (spectrum.length < 2)
        return 0;
    const auto end =
        std::ranges::find_if(spectrum.magnitudes, [](double magnitude) { return !std::isfinite(magnitude); });
    return static_cast<std::size_t>(end - spectrum.magnitudes.begin());
}

void draw_frame(Canvas& canvas, Rect bounds) {
    const double right = bounds.x + bounds.width;
    const double top = bounds.y + bounds.height;
    Path frame; // inside the bounds, by half its width
    frame.add_line({bounds.x, bounds.y + LINE / 2}, {right, bounds.y + LINE / 2});
    frame.add_line({bounds.x, top - LINE / 2}, {right, top - LINE / 2});
    frame.add_line({bounds.x + LINE / 2, bounds.y}, {bounds.x + LINE / 2, top});
    frame.add_line({right - LINE / 2, bounds.y}, {right - LINE / 2, top});
    canvas.stroke(frame, ColorRole::text, LINE, Shadow::none);
}

TextStyle label_style(TextAlign align) {
    return {.size = LABEL_SIZE, .color = ColorRole::text, .align = align};
}

// Centred under its tick, but never beyond the frame.
void label_below(Canvas& canvas, Rect bounds, double x, const std::string& label) {
    const double half = width_of(label) / 2;
    const double limit = bounds.x + bounds.width - 3 * LINE;
    const double top = bounds.y + SpectrumView::ORIGIN - TICK - LABEL_GAP;
    const Rect box{x - half, top - LABEL_SIZE, 2 * half, LABEL_SIZE};
    if (x + half <= limit)
        canvas.text(label, box, label_style(TextAlign::center));
    else
        canvas.text(label, {limit - 2 * half, box.y, 2 * half, LABEL_SIZE}, label_style(TextAlign::right));
}

// Beside its tick, its middle at the same height, but never beyond the frame.
void label_beside(Canvas& canvas, Rect bounds, double y, const std::string& label) {
    const double middle = std::min(y, bounds.y + bounds.height - 2 * LINE - TEXT_HALF);
    const double right = bounds.x + SpectrumView::ORIGIN - TICK - LABEL_GAP;
    const double width = width_of(label);
    canvas.text(label, {right - width, middle + TEXT_MIDDLE * LABEL_SIZE - LABEL_SIZE, width, LABEL_SIZE},
                label_style(TextAlign::right));
}

} // namespace

void SpectrumView::set_spectrum(std::shared_ptr<const ComputedSpectrum> spectrum) {
    m_bars = spectrum ? count_bars(*spectrum) : 0;
    m_samplefreq = spectrum ? spectrum->samplefreq : 0;
    m_spectrum = std::move(spectrum);
}

void SpectrumView::draw(Canvas& canvas, Rect bounds) const {
    canvas.fill(rectangle(bounds), ColorRole::text_background, FillRule::nonzero);
    shade_mirror(canvas, bounds);
    draw_axes(canvas, bounds);
    draw_bars(canvas, bounds);
    mark_mirror(canvas, bounds);
    draw_frame(canvas, bounds);
}

double SpectrumView::axis_value(int division) const {
    if (!m_spectrum || m_spectrum->length == 0)
        return 0;
    const auto bin = m_spectrum->length * static_cast<std::size_t>(division) / DIVISIONS;
    return m_samplefreq * static_cast<double>(bin) / static_cast<double>(m_spectrum->length);
}

void SpectrumView::draw_axes(Canvas& canvas, Rect bounds) const {
    const Rect plot = plot_of(bounds);
    Path axes;
    axes.add_line({plot.x, plot.y}, {plot.x + plot.width, plot.y});
    axes.add_line({plot.x, plot.y}, {plot.x, plot.y + plot.height});
    const int below = label_step(plot.width / DIVISIONS, width_of(fmt::format("{:.2f}", m_samplefreq)));
    const int beside = label_step(plot.height / DIVISIONS, 2 * TEXT_HALF);
    for (int division = 0; division <= DIVISIONS; ++division) {
        const double x = plot.x + division * plot.width / DIVISIONS;
        const double y = plot.y + division * plot.height / DIVISIONS;
        axes.add_line({x, plot.y}, {x, plot.y - TICK});
        axes.add_line({plot.x, y}, {plot.x - TICK, y});
        if (division % below == 0)
            label_below(canvas, bounds, x, fmt::format("{:.2f}", axis_value(division)));
        if (division % beside == 0)
            label_beside(canvas, bounds, y, fmt::format("{:.1f}", division / static_cast<double>(DIVISIONS)));
    }
    canvas.stroke(axes, ColorRole::text, LINE, Shadow::none);
}

// Where the bins right of the one with the highest true frequency begin; none: there are no such bins.
std::optional<double> SpectrumView::mirror_x(Rect plot) const {
    if (m_bars == 0 || m_spectrum->length < 4 || plot.width <= 0 || plot.height <= 0)
        return std::nullopt;
    const auto length = static_cast<double>(m_spectrum->length);
    return plot.x + plot.width * (length / 2 + 1) / length;
}

void SpectrumView::shade_mirror(Canvas& canvas, Rect bounds) const {
    constexpr double SHADE = 0.14;
    const Rect plot = plot_of(bounds);
    const auto x = mirror_x(plot);
    if (!x)
        return;
    const double right = plot.x + plot.width;
    const double top = plot.y + plot.height;
    const std::array corners{Point{*x, plot.y}, Point{right, plot.y}, Point{right, top}, Point{*x, top}};
    canvas.fill_polygon(corners, Ink(ColorRole::grey, SHADE));
}

// High bars hide the shade, but not this.
void SpectrumView::mark_mirror(Canvas& canvas, Rect bounds) const {
    const Rect plot = plot_of(bounds);
    const auto x = mirror_x(plot);
    if (!x)
        return;
    Path line;
    line.add_line({*x, plot.y}, {*x, plot.y + plot.height});
    canvas.stroke(line, LineStyle{ColorRole::text, LINE, {3, 2}});
}

void SpectrumView::draw_bars(Canvas& canvas, Rect bounds) const {
    const Rect plot = plot_of(bounds);
    if (m_bars == 0 || plot.width <= 0 || plot.height <= 0)
        return;
    const double pixel = canvas.pixel();
    const Columns columns(m_spectrum->length, plot.width, pixel);
    std::vector<Rect> boxes;
    const auto add = [&](double along, double width, std::size_t bin) {
        boxes.push_back(
            {plot.x + along, plot.y, std::min(width, plot.width - along), plot.height * m_spectrum->magnitudes[bin]});
    };
    if (columns.are_needed()) {
        for (std::size_t column = 0; column < columns.count() && columns.first(column) < m_bars; ++column)
            add(static_cast<double>(column) * pixel, pixel,
                highest(m_spectrum->magnitudes, columns.first(column), std::min(m_bars, columns.first(column + 1))));
    } else {
        const double width = plot.width / static_cast<double>(m_spectrum->length);
        for (std::size_t bin = 0; bin < m_bars; ++bin)
            add(static_cast<double>(bin) * width, width, bin);
    }
    canvas.fill_rects(boxes, ColorRole::blue);
}

void SpectrumView::draw_marker(Canvas& canvas, Rect bounds, std::size_t bin) const {
    if (!reading_of(bin))
        return;
    const Rect plot = plot_of(bounds);
    const Columns columns(m_spectrum->length, plot.width, 1);
    const double width = plot.width / static_cast<double>(m_spectrum->length);
    const double left = static_cast<double>(bin) * width;
    const double x = plot.x + (columns.are_needed() ? std::floor(left) + 0.5 : left + width / 2);
    Path line;
    line.add_line({x, plot.y}, {x, plot.y + plot.height});
    canvas.stroke(line, ColorRole::red, LINE, Shadow::none);
}

std::optional<SpectrumReading> SpectrumView::reading_of(std::size_t bin) const {
    if (bin >= m_bars)
        return std::nullopt;
    return SpectrumReading{bin, true_frequency(*m_spectrum, bin), m_spectrum->magnitudes[bin],
                           period_of(*m_spectrum, bin), is_mirrored(*m_spectrum, bin)};
}

std::optional<SpectrumReading> SpectrumView::reading_at(double x, Rect bounds) const {
    const Rect plot = plot_of(bounds);
    const double along = x - plot.x;
    if (m_bars == 0 || !(along >= 0 && along < plot.width))
        return std::nullopt;
    const Columns columns(m_spectrum->length, plot.width, 1);
    if (!columns.are_needed())
        return reading_of(static_cast<std::size_t>(along * static_cast<double>(m_spectrum->length) / plot.width));
    const auto column = static_cast<std::size_t>(along);
    return columns.first(column) < m_bars ? reading_of(highest(m_spectrum->magnitudes, columns.first(column),
                                                               std::min(m_bars, columns.first(column + 1))))
                                          : std::nullopt;
}

} // namespace tickervantage
