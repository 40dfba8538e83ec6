#include "freqtemp/dot_painter.h"

#include "freqtemp/clipping.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr std::uint8_t FULL = 3;
constexpr double LARGEST_GRID = 64e6; // pixels
constexpr std::size_t FEW = 2500;
constexpr std::size_t CLOUD = 10'000;

// How many pixels lie between; 0 for anything that is no sensible length.
std::size_t pixels(double length, double pixel) {
    const double count = std::ceil(length / pixel);
    return count > 0 && count < LARGEST_GRID ? static_cast<std::size_t>(count) : 0;
}

} // namespace

DotPainter::DotPainter(Rect area, double pixel, double side, std::size_t expected)
    : m_area(area), m_pixel(pixel), m_side(side),
      m_reach(std::max<std::size_t>(1, static_cast<std::size_t>(std::lround(side / pixel)))) {
    if (expected <= FEW)
        return;
    m_is_cloud = expected > CLOUD;
    m_width = pixels(area.width, pixel) + m_reach;
    m_height = pixels(area.height, pixel) + m_reach;
    if (static_cast<double>(m_width) * static_cast<double>(m_height) < LARGEST_GRID)
        m_counts.resize(m_width * m_height);
}

// In the grid a square is kept by its lower left pixel.
void DotPainter::add(Point center, unsigned times) {
    if (m_counts.empty()) {
        const Rect square{center.x - m_side / 2, center.y - m_side / 2, m_side, m_side};
        if (const auto box = clipped_box(square, m_area))
            m_boxes.insert(m_boxes.end(), times, *box);
        return;
    }
    const double reach = static_cast<double>(m_reach);
    const double column = std::floor((center.x - m_side / 2 - m_area.x) / m_pixel + 0.5) + reach;
    const double row = std::floor((center.y - m_side / 2 - m_area.y) / m_pixel + 0.5) + reach;
    if (!(column >= 0 && row >= 0 && column < static_cast<double>(m_width) && row < static_cast<double>(m_height)))
        return;
    auto& count = m_counts[static_cast<std::size_t>(row) * m_width + static_cast<std::size_t>(column)];
    count = static_cast<std::uint8_t>(std::min<unsigned>(FULL, count + times));
}

// Every count becomes the sum of those of the squares that begin up to `reach` pixels to the left, itself included.
void DotPainter::spread_along_rows() {
    std::vector<std::uint8_t> squares(m_width);
    for (std::size_t row = 0; row < m_height; ++row) {
        std::uint8_t* counts = m_counts.data() + row * m_width;
        std::copy_n(counts, m_width, squares.begin());
        for (std::size_t back = 1; back < m_reach; ++back)
            add_row(counts, squares.data() - back);
        limit_row(counts);
    }
}

void DotPainter::spread_along_columns() {
    for (std::size_t row = m_height; row-- > m_reach;) { // from above: rows below are still as they were
        std::uint8_t* counts = m_counts.data() + row * m_width;
        for (std::size_t back = 1; back < m_reach; ++back)
            add_row(counts, counts - back * m_width);
        limit_row(counts);
    }
}

void DotPainter::add_row(std::uint8_t* counts, const std::uint8_t* others) const {
    for (std::size_t column = m_reach; column < m_width; ++column)
        counts[column] = static_cast<std::uint8_t>(counts[column] + others[column]);
}

void DotPainter::limit_row(std::uint8_t* counts) const {
    for (std::size_t column = m_reach; column < m_width; ++column)
        counts[column] = std::min(FULL, counts[column]);
}

// The runs of one row's pixels that are covered `level` times or more.
void DotPainter::find_runs(std::size_t row, unsigned level, std::vector<Rect>& runs) const {
    runs.clear();
    const std::uint8_t* counts = m_counts.data() + row * m_width;
    const double y = m_area.y + static_cast<double>(row - m_reach) * m_pixel;
    const auto is_covered = [=](std::uint8_t count) {
        return count >= level;
    };
    const std::uint8_t* end = counts + m_width;
    for (const std::uint8_t* at = counts + m_reach; at != end;) {
        const std::uint8_t* first = std::find_if(at, end, is_covered);
        at = std::find_if_not(first, end, is_covered);
        if (first != end)
            runs.push_back(
                {m_area.x + static_cast<double>(first - counts - static_cast<std::ptrdiff_t>(m_reach)) * m_pixel, y,
                 static_cast<double>(at - first) * m_pixel, m_pixel});
    }
}

// All runs of the level, equal ones of neighbouring rows as one box.
std::vector<Rect> DotPainter::boxes(unsigned level) const {
    std::vector<Rect> done;
    std::vector<Rect> open; // those that reach up to the row, from the left
    std::vector<Rect> runs;
    for (std::size_t row = m_reach; row < m_height; ++row) {
        find_runs(row, level, runs);
        auto below = open.begin();
        for (auto& run : runs) {
            const auto from = below;
            below = std::find_if(below, open.end(), [&run](const Rect& box) { return box.x >= run.x; });
            done.insert(done.end(), from, below);
            if (below != open.end() && below->x == run.x && below->width == run.width) {
                run = {run.x, below->y, run.width, below->height + m_pixel};
                ++below;
            }
        }
        done.insert(done.end(), below, open.end());
        open.swap(runs);
    }
    done.insert(done.end(), open.begin(), open.end());
    return done;
}

void DotPainter::paint(Canvas& canvas, const Ink& ink) {
    if (m_counts.empty()) {
        canvas.fill_rects(m_boxes, ink);
        return;
    }
    spread_along_rows();
    spread_along_columns();
    // In a cloud of very many squares the shades of its edge are not worth three times the work.
    const unsigned levels = m_is_cloud ? 1 : FULL;
    for (unsigned level = 1; level <= levels; ++level)
        canvas.fill_rects(boxes(level), ink);
}

} // namespace tickervantage
