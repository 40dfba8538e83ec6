// Many thin lines and boxes at once: quick where a painter that takes each by itself is slow.
//
// The lines of one colour cover it once, however often they cross, so that a translucent line has the same strength
// everywhere; each colour lies over those before. Everything is kept until paint(), which goes through the picture in
// upright stripes: in one all colours meet the same few pixels, while those are at hand. Coordinates in pixels, y DOWN
// from the upper left corner; what lies outside is cut off. One thread.
#pragma once

#include "platform/canvas.h"
#include "platform/color.h"
#include "platform/coverage_brush.h"
#include "platform/coverage_tile.h"

#include <cstdint>
#include <vector>

namespace tickervantage {

class CoverageLayer {
public:
    // Empty afterwards. Memory is kept, for the next frame.
    void resize(int width, int height);

    void use(const Color& color);                           // for all that is added next
    void add_line(Point from, Point to, double line_width); // smooth, ends cut off square

    // `y` is the upper edge. At least a pixel each way; sides on whole pixels, the other two edges smooth.
    void add_box(Rect box);

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

    void add(const Piece& piece, int left, int right);
    void paint_stripe(int left, const std::vector<Piece>& pieces, const PixelRows& target);
    void paint_box(const Piece& box, int stripe_left, const PixelRows& target) const;
    [[nodiscard]] std::uint32_t brush() const { return static_cast<std::uint32_t>(m_brushes.size() - 1); }

    int m_width = 0;
    int m_height = 0;
    std::vector<CoverageBrush> m_brushes;
    std::vector<std::vector<Piece>> m_stripes;
    CoverageTile m_tile; // the lines of one colour in one stripe
};

} // namespace tickervantage
