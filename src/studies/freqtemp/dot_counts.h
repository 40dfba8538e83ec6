// How often each pixel of a picture is covered by squares around very many points.
//
// All squares of one colour are counted before any is painted, so that a pixel is painted once. In pixels, y DOWN from
// the picture's upper left corner. Memory is kept for the next colour. One thread.
#pragma once

#include "base/color.h"
#include "draw/coverage_brush.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tickervantage {

// Pixels from the left and the upper edge to before the right and the lower one.
struct PixelBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] int width() const { return right - left; }
    [[nodiscard]] int height() const { return bottom - top; }
    friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

// What both boxes have; without width or height where that is nothing.
[[nodiscard]] PixelBox common(const PixelBox& one, const PixelBox& other);

// What comes of laying a colour over something as many times.
struct DotShades {
    struct Shade {
        std::uint32_t source = 0; // multiplied by its alpha
        std::uint32_t rest = 255; // how much is left of what was there
    };
    std::array<Shade, 9> by_count; // the last: as often, or more

    explicit DotShades(const Color& color);
};

class DotCounts {
public:
    // More squares over a pixel than this make no difference: a colour that lets a quarter through is as good as solid
    // after half as many.
    static constexpr unsigned FULL = 8;

    // `side`: of the squares, 1 or more.
    DotCounts(int width, int height, int side);

    // Of a square's upper left pixel, both counted from as far outside the picture as a square is wide.
    struct Corner {
        int column = 0;
        int row = 0;
    };
    // Where the square around the point lies; none where all of it is outside. Any place.
    [[nodiscard]] std::optional<Corner> corner(double x, double y) const {
        const double shift = m_side - m_side / 2.0 + 0.5; // from the middle to the corner, to be rounded down
        const double column = x + shift;
        const double row = y + shift;
        if (!(column >= 0 && row >= 0 && column < m_width + m_side && row < m_height + m_side))
            return std::nullopt;
        return Corner{static_cast<int>(column), static_cast<int>(row)};
    }

    // The pixels of the square, also those outside.
    [[nodiscard]] PixelBox box(Corner corner) const {
        return {corner.column - m_side, corner.row - m_side, corner.column, corner.row};
    }

    // A square painted `times` over, more than 6 times as 7; what lies outside is cut off.
    void add(Corner corner, unsigned times);
    void add(double x, double y, unsigned times) {
        if (const auto at = corner(x, y))
            add(*at, times);
    }
    void erase(Corner corner); // nothing is counted there any more

    // Lays the colour over the box's pixels as far as they lie within the limits, each square over those before it.
    // Nothing is counted in the box afterwards. Both lie in the picture.
    void paint(const PixelBox& box, const PixelBox& limits, const DotShades& shades, const PixelRows& pixels);

    struct Box {
        int left = 0;
        int top = 0;
        int width = 0;
        int height = 0;
    };
    // All pixels that are covered `level` times or more.
    [[nodiscard]] std::vector<Box> boxes(unsigned level) const;

private:
    void find_runs(int row, unsigned level, std::vector<Box>& runs) const;
    [[nodiscard]] std::size_t place(int row) const; // of its leftmost pixel

    int m_width;
    int m_height;
    int m_side;
    std::size_t m_stride; // bytes; a border of one square around the picture, and room to write eight at a time
    std::vector<std::uint64_t> m_square_row; // 1 for each pixel, eight together
    std::vector<std::uint8_t> m_counts;
};

} // namespace tickervantage
