// Paints the pieces of a plot into one cell of it.
//
// Smooth edges are counted by the cell, so that a piece looks the same whatever is painted besides it. Memory is kept.
// One thread.
#pragma once

#include "draw/coverage_brush.h"
#include "draw/graph_geometry.h"
#include "studies/freqtemp/plot_pieces.h"

#include <array>
#include <cstdint>
#include <utility>

namespace tickervantage {

class CellPainter {
public:
    // Of what is painted next: its pixels, which are a part of `all`. What was covered before is forgotten.
    void begin(const PixelBox& cell, const PixelRows& all);

    // A line. What is steep, and what is part of a mean's line, is counted until finish() lays it down with that brush,
    // once where pieces meet; the others are pieces of a curve, which goes on to the right where they end.
    void add_line(const PlotPiece& line, double width, const CoverageBrush& brush);
    void finish(const CoverageBrush& brush);

    void fill_band(const PlotPiece& band, const CoverageBrush& brush);
    void fill_disc(Spot center, double diameter, const CoverageBrush& brush);

    // With strokes of these widths over each other, the widest first.
    using Strokes = std::array<std::pair<double, const CoverageBrush*>, 2>;
    void stroke_circle(Spot center, double diameter, const Strokes& strokes);

private:
    void count_line(const PlotPiece& line, double width);
    void fill_between(Segment upper, Segment lower, const CoverageBrush& brush);
    template <class Use>
    void for_each_pixel(Spot center, double nearest, double reach, const Use& use) const;
    static void lay(std::uint32_t* pixel, double covered, const CoverageBrush& brush);

    PixelBox m_cell;
    PixelRows m_rows; // from the cell's first pixel on
    CoverageTile m_tile;
};

} // namespace tickervantage
