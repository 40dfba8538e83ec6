#include "base/value_summary.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
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

} // namespace

// The numbers of some places of the sorted list, found without sorting it.
class SummaryMaker::Ranks {
public:
    void count(double value) { ++m_counts[bucket_of(value)]; }

    // To be asked for later. Cheapest where places rise.
    void want(std::size_t place) {
        move_to(place);
        std::uint8_t& gathering = m_gatherings[m_bucket];
        if (gathering != 0)
            return;
        m_gathered.emplace_back().reserve(m_counts[m_bucket]);
        gathering = static_cast<std::uint8_t>(m_gathered.size());
    }

    void gather(double value) {
        if (const std::uint8_t gathering = m_gatherings[bucket_of(value)]; gathering != 0)
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

    std::vector<std::uint32_t> m_counts = std::vector<std::uint32_t>(buckets);
    std::size_t m_bucket = 0;
    std::size_t m_before = 0;                                                    // values in lower buckets
    std::vector<std::uint8_t> m_gatherings = std::vector<std::uint8_t>(buckets); // by bucket, from 1; 0: not wanted
    std::vector<std::vector<double>> m_gathered;
};

namespace {

// The place at or below a share of so many in order.
std::size_t place_below(double share, std::size_t count) {
    return static_cast<std::size_t>(share * static_cast<double>(count - 1));
}

} // namespace

SummaryMaker::SummaryMaker(std::span<const double> shares)
    : m_shares(shares.begin(), shares.end()), m_ranks(std::make_unique<Ranks>()) {}
SummaryMaker::~SummaryMaker() = default;
SummaryMaker::SummaryMaker(SummaryMaker&&) noexcept = default;

void SummaryMaker::look_at(std::span<const double> values) {
    ValueSummary& known = m_summary;
    for (const double value : values) {
        if (value != value)
            continue;
        known.least = known.count == 0 ? value : std::min(known.least, value);
        known.largest = known.count == 0 ? value : std::max(known.largest, value);
        ++known.count;
        m_sum += value;
        m_squares += value * value;
        m_ranks->count(value);
    }
}

void SummaryMaker::want_percentiles() {
    const auto count = static_cast<double>(m_summary.count);
    m_summary.mean = m_sum / count;
    m_summary.rms = std::sqrt(m_squares / count);
    for (const double share : m_shares) {
        const std::size_t below = place_below(share, m_summary.count);
        m_ranks->want(below);
        m_ranks->want(std::min(below + 1, m_summary.count - 1));
    }
}

// Deviations are taken from the mean: those of small numbers far from zero would drown in their squares.
void SummaryMaker::look_again_at(std::span<const double> values) {
    if (m_summary.count == 0)
        return;
    if (!std::exchange(m_is_counted, true))
        want_percentiles();
    for (const double value : values) {
        if (value != value)
            continue;
        m_deviations += (value - m_summary.mean) * (value - m_summary.mean);
        m_ranks->gather(value);
    }
}

std::optional<ValueSummary> SummaryMaker::summary() {
    const std::size_t count = m_summary.count;
    if (count == 0)
        return std::nullopt;
    m_summary.deviation =
        count > 1 ? std::sqrt(m_deviations / static_cast<double>(count - 1)) : std::numeric_limits<double>::quiet_NaN();
    for (const double share : m_shares) {
        const std::size_t below = place_below(share, count);
        const double one = m_ranks->at(below);
        const double next = m_ranks->at(std::min(below + 1, count - 1));
        const double rest = share * static_cast<double>(count - 1) - static_cast<double>(below);
        m_summary.percentiles.push_back(one + (next - one) * rest);
    }
    return std::move(m_summary);
}

std::optional<ValueSummary> summary_of(std::span<const double> values, std::span<const double> shares) {
    SummaryMaker maker(shares);
    maker.look_at(values);
    maker.look_again_at(values);
    return maker.summary();
}

} // namespace tickervantage
