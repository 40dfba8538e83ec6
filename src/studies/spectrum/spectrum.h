// The spectrum of one series of the tracking log: resampled, padded with zeros to a power of two, transformed,
// normalised.
//
// Interval and duration in seconds, frequencies in hertz. Results are 0, or -1 with the failure; outputs stay untouched
// then, so that a window keeps its last picture. Gathering reads the records and belongs to their thread; transforming
// only needs what was gathered and may run on any.
#pragma once

#include "base/failure.h"
#include "studies/spectrum/resampling.h"
#include "studies/tracking/tracking_records.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// The series that have a spectrum, in the order of the selector.
inline constexpr std::array<Series, 3> spectrum_series{Series::offset, Series::rem_cor, Series::rms_offset};

[[nodiscard]] Series spectrum_series_at(int index); // any other index counts as 0
[[nodiscard]] std::string_view spectrum_series_name(Series series);
[[nodiscard]] std::optional<Series> spectrum_series_named(std::string_view name);

enum class SpectrumProblem : unsigned char {
    interval, // not above zero
    duration, // shorter than half an interval
    too_long, // more than longest_transform samples
    absent,   // a record in the range lacks the series
    memory,
};

struct SpectrumFailure {
    SpectrumProblem problem = SpectrumProblem::interval;
    Series series = Series::offset; // with `absent`
    LogTime time = 0;               // the same: of the record
};

// For the terminal: times in UTC, the series by its short name.
[[nodiscard]] Failure failure_of(const SpectrumFailure& failure);

struct ComputedSpectrum {
    double samplefreq = 0;  // half the sampling rate
    std::size_t count = 0;  // samples, N
    std::size_t length = 0; // bins, P
    std::vector<double> magnitudes;
    std::vector<double> phases;
    DoubtfulSamples doubtful = {}; // among the samples; the newest one is extrapolated in any case
    Series series = Series::offset;
    double interval = 0; // s
    LogTime newest = 0;  // of the records; 0 without any
};

// What a transform needs, apart from the records.
struct SpectrumInput {
    Series series = Series::offset;
    double interval = 0;
    std::size_t count = 0;
    std::vector<TimedValue> records;
};

// The number of samples, from 1 to longest_transform.
[[nodiscard]] int count_samples(double interval, double duration, std::size_t& count, SpectrumFailure& failure);

[[nodiscard]] int gather_spectrum(const TrackingRecords& records, Series series, double interval, double duration,
                                  SpectrumInput& input, SpectrumFailure& failure);
[[nodiscard]] int transform_spectrum(const SpectrumInput& input, ComputedSpectrum& spectrum, SpectrumFailure& failure);

// Both.
[[nodiscard]] int compute_spectrum(const TrackingRecords& records, Series series, double interval, double duration,
                                   ComputedSpectrum& spectrum, SpectrumFailure& failure);

// The frequency that the chart's axis shows at a bin. The axis spreads 0 to samplefreq over all bins, the mirrored
// upper half included.
[[nodiscard]] double axis_frequency(const ComputedSpectrum& spectrum, std::size_t bin);

// The frequency that a bin stands for, in Hz. The bins of the upper half mirror those of the lower one.
[[nodiscard]] double true_frequency(const ComputedSpectrum& spectrum, std::size_t bin);
[[nodiscard]] bool is_mirrored(const ComputedSpectrum& spectrum, std::size_t bin);

// Seconds; none for bin 0, which is the mean.
[[nodiscard]] std::optional<double> period_of(const ComputedSpectrum& spectrum, std::size_t bin);

// One sentence about extrapolated and missing samples; empty when there are none but the newest.
[[nodiscard]] std::string doubt_of(const ComputedSpectrum& spectrum);

// A line for each bin under the heading "bin,axis_frequency,magnitude,phase,frequency,period,mirrored": the place on
// the chart's axis, the true frequency in Hz, its period in seconds, and 1 for a bin of the mirrored half. Numbers read
// back exactly, with a decimal point in every locale; what is not finite, or is not there, is left empty.
[[nodiscard]] std::string csv_of(const ComputedSpectrum& spectrum);

} // namespace tickervantage
