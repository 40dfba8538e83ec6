// How densely each pixel of a part of a picture is covered by lines, until a colour is laid over them.
//
// Coordinates in pixels, y DOWN from the tile's upper left corner; what lies outside is cut off. One thread.
#pragma once

#include "draw/canvas.h"
#include "draw/coverage_brush.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tickervantage {

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
