#include "studies/freqtemp/freqtemp_axes.h"

#include "draw/graph_geometry.h"
#include "studies/freqtemp/freqtemp_view.h"

#include <fmt/format.h>

#include <string>

namespace tickervantage {
namespace {

constexpr double MARK = 4.0;         // length of a mark
constexpr double LABEL_SIZE = 10.0;  // of the font
constexpr double LABEL_WIDTH = 40.0; // room for "-1234.5"
constexpr double LABEL_AIR = 16.0;   // least distance of two labels' middles, upwards
constexpr int MARKS = FreqTempView::AXIS_MARKS;

// Every how many marks a label has room.
int label_step(double division, double length) {
    for (const int step : {1, 2, 5})
        if (division * step >= length)
            return step;
    return MARKS;
}

// The label's middle at the height y.
Rect label_box(double x, double y, double width) {
    const double top = y + TEXT_MIDDLE * LABEL_SIZE;
    return {x, top - LABEL_SIZE, width, LABEL_SIZE};
}

void label(Canvas& canvas, const std::string& text, Rect box, TextAlign align) {
    canvas.text(text, box, {.size = LABEL_SIZE, .color = ColorRole::text, .align = align});
}

double value_at(double low, double high, int mark) {
    return low + (high - low) * mark / MARKS;
}

// Where all values are one, it lies in the axis's middle, and so does the only label.
bool has_label(double low, double high, int mark, int step) {
    return high > low ? mark % step == 0 : mark == MARKS / 2;
}

void draw_temperatures(Canvas& canvas, Rect plot, const FreqTempScale& scale, Path& marks) {
    const double division = scale.area.width / MARKS;
    const double middle = plot.y - MARK - FreqTempView::TEXT_OFFSET;
    const int step = label_step(division, LABEL_WIDTH);
    for (int mark = 0; mark <= MARKS; ++mark) {
        const double x = scale.area.x + mark * division;
        marks.add_line({x, plot.y}, {x, plot.y - MARK});
        if (has_label(scale.ranges.min_temp, scale.ranges.max_temp, mark, step))
            label(canvas, fmt::format("{:.1f}", value_at(scale.ranges.min_temp, scale.ranges.max_temp, mark)),
                  label_box(x - LABEL_WIDTH / 2, middle, LABEL_WIDTH), TextAlign::center);
    }
}

void draw_frequencies(Canvas& canvas, Rect plot, const FreqTempScale& scale, Path& marks) {
    const double division = scale.area.height / MARKS;
    const double right = plot.x - FreqTempView::TEXT_OFFSET;
    const int step = label_step(division, LABEL_AIR);
    for (int mark = 0; mark <= MARKS; ++mark) {
        const double y = scale.area.y + mark * division;
        marks.add_line({plot.x, y}, {plot.x - MARK, y});
        if (has_label(scale.ranges.min_freq, scale.ranges.max_freq, mark, step))
            label(canvas, fmt::format("{:.1f}", value_at(scale.ranges.min_freq, scale.ranges.max_freq, mark)),
                  label_box(right - LABEL_WIDTH, y, LABEL_WIDTH), TextAlign::right);
    }
}

// The units stand in the corners: upwards on the left, to the right on the right.
void draw_units(Canvas& canvas, Rect plot) {
    const double middle = plot.y - MARK - FreqTempView::TEXT_OFFSET - LABEL_SIZE;
    const double left = plot.x - FreqTempView::MARGIN_LEFT;
    const double width = FreqTempView::MARGIN_LEFT - FreqTempView::TEXT_OFFSET;
    label(canvas, "ppm", label_box(left, middle, width), TextAlign::right);
    label(canvas, "°C", label_box(right_edge(plot) - LABEL_WIDTH, middle, LABEL_WIDTH), TextAlign::right);
}

} // namespace

void draw_freqtemp_axes(Canvas& canvas, Rect plot, const FreqTempScale& scale) {
    Path marks;
    draw_temperatures(canvas, plot, scale, marks);
    draw_frequencies(canvas, plot, scale, marks);
    draw_units(canvas, plot);
    canvas.stroke(marks, ColorRole::text, 1, Shadow::none);
}

} // namespace tickervantage
