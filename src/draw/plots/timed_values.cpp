#include "draw/plots/timed_values.h"

#include "base/quantile.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tickervantage {

void TimedValues::add(const TimedExtent& value) {
    if (!std::isfinite(value.time) || !std::isfinite(value.mean) || !std::isfinite(value.low) ||
        !std::isfinite(value.high))
        return;
    const bool is_span = value.low < value.mean || value.high > value.mean;
    if (is_span && !m_has_spans) {
        m_has_spans = true;
        m_below.assign(m_times.size(), 0);
        m_above.assign(m_times.size(), 0);
    }
    const std::size_t place = m_times.empty() || value.time >= m_times.back() ? m_times.size() : first_from(value.time);
    insert(place, value);
    sum_blocks_from(place / block_size);
}

void TimedValues::insert(std::size_t at, const TimedExtent& value) {
    const auto place = static_cast<std::ptrdiff_t>(at);
    m_times.insert(m_times.begin() + place, value.time);
    m_means.insert(m_means.begin() + place, value.mean);
    if (!m_has_spans)
        return;
    m_below.insert(m_below.begin() + place, static_cast<float>(value.mean - value.low));
    m_above.insert(m_above.begin() + place, static_cast<float>(value.high - value.mean));
}

void TimedValues::remove_between(double from, double to) {
    const auto first = std::ranges::upper_bound(m_times, from) - m_times.begin();
    const auto end = std::ranges::lower_bound(m_times, to) - m_times.begin();
    if (first >= end)
        return;
    const auto erase = [=](auto& values) {
        if (!values.empty())
            values.erase(values.begin() + first, values.begin() + end);
    };
    erase(m_times);
    erase(m_means);
    erase(m_below);
    erase(m_above);
    sum_blocks_from(static_cast<std::size_t>(first) / block_size);
}

TimedExtent TimedValues::at(std::size_t at) const {
    if (!m_has_spans)
        return {m_times[at], m_means[at], m_means[at], m_means[at]};
    return {m_times[at], m_means[at] - static_cast<double>(m_below[at]), m_means[at],
            m_means[at] + static_cast<double>(m_above[at])};
}

void TimedValues::sum_blocks_from(std::size_t block) {
    const std::size_t whole = m_times.size() / block_size;
    m_blocks.resize(std::min(m_blocks.size(), block));
    while (m_blocks.size() < whole) {
        ValueColumn column;
        const std::size_t first = m_blocks.size() * block_size;
        add_to(column, first, first + block_size);
        m_blocks.push_back({column.low, column.high, column.mean});
    }
}

std::size_t TimedValues::first_from(double time) const {
    return static_cast<std::size_t>(std::ranges::lower_bound(m_times, time) - m_times.begin());
}

std::optional<std::size_t> TimedValues::nearest(double time) const {
    if (empty() || std::isnan(time))
        return std::nullopt;
    const std::size_t after = std::min(first_from(time), size() - 1);
    const std::size_t before = after == 0 ? 0 : after - 1;
    return std::abs(m_times[after] - time) < std::abs(m_times[before] - time) ? after : before;
}

namespace {

// Until the end, `mean` is the sum.
void join(ValueColumn& column, std::size_t count, double low, double sum, double high) {
    column.low = column.count == 0 ? low : std::min(column.low, low);
    column.high = column.count == 0 ? high : std::max(column.high, high);
    column.mean += sum;
    column.count += count;
}

} // namespace

// Plain loops: a frame goes through a million values.
void TimedValues::add_to(ValueColumn& column, std::size_t first, std::size_t end) const {
    if (first == end)
        return;
    double low = m_means[first];
    double high = low;
    double sum = 0;
    for (std::size_t at = first; at < end; ++at) {
        low = std::min(low, m_means[at]);
        high = std::max(high, m_means[at]);
        sum += m_means[at];
    }
    if (m_has_spans)
        for (std::size_t at = first; at < end; ++at) {
            low = std::min(low, m_means[at] - static_cast<double>(m_below[at]));
            high = std::max(high, m_means[at] + static_cast<double>(m_above[at]));
        }
    join(column, end - first, low, sum, high);
}

ValueColumn TimedValues::sum(std::size_t first, std::size_t end) const {
    ValueColumn column{.first = first};
    const std::size_t first_block = (first + block_size - 1) / block_size;
    const std::size_t end_block = end / block_size;
    if (first_block >= end_block) {
        add_to(column, first, end);
    } else {
        add_to(column, first, first_block * block_size);
        for (std::size_t block = first_block; block < end_block; ++block)
            join(column, block_size, m_blocks[block].low, m_blocks[block].sum, m_blocks[block].high);
        add_to(column, end_block * block_size, end);
    }
    if (column.count > 0)
        column.mean /= static_cast<double>(column.count);
    return column;
}

// Columns hold about as many values as their neighbours: a look or two in place of a search through all of them, which
// would wait for memory.
std::size_t TimedValues::first_near(double time, std::size_t begin, std::size_t guess, std::size_t end) const {
    std::size_t stride = 1;
    while (guess > begin && m_times[guess - 1] >= time) {
        end = guess - 1;
        guess -= std::min(stride, guess - begin);
        stride *= 2;
    }
    begin = guess;
    stride = 1;
    while (guess < end && m_times[guess] < time) {
        begin = guess + 1;
        guess += std::min(stride, end - guess);
        stride *= 2;
    }
    const auto at = [this](std::size_t place) {
        return m_times.begin() + static_cast<std::ptrdiff_t>(place);
    };
    return static_cast<std::size_t>(std::lower_bound(at(begin), at(guess), time) - m_times.begin());
}

std::vector<ValueColumn> TimedValues::columns(const TimeRange& range, std::size_t count) const {
    std::vector<ValueColumn> found;
    found.reserve(count);
    const double step = range.length() / static_cast<double>(count);
    std::size_t first = first_from(range.from);
    const std::size_t last = first_from(range.to);
    std::size_t guess = (last - first) / count;
    // Whole blocks are summed already: of so many values less than a sixteenth comes into a neighbour's column.
    constexpr std::size_t many = 8 * block_size;
    const auto nearest_block = [](std::size_t at) {
        return (at + block_size / 2) / block_size * block_size;
    };
    for (std::size_t column = 1; column <= count; ++column) {
        const double edge = range.from + step * static_cast<double>(column);
        const std::size_t near = first_near(edge, first, std::min(first + guess, last), last);
        const std::size_t end = column == count ? last : guess < many ? near : std::min(nearest_block(near), last);
        found.push_back(sum(first, end));
        guess = end - first;
        first = end;
    }
    return found;
}

double TimedValues::usual_interval() const {
    constexpr std::size_t enough = 257;
    if (size() < 2)
        return 0;
    std::vector<double> intervals;
    for (std::size_t at = size() - std::min(enough, size()) + 1; at < size(); ++at)
        intervals.push_back(m_times[at] - m_times[at - 1]);
    return quantile(intervals, 0.5);
}

} // namespace tickervantage
