#include "studies/history/pointer_notes.h"

#include "draw/graph_geometry.h"
#include "draw/plots/graph_label.h"
#include "studies/history/label_width.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr double line_height = 13;
constexpr double padding = 4;
constexpr double swatch = 7;
constexpr double distance = 8; // from the crosshair
constexpr double opacity = 0.92;

struct Line {
    std::optional<Color> color;
    std::string_view text;
};

double room_of(const std::vector<Line>& lines) {
    double width = 0;
    for (const Line& line : lines)
        width = std::max(width, width_of(line.text, LABEL_SIZE) + (line.color ? swatch + padding : 0));
    return width + 2 * padding;
}

void draw_frame(Canvas& canvas, Rect box) {
    Path edge;
    edge.add_line({box.x, box.y}, {right_edge(box), box.y});
    edge.add_line({box.x, upper_edge(box)}, {right_edge(box), upper_edge(box)});
    edge.add_line({box.x, box.y}, {box.x, upper_edge(box)});
    edge.add_line({right_edge(box), box.y}, {right_edge(box), upper_edge(box)});
    canvas.fill_rects(std::span(&box, 1), Ink(ColorRole::text_background, opacity));
    canvas.stroke(edge, {.ink = Ink(ColorRole::grey, 0.6)});
}

void draw_lines(Canvas& canvas, Rect box, const std::vector<Line>& lines) {
    draw_frame(canvas, box);
    double y = upper_edge(box) - padding / 2 - line_height / 2;
    for (const Line& line : lines) {
        double x = box.x + padding;
        if (line.color) {
            const Rect mark{x, y - swatch / 2, swatch, swatch};
            canvas.fill_rects(std::span(&mark, 1), canvas.readable(*line.color));
            x += swatch + padding;
        }
        drawLabel(canvas, line.text, LABEL_SIZE, ColorRole::text, x, y, 1);
        y -= line_height;
    }
}

void draw_values(Canvas& canvas, Rect area, double x, std::vector<Line> lines) {
    const auto fitting = static_cast<std::size_t>(std::max(1.0, (area.height - padding) / line_height));
    if (lines.size() > fitting)
        lines.resize(fitting);
    const double width = room_of(lines);
    const double height = static_cast<double>(lines.size()) * line_height + padding;
    const bool fits = x + distance + width <= right_edge(area);
    const double left = fits ? x + distance : std::max(area.x, x - distance - width);
    draw_lines(canvas, {left, upper_edge(area) - height, width, height}, lines);
}

// About the crosshair, and within the limits.
void draw_centred(Canvas& canvas, Rect limits, double x, std::string_view text) {
    const std::vector<Line> lines{{.color = std::nullopt, .text = text}};
    const double width = room_of(lines);
    const double left = std::clamp(x - width / 2, limits.x, std::max(limits.x, right_edge(limits) - width));
    draw_lines(canvas, {left, limits.y, width, limits.height}, lines);
}

} // namespace

void draw_notes(Canvas& canvas, const HistoryView& view, Rect bounds, const PointerNotes& notes) {
    const double x = view.place_of(notes.time, bounds);
    const Rect area = view.plot_area(bounds);
    if (x < area.x || x > right_edge(area))
        return;
    for (const HistoryView::PanelPlace& place : view.places(bounds)) {
        std::vector<Line> lines;
        for (const PointerNote& note : notes.values)
            if (note.panel == place.panel)
                lines.push_back({note.color, note.text});
        if (!lines.empty())
            draw_values(canvas, place.area, x, std::move(lines));
    }
    constexpr double height = line_height + padding;
    const Rect below{bounds.x, area.y - height - distance, bounds.width, height};
    draw_centred(canvas, below, x, notes.moment);
    const Rect above{bounds.x, upper_edge(bounds) - height, bounds.width, height};
    if (!notes.event.empty())
        draw_centred(canvas, above, x, notes.event);
}

} // namespace tickervantage
