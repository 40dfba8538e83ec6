#include "base/value_summary.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace tickervantage {
namespace {

// Numbers fall into buckets by their sign, power of two and first digits: buckets rise as the numbers do, and only
// those that hold a percentile are looked into.
constexpr unsigned bucket_bits = 16;
constexpr std::size_t buckets = std::size_t{1} << bucket_bits;

std::size_t bucket_of(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
    const std::uint64_t rising = (bits & sign) != 0 ? ~bits : bits | sign;
    return static_cast<std::size_t>(rising >> (64 - bucket_bits));
}

class Ranks {
public:
    Ranks(std::span<const double> values, std::span<const std::uint32_t> counts) : m_values(values), m_counts(counts) {}

    // The value at that place of the sorted ones. Cheapest where places rise.
    double at(std::size_t place) {
        if (place < m_before)
            m_bucket = m_before = 0;
        while (place >= m_before + m_counts[m_bucket])
            m_before += m_counts[m_bucket++];
        if (m_bucket != m_gathered_bucket)
            gather();
        const auto nth = m_gathered.begin() + static_cast<std::ptrdiff_t>(place - m_before);
        std::nth_element(m_gathered.begin(), nth, m_gathered.end());
        return *nth;
    }

private:
    void gather() {
        m_gathered.clear();
        std::ranges::copy_if(m_values, std::back_inserter(m_gathered),
                             [this](double value) { return value == value && bucket_of(value) == m_bucket; });
        m_gathered_bucket = m_bucket;
    }

    std::span<const double> m_values;
    std::span<const std::uint32_t> m_counts;
    std::size_t m_bucket = 0;
    std::size_t m_before = 0; // values in lower buckets
    std::vector<double> m_gathered;
    std::size_t m_gathered_bucket = buckets;
};

} // namespace

std::optional<ValueSummary> summary_of(std::span<const double> values, std::span<const double> shares) {
    std::vector<std::uint32_t> counts(buckets);
    ValueSummary summary;
    double sum = 0;
    double squares = 0;
    for (const double value : values) {
        if (value != value)
            continue;
        summary.least = summary.count == 0 ? value : std::min(summary.least, value);
        summary.largest = summary.count == 0 ? value : std::max(summary.largest, value);
        ++summary.count;
        sum += value;
        squares += value * value;
        ++counts[bucket_of(value)];
    }
    if (summary.count == 0)
        return std::nullopt;
    const auto count = static_cast<double>(summary.count);
    summary.mean = sum / count;
    summary.rms = std::sqrt(squares / count);
    Ranks ranks(values, counts);
    for (const double share : shares) {
        const double place = share * (count - 1);
        const auto below = static_cast<std::size_t>(place);
        const double one = ranks.at(below);
        const double next = ranks.at(std::min(below + 1, summary.count - 1));
        summary.percentiles.push_back(one + (next - one) * (place - static_cast<double>(below)));
    }
    return summary;
}

} // namespace tickervantage
