#include "studies/freqtemp/matrix.h"

#include <Eigen/Dense>

#include <cmath>

namespace tickervantage {
namespace {

using Dense = Eigen::MatrixXd;
using DenseView = Eigen::Map<const Dense>;
using Scale = Eigen::VectorXd;

DenseView view(const Matrix& matrix) {
    return {matrix.rows() == 0 ? nullptr : matrix.data(), static_cast<Eigen::Index>(matrix.rows()),
            static_cast<Eigen::Index>(matrix.columns())};
}

Matrix matrix_of(const Dense& dense) {
    Matrix result(static_cast<std::size_t>(dense.rows()), static_cast<std::size_t>(dense.cols()));
    Eigen::Map<Dense>(result.data(), dense.rows(), dense.cols()) = dense;
    return result;
}

// The power of two nearest to 1 / sqrt(size): scaling by it rounds nothing.
double balancing(double size) {
    return size > 0 && std::isfinite(size) ? std::exp2(std::round(-0.5 * std::log2(size))) : 1;
}

// rows * matrix * columns, with the largest number of every row and column near 1.
struct Balanced {
    explicit Balanced(const DenseView& matrix)
        : scaled(matrix), rows(Scale::Ones(matrix.rows())), columns(Scale::Ones(matrix.cols())) {
        constexpr int ROUNDS = 16; // each halves how many digits the sizes are apart
        for (int round = 0; round < ROUNDS && !balance(); ++round) {
        }
    }

    Dense scaled;
    Scale rows;
    Scale columns;

private:
    // True when nothing is left to do.
    bool balance() {
        const Scale by_row = scaled.cwiseAbs().rowwise().maxCoeff().unaryExpr(&balancing);
        const Scale by_column = scaled.cwiseAbs().colwise().maxCoeff().transpose().unaryExpr(&balancing);
        scaled = by_row.asDiagonal() * scaled * by_column.asDiagonal();
        rows = rows.cwiseProduct(by_row);
        columns = columns.cwiseProduct(by_column);
        return (by_row.array() == 1).all() && (by_column.array() == 1).all();
    }
};

} // namespace

Matrix Matrix::transpose() const {
    return matrix_of(view(*this).transpose());
}

int Matrix::product(const Matrix& other, Matrix& result) const {
    if (m_columns != other.m_rows)
        return -1;
    result = matrix_of(view(*this) * view(other));
    return 0;
}

int Matrix::difference(const Matrix& other, Matrix& result) const {
    if (m_rows != other.m_rows || m_columns != other.m_columns)
        return -1;
    result = matrix_of(view(*this) - view(other));
    return 0;
}

int Matrix::invert(Matrix& result) const {
    if (m_rows != m_columns || m_rows == 0 || !view(*this).allFinite())
        return -1;
    const Balanced balanced(view(*this));
    const Eigen::FullPivLU<Dense> parts(balanced.scaled);
    if (!parts.isInvertible())
        return -1;
    const Dense inverse = balanced.columns.asDiagonal() * parts.inverse() * balanced.rows.asDiagonal();
    if (!inverse.allFinite())
        return -1;
    result = matrix_of(inverse);
    return 0;
}

int Matrix::determinant(double& result) const {
    if (m_rows != m_columns || m_rows == 0)
        return -1;
    result = view(*this).determinant();
    return 0;
}

} // namespace tickervantage
