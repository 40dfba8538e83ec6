#include "studies/spectrum/resampling.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

// The value at a time on the line through two records. Two records of one second, as a fast poll writes them, have no
// such line: the nearer of the two stands for it, so that they do not turn the whole spectrum into infinities.
double on_line(const TimedValue& low, const TimedValue& high, double time) {
    const auto low_time = static_cast<double>(low.time);
    if (low.time == high.time)
        return time < low_time ? low.value : high.value;
    return low.value + (time - low_time) * (high.value - low.value) / (static_cast<double>(high.time) - low_time);
}

// A hair's breadth is the rounding of many subtractions.
bool is_beyond(const TimedValue& low, const TimedValue& high, double time) {
    constexpr double HAIR = 1e-6;
    const auto [first, last] = std::minmax(low.time, high.time); // the clock may have been stepped back in between
    return time < static_cast<double>(first) - HAIR || time > static_cast<double>(last) + HAIR;
}

} // namespace

// The walk steps over at most one record a sample, and never past a record that is older than the oldest sample. (One
// interval more, for the rounding of many subtractions.)
ReachableRecords::ReachableRecords(const TrackingRecords& records, Series series, std::size_t count, double interval)
    : m_series(series), m_most(count + 2), m_span(interval * static_cast<double>(count)), m_size(records.size()),
      m_next(records.size()) {
    if (!records.empty())
        m_newest = records.time(m_size - 1);
}

bool ReachableRecords::are_still_in(const TrackingRecords& records) const {
    return records.size() >= m_size &&
           (m_next == m_size || (records.time(m_size - 1) == m_newest && records.time(m_next) == m_read_to));
}

bool ReachableRecords::are_complete() const {
    return m_next == 0 || m_records.size() == m_most ||
           (m_records.size() >= 2 &&
            static_cast<double>(m_records.back().time) <= static_cast<double>(m_records.front().time) - m_span);
}

bool ReachableRecords::read(const TrackingRecords& records, std::size_t most) {
    for (std::size_t count = 0; count < most && !are_complete(); ++count) {
        --m_next;
        m_read_to = records.time(m_next);
        if (records.has_reference(m_next))
            m_records.push_back({m_read_to, records.value(m_series, m_next)});
    }
    return are_complete();
}

std::vector<TimedValue> ReachableRecords::take() {
    std::ranges::reverse(m_records);
    return std::exchange(m_records, {});
}

int resample_series(std::span<const TimedValue> records, std::size_t count, double interval,
                    std::vector<double>& samples, LogTime& absent_at, DoubtfulSamples* doubtful) {
    std::vector<double> result(count);
    DoubtfulSamples found{.before_records = count};
    const auto is_absent = [&absent_at](const TimedValue& record) {
        if (std::isnan(record.value))
            absent_at = record.time;
        return std::isnan(record.value);
    };
    if (records.size() >= 2) {
        std::size_t low = records.size() - 2;
        if (is_absent(records[low + 1]) || is_absent(records[low]))
            return -1;
        double time = static_cast<double>(records[low + 1].time) + interval;
        for (std::size_t sample = count; sample-- > 0; time -= interval) {
            if (static_cast<double>(records[low].time) > time) {
                if (low == 0)
                    break;
                --low;
                if (is_absent(records[low]))
                    return -1;
            }
            result[sample] = on_line(records[low], records[low + 1], time);
            if (is_beyond(records[low], records[low + 1], time))
                ++found.extrapolated;
            --found.before_records;
        }
    }
    samples = std::move(result);
    if (doubtful)
        *doubtful = found;
    return 0;
}

} // namespace tickervantage
