#include "chrony/truth/verdict.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tickervantage {
namespace {

constexpr std::uint32_t own_clock = 0x7F7F0101; // 127.127.1.1, which chronyd takes for a local reference
constexpr double parts_per_million = 1e-6;

// A last reception is given in whole seconds, so polls of less than a second need some too.
constexpr double polls_missed = 4;
constexpr double least_silence = 4;

bool is_leap_announced(std::string_view leap) {
    return leap == "Insert second" || leap == "Delete second";
}

bool is_synchronised_word(std::string_view leap) {
    return leap == "Normal" || is_leap_announced(leap);
}

bool is_held_over(const ChronyReports& reports) {
    const auto keeps_time = [](const SourceData& source) {
        return is_used(source) && was_heard_lately(source);
    };
    return reports.sources && std::ranges::none_of(*reports.sources, keeps_time);
}

// Whether the report has all that a bound is made of.
bool is_whole(const TrackingData& tracking) {
    return tracking.system_time && tracking.root_delay && tracking.root_dispersion && tracking.skew_ppm &&
           tracking.residual_frequency_ppm;
}

bool is_correcting(const TrackingData& tracking) {
    constexpr double visible = 0.001;
    if (!is_whole(tracking))
        return false;
    const double correction = std::abs(*tracking.system_time);
    return correction > visible && correction > 10 * (*tracking.root_dispersion + *tracking.root_delay / 2);
}

bool has_bound(Verdict verdict) {
    return verdict != Verdict::unavailable && verdict != Verdict::local && verdict != Verdict::unsynchronised;
}

} // namespace

std::string_view name_of(Verdict verdict) {
    static constexpr std::array<std::string_view, verdicts.size()> names{
        "unavailable", "local", "unsynchronised", "holdover", "correcting", "leap", "synchronised"};
    return names.at(static_cast<std::size_t>(verdict));
}

bool follows_time(Verdict verdict) {
    return verdict == Verdict::synchronised || verdict == Verdict::correcting || verdict == Verdict::leap;
}

bool is_used(const SourceData& source) {
    return source.letter == '*' || source.letter == '+';
}

bool was_heard_lately(const SourceData& source) {
    const double patience = std::max(least_silence, polls_missed * std::exp2(source.poll));
    return source.last_rx && *source.last_rx <= patience;
}

Verdict judge(const ChronyReports& reports) {
    if (!reports.tracking)
        return Verdict::unavailable;
    const TrackingData& tracking = *reports.tracking;
    if (tracking.reference_id == own_clock)
        return Verdict::local;
    if (tracking.reference_id == 0 || !is_synchronised_word(tracking.leap_status))
        return Verdict::unsynchronised;
    if (is_held_over(reports))
        return Verdict::holdover;
    if (is_correcting(tracking))
        return Verdict::correcting;
    return is_leap_announced(tracking.leap_status) ? Verdict::leap : Verdict::synchronised;
}

std::optional<ErrorBudget> error_budget(const ChronyReports& reports, double maxclockerror_ppm) {
    if (!has_bound(judge(reports)) || !is_whole(*reports.tracking))
        return std::nullopt;
    const TrackingData& tracking = *reports.tracking;
    ErrorBudget budget;
    budget.correction = std::abs(*tracking.system_time);
    budget.delay = *tracking.root_delay / 2;
    budget.growth =
        (*tracking.skew_ppm + std::abs(*tracking.residual_frequency_ppm) + maxclockerror_ppm) * parts_per_million;
    if (reports.now && tracking.reference_time)
        budget.age = std::max(0.0, *reports.now - *tracking.reference_time);
    budget.dispersion_growth = std::min(*tracking.root_dispersion, budget.age.value_or(0) * budget.growth);
    budget.dispersion_measured = *tracking.root_dispersion - budget.dispersion_growth;
    budget.bound = budget.correction + budget.delay + budget.dispersion_measured + budget.dispersion_growth;
    return budget;
}

std::optional<double> expected_error(const ChronyReports& reports, const std::vector<double>& newest_offsets) {
    constexpr std::size_t enough = 16;
    constexpr std::size_t most = 64;
    constexpr double quantile = 0.95;
    if (!has_bound(judge(reports)))
        return std::nullopt;
    if (newest_offsets.size() >= enough) {
        const std::size_t count = std::min(newest_offsets.size(), most);
        std::vector<double> sizes(newest_offsets.end() - static_cast<std::ptrdiff_t>(count), newest_offsets.end());
        std::ranges::for_each(sizes, [](double& offset) { offset = std::abs(offset); });
        // The nearest rank: the smallest size that 95 of 100 are not above.
        const auto rank = static_cast<std::ptrdiff_t>(std::ceil(quantile * static_cast<double>(count))) - 1;
        std::ranges::nth_element(sizes, sizes.begin() + rank);
        return sizes[static_cast<std::size_t>(rank)];
    }
    const auto& rms = reports.tracking->rms_offset;
    return rms ? std::optional(2 * *rms) : std::nullopt;
}

} // namespace tickervantage
