#include "draw/plots/interval_picture.h"

#include "draw/plots/graph_label.h"

#include <algorithm>
#include <array>

namespace tickervantage {
namespace {

constexpr double MARK_ROOM = 50;   // points between two labels
constexpr double EDGE_ROOM = 22;   // of a label at the edge: half of it
constexpr double MARK_LENGTH = 4;  // of the axis
constexpr double LEAST_WIDTH = 3;  // of a bar: narrower ones could not be seen
constexpr double BAR_SHARE = 0.45; // of a row's height
constexpr double CHOSEN = 0.14;    // how strong a chosen row's ground is
constexpr double SHARED = 0.2;     // likewise, of what intervals share
constexpr double TEXT_GAP = 4;

double upper_edge(const Rect& rect) {
    return rect.y + rect.height;
}

// Where rows may stand.
Rect field_of(const IntervalPicture& picture) {
    const Rect& all = picture.bounds;
    return {all.x, all.y + picture.foot_height, all.width,
            std::max(0.0, all.height - picture.axis_height - picture.foot_height)};
}

// A box from the one value to the other, cut to the field's height.
Rect box_of(const TimeInterval& interval, double low, double high, const IntervalScale& scale, const Rect& field) {
    const double left = scale.place_of(interval.low);
    const double width = std::max(scale.place_of(interval.high) - left, LEAST_WIDTH);
    const double bottom = std::max(low, field.y);
    return {left, bottom, width, std::max(0.0, std::min(high, upper_edge(field)) - bottom)};
}

void fill(Canvas& canvas, const Rect& box, const Ink& ink) {
    if (box.height > 0)
        canvas.fill_rects(std::span(&box, 1), ink);
}

void draw_outline(Canvas& canvas, const Rect& box, const Ink& ink) {
    const double right = box.x + box.width;
    const double top = upper_edge(box);
    const std::array<Rect, 4> edges{{{box.x, box.y, box.width, 1},
                                     {box.x, top - 1, box.width, 1},
                                     {box.x, box.y, 1, box.height},
                                     {right - 1, box.y, 1, box.height}}};
    if (box.height > 0)
        canvas.fill_rects(edges, ink);
}

void draw_axis(Canvas& canvas, const IntervalPicture& picture, const IntervalScale& scale, const Rect& field) {
    const double edge = upper_edge(field);
    fill(canvas, {field.x, edge, field.width, 1}, ColorRole::grey);
    for (const auto& [value, text] : scale.marks(MARK_ROOM, picture.decimal_point)) {
        const double place = scale.place_of(value);
        if (place < field.x + EDGE_ROOM || place > field.x + field.width - EDGE_ROOM)
            continue; // its label would be cut
        fill(canvas, {place, edge, 1, MARK_LENGTH}, ColorRole::grey);
        const Rect label{place - MARK_ROOM / 2, edge + MARK_LENGTH, MARK_ROOM, picture.axis_height - MARK_LENGTH};
        canvas.text(text, label, {.size = LABEL_SIZE, .color = ColorRole::text});
    }
    fill(canvas, {scale.place_of(0), field.y, 1, field.height}, Ink(ColorRole::grey, 0.7));
}

void draw_row(Canvas& canvas, const IntervalPicture& picture, const IntervalRow& row, const IntervalScale& scale) {
    const Rect field = field_of(picture);
    const double half = BAR_SHARE * picture.row_height / 2;
    if (!row.interval)
        return;
    const Rect bar = box_of(*row.interval, row.middle - half, row.middle + half, scale, field);
    const Ink ink = row.kind == IntervalRow::Kind::refused ? ColorRole::red
                    : row.kind == IntervalRow::Kind::used  ? ColorRole::blue
                                                           : ColorRole::grey;
    if (row.kind == IntervalRow::Kind::used)
        fill(canvas, bar, ink);
    else
        draw_outline(canvas, bar, ink);
    if (!row.measured || bar.width < 3 * LEAST_WIDTH)
        return;
    const Ink mark = row.kind == IntervalRow::Kind::used ? Ink(ColorRole::text_background) : ink;
    fill(canvas, {scale.place_of(*row.measured) - 0.5, bar.y, 1, bar.height}, mark);
}

void draw_chosen(Canvas& canvas, const IntervalPicture& picture, const Rect& field) {
    for (const IntervalRow& row : picture.rows) {
        const double bottom = std::max(row.middle - picture.row_height / 2, field.y);
        const double top = std::min(row.middle + picture.row_height / 2, upper_edge(field));
        if (row.is_chosen)
            fill(canvas, {field.x, bottom, field.width, top - bottom}, Ink(ColorRole::blue, CHOSEN));
    }
}

void draw_foot(Canvas& canvas, const IntervalPicture& picture) {
    const double middle = picture.bounds.y + picture.foot_height / 2;
    const double height = 2 * TEXT_MIDDLE * LABEL_SIZE;
    drawLabel(canvas, picture.below, LABEL_SIZE, ColorRole::grey, picture.bounds.x + TEXT_GAP, middle, 1);
    canvas.text(picture.above, {picture.bounds.x, middle - height / 2, picture.bounds.width - TEXT_GAP, height},
                {.size = LABEL_SIZE, .color = ColorRole::grey, .align = TextAlign::right});
}

} // namespace

void draw_intervals(Canvas& canvas, const IntervalPicture& picture, const IntervalScale& scale) {
    const Rect field = field_of(picture);
    canvas.fill_rects(std::span(&picture.bounds, 1), ColorRole::text_background);
    draw_chosen(canvas, picture, field);
    if (picture.shared)
        fill(canvas, box_of(*picture.shared, field.y, upper_edge(field), scale, field), Ink(ColorRole::blue, SHARED));
    draw_axis(canvas, picture, scale, field);
    for (const IntervalRow& row : picture.rows)
        draw_row(canvas, picture, row, scale);
    draw_foot(canvas, picture);
}

} // namespace tickervantage
