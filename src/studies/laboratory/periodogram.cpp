#include "studies/laboratory/periodogram.h"

#include "base/failure_codes.h"
#include "base/quantile.h"
#include "studies/laboratory/degrees_of_freedom.h"
#include "studies/laboratory/spectral_peaks.h"
#include "studies/laboratory/trigonometric_sums.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numeric>

namespace tickervantage {
namespace {

constexpr std::size_t fewest_values = 16;
constexpr std::size_t most_frequencies = std::size_t{1} << 21U;
constexpr double steps_per_look = 2; // so that no peak falls between two frequencies
constexpr double half = 0.5;
constexpr double confidence = 0.95;
constexpr double band_growth = 1.122; // twenty bands a decade
constexpr double one_step = 1e-6;     // of it two even steps may differ

using Sums = std::vector<std::complex<float>>;

double mean_of(const std::vector<double>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

// Less their mean, or the straight line that fits them best.
std::vector<double> levelled(const UnevenSeries& series, bool removes_trend) {
    std::vector<double> values = series.values;
    const double middle = mean_of(series.times);
    const double mean = mean_of(values);
    double together = 0;
    double alone = 0;
    for (std::size_t at = 0; removes_trend && at < values.size(); ++at) {
        together += (series.times[at] - middle) * (values[at] - mean);
        alone += (series.times[at] - middle) * (series.times[at] - middle);
    }
    const double slope = alone > 0 ? together / alone : 0;
    for (std::size_t at = 0; at < values.size(); ++at)
        values[at] -= mean + slope * (series.times[at] - middle);
    return values;
}

std::vector<double> steps_of(const std::vector<double>& times) {
    std::vector<double> steps(times.size());
    std::adjacent_difference(times.begin(), times.end(), steps.begin());
    steps.erase(steps.begin());
    return steps;
}

// The power of a fitted sine times half the number of values, in variances: Lomb's and Scargle's, without the half of a
// variance below. `doubled` are the sums of 1 at twice the frequency.
double lomb_scargle(std::complex<double> sum, std::complex<double> doubled, double count) {
    const double length = std::abs(doubled);
    const double cos_double = length > 0 ? doubled.real() / length : 1;
    const double cosine = std::sqrt(half * std::max(0.0, 1 + cos_double));
    const double sine = std::copysign(std::sqrt(half * std::max(0.0, 1 - cos_double)), doubled.imag());
    const double even = half * (count + length);
    const double odd = std::max(half * (count - length), 1e-6 * count);
    const double along = cosine * sum.real() + sine * sum.imag();
    const double across = cosine * sum.imag() - sine * sum.real();
    return half * (along * along / even + across * across / odd);
}

struct Powers {
    double step = 0;           // Hz
    std::vector<float> power;  // as lomb_scargle() has it
    std::vector<float> window; // as SpectrumAtHand has it
};

std::vector<float> squares_of(const Sums& sums, double divisor) {
    std::vector<float> squares(sums.size());
    std::ranges::transform(sums, squares.begin(), [divisor](const std::complex<float>& sum) {
        return static_cast<float>(std::norm(std::complex<double>(sum)) / divisor);
    });
    return squares;
}

Powers even_powers(const std::vector<double>& values, double tau) {
    const auto count = static_cast<double>(values.size());
    const std::size_t length = quick_length(static_cast<std::size_t>(steps_per_look) * values.size());
    Powers powers{.step = 1 / (static_cast<double>(length) * tau), .power = {}, .window = {}};
    powers.power = squares_of(even_sums(values, length), count);
    powers.power.back() *= static_cast<float>(half); // it has no mirror image
    const std::vector<double> ones(values.size(), 1);
    powers.window = squares_of(even_sums(ones, length), count * count);
    return powers;
}

Powers uneven_powers(const UnevenSeries& series, const std::vector<double>& values, double tau) {
    const auto count = static_cast<double>(values.size());
    const double span = series.times.back() - series.times.front() + tau;
    Powers powers{.step = 1 / (steps_per_look * span), .power = {}, .window = {}};
    const auto frequencies =
        static_cast<std::size_t>(std::clamp(half / tau / powers.step, 1.0, static_cast<double>(most_frequencies)));
    std::vector<double> phases(values.size());
    std::ranges::transform(series.times, phases.begin(),
                           [&](double time) { return (time - series.times.front()) * powers.step; });
    const Sums sums = trigonometric_sums(phases, values, frequencies);
    const std::vector<double> ones(values.size(), 1);
    powers.window = squares_of(trigonometric_sums(phases, ones, frequencies), count * count);
    for (double& phase : phases)
        phase = 2 * phase - std::floor(2 * phase);
    const Sums doubled = trigonometric_sums(phases, ones, frequencies);
    powers.power.resize(frequencies);
    for (std::size_t at = 0; at < frequencies; ++at)
        powers.power[at] = static_cast<float>(lomb_scargle(sums[at], doubled[at], count));
    return powers;
}

SpectralBand band_of(const Periodogram& found, std::size_t from, std::size_t to) {
    const auto begin = found.density.begin() + static_cast<std::ptrdiff_t>(from - 1);
    const auto end = found.density.begin() + static_cast<std::ptrdiff_t>(to - 1);
    const auto [smallest, largest] = std::minmax_element(begin, end);
    const auto count = static_cast<double>(to - from);
    SpectralBand band{.from = (static_cast<double>(from) - half) * found.step,
                      .to = (static_cast<double>(to) - half) * found.step,
                      .density = std::accumulate(begin, end, 0.0) / count,
                      .smallest = *smallest,
                      .largest = *largest};
    const double degrees = 2 * std::max(1.0, count / steps_per_look);
    if (const auto limits = limits_of(std::sqrt(band.density), degrees, confidence)) {
        band.low = limits->low * limits->low;
        band.high = limits->high * limits->high;
    }
    return band;
}

std::vector<SpectralBand> bands_of(const Periodogram& found) {
    std::vector<SpectralBand> bands;
    for (std::size_t from = 2, to = 0; from <= found.density.size(); from = to) {
        to = std::max(from + static_cast<std::size_t>(steps_per_look),
                      static_cast<std::size_t>(static_cast<double>(from) * band_growth));
        to = std::min(to, found.density.size() + 1);
        bands.push_back(band_of(found, from, to));
    }
    return bands;
}

} // namespace

Result<Periodogram> periodogram_of(const UnevenSeries& series, const PeriodogramQuestion& question) {
    if (series.values.size() < fewest_values)
        return failed(FailureCode::too_few_for_spectrum, {std::to_string(fewest_values)});
    std::vector<double> values = levelled(series, question.removes_trend);
    Periodogram found{.count = values.size(), .span = series.times.back() - series.times.front()};
    found.variance =
        std::inner_product(values.begin(), values.end(), values.begin(), 0.0) / static_cast<double>(values.size());
    if (!(found.variance > 0))
        return failed(FailureCode::nothing_varies);
    for (double& value : values)
        value /= std::sqrt(found.variance); // fit for single precision
    auto steps = steps_of(series.times);
    const auto [shortest, longest] = std::ranges::minmax(steps);
    found.is_even = longest - shortest <= one_step * longest;
    const double tau = found.is_even ? found.span / static_cast<double>(steps.size()) : quantile(steps, half);
    Powers powers = found.is_even ? even_powers(values, tau) : uneven_powers(series, values, tau);
    found.step = powers.step;
    const double all = std::accumulate(powers.power.begin(), powers.power.end(), 0.0);
    const double scale = found.variance / (all * found.step);
    // A sine of amplitude A has the power count × A² / 4: so long a time do the values stand for.
    const double observed = scale * static_cast<double>(values.size()) / (2 * found.variance);
    for (float& power : powers.power)
        power = static_cast<float>(power * scale);
    found.density = std::move(powers.power);
    found.bands = bands_of(found);
    found.peaks = peaks_of({found.density, powers.window, found.step, steps_per_look, observed});
    return found;
}

} // namespace tickervantage
