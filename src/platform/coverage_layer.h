// A transparent picture for many thin lines: quick where a painter that takes each line by itself is slow.
//
// What is added covers pixels, each at most once however often lines cross; paint() then lays one colour over what is
// covered, so that a translucent line has the same strength everywhere. Coordinates in pixels, y DOWN from the upper
// left corner; what lies outside is cut off. One thread.
#pragma once

#include "platform/canvas.h"
#include "platform/color.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tickervantage {

class CoverageLayer {
public:
    CoverageLayer(int width, int height);

    void add_line(Point from, Point to, double line_width); // smooth, ends cut off square
    void add_box(Rect box);                                 // at least a pixel each way, edges on whole pixels

    void paint(const Color& color);

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }

    // Rows [first, end) that have been painted on.
    [[nodiscard]] int first_row() const { return m_first_painted; }
    [[nodiscard]] int end_row() const { return m_end_painted; }

    // 0xAARRGGBB, colours multiplied by alpha, row after row.
    [[nodiscard]] const std::uint32_t* pixels() const { return m_pixels.data(); }

private:
    void cover(int row, float left, float right, float weight);
    void cover_column(int column, float top, float bottom, float weight);
    void touch(int first_row, int end_row);

    int m_width;
    int m_height;
    int m_first_covered;
    int m_end_covered = 0;
    int m_first_painted;
    int m_end_painted = 0;
    std::vector<std::uint8_t> m_coverage;
    std::vector<std::uint32_t> m_pixels;
};

} // namespace tickervantage
