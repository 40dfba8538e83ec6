// What instruments and graphs draw on: a screen, a picture file, or a test that reads what was drawn.
//
// Lengths are points (one pixel on a screen of ordinary density), x to the right, y UP from the lower left corner.
// Angles in radians, counter-clockwise from the positive x axis. Colours are named by role; the canvas knows what they
// are in the light or dark palette at hand. Drawing is immediate and leaves nothing behind in the canvas.
#pragma once

#include "base/color.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
    double x = 0; // lower left corner
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] Point center() const { return {x + width / 2, y + height / 2}; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

enum class ColorRole : unsigned char { text, text_background, blue, red, grey };
enum class FillRule : unsigned char { nonzero, even_odd };
enum class Shadow : unsigned char { none, soft }; // soft: a blur around the stroke, without an offset
enum class TextAlign : unsigned char { left, right, center };

// A role's colour, or a colour of the user's own; either made fainter by `opacity` (1: as it is).
struct Ink {
    ColorRole role = ColorRole::text;
    std::optional<Color> own; // instead of the role's
    double opacity = 1;

    Ink() = default;
    Ink(ColorRole from_role, double with_opacity = 1) : role(from_role), opacity(with_opacity) {}
    Ink(const Color& color, double with_opacity = 1) : own(color), opacity(with_opacity) {}

    [[nodiscard]] Ink faded(double by) const {
        Ink result = *this;
        result.opacity *= by;
        return result;
    }
    friend bool operator==(const Ink&, const Ink&) = default;
};

// How far a line reaches up and down within a column of pixels.
struct ColumnSpan {
    std::int64_t column = 0;
    double low = 0;
    double high = 0;
};

struct LineStyle {
    Ink ink;
    double width = 1;
    std::vector<double> dash = {}; // points drawn, points left out, and so on from each line's start; empty: solid
};

// A list of lines and closed shapes, in the order they were added.
struct Path {
    struct Element {
        enum class Kind : unsigned char { line, ellipse, rounded_rect };
        Kind kind = Kind::line;
        Point from;   // line
        Point to;     // line
        Rect rect;    // ellipse: the box it fills; rounded_rect: the box
        Point radius; // rounded_rect: horizontal and vertical corner radius
        friend bool operator==(const Element&, const Element&) = default;
    };
    std::vector<Element> elements;

    void add_line(Point from, Point to);
    void add_ellipse(Rect box);
    void add_rounded_rect(Rect box, double radius_x, double radius_y);
};

// The middle of a text's capitals and figures lies this many times its size below its box's upper edge, whatever the
// font's own ascent, so that labels sit in the same place with every font.
inline constexpr double TEXT_MIDDLE = 0.7;

struct TextStyle {
    double size = 10.0; // points
    Ink color = {};
    TextAlign align = TextAlign::center;
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

struct CanvasPixels;

class Canvas {
public:
    virtual ~Canvas() = default;

    virtual void fill(const Path& path, ColorRole color, FillRule rule) = 0;
    virtual void stroke(const Path& path, ColorRole color, double width, Shadow shadow) = 0;
    virtual void stroke(const Path& path, const LineStyle& style) = 0;

    // One line through all the points, solid. Quick where it is one pixel wide; for thousands of points at most, which
    // the caller has cut off near what is in sight: painters lose lines that go far beyond it.
    virtual void polyline(std::span<const Point> points, const Ink& ink, double width) = 0;

    // Filled boxes with edges on whole pixels, quick in any number. On a layer their upper and lower edges are smooth.
    virtual void fill_rects(std::span<const Rect> boxes, const Ink& ink) = 0;

    // An upright box a column wide for each span. Column 0 begins at the origin, and heights count from there. As
    // fill_rects, but quicker on a layer whose columns are pixels.
    virtual void fill_columns(Point origin, double column_width, std::span<const ColumnSpan> spans, const Ink& ink);

    // The closed shape with these corners, filled, its edges smooth; on a layer those that are not upright. Edges do
    // not cross.
    virtual void fill_polygon(std::span<const Point> corners, const Ink& ink) = 0;

    // Polylines, boxes, and upright and level lines between the two may be put on the canvas together, at the end:
    // quick for thousands of them. `area` is all that they cover. Nothing else may be drawn in between. A box that
    // fills all of the area with an opaque colour is a good beginning: then nothing needs to be read from the canvas.
    virtual void begin_layer(Rect /*area*/) {}
    virtual void end_layer() {}

    // The pixels of `area`, to lay colours over; none on a canvas that has no pixels at hand. After an answer nothing
    // else may be drawn until end_pixels().
    [[nodiscard]] virtual std::optional<CanvasPixels> begin_pixels(Rect area);
    virtual void end_pixels() {}

    // The colour in which a line of somebody's own colour can be told from this canvas's background, laid on with the
    // colour's alpha: itself where that will do, else lighter or darker, of the same hue.
    [[nodiscard]] virtual Color readable(const Color& line) const { return line; }

    // The width of one column of pixels in points: finer detail than this cannot be seen.
    [[nodiscard]] virtual double pixel() const = 0;

    // One line of UTF-8 text, aligned in the box from left to right, hanging from the box's upper edge (TEXT_MIDDLE).
    // Text that is wider than the box is drawn over its edges, not cut.
    virtual void text(std::string_view text, Rect box, const TextStyle& style) = 0;
};

// The point at `radius` from `center` in direction `angle`.
[[nodiscard]] Point polar(Point center, double radius, double angle);

} // namespace tickervantage
