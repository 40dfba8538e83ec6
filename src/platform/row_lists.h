// Things that belong to rows of a picture, added in any order and then read row by row.
//
// Sorted by counting, because there are many things, few rows, and a frame to be finished. A plain value; one thread.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tickervantage {

template <class Thing>
class RowLists {
public:
    // Empty afterwards; memory is kept.
    void clear(int rows) {
        m_added.clear();
        m_ends.assign(static_cast<std::size_t>(rows), 0);
    }

    void add(int row, const Thing& thing) {
        m_added.push_back({row, thing});
        ++m_ends[static_cast<std::size_t>(row)];
    }

    // Once, after the last thing was added.
    void sort() {
        std::uint32_t before = 0;
        for (auto& count : m_ends) {
            before += count;
            count = before - count; // for now where the row's things begin
        }
        m_sorted.resize(m_added.size());
        for (const Added& one : m_added)
            m_sorted[m_ends[static_cast<std::size_t>(one.row)]++] = one.thing;
    }

    // In the order in which they were added.
    [[nodiscard]] std::span<const Thing> of(int row) const {
        const std::uint32_t first = row > 0 ? m_ends[static_cast<std::size_t>(row) - 1] : 0;
        return std::span(m_sorted).subspan(first, m_ends[static_cast<std::size_t>(row)] - first);
    }

private:
    struct Added {
        int row = 0;
        Thing thing;
    };

    std::vector<Added> m_added;
    std::vector<Thing> m_sorted;
    std::vector<std::uint32_t> m_ends; // by row
};

} // namespace tickervantage
