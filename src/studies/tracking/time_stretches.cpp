#include "studies/tracking/time_stretches.h"

#include "draw/plots/value_scale.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tickervantage {

void TimeStretches::record_added(const TrackingRecords& records) {
    const std::size_t size = records.size();
    if (size >= 2 && records.time(size - 1) < records.time(size - 2))
        m_starts.push_back(size - 1);
}

std::vector<RecordSpan> TimeStretches::from(std::size_t first, std::size_t size) const {
    std::vector<RecordSpan> result;
    std::size_t begin = first;
    for (auto next = std::ranges::upper_bound(m_starts, first); next != m_starts.end(); ++next) {
        result.push_back({begin, *next});
        begin = *next;
    }
    if (begin < size)
        result.push_back({begin, size});
    return result;
}

std::size_t first_at(const TrackingRecords& records, const TimeAxis& axis, RecordSpan span, double x) {
    while (span.first < span.end) {
        const std::size_t middle = std::midpoint(span.first, span.end);
        if (axis.x(records.time(middle)) < x)
            span.first = middle + 1;
        else
            span.end = middle;
    }
    return span.first;
}

std::optional<std::size_t> oldest_in_walk(const TrackingRecords& records, const TimeAxis& axis) {
    if (records.size() < 2 || !(axis.xscale > 0) || !std::isfinite(axis.xscale) || !std::isfinite(axis.origin_time))
        return std::nullopt;
    if (axis.x(records.time(records.size() - 1)) < 0)
        return std::nullopt;
    const double time_at_left_edge = axis.origin_time - axis.origin.x / axis.xscale;
    return records.newest_before(to_integer(std::ceil(time_at_left_edge))).value_or(0);
}

} // namespace tickervantage
