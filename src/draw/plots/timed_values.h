// Values over time, any number of them, and what a column of pixels shows of them.
//
// Each is one value or the lowest, mean and highest of a span of time. Added in any order; most often in that of time,
// which is quick. Sums of every 32 are kept, so that a column costs the same for an hour as for years. One thread.
#pragma once

#include "draw/plots/time_marks.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tickervantage {

struct TimedExtent {
    double time = 0; // of a span its middle
    double low = 0;
    double mean = 0;
    double high = 0;
};

// What falls into a column; `count` 0: nothing.
struct ValueColumn {
    std::size_t first = 0; // of the values in it
    std::size_t count = 0;
    double low = 0;
    double mean = 0;
    double high = 0;
};

class TimedValues {
public:
    // What is not finite is left out.
    void add(double time, double value) { add({time, value, value, value}); }
    void add(const TimedExtent& value);

    // Takes away what lies between, neither end included.
    void remove_between(double from, double to);

    [[nodiscard]] bool empty() const { return m_times.empty(); }
    [[nodiscard]] std::size_t size() const { return m_times.size(); }
    [[nodiscard]] double time(std::size_t at) const { return m_times[at]; }
    [[nodiscard]] double mean(std::size_t at) const { return m_means[at]; }
    [[nodiscard]] std::span<const double> times(std::size_t first, std::size_t end) const {
        return std::span(m_times).subspan(first, end - first);
    }
    [[nodiscard]] std::span<const double> means(std::size_t first, std::size_t end) const {
        return std::span(m_means).subspan(first, end - first);
    }
    [[nodiscard]] TimedExtent at(std::size_t at) const;

    // The number of the first one that is not before the time.
    [[nodiscard]] std::size_t first_from(double time) const;
    // The nearest one in time; none of nothing.
    [[nodiscard]] std::optional<std::size_t> nearest(double time) const;

    // The lowest and highest in [first, end); of nothing a count of 0.
    [[nodiscard]] ValueColumn sum(std::size_t first, std::size_t end) const;
    [[nodiscard]] ValueColumn sum(const TimeRange& range) const {
        return sum(first_from(range.from), first_from(range.to));
    }

    // `count` columns of the same length, each from its left edge on.
    [[nodiscard]] std::vector<ValueColumn> columns(const TimeRange& range, std::size_t count) const;

    // The usual time between two values, from the middle of those at the end; 0 of fewer than two.
    [[nodiscard]] double usual_interval() const;

private:
    struct Block {
        double low;
        double high;
        double sum;
    };
    static constexpr std::size_t block_size = 32;

    [[nodiscard]] std::size_t first_near(double time, std::size_t begin, std::size_t guess, std::size_t end) const;
    void insert(std::size_t at, const TimedExtent& value);
    void sum_blocks_from(std::size_t block);
    void add_to(ValueColumn& column, std::size_t first, std::size_t end) const;

    std::vector<double> m_times;
    std::vector<double> m_means;
    bool m_has_spans = false;
    std::vector<float> m_below; // how far the lowest lies below the mean; empty while all are single values
    std::vector<float> m_above;
    std::vector<Block> m_blocks; // of whole blocks
};

} // namespace tickervantage
