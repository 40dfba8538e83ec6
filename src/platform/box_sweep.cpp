#include "platform/box_sweep.h"

#include <algorithm>
#include <bit>

namespace tickervantage {

namespace {

// The library's counts all bits.
bool is_single(unsigned set) {
    return set != 0 && (set & (set - 1)) == 0;
}

// The lowest brush of a set is the one that is painted first.
std::size_t lowest(unsigned set) {
    return static_cast<std::size_t>(std::countr_zero(set));
}

} // namespace

void BoxSweep::begin(std::span<const CoverageBrush> brushes, std::uint32_t background, int width, int height) {
    m_brushes = brushes;
    mix(background);
    const auto columns = static_cast<std::size_t>(width);
    m_taken.assign(columns, 0);
    m_covering.assign(columns, 0);
    m_covering_partly.assign(columns, 0);
    m_coverage.resize(columns * MOST_BRUSHES);
    m_colors.assign(columns, background);
    m_edges.clear(height + 1); // boxes may end at the lower edge
    m_partly_covered.clear(height);
}

void BoxSweep::mix(std::uint32_t background) {
    const std::size_t sets = std::size_t{1} << m_brushes.size();
    m_mixtures.resize(sets);
    m_overlays.resize(sets);
    m_mixtures[0] = background;
    m_overlays[0] = 0;
    for (std::size_t set = 1; set < sets; ++set) {
        const std::size_t upper = std::bit_floor(set);
        const CoverageBrush& brush = m_brushes[lowest(static_cast<unsigned>(upper))];
        m_mixtures[set] = brush.laid_over(m_mixtures[set - upper]);
        m_overlays[set] = brush.laid_over(m_overlays[set - upper]);
    }
}

bool BoxSweep::add_box(std::size_t brush, int left, int right, float top, float bottom) {
    const auto bit = static_cast<BrushSet>(1U << brush);
    for (int column = left; column < right; ++column) {
        BrushSet& taken = m_taken[static_cast<std::size_t>(column)];
        if ((taken & bit) != 0)
            return false;
        taken |= bit;
        add_edges(brush, column, top, bottom);
    }
    return true;
}

void BoxSweep::add_edges(std::size_t brush, int column, float top, float bottom) {
    auto row = static_cast<int>(top);
    const auto end_row = static_cast<int>(bottom);
    if (row == end_row) {
        add_partly_covered(brush, column, row, bottom - top);
        return;
    }
    if (const float above = top - static_cast<float>(row); above > 0)
        add_partly_covered(brush, column, row++, 1 - above);
    if (row < end_row) {
        const Edge edge{static_cast<std::uint16_t>(column), static_cast<BrushSet>(1U << brush)};
        m_edges.add(row, edge);
        m_edges.add(end_row, edge);
    }
    if (const float below = bottom - static_cast<float>(end_row); below > 0)
        add_partly_covered(brush, column, end_row, below);
}

void BoxSweep::add_partly_covered(std::size_t brush, int column, int row, float coverage) {
    m_partly_covered.add(row, {static_cast<std::uint16_t>(column), static_cast<std::uint8_t>(brush),
                               static_cast<std::uint8_t>(coverage * 255 + 0.5F)});
}

void BoxSweep::paint(int first_row, int end_row, const PixelRows& target) {
    m_edges.sort();
    m_partly_covered.sort();
    for (int row = first_row; row < end_row; ++row) {
        for (const Edge& edge : m_edges.of(row)) {
            BrushSet& covering = m_covering[edge.column];
            covering ^= edge.brush;
            m_colors[edge.column] = m_mixtures[covering];
        }
        std::uint32_t* const pixels = target.first + row * target.stride;
        std::ranges::copy(m_colors, pixels);
        paint_partly_covered(m_partly_covered.of(row), pixels);
    }
}

void BoxSweep::paint_partly_covered(std::span<const PartlyCovered> pixels, std::uint32_t* row) {
    for (const auto& pixel : pixels) {
        m_covering_partly[pixel.column] |= static_cast<BrushSet>(1U << pixel.brush);
        m_coverage[pixel.column * MOST_BRUSHES + pixel.brush] = pixel.coverage;
    }
    for (const auto& pixel : pixels) {
        BrushSet& partly = m_covering_partly[pixel.column];
        if (is_single(partly))
            row[pixel.column] = mixed(pixel);
        else if (partly != 0) // else done with another of the same place
            row[pixel.column] = mixed_one_by_one(pixel.column, partly);
        partly = 0;
    }
}

// What lies under it and what lies over it is known.
std::uint32_t BoxSweep::mixed(const PartlyCovered& pixel) const {
    const unsigned covering = m_covering[pixel.column];
    const unsigned below = covering & ((1U << pixel.brush) - 1);
    const std::uint32_t laid = m_brushes[pixel.brush].laid_over(m_mixtures[below], pixel.coverage);
    return tickervantage::laid_over(m_overlays[covering - below], laid);
}

std::uint32_t BoxSweep::mixed_one_by_one(std::uint16_t column, BrushSet partly) const {
    const unsigned wholly = m_covering[column];
    std::uint32_t pixel = m_mixtures[0];
    for (unsigned left = wholly | partly; left != 0; left &= left - 1) {
        const std::size_t brush = lowest(left);
        const bool is_whole = (wholly >> brush & 1U) != 0;
        pixel = m_brushes[brush].laid_over(pixel, is_whole ? 255 : m_coverage[column * MOST_BRUSHES + brush]);
    }
    return pixel;
}

} // namespace tickervantage
