#include "studies/spectrum/transform.h"

#include "studies/spectrum/polar_form.h"

#include <kissfft/kiss_fftr.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

namespace tickervantage {
namespace {

struct FreeSetup {
    void operator()(void* setup) const { kiss_fft_free(setup); }
};
using RealSetup = std::unique_ptr<kiss_fftr_state, FreeSetup>;
using Setup = std::unique_ptr<kiss_fft_state, FreeSetup>;

// Several maxima side by side: one alone would wait for the comparison before it at every step.
double largest_element(std::span<const double> values) {
    constexpr std::size_t LANES = 4;
    std::array<double, LANES> high{};
    std::array<double, LANES> low{};
    std::size_t at = 0;
    for (; at + LANES <= values.size(); at += LANES)
        for (std::size_t lane = 0; lane < LANES; ++lane) {
            const double value = values[at + lane];
            high[lane] = value > high[lane] ? value : high[lane];
            low[lane] = value < low[lane] ? value : low[lane];
        }
    for (; at < values.size(); ++at) {
        high[0] = std::max(high[0], values[at]);
        low[0] = std::min(low[0], values[at]);
    }
    const double highest = std::ranges::max(high);
    const double lowest = std::ranges::min(low);
    return highest >= -lowest ? highest : lowest;
}

void divide_by_largest(std::span<double> values) {
    const double largest = largest_element(values);
    if (largest == 0)
        return;
    for (double& value : values)
        value /= largest;
}

// The bins 0 to P/2; the others mirror them, since the input is real.
using Bins = std::vector<kiss_fft_cpx>;

float scaled(double value, double divisor) {
    return static_cast<float>(value / divisor);
}

Bins even_length(std::span<const double> values, double divisor) {
    Bins bins(values.size() / 2 + 1);
    const RealSetup setup(kiss_fftr_alloc(static_cast<int>(values.size()), 0, nullptr, nullptr));
    if (!setup)
        throw std::bad_alloc();
    std::vector<float> input(values.size());
    std::ranges::transform(values, input.begin(), [divisor](double value) { return scaled(value, divisor); });
    kiss_fftr(setup.get(), input.data(), bins.data());
    return bins;
}

Bins odd_length(std::span<const double> values, double divisor) {
    Bins bins(values.size());
    const Setup setup(kiss_fft_alloc(static_cast<int>(values.size()), 0, nullptr, nullptr));
    if (!setup)
        throw std::bad_alloc();
    Bins input(values.size());
    std::ranges::transform(values, input.begin(), [divisor](double value) {
        return kiss_fft_cpx{scaled(value, divisor), 0};
    });
    kiss_fft(setup.get(), input.data(), bins.data());
    bins.resize(values.size() / 2 + 1);
    return bins;
}

SpectrumPair transform(std::span<const double> values, double divisor) {
    const std::size_t length = values.size();
    if (length == 0)
        return {};
    const Bins bins = length % 2 == 0 ? even_length(values, divisor) : odd_length(values, divisor);
    SpectrumPair result{std::vector<double>(length), std::vector<double>(length)};
    polar_form(bins, result.magnitudes.data(), result.phases.data());
    for (std::size_t bin = bins.size(); bin < length; ++bin) {
        result.magnitudes[bin] = result.magnitudes[length - bin];
        result.phases[bin] = -result.phases[length - bin];
    }
    return result;
}

} // namespace

std::vector<double> normalise(std::span<const double> values) {
    std::vector<double> result(values.begin(), values.end());
    divide_by_largest(result);
    return result;
}

SpectrumPair dft(std::span<const double> values) {
    return transform(values, 1);
}

// Without copies in between: with them it would take half as long again.
SpectrumPair spectrumOf(std::span<const double> values) {
    const double largest = largest_element(values);
    SpectrumPair bins = transform(values, largest == 0 ? 1 : largest);
    divide_by_largest(bins.magnitudes);
    divide_by_largest(bins.phases);
    return bins;
}

} // namespace tickervantage
