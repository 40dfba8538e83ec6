#include "studies/freqtemp/cell_painter.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tickervantage {
namespace {

constexpr double NEAR = 4096; // pixels; a line that ends farther away is cut off before it is counted

} // namespace

void CellPainter::begin(const PixelBox& cell, const PixelRows& all) {
    m_cell = cell;
    m_rows = {all.first + cell.top * all.stride + cell.left, all.stride};
    m_tile.resize(cell.width(), cell.height());
}

void CellPainter::add_line(const PlotPiece& line, double width, const CoverageBrush& brush) {
    if (line.kind != PlotPiece::Kind::curve || line.is_steep()) {
        count_line(line, width);
        return;
    }
    const Segment middle{line.from.pixels(), line.to.pixels()};
    const double slope = (middle.to.y - middle.from.y) / (middle.to.x - middle.from.x);
    const double half = width / 2 * std::sqrt(1 + slope * slope);
    const auto moved = [&middle](double by) {
        return Segment{{middle.from.x, middle.from.y + by}, {middle.to.x, middle.to.y + by}};
    };
    fill_between(moved(-half), moved(half), brush);
}

void CellPainter::count_line(const PlotPiece& line, double width) {
    const auto here = [this](Spot spot) {
        const Point at = spot.pixels();
        return Point{at.x - m_cell.left, at.y - m_cell.top};
    };
    const Segment whole{here(line.from), here(line.to)};
    const bool is_near =
        std::max({std::abs(whole.from.x), std::abs(whole.from.y), std::abs(whole.to.x), std::abs(whole.to.y)}) < NEAR;
    const auto near = is_near ? std::optional(whole) : clipped(whole, {-NEAR, -NEAR, 2 * NEAR, 2 * NEAR});
    if (near)
        m_tile.add_line(near->from, near->to, static_cast<float>(width));
}

void CellPainter::finish(const CoverageBrush& brush) {
    m_tile.paint(brush, m_rows);
}

void CellPainter::fill_band(const PlotPiece& band, const CoverageBrush& brush) {
    fill_between({band.from.pixels(), band.to.pixels()}, {band.lower_from.pixels(), band.lower_to.pixels()}, brush);
}

// In each column of pixels whose middle they pass, from the upper line to the lower one, which stand over each other.
void CellPainter::fill_between(Segment upper, Segment lower, const CoverageBrush& brush) {
    const auto column = [this](double x) {
        return static_cast<int>(std::clamp(x - m_cell.left, 0.0, static_cast<double>(m_cell.width())) + 0.5);
    };
    const auto row = [this](double y) {
        return static_cast<float>(std::clamp(y - m_cell.top, 0.0, static_cast<double>(m_cell.height())));
    };
    const double width = upper.to.x - upper.from.x;
    const int end = column(upper.to.x);
    for (int at = column(upper.from.x); at < end; ++at) {
        const double share = (m_cell.left + at + 0.5 - upper.from.x) / width;
        const float top = row(upper.from.y + (upper.to.y - upper.from.y) * share);
        const float bottom = row(lower.from.y + (lower.to.y - lower.from.y) * share);
        if (top < bottom)
            brush.fill(m_rows, at, at + 1, top, bottom);
    }
}

// Calls use(pixel, how far its middle is from the centre) for those from `nearest` to `reach`.
template <class Use>
void CellPainter::for_each_pixel(Spot center, double nearest, double reach, const Use& use) const {
    const Point middle = center.pixels();
    const auto within = [](double at, int from, int end) {
        return static_cast<int>(std::clamp(at, static_cast<double>(from), static_cast<double>(end)));
    };
    const int left = within(middle.x - reach, m_cell.left, m_cell.right);
    const int right = within(middle.x + reach + 1, m_cell.left, m_cell.right);
    const int bottom = within(middle.y + reach + 1, m_cell.top, m_cell.bottom);
    for (int y = within(middle.y - reach, m_cell.top, m_cell.bottom); y < bottom; ++y)
        for (int x = left; x < right; ++x) {
            const double across = x + 0.5 - middle.x;
            const double down = y + 0.5 - middle.y;
            const double away = across * across + down * down;
            if (away >= nearest * nearest && away <= reach * reach)
                use(m_rows.first + (y - m_cell.top) * m_rows.stride + (x - m_cell.left), std::sqrt(away));
        }
}

void CellPainter::lay(std::uint32_t* pixel, double covered, const CoverageBrush& brush) {
    constexpr double full = 255;
    if (covered > 0)
        brush.lay(static_cast<std::uint64_t>(std::min(covered, 1.0) * full + 0.5), pixel);
}

void CellPainter::fill_disc(Spot center, double diameter, const CoverageBrush& brush) {
    const double radius = diameter / 2;
    for_each_pixel(center, 0, radius + 0.5,
                   [&](std::uint32_t* pixel, double distance) { lay(pixel, radius + 0.5 - distance, brush); });
}

void CellPainter::stroke_circle(Spot center, double diameter, const Strokes& strokes) {
    const double radius = diameter / 2;
    const double around = strokes.front().first / 2 + 0.5;
    for_each_pixel(center, std::max(0.0, radius - around), radius + around, [&](std::uint32_t* pixel, double distance) {
        for (const auto& [width, brush] : strokes)
            lay(pixel, std::min(width / 2 + 0.5 - std::abs(distance - radius), width), *brush);
    });
}

} // namespace tickervantage
