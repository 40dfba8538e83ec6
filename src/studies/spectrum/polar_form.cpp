#include "studies/spectrum/polar_form.h"

#include <cmath>
#include <cstddef>

namespace tickervantage {

void polar_form(std::span<const kiss_fft_cpx> numbers, double* magnitudes, double* phases) {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const double re = numbers[i].r;
        const double im = numbers[i].i;
        magnitudes[i] = std::sqrt(re * re + im * im);
    }
    for (std::size_t i = 0; i < numbers.size(); ++i)
        phases[i] = std::atan2(static_cast<double>(numbers[i].i), static_cast<double>(numbers[i].r));
}

} // namespace tickervantage
