#include "studies/freqtemp/design_columns.h"

#include <cmath>

namespace tickervantage {
namespace {

constexpr double NARROW = 2;             // a range is narrow when its middle is this many times its half width
constexpr std::size_t MOST_EXPANDED = 9; // columns; the Taylor series of the last has 129 terms

std::vector<double> squared(const std::vector<double>& series) {
    std::vector<double> result(2 * series.size() - 1);
    for (std::size_t i = 0; i < series.size(); ++i)
        for (std::size_t k = 0; k < series.size(); ++k)
            result[i + k] += series[i] * series[k];
    return result;
}

} // namespace

DesignColumns::DesignColumns(double x_min, double x_max, std::size_t columns)
    : m_columns(columns), m_taken_off(columns, columns), m_values(columns * BLOCK, 1.0) {
    const double middle = x_min + (x_max - x_min) / 2;
    if (columns > MOST_EXPANDED || !(std::abs(middle) > NARROW * (x_max - x_min) / 2))
        return;
    m_middle = middle;
    square_columns();
    reduce_columns();
}

// The Taylor series of 1, x, x^2, x^4, each after the second the square of the one before.
void DesignColumns::square_columns() {
    m_series = {{1}, {m_middle, 1}};
    while (m_series.size() < m_columns)
        m_series.push_back(squared(m_series.back()));
}

void DesignColumns::reduce_columns() {
    for (std::size_t column = 1; column < m_columns; ++column)
        for (std::size_t before = 0; before < column; ++before) {
            const auto& pattern = m_series[before];
            auto& series = m_series[column];
            const double factor = series[before] / pattern[before];
            for (std::size_t term = before; term < pattern.size(); ++term)
                series[term] -= factor * pattern[term];
            m_taken_off(before, column) = factor;
        }
}

void DesignColumns::fill(std::span<const double> x) {
    double* first = m_values.data() + BLOCK;
    for (std::size_t i = 0; i < x.size(); ++i)
        first[i] = x[i] - m_middle;
    for (std::size_t column = 2; column < m_columns; ++column) {
        if (m_middle != 0) {
            fill_reduced(column, x.size());
            continue;
        }
        const double* before = m_values.data() + (column - 1) * BLOCK;
        double* values = m_values.data() + column * BLOCK;
        for (std::size_t i = 0; i < x.size(); ++i)
            values[i] = before[i] * before[i]; // squared, not times x once more
    }
}

// The series from the column's own term on, times t as often as that term has it.
void DesignColumns::fill_reduced(std::size_t number, std::size_t samples) {
    const double* t = column(1);
    const auto& series = m_series[number];
    double* values = m_values.data() + number * BLOCK;
    std::fill_n(values, samples, series.back());
    for (std::size_t term = series.size() - 1; term-- > number;)
        for (std::size_t i = 0; i < samples; ++i)
            values[i] = values[i] * t[i] + series[term];
    for (std::size_t times = 0; times < number; ++times)
        for (std::size_t i = 0; i < samples; ++i)
            values[i] *= t[i];
}

std::vector<double> DesignColumns::in_powers(const Matrix& coefficients) const {
    std::vector<double> result(m_columns);
    for (std::size_t column = m_columns; column-- > 0;) {
        result[column] = coefficients(column, 0);
        for (std::size_t later = column + 1; later < m_columns; ++later)
            result[column] -= m_taken_off(column, later) * result[later];
    }
    return result;
}

} // namespace tickervantage
