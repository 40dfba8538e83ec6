#include "draw/plots/timed_values.h"

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
        for (std::size_t one = first; one < first + block_size; ++one)
            add_to(column, one);
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

// Until the end, `mean` is the sum.
void TimedValues::add_to(ValueColumn& column, std::size_t at) const {
    const double mean = m_means[at];
    const double low = !m_has_spans ? mean : mean - static_cast<double>(m_below[at]);
    const double high = !m_has_spans ? mean : mean + static_cast<double>(m_above[at]);
    column.low = column.count == 0 ? low : std::min(column.low, low);
    column.high = column.count == 0 ? high : std::max(column.high, high);
    column.mean += mean;
    ++column.count;
}

void TimedValues::add_block(ValueColumn& column, std::size_t block) const {
    const Block& all = m_blocks[block];
    column.low = column.count == 0 ? all.low : std::min(column.low, all.low);
    column.high = column.count == 0 ? all.high : std::max(column.high, all.high);
    column.mean += all.sum;
    column.count += block_size;
}

ValueColumn TimedValues::sum(std::size_t first, std::size_t end) const {
    ValueColumn column{.first = first};
    for (std::size_t at = first; at < end;) {
        if (at % block_size == 0 && at + block_size <= end) {
            add_block(column, at / block_size);
            at += block_size;
        } else {
            add_to(column, at++);
        }
    }
    if (column.count > 0)
        column.mean /= static_cast<double>(column.count);
    return column;
}

std::vector<ValueColumn> TimedValues::columns(const TimeRange& range, std::size_t count) const {
    std::vector<ValueColumn> found;
    found.reserve(count);
    const double step = range.length() / static_cast<double>(count);
    std::size_t first = first_from(range.from);
    const std::size_t last = first_from(range.to);
    for (std::size_t column = 1; column <= count; ++column) {
        const double edge = range.from + step * static_cast<double>(column);
        // The next edge is most often near: a search doubles its stride from where the one before ended.
        std::size_t stride = 1;
        while (first + stride < last && m_times[first + stride] < edge)
            stride *= 2;
        const auto begin = m_times.begin() + static_cast<std::ptrdiff_t>(first);
        const auto limit = m_times.begin() + static_cast<std::ptrdiff_t>(std::min(first + stride, last));
        const auto end =
            column == count ? last : static_cast<std::size_t>(std::lower_bound(begin, limit, edge) - m_times.begin());
        found.push_back(sum(first, end));
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

double quantile(std::vector<double>& values, double share) {
    if (values.empty())
        return std::numeric_limits<double>::quiet_NaN();
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = values.begin() + static_cast<std::ptrdiff_t>(place);
    std::ranges::nth_element(values, below);
    const double rest = place - std::floor(place);
    if (rest == 0)
        return *below;
    return *below + rest * (*std::min_element(below + 1, values.end()) - *below);
}

} // namespace tickervantage
