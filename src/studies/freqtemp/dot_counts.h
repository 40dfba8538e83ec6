// How often each pixel of a picture is covered by squares around very many points.
//
// All squares of one colour are counted before any is painted, so that a pixel is painted once. In pixels, y DOWN from
// the picture's upper left corner. Memory is kept for the next colour. One thread.
#pragma once

#include "base/color.h"
#include "draw/coverage_brush.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tickervantage {

class DotCounts {
public:
    // More squares over a pixel than this make no difference: a colour that lets a quarter through is as good as solid
    // after half as many.
    static constexpr unsigned FULL = 8;

    // `side`: of the squares, 1 or more.
    DotCounts(int width, int height, int side);

    // A square around the point, painted `times` over, more than 6 times as 7; what lies outside is cut off. Any place.
    void add(double x, double y, unsigned times);

    // Lays the colour over the pixels, each square over those before it. Nothing is counted afterwards.
    void paint(const Color& color, const PixelRows& pixels);

    struct Box {
        int left = 0;
        int top = 0;
        int width = 0;
        int height = 0;
    };
    // All pixels that are covered `level` times or more.
    [[nodiscard]] std::vector<Box> boxes(unsigned level) const;

private:
    void cover(std::uint8_t* corner, unsigned times);
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
