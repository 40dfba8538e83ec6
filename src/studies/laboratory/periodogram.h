// Which rhythms a clock's values have: their power spectral density, and the peaks in it that noise does not make.
//
// The density is one-sided and normalised so that its integral over all frequencies is the variance of the values;
// their mean is removed, on demand their trend. Values in even steps go through an FFT, padded with zeros; others
// through N. R. Lomb's and J. D. Scargle's periodogram (Astrophysics and Space Science 39, 1976; Astrophysical Journal
// 263, 1982), its sums worked out on a grid as W. H. Press and G. B. Rybicki do. All values count, none are averaged
// beforehand. Pure functions, any thread: a second of work for a million values.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tickervantage {

// Times in seconds, increasing; values in a unit of the caller's.
struct UnevenSeries {
    std::vector<double> times;
    std::vector<double> values;
};

enum class KnownPeriod : unsigned char { week, day, half_day, hour, poll_interval };

// A range of neighbouring frequencies, taken together.
struct SpectralBand {
    double from = 0; // Hz
    double to = 0;
    double density = 0; // unit² / Hz, the mean; the true one lies with 95 % between the limits
    double low = 0;
    double high = 0;
    double smallest = 0; // of the single ones
    double largest = 0;
};

struct SpectralPeak {
    double frequency = 0; // Hz
    double density = 0;   // unit² / Hz
    double amplitude = 0; // unit: of a sine of that frequency; the true one lies with 95 % between the limits
    double amplitude_low = 0;
    double amplitude_high = 0;
    double false_alarm = 0; // how probable it is that noise alone makes such a peak anywhere in the spectrum
    std::optional<KnownPeriod> known;

    [[nodiscard]] double period() const { return 1 / frequency; } // s
};

struct Periodogram {
    bool is_even = false;
    std::size_t count = 0;
    double span = 0;                      // s
    double variance = 0;                  // unit²
    double step = 0;                      // Hz
    std::vector<float> density = {};      // unit² / Hz, at 1, 2, … steps
    std::vector<SpectralBand> bands = {}; // by frequency, twenty a decade or fewer
    std::vector<SpectralPeak> peaks = {}; // the strongest first
};

inline constexpr double largest_false_alarm = 0.01; // of the peaks that are told
inline constexpr std::size_t most_peaks = 8;

struct PeriodogramQuestion {
    bool removes_trend = false; // a straight line
};

// Fails with fewer values than make a spectrum, and where all are the same.
[[nodiscard]] Result<Periodogram> periodogram_of(const UnevenSeries& series, const PeriodogramQuestion& question = {});

} // namespace tickervantage
