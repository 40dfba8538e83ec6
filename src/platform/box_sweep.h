// Boxes of a few colours over one background, painted from the uppermost row down: each pixel is written once.
//
// Where boxes cover pixels wholly there are no more colours than sets of brushes. All of them are mixed beforehand, and
// a column's colour changes only in the rows where a box begins or ends. Pixels that a box covers in part, at its upper
// or lower edge, are mixed one by one. Coordinates in pixels, y DOWN. One thread.
#pragma once

#include "platform/coverage_brush.h"
#include "platform/row_lists.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tickervantage {

class BoxSweep {
public:
    static constexpr std::size_t MOST_BRUSHES = 10;

    // Without boxes afterwards. The brushes, MOST_BRUSHES at most, lie upon each other in their order; they are read
    // until paint() is done. Memory is kept, for the next picture.
    void begin(std::span<const CoverageBrush> brushes, std::uint32_t background, int width, int height);

    // All of it within the picture, with sides on whole pixels. False when the brush has a box in one of the columns
    // already: then this is not the way to paint them.
    [[nodiscard]] bool add_box(std::size_t brush, int left, int right, float top, float bottom);

    // Those rows, in which all the boxes lie.
    void paint(int first_row, int end_row, const PixelRows& target);

private:
    using BrushSet = std::uint16_t; // a bit for each

    struct Edge { // the rows from here on are covered by the brush, or are no longer
        std::uint16_t column = 0;
        BrushSet brush = 0;
    };

    struct PartlyCovered {
        std::uint16_t column = 0;
        std::uint8_t brush = 0;
        std::uint8_t coverage = 0;
    };

    void mix(std::uint32_t background);
    void add_edges(std::size_t brush, int column, float top, float bottom);
    void add_partly_covered(std::size_t brush, int column, int row, float coverage);
    void paint_partly_covered(std::span<const PartlyCovered> pixels, std::uint32_t* row);
    [[nodiscard]] std::uint32_t mixed(const PartlyCovered& pixel) const;
    [[nodiscard]] std::uint32_t mixed_one_by_one(std::uint16_t column, BrushSet partly) const;

    std::span<const CoverageBrush> m_brushes;
    std::vector<std::uint32_t> m_mixtures;   // of each set, over the background
    std::vector<std::uint32_t> m_overlays;   // of each set, over nothing
    std::vector<BrushSet> m_taken;           // by column: brushes with a box there
    std::vector<BrushSet> m_covering;        // by column, wholly, in the row that is painted
    std::vector<BrushSet> m_covering_partly; // by column, in the row that is painted
    std::vector<std::uint8_t> m_coverage;    // by column and brush, of those
    std::vector<std::uint32_t> m_colors;     // by column
    RowLists<Edge> m_edges;
    RowLists<PartlyCovered> m_partly_covered;
};

} // namespace tickervantage
