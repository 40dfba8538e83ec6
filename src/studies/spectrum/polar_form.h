// Complex numbers as magnitude and phase, many at once.
//
// In a file of its own, compiled with the options that let the compiler use the C library's vector functions; with
// those of the rest, this would take as long as the transform itself. Pure; any thread.
#pragma once

#include <kissfft/kiss_fft.h>

#include <span>

namespace tickervantage {

// Writes as many magnitudes and phases (radians, from -pi to pi) as there are numbers.
void polar_form(std::span<const kiss_fft_cpx> numbers, double* magnitudes, double* phases);

} // namespace tickervantage
