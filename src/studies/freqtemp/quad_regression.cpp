#include "studies/freqtemp/quad_regression.h"

#include "studies/freqtemp/design_columns.h"
#include "studies/freqtemp/matrix.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tickervantage {
namespace {

constexpr int LARGEST_ORDER = 16; // far above what doubles can tell apart
constexpr std::size_t BLOCK = DesignColumns::BLOCK;

// Four sums side by side: quick, and less is lost to rounding than in one.
template <class Term>
double sum_of(std::size_t count, const Term& term) {
    std::array<double, 4> sums{};
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4)
        for (std::size_t k = 0; k < 4; ++k)
            sums[k] += term(i + k);
    for (; i < count; ++i)
        sums[0] += term(i);
    return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

// Xt X, a block at a time, so that no matrix as long as the samples is made.
Matrix normal_matrix(std::span<const SampleSpan> samples, DesignColumns& design) {
    const std::size_t columns = design.count();
    Matrix result(columns, columns);
    design.for_each_block(samples, [&](std::span<const double> y) {
        for (std::size_t row = 0; row < columns; ++row)
            for (std::size_t column = row; column < columns; ++column) {
                const double* left = design.column(row);
                const double* right = design.column(column);
                result(row, column) += sum_of(y.size(), [=](std::size_t i) { return left[i] * right[i]; });
            }
    });
    for (std::size_t row = 1; row < columns; ++row)
        for (std::size_t column = 0; column < row; ++column)
            result(row, column) = result(column, row); // NOLINT(readability-suspicious-call-argument): symmetric
    return result;
}

// The columns of a block, each times its factor, added up by sample.
using BlockSums = std::array<double, BLOCK>;
void combine(const DesignColumns& design, const Matrix& factors, std::size_t samples, BlockSums& sums) {
    std::fill_n(sums.begin(), samples, factors(0, 0));
    for (std::size_t column = 1; column < design.count(); ++column) {
        const double factor = factors(column, 0);
        const double* values = design.column(column);
        for (std::size_t i = 0; i < samples; ++i)
            sums[i] += factor * values[i];
    }
}

Matrix row_of(const Matrix& matrix, std::size_t row) {
    Matrix result(matrix.columns(), 1);
    for (std::size_t column = 0; column < matrix.columns(); ++column)
        result(column, 0) = matrix(row, column);
    return result;
}

// (inverse Xt) Y: the samples' weights first, then their sum, for inverse (Xt Y) would lose more to rounding.
Matrix weighted_sums(std::span<const SampleSpan> samples, DesignColumns& design, const Matrix& inverse) {
    Matrix result(design.count(), 1);
    std::vector<Matrix> rows;
    for (std::size_t row = 0; row < design.count(); ++row)
        rows.push_back(row_of(inverse, row));
    BlockSums weights;
    design.for_each_block(samples, [&](std::span<const double> y) {
        for (std::size_t row = 0; row < design.count(); ++row) {
            combine(design, rows[row], y.size(), weights);
            result(row, 0) += sum_of(y.size(), [&](std::size_t i) { return weights[i] * y[i]; });
        }
    });
    return result;
}

// SSE, the sum of squared residuals Y - X B.
double residual_squares(std::span<const SampleSpan> samples, DesignColumns& design, const Matrix& b) {
    double result = 0;
    BlockSums fitted;
    design.for_each_block(samples, [&](std::span<const double> y) {
        combine(design, b, y.size(), fitted);
        result += sum_of(y.size(), [&](std::size_t i) { return (y[i] - fitted[i]) * (y[i] - fitted[i]); });
    });
    return result;
}

bool all_same(std::span<const SampleSpan> samples, double y) {
    return std::ranges::all_of(samples, [y](const auto& part) {
        return std::ranges::all_of(part.y, [y](double other) { return other == y; });
    });
}

// SST, the squared distances from the mean.
double total_squares(std::span<const SampleSpan> samples, std::size_t count) {
    const auto first = std::ranges::find_if(samples, [](const auto& part) { return !part.y.empty(); });
    if (first == samples.end() || all_same(samples, first->y.front()))
        return 0; // where a rounded mean would leave a little
    double sum = 0;
    for (const auto& part : samples)
        sum += sum_of(part.y.size(), [&](std::size_t i) { return part.y[i]; });
    const double mean = sum / static_cast<double>(count);
    double result = 0;
    for (const auto& part : samples)
        result += sum_of(part.y.size(), [&](std::size_t i) { return (part.y[i] - mean) * (part.y[i] - mean); });
    return result;
}

// Whether there are so many different x. With fewer the normal matrix is singular, but rounding has made something else
// of it that no test of its rank tells from one that is only ill-conditioned.
bool has_different(std::span<const SampleSpan> samples, std::size_t wanted) {
    std::vector<double> found;
    for (const auto& part : samples)
        for (const double x : part.x) {
            if (std::ranges::find(found, x) != found.end())
                continue;
            found.push_back(x);
            if (found.size() >= wanted)
                return true;
        }
    return false;
}

bool all_paired(std::span<const SampleSpan> samples) {
    return std::ranges::all_of(samples, [](const auto& part) { return part.x.size() == part.y.size(); });
}

std::size_t count_of(std::span<const SampleSpan> samples) {
    std::size_t count = 0;
    for (const auto& part : samples)
        count += part.x.size();
    return count;
}

void find_range(std::span<const SampleSpan> samples, double& low, double& high) {
    bool is_first = true;
    for (const auto& part : samples)
        for (const double x : part.x) {
            low = is_first || x < low ? x : low;
            high = is_first || x > high ? x : high;
            is_first = false;
        }
}

} // namespace

int QuadRegression::fit(std::span<const double> x, std::span<const double> y, int order) {
    const SampleSpan all{x, y};
    return fit(std::span(&all, 1), order);
}

int QuadRegression::fit(std::span<const SampleSpan> samples, int order) {
    r = 0;
    y_stddev = 0;
    valid = false;
    const auto columns = static_cast<std::size_t>(std::clamp(order, 1, LARGEST_ORDER)) + 1;
    coefficients.assign(columns, 0.0);
    const std::size_t count = count_of(samples);
    if (count == 0 || !all_paired(samples))
        return -1;
    find_range(samples, x_min, x_max);
    return least_squares(samples, count, columns);
}

int QuadRegression::least_squares(std::span<const SampleSpan> samples, std::size_t count, std::size_t columns) {
    Matrix inverse;
    DesignColumns design(x_min, x_max, columns);
    if (!has_different(samples, columns) || normal_matrix(samples, design).invert(inverse) != 0)
        return -1;
    const Matrix b = weighted_sums(samples, design, inverse);
    const double sse = residual_squares(samples, design, b);
    const double sst = total_squares(samples, count);
    if (sst == 0 || !std::isfinite(sst) || !(sst >= sse)) // the last also when SSE is no number
        return -1;
    y_stddev = std::sqrt(sse / static_cast<double>(count - 1)); // different y take two samples at least
    r = std::sqrt(1 - sse / sst);
    coefficients = design.in_powers(b);
    valid = true;
    return 0;
}

double QuadRegression::evaluate(double x) const {
    double sum = 0;
    double power = 1;
    for (const double coefficient : coefficients) {
        sum += coefficient * power;
        power *= x;
    }
    return sum;
}

} // namespace tickervantage
