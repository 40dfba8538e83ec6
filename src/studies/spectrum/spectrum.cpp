#include "studies/spectrum/spectrum.h"

#include "base/failure_codes.h"
#include "base/local_clock.h"
#include "studies/spectrum/transform.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::array<std::string_view, spectrum_series.size()> series_names{"offset", "rem_cor", "rms_offset"};

int fail(SpectrumProblem problem, SpectrumFailure& failure) {
    failure = {.problem = problem};
    return -1;
}

int transform_samples(const SpectrumInput& input, ComputedSpectrum& spectrum, SpectrumFailure& failure) {
    std::vector<double> samples;
    LogTime absent_at = 0;
    DoubtfulSamples doubtful;
    if (resample_series(input.records, input.count, input.interval, samples, absent_at, &doubtful) != 0) {
        failure = {.problem = SpectrumProblem::absent, .series = input.series, .time = absent_at};
        return -1;
    }
    samples.resize(std::bit_ceil(input.count));
    SpectrumPair bins = spectrumOf(samples);
    spectrum = {.samplefreq = 1 / input.interval * 0.5,
                .count = input.count,
                .length = samples.size(),
                .magnitudes = std::move(bins.magnitudes),
                .phases = std::move(bins.phases),
                .doubtful = doubtful,
                .series = input.series,
                .interval = input.interval,
                .newest = input.records.empty() ? 0 : input.records.back().time};
    return 0;
}

void add_cell(std::string& line, double value) {
    line += ',';
    if (std::isfinite(value))
        line += fmt::to_string(value);
}

} // namespace

Series spectrum_series_at(int index) {
    return index > 0 && static_cast<std::size_t>(index) < spectrum_series.size()
               ? spectrum_series[static_cast<std::size_t>(index)]
               : spectrum_series[0];
}

std::string_view spectrum_series_name(Series series) {
    const auto* found = std::ranges::find(spectrum_series, series);
    return found == spectrum_series.end() ? std::string_view("series")
                                          : series_names[static_cast<std::size_t>(found - spectrum_series.begin())];
}

std::optional<Series> spectrum_series_named(std::string_view name) {
    const auto* found = std::ranges::find(series_names, name);
    if (found == series_names.end())
        return std::nullopt;
    return spectrum_series[static_cast<std::size_t>(found - series_names.begin())];
}

Failure failure_of(const SpectrumFailure& failure) {
    switch (failure.problem) {
    case SpectrumProblem::interval:
        return {FailureCode::spectrum_without_interval};
    case SpectrumProblem::duration:
        return {FailureCode::spectrum_too_short};
    case SpectrumProblem::too_long:
        return {FailureCode::spectrum_too_long, {std::to_string(longest_transform)}};
    case SpectrumProblem::absent:
        return {FailureCode::record_without_value,
                {utc_date_time(failure.time), std::string(spectrum_series_name(failure.series))}};
    case SpectrumProblem::memory:
        break;
    }
    return {FailureCode::spectrum_too_large};
}

int count_samples(double interval, double duration, std::size_t& count, SpectrumFailure& failure) {
    if (!(interval > 0))
        return fail(SpectrumProblem::interval, failure);
    const double samples = std::trunc(duration * (1 / interval) + 0.5);
    if (!(samples >= 1))
        return fail(SpectrumProblem::duration, failure);
    if (samples > static_cast<double>(longest_transform))
        return fail(SpectrumProblem::too_long, failure);
    count = static_cast<std::size_t>(samples);
    return 0;
}

int gather_spectrum(const TrackingRecords& records, Series series, double interval, double duration,
                    SpectrumInput& input, SpectrumFailure& failure) {
    std::size_t count = 0;
    if (count_samples(interval, duration, count, failure) != 0)
        return -1;
    ReachableRecords reachable(records, series, count, interval);
    (void)reachable.read(records, records.size()); // complete then
    input = {.series = series, .interval = interval, .count = count, .records = reachable.take()};
    return 0;
}

int transform_spectrum(const SpectrumInput& input, ComputedSpectrum& spectrum, SpectrumFailure& failure) {
    try {
        return transform_samples(input, spectrum, failure);
    } catch (const std::bad_alloc&) {
        return fail(SpectrumProblem::memory, failure);
    }
}

int compute_spectrum(const TrackingRecords& records, Series series, double interval, double duration,
                     ComputedSpectrum& spectrum, SpectrumFailure& failure) {
    SpectrumInput input;
    if (gather_spectrum(records, series, interval, duration, input, failure) != 0)
        return -1;
    return transform_spectrum(input, spectrum, failure);
}

double axis_frequency(const ComputedSpectrum& spectrum, std::size_t bin) {
    return spectrum.samplefreq * static_cast<double>(bin) / static_cast<double>(spectrum.length);
}

bool is_mirrored(const ComputedSpectrum& spectrum, std::size_t bin) {
    return 2 * bin > spectrum.length;
}

double true_frequency(const ComputedSpectrum& spectrum, std::size_t bin) {
    const std::size_t of = is_mirrored(spectrum, bin) ? spectrum.length - bin : bin;
    return 2 * axis_frequency(spectrum, of);
}

std::optional<double> period_of(const ComputedSpectrum& spectrum, std::size_t bin) {
    const double frequency = true_frequency(spectrum, bin);
    return frequency > 0 ? std::optional(1 / frequency) : std::nullopt;
}

std::string doubt_of(const ComputedSpectrum& spectrum) {
    const auto [extrapolated, before] = spectrum.doubtful;
    std::string text;
    if (extrapolated > 1)
        text = fmt::format("{} of {} samples are extrapolated beyond the records; a shorter interval avoids that.",
                           extrapolated, spectrum.count);
    if (before > 0)
        text += fmt::format("{}{} of {} samples are older than the records, and count as 0.", text.empty() ? "" : " ",
                            before, spectrum.count);
    return text;
}

std::string csv_of(const ComputedSpectrum& spectrum) {
    std::string csv = "bin,axis_frequency,magnitude,phase,frequency,period,mirrored\n";
    for (std::size_t bin = 0; bin < spectrum.length; ++bin) {
        csv += fmt::to_string(bin);
        add_cell(csv, axis_frequency(spectrum, bin));
        add_cell(csv, spectrum.magnitudes[bin]);
        add_cell(csv, spectrum.phases[bin]);
        add_cell(csv, true_frequency(spectrum, bin));
        add_cell(csv, period_of(spectrum, bin).value_or(std::numeric_limits<double>::infinity()));
        csv += is_mirrored(spectrum, bin) ? ",1\n" : ",0\n";
    }
    return csv;
}

} // namespace tickervantage
