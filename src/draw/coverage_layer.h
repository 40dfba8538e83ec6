// Many thin lines and boxes at once: quick where a painter that takes each by itself is slow.
//
// The lines of one colour cover it once, however often they cross, so that a translucent line has the same strength
// everywhere; each colour lies over those before. Everything is kept until paint(), which goes through the picture in
// upright stripes: in one all colours meet the same few pixels, while those are at hand. Coordinates in pixels, y DOWN
// from the upper left corner; what lies outside is cut off. One thread.
#pragma once

#include "base/color.h"
#include "draw/canvas.h"
#include "draw/coverage_brush.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tickervantage {

class CoverageLayer {
public:
    // Empty afterwards. Memory is kept, for the next frame.
    void resize(int width, int height);

    void use(const Color& color);                           // for all that is added next
    void add_line(Point from, Point to, double line_width); // smooth, ends cut off square

    // `y` is the upper edge. At least a pixel each way; sides on whole pixels, the other two edges smooth. What lies
    // under an opaque box that hides every pixel, be it in part at the edges, is forgotten, and never read.
    void add_box(Rect box);

    // A box a pixel wide for each span. Column 0 is the pixel column `first`; heights are counted up from `zero`, in
    // units of `scale` pixels.
    void add_columns(std::span<const ColumnSpan> spans, int first, double zero, double scale);

    // Empty afterwards.
    void paint(const PixelRows& target);

private:
    struct Piece {
        float left = 0; // of a line: where it begins and ends
        float top = 0;
        float right = 0;
        float bottom = 0;
        float line_width = 0; // 0: a box
        std::uint32_t brush = 0;
    };

    struct Rows {
        int first = 0;
        int end = 0;
    };

    void add(const Piece& piece, int left, int right);
    Rows fill_untouched(const PixelRows& target);
    [[nodiscard]] bool hides_all(int left, int right, double top, double bottom) const;
    void paint_stripe(int left, const std::vector<Piece>& pieces, const PixelRows& pixels);
    void paint_anew(int left, const std::vector<Piece>& pieces, Rows rows, const PixelRows& target);
    void paint_box(const Piece& box, int stripe_left, const PixelRows& target) const;
    [[nodiscard]] std::uint32_t brush() const { return static_cast<std::uint32_t>(m_brushes.size() - 1); }

    int m_width = 0;
    int m_height = 0;
    std::vector<CoverageBrush> m_brushes;
    std::vector<std::vector<Piece>> m_stripes;
    CoverageTile m_tile;                       // the lines of one colour in one stripe
    std::optional<std::uint32_t> m_background; // of all pixels, before the first piece
    std::vector<std::uint32_t> m_background_row;
    std::vector<std::uint32_t> m_fresh; // a stripe of it, until it is painted
};

} // namespace tickervantage
