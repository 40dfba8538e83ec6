// One colour, laid over pixels as densely as they are covered: 0 not at all, 255 wholly.
//
// Pixels are 0xAARRGGBB, their colours multiplied by alpha. A plain value; any thread.
#pragma once

#include "base/color.h"
#include "draw/canvas.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tickervantage {

// Somebody's pixels, row after row; at least as many as what is painted on them has.
struct PixelRows {
    std::uint32_t* first = nullptr;
    std::ptrdiff_t stride = 0; // pixels from one row to the next
};

// All four channels of a pixel times share / 255. Inline, like what calls it, because a frame does it ten thousand
// times.
[[nodiscard]] inline std::uint32_t scaled_pixel(std::uint32_t pixel, std::uint32_t share) {
    const auto halves = [share](std::uint32_t two) { // two channels, 16 bits apart
        const std::uint32_t product = two * share + 0x0080'0080;
        return ((product + ((product >> 8) & 0x00FF'00FF)) >> 8) & 0x00FF'00FF;
    };
    return halves(pixel & 0x00FF'00FF) | (halves((pixel >> 8) & 0x00FF'00FF) << 8);
}

// What is seen when one pixel is laid over another.
[[nodiscard]] inline std::uint32_t laid_over(std::uint32_t source, std::uint32_t pixel) {
    return source + scaled_pixel(pixel, 255 - (source >> 24));
}

class CoverageBrush {
public:
    explicit CoverageBrush(const Color& color);

    // A box, all of it inside: sides on whole pixels, its first and last row covered as far as it reaches into them.
    void fill(const PixelRows& pixels, int left, int right, float top, float bottom) const;

    // Neighbouring pixels, covered wholly.
    void fill_row(std::uint32_t* pixels, std::ptrdiff_t count) const;

    // None when what is painted over would still be seen.
    [[nodiscard]] std::optional<std::uint32_t> opaque_pixel() const;

    // Eight pixels, the first one's coverage in the lowest bits. Those that are not covered are not touched.
    void lay(std::uint64_t coverage, std::uint32_t* pixels) const;

private:
    std::uint32_t* lay_all(std::uint32_t* pixel, std::ptrdiff_t step, std::ptrdiff_t count) const; // the one after
    void fill_column(std::uint32_t* pixel, std::ptrdiff_t stride, float top, float bottom) const;
    void lay_one(std::uint32_t& pixel, float coverage) const;

    std::array<std::uint32_t, 256> m_by_coverage{};
};

// How densely each pixel of a part of a picture is covered by lines, until a colour is laid over them.
//
// Coordinates in pixels, y DOWN from the tile's upper left corner; what lies outside is cut off. One thread.
class CoverageTile {
public:
    // Nothing is covered afterwards. Memory is kept.
    void resize(int width, int height);

    void add_line(Point from, Point to, float line_width); // smooth, ends cut off square

    // Nothing is covered afterwards.
    void paint(const CoverageBrush& brush, const PixelRows& target);

private:
    void cover(int row, float left, float right, float weight);
    void cover_column(int column, float top, float bottom, float weight);
    void touch(int first_row, int end_row);
    [[nodiscard]] std::uint8_t* row_at(int row) { return m_coverage.data() + row * m_stride; }

    int m_width = 0;
    int m_height = 0;
    std::ptrdiff_t m_stride = 0; // bytes; a whole number of eights
    int m_first_covered = 0;
    int m_end_covered = 0;
    std::vector<std::uint8_t> m_coverage;
};

} // namespace tickervantage
