// The pixels of a plot in square cells: which of them are to be painted anew, and what is to be painted there.
//
// Each cell is painted by itself, always, so that it comes out the same whether or not its neighbours are painted too.
// In pixels, y DOWN from the upper left one. Memory is kept. One thread.
#pragma once

#include "studies/freqtemp/dot_counts.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tickervantage {

class PlotCells {
public:
    using Item = std::uint32_t; // whatever it means to who paints it

    // No cell is marked and none has an item afterwards. Cells are at least `side` wide.
    void resize(int width, int height, int side);

    [[nodiscard]] std::size_t count() const { return m_marked.size(); }
    [[nodiscard]] PixelBox box(std::size_t cell) const;

    // The cells that the box of pixels meets: a box of columns and rows of cells.
    [[nodiscard]] PixelBox cells_of(const PixelBox& pixels) const;

    // To be painted: those cells, or all.
    void mark(const PixelBox& cells);
    void mark_all() { mark(cells_of({0, 0, m_width, m_height})); }
    void unmark_all();
    [[nodiscard]] bool are_all_marked() const { return m_marked_cells.size() == m_marked.size(); }
    [[nodiscard]] const std::vector<std::size_t>& marked() const { return m_marked_cells; }

    // Whether a marked cell may be met by a square with a corner in that place.
    [[nodiscard]] bool is_near(std::size_t place) const { return m_near[place] != 0; }
    [[nodiscard]] std::size_t place_of(DotCounts::Corner corner) const {
        return at(corner.row >> m_shift, m_near_columns, corner.column >> m_shift);
    }
    [[nodiscard]] std::size_t nowhere() const { return m_near.size() - 1; } // never near

    // Which of the cells may be met by the squares noted since all were forgotten.
    void forget_squares() { ++m_round; }
    void note_square(std::size_t place) { m_noted[place] = m_round; }
    [[nodiscard]] bool has_square(std::size_t cell) const;

    // Calls use(cell) for each marked one of the cells.
    template <class Use>
    void for_each_marked(const PixelBox& cells, const Use& use) const {
        for (int row = cells.top; row < cells.bottom; ++row)
            for (int column = cells.left; column < cells.right; ++column)
                if (const auto cell = at(row, m_columns, column); m_marked[cell] != 0)
                    use(cell);
    }

    // One thing more to be painted in the marked ones of the cells, after those put there before.
    void put(const PixelBox& cells, Item item);

    // Calls use(cell, its items) for each cell that has some; none has any afterwards.
    template <class Use>
    void take_items(const Use& use) {
        for (const std::size_t cell : m_filled) {
            use(cell, m_items[cell]);
            m_items[cell].clear();
        }
        m_filled.clear();
    }

private:
    // In rows of so many columns.
    [[nodiscard]] static std::size_t at(int row, int columns, int column) {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
    }

    int m_width = 0;
    int m_height = 0;
    int m_shift = 0; // a cell is two to the power of it wide
    int m_columns = 0;
    int m_near_columns = 0;
    std::vector<char> m_marked; // by cell
    std::vector<std::size_t> m_marked_cells;
    std::vector<char> m_near; // by cell, one more each way: it or the one before it, in either direction, is marked
    std::vector<std::uint32_t> m_noted; // by the same: the round in which a square was
    std::uint32_t m_round = 1;
    std::vector<std::vector<Item>> m_items;
    std::vector<std::size_t> m_filled;
};

} // namespace tickervantage
