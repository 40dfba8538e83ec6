// What many numbers are like: range, means and percentiles. Pure functions, any thread.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tickervantage {

struct ValueSummary {
    std::size_t count = 0;
    double least = 0;
    double largest = 0;
    double mean = 0;
    double rms = 0;
    double deviation = 0;                 // of a sample; NaN of a single number
    std::vector<double> percentiles = {}; // as they were asked for
};

// Of those that are there: NaN is absent. At most 100 shares, from 0 to 1; a percentile between two values lies on the
// straight line between them. A million numbers take some milliseconds: they are not sorted. None where none is there.
[[nodiscard]] std::optional<ValueSummary> summary_of(std::span<const double> values, std::span<const double> shares);

// The same of numbers that come in pieces, too many to be kept: all of them, and then all of them once more. One
// thread.
class SummaryMaker {
public:
    explicit SummaryMaker(std::span<const double> shares);
    ~SummaryMaker();
    SummaryMaker(SummaryMaker&&) noexcept;
    SummaryMaker& operator=(SummaryMaker&&) = delete;

    void look_at(std::span<const double> values);
    void look_again_at(std::span<const double> values);
    [[nodiscard]] std::optional<ValueSummary> summary(); // once

private:
    class Ranks;
    void want_percentiles();

    std::vector<double> m_shares;
    ValueSummary m_summary;
    double m_sum = 0;
    double m_squares = 0;
    double m_deviations = 0; // squared, from the mean
    bool m_is_counted = false;
    std::unique_ptr<Ranks> m_ranks;
};

} // namespace tickervantage
