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

// `share`: how much of a pixel is covered, by the distance of its middle from the centre, which is from `nearest` to
// `reach`.
template <class Share>
void CellPainter::lay(Spot center, double nearest, double reach, const CoverageBrush& brush, const Share& share) {
    constexpr double full = 255;
    const Point middle = center.pixels();
    const auto first = [reach](double at, int from, int end) {
        return static_cast<int>(std::clamp(at - reach, static_cast<double>(from), static_cast<double>(end)));
    };
    const auto last = [reach](double at, int from, int end) {
        return static_cast<int>(std::clamp(at + reach + 1, static_cast<double>(from), static_cast<double>(end)));
    };
    for (int y = first(middle.y, m_cell.top, m_cell.bottom); y < last(middle.y, m_cell.top, m_cell.bottom); ++y)
        for (int x = first(middle.x, m_cell.left, m_cell.right); x < last(middle.x, m_cell.left, m_cell.right); ++x) {
            const double across = x + 0.5 - middle.x;
            const double down = y + 0.5 - middle.y;
            const double away = across * across + down * down;
            if (away < nearest * nearest || away > reach * reach)
                continue;
            const double covered = std::clamp(share(std::sqrt(away)), 0.0, 1.0);
            brush.lay(static_cast<std::uint64_t>(covered * full + 0.5),
                      m_rows.first + (y - m_cell.top) * m_rows.stride + (x - m_cell.left));
        }
}

void CellPainter::fill_disc(Spot center, double diameter, const CoverageBrush& brush) {
    const double radius = diameter / 2;
    lay(center, 0, radius + 1, brush, [radius](double distance) { return radius + 0.5 - distance; });
}

void CellPainter::stroke_circle(Spot center, double diameter, double width, const CoverageBrush& brush) {
    const double radius = diameter / 2;
    const double half = width / 2;
    lay(center, std::max(0.0, radius - half - 1), radius + half + 1, brush,
        [=](double distance) { return std::min(half + 0.5 - std::abs(distance - radius), width); });
}

} // namespace tickervantage
