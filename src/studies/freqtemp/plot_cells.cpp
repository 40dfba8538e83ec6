#include "studies/freqtemp/plot_cells.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr int LEAST_SHIFT = 3; // smaller cells take longer to look after than they save

} // namespace

void PlotCells::resize(int width, int height, int side) {
    m_width = width;
    m_height = height;
    for (m_shift = LEAST_SHIFT; (1 << m_shift) < side;)
        ++m_shift;
    m_columns = (width - 1) / (1 << m_shift) + 1;
    // A square's corner is counted from as far outside as it is wide, and so reaches one cell further.
    m_near_columns = m_columns + 2;
    const int rows = (height - 1) / (1 << m_shift) + 1;
    m_marked.assign(at(rows, m_columns, 0), 0);
    m_near.assign(at(rows + 2, m_near_columns, 0), 0);
    m_noted.assign(m_near.size(), 0);
    m_round = 1;
    m_marked_cells.clear();
    m_items.assign(m_marked.size(), {});
    m_filled.clear();
}

PixelBox PlotCells::box(std::size_t cell) const {
    const int left = (static_cast<int>(cell) % m_columns) << m_shift;
    const int top = (static_cast<int>(cell) / m_columns) << m_shift;
    return {left, top, std::min(left + (1 << m_shift), m_width), std::min(top + (1 << m_shift), m_height)};
}

PixelBox PlotCells::cells_of(const PixelBox& pixels) const {
    const PixelBox inside = common(pixels, {0, 0, m_width, m_height});
    if (inside.width() <= 0 || inside.height() <= 0)
        return {};
    return {inside.left >> m_shift, inside.top >> m_shift, ((inside.right - 1) >> m_shift) + 1,
            ((inside.bottom - 1) >> m_shift) + 1};
}

void PlotCells::mark(const PixelBox& cells) {
    for (int row = cells.top; row < cells.bottom; ++row)
        for (int column = cells.left; column < cells.right; ++column) {
            const auto cell = at(row, m_columns, column);
            if (m_marked[cell] != 0)
                continue;
            m_marked[cell] = 1;
            m_marked_cells.push_back(cell);
            for (const int down : {0, 1})
                for (const int right : {0, 1})
                    m_near[at(row + down, m_near_columns, column + right)] = 1;
        }
}

void PlotCells::unmark_all() {
    std::ranges::fill(m_marked, 0);
    std::ranges::fill(m_near, 0);
    m_marked_cells.clear();
}

bool PlotCells::has_square(std::size_t cell) const {
    const auto columns = static_cast<std::size_t>(m_columns);
    const auto near_columns = static_cast<std::size_t>(m_near_columns);
    const std::size_t place = cell / columns * near_columns + cell % columns;
    return m_noted[place] == m_round || m_noted[place + 1] == m_round || m_noted[place + near_columns] == m_round ||
           m_noted[place + near_columns + 1] == m_round;
}

void PlotCells::put(const PixelBox& cells, Item item) {
    for_each_marked(cells, [this, item](std::size_t cell) {
        if (m_items[cell].empty())
            m_filled.push_back(cell);
        m_items[cell].push_back(item);
    });
}

} // namespace tickervantage
