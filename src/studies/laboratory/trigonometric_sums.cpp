#include "studies/laboratory/trigonometric_sums.h"

#include <kissfft/kiss_fftr.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <new>
#include <numbers>

namespace tickervantage {
namespace {

constexpr std::ptrdiff_t bell_width = 6; // steps of the grid
constexpr double bell_shape = 13.8;      // how steep it is: 2.3 for each step
constexpr std::size_t grid_steps = 4;    // for each frequency: as many again as the highest one asks for
constexpr double half = 0.5;

struct FreeSetup {
    void operator()(void* setup) const { kiss_fft_free(setup); }
};

// In steps of the grid from its middle; 0 beyond half its width.
double bell(double place) {
    const double share = place / (half * bell_width);
    const double rest = 1 - share * share;
    return rest > 0 ? std::exp(bell_shape * (std::sqrt(rest) - 1)) : 0;
}

// What the bell leaves of frequencies: its Fourier transform, by the trapezoidal rule, which is as good as exact for a
// function that ends so flat.
class Loss {
public:
    Loss() {
        for (std::size_t part = 0; part < m_heights.size(); ++part)
            m_heights.at(part) = bell(place_of(part)) * step;
    }
    // Of a frequency of so many turns a step of the grid.
    [[nodiscard]] double at(double turns) const {
        double sum = half * m_heights.front();
        for (std::size_t part = 1; part < m_heights.size(); ++part)
            sum += m_heights.at(part) * std::cos(2 * std::numbers::pi * turns * place_of(part));
        return 2 * sum;
    }

private:
    static constexpr double step = 0.05;
    [[nodiscard]] static double place_of(std::size_t part) { return static_cast<double>(part) * step; }
    std::array<double, 60> m_heights{}; // from the middle to one end
};

// The same for k = 1 to `frequencies` on a grid of `length`: worked out for some, on straight lines between them.
std::vector<float> losses(std::size_t frequencies, std::size_t length) {
    constexpr std::size_t known = 512;
    std::array<double, known + 2> table{};
    const Loss loss;
    const double step = static_cast<double>(frequencies) / static_cast<double>(length) / known;
    for (std::size_t at = 0; at < table.size(); ++at)
        table.at(at) = loss.at(static_cast<double>(at) * step);
    std::vector<float> found(frequencies);
    for (std::size_t k = 1; k <= frequencies; ++k) {
        const double place = static_cast<double>(k) / static_cast<double>(frequencies) * known;
        const auto below = static_cast<std::size_t>(place);
        const double rest = place - std::floor(place);
        found[k - 1] = static_cast<float>(table.at(below) + rest * (table.at(below + 1) - table.at(below)));
    }
    return found;
}

void spread(double place, double value, std::vector<float>& grid) {
    const auto size = static_cast<std::ptrdiff_t>(grid.size());
    const auto first = static_cast<std::ptrdiff_t>(std::ceil(place - half * bell_width));
    for (std::ptrdiff_t at = first; at < first + bell_width; ++at) {
        const auto cell = static_cast<std::size_t>(at < 0 ? at + size : at >= size ? at - size : at);
        grid[cell] += static_cast<float>(value * bell(static_cast<double>(at) - place));
    }
}

// From k = 1 on, of e^(+ 2 pi i …): the library's have the other sign.
std::vector<std::complex<float>> transformed(const std::vector<float>& grid, std::size_t frequencies) {
    const std::unique_ptr<kiss_fftr_state, FreeSetup> setup(
        kiss_fftr_alloc(static_cast<int>(grid.size()), 0, nullptr, nullptr));
    if (!setup)
        throw std::bad_alloc();
    std::vector<kiss_fft_cpx> bins(grid.size() / 2 + 1);
    kiss_fftr(setup.get(), grid.data(), bins.data());
    std::vector<std::complex<float>> sums(frequencies);
    for (std::size_t k = 1; k <= frequencies; ++k)
        sums[k - 1] = {bins[k].r, -bins[k].i};
    return sums;
}

} // namespace

std::size_t quick_length(std::size_t least) {
    return static_cast<std::size_t>(kiss_fftr_next_fast_size_real(static_cast<int>(least)));
}

std::vector<std::complex<float>> trigonometric_sums(std::span<const double> phases, std::span<const double> values,
                                                    std::size_t frequencies) {
    const std::size_t length =
        quick_length(std::max<std::size_t>(grid_steps * frequencies, std::size_t{4} * bell_width));
    std::vector<float> grid(length);
    for (std::size_t at = 0; at < phases.size(); ++at)
        spread(phases[at] * static_cast<double>(length), values[at], grid);
    auto sums = transformed(grid, frequencies);
    const auto left = losses(frequencies, length);
    for (std::size_t at = 0; at < frequencies; ++at)
        sums[at] /= left[at];
    return sums;
}

std::vector<std::complex<float>> even_sums(std::span<const double> values, std::size_t length) {
    std::vector<float> grid(length);
    std::ranges::transform(values, grid.begin(), [](double value) { return static_cast<float>(value); });
    return transformed(grid, length / 2);
}

} // namespace tickervantage
