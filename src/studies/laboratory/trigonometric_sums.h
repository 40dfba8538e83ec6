// Fourier sums of values at any times, many frequencies at once: the values are spread over an even grid, which is
// transformed, and what the spreading took from each frequency is put back. Pure functions, any thread: a second of
// work for a million values.
//
// Where W. H. Press and G. B. Rybicki ("Fast algorithm for spectral analysis of unevenly sampled data", 1989) spread a
// value by interpolation, a narrow bell is used here, as A. Dutt and V. Rokhlin ("Fast Fourier transforms for
// nonequispaced data", 1993) do: a fourth of the grid suffices for five digits.
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace tickervantage {

// For k = 1 to `frequencies`: the sum of values[j] × e^(2 pi i k phases[j]). Phases count in turns, from 0 to 1. In
// single precision.
[[nodiscard]] std::vector<std::complex<float>>
trigonometric_sums(std::span<const double> phases, std::span<const double> values, std::size_t frequencies);

// The same of values at even times, with `length` steps to a turn: at k = 1 to half of the length, which is even.
[[nodiscard]] std::vector<std::complex<float>> even_sums(std::span<const double> values, std::size_t length);

// The next even length that is transformed quickly.
[[nodiscard]] std::size_t quick_length(std::size_t least);

} // namespace tickervantage
