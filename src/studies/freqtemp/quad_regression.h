// A polynomial fitted by least squares, with how good the fit is.
//
// x is a temperature in degrees Celsius and y a frequency in ppm where this program uses it, but any numbers do. The
// fit is made against the columns 1, x, x^2, x^4, x^8 and so on, each after the second the square of the one before,
// while evaluate() reads the coefficients as those of 1, x, x^2, x^3: up to degree 2 that is the same, above it is not.
// That is deliberate. Saved maps hold coefficients made this way.
//
// One thread at a time. A scatter entry shares its fit with whoever shows it; only the main thread changes that one.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tickervantage {

// Part of the samples, in two columns of the same length. Borrowed.
struct SampleSpan {
    std::span<const double> x;
    std::span<const double> y;
};

class QuadRegression {
public:
    double r = 0;                     // sqrt(1 - SSE / SST); 0 unless valid
    double y_stddev = 0;              // of the residuals, sqrt(SSE / (n - 1)); 0 unless valid
    double x_min = 0;                 // smallest x of the last attempt
    double x_max = 0;                 // largest x of the last attempt
    std::vector<double> coefficients; // of the powers 0, 1, and so on; zeros unless valid
    bool valid = false;               // look at this before the others

    // Fits a polynomial of degree `order`, 1 or more. 0, or -1: no samples, columns of different lengths, all y equal,
    // too few different x, or a fit worse than the mean. Whatever stood here before is gone either way; only x_min and
    // x_max stay when there were no samples or they did not pair up.
    [[nodiscard]] int fit(std::span<const double> x, std::span<const double> y, int order);

    // The same for samples that lie in several places.
    [[nodiscard]] int fit(std::span<const SampleSpan> samples, int order);

    // The polynomial at x; 0 without coefficients.
    [[nodiscard]] double evaluate(double x) const;

    friend bool operator==(const QuadRegression&, const QuadRegression&) = default;

private:
    [[nodiscard]] int least_squares(std::span<const SampleSpan> samples, std::size_t count, std::size_t columns);
};

} // namespace tickervantage
