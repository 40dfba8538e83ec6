// The discrete Fourier transform of a real series, as the spectrum needs it.
//
// Arrays of any length P, also 1 and 2; powers of two are fastest. Forward, e^(-2 pi i jk/P), unscaled, in single
// precision, results as doubles. Phases in radians, from -pi to pi. A value that is not finite spreads over the whole
// result. Pure functions, any thread.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tickervantage {

inline constexpr std::size_t longest_transform = std::size_t{1} << 24U;

struct SpectrumPair {
    std::vector<double> magnitudes;
    std::vector<double> phases; // of the same length
};

// Divides every element by the one of largest absolute value, so that all lie in [-1, 1]; where a positive and a
// negative one are equally large, by the positive one. Zeros stay zeros.
[[nodiscard]] std::vector<double> normalise(std::span<const double> values);

// The magnitude and phase of every bin. `values` no longer than longest_transform.
[[nodiscard]] SpectrumPair dft(std::span<const double> values);

// The same of the normalised values, with magnitudes and phases normalised in their turn.
[[nodiscard]] SpectrumPair spectrumOf(std::span<const double> values);

} // namespace tickervantage
