// The columns of a fit's design matrix, a block of samples at a time.
//
// The columns that the fit is defined by are 1, x and then, each time, the square of the column before: 1, x, x^2, x^4,
// x^8. Over a narrow range of large x (44 to 46 degrees) they are so nearly the same that normal equations made of them
// drown in rounding. So each column has the multiples of the columns before it taken off that leave, of its Taylor
// series around the range's middle, the terms before its own: 1, t, t^2, a t^3 + t^4, with t = x - middle. They span
// the same polynomials, so the fit is the same one; in_powers() gives its coefficients for the columns as defined.
#pragma once

#include "studies/freqtemp/matrix.h"
#include "studies/freqtemp/quad_regression.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace tickervantage {

class DesignColumns {
public:
    static constexpr std::size_t BLOCK = 512; // samples whose columns stay in the processor's cache

    DesignColumns(double x_min, double x_max, std::size_t columns);

    // Calls use(y of a block) after the block's columns were filled in.
    template <class Use>
    void for_each_block(std::span<const SampleSpan> samples, const Use& use) {
        for (const auto& part : samples)
            for (std::size_t first = 0; first < part.x.size(); first += BLOCK) {
                const std::size_t count = std::min(BLOCK, part.x.size() - first);
                fill(part.x.subspan(first, count));
                use(part.y.subspan(first, count));
            }
    }

    [[nodiscard]] std::size_t count() const { return m_columns; }
    [[nodiscard]] const double* column(std::size_t number) const { return m_values.data() + number * BLOCK; }

    // The coefficients of 1, x, x^2, x^4 and so on, from those of these columns.
    [[nodiscard]] std::vector<double> in_powers(const Matrix& coefficients) const;

private:
    void square_columns();
    void reduce_columns();
    void fill(std::span<const double> x);
    void fill_reduced(std::size_t number, std::size_t samples);

    std::size_t m_columns;
    double m_middle = 0; // 0: the columns are as defined
    // By column: what is left of its Taylor series, and the multiples of earlier columns taken off it.
    std::vector<std::vector<double>> m_series;
    Matrix m_taken_off;
    std::vector<double> m_values;
};

} // namespace tickervantage
