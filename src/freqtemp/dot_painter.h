// Squares around many points, each shade of their overlaps as if they were painted one over the other.
//
// Few squares go to the canvas one by one. Of many, how often each pixel is covered is counted first (three times is as
// good as covered for a colour that lets a quarter through), and runs of pixels go to the canvas.
#pragma once

#include "platform/canvas.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tickervantage {

class DotPainter {
public:
    // Squares are cut off at the area. `expected`: how many squares will come.
    DotPainter(Rect area, double pixel, double side, std::size_t expected);

    // A square around the point, painted `times` over.
    void add(Point center, unsigned times);

    void paint(Canvas& canvas, const Ink& ink);

private:
    void spread_along_rows();
    void spread_along_columns();
    void add_row(std::uint8_t* counts, const std::uint8_t* others) const;
    void limit_row(std::uint8_t* counts) const;
    void find_runs(std::size_t row, unsigned level, std::vector<Rect>& runs) const;
    [[nodiscard]] std::vector<Rect> boxes(unsigned level) const;

    Rect m_area;
    double m_pixel;
    double m_side;
    std::size_t m_reach; // pixels of a square's side
    std::size_t m_width = 0;
    std::size_t m_height = 0;
    bool m_is_cloud = false;
    std::vector<Rect> m_boxes;          // of few
    std::vector<std::uint8_t> m_counts; // of many: by pixel, a border of one square around the area
};

} // namespace tickervantage
