#include "base/value_summary.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

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

// The numbers of some places of the sorted list, found without sorting it.
class Ranks {
public:
    explicit Ranks(std::vector<std::uint32_t> counts) : m_counts(std::move(counts)) {}

    // To be asked for later. Cheapest where places rise.
    void want(std::size_t place) {
        move_to(place);
        std::uint8_t& gathering = m_gatherings[m_bucket];
        if (gathering != 0)
            return;
        m_gathered.emplace_back().reserve(m_counts[m_bucket]);
        gathering = static_cast<std::uint8_t>(m_gathered.size());
    }

    void gather(std::span<const double> values) {
        for (const double value : values)
            if (const std::uint8_t gathering = m_gatherings[bucket_of(value)]; gathering != 0 && value == value)
                m_gathered[gathering - 1U].push_back(value);
    }

    double at(std::size_t place) {
        move_to(place);
        auto& values = m_gathered[m_gatherings[m_bucket] - 1U];
        const auto nth = values.begin() + static_cast<std::ptrdiff_t>(place - m_before);
        std::nth_element(values.begin(), nth, values.end());
        return *nth;
    }

private:
    void move_to(std::size_t place) {
        if (place < m_before)
            m_bucket = m_before = 0;
        while (place >= m_before + m_counts[m_bucket])
            m_before += m_counts[m_bucket++];
    }

    std::vector<std::uint32_t> m_counts;
    std::size_t m_bucket = 0;
    std::size_t m_before = 0;                                                    // values in lower buckets
    std::vector<std::uint8_t> m_gatherings = std::vector<std::uint8_t>(buckets); // by bucket, from 1; 0: not wanted
    std::vector<std::vector<double>> m_gathered;
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
    Ranks ranks(std::move(counts));
    const auto next_to = [&](std::size_t place) {
        return std::min(place + 1, summary.count - 1);
    };
    const auto below = [&](double share) {
        return static_cast<std::size_t>(share * (count - 1));
    };
    for (const double share : shares) {
        ranks.want(below(share));
        ranks.want(next_to(below(share)));
    }
    ranks.gather(values);
    for (const double share : shares) {
        const double one = ranks.at(below(share));
        const double next = ranks.at(next_to(below(share)));
        summary.percentiles.push_back(one + (next - one) * (share * (count - 1) - static_cast<double>(below(share))));
    }
    return summary;
}

} // namespace tickervantage
