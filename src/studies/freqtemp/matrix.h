// A dense matrix of doubles, with what a fit by least squares needs.
//
// Operations return 0, or -1 and leave their result alone: shapes that do not fit, or a matrix that is singular as far
// as the numbers can tell. Rows and columns count from 0. Values; one thread at a time.
#pragma once

#include <cstddef>
#include <vector>

namespace tickervantage {

class Matrix {
public:
    Matrix() = default;
    Matrix(std::size_t rows, std::size_t columns) : m_rows(rows), m_columns(columns), m_values(rows * columns) {}

    [[nodiscard]] std::size_t rows() const { return m_rows; }
    [[nodiscard]] std::size_t columns() const { return m_columns; }
    [[nodiscard]] double& operator()(std::size_t row, std::size_t column) { return m_values[column * m_rows + row]; }
    [[nodiscard]] double operator()(std::size_t row, std::size_t column) const {
        return m_values[column * m_rows + row];
    }
    [[nodiscard]] const double* data() const { return m_values.data(); } // column after column
    [[nodiscard]] double* data() { return m_values.data(); }

    [[nodiscard]] Matrix transpose() const;
    [[nodiscard]] int product(const Matrix& other, Matrix& result) const;
    [[nodiscard]] int difference(const Matrix& other, Matrix& result) const;

    // Whether a matrix is singular is judged after its rows and columns were brought to the same size, so that columns
    // of very different size (1 and the eighth power of a temperature) do not make a good matrix look singular.
    [[nodiscard]] int invert(Matrix& result) const;
    [[nodiscard]] int determinant(double& result) const;

private:
    std::size_t m_rows = 0;
    std::size_t m_columns = 0;
    std::vector<double> m_values;
};

} // namespace tickervantage
