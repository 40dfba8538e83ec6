#include "studies/freqtemp/matrix.h"
#include "studies/freqtemp/quad_regression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace tickervantage {
namespace {

// Whole numbers as large as they come, in pieces of 32 bits: enough for elimination without fractions.
class Whole {
public:
    Whole(std::int64_t value = 0) : m_negative(value < 0) {
        for (auto rest = static_cast<std::uint64_t>(std::abs(value)); rest != 0; rest >>= 32U)
            m_pieces.push_back(static_cast<std::uint32_t>(rest));
    }
    friend Whole operator*(const Whole& a, const Whole& b) {
        Whole result;
        result.m_pieces.assign(a.m_pieces.size() + b.m_pieces.size(), 0);
        for (std::size_t i = 0; i < a.m_pieces.size(); ++i) {
            std::uint64_t carry = 0;
            for (std::size_t k = 0; k < b.m_pieces.size() || carry != 0; ++k) {
                carry += result.m_pieces[i + k];
                if (k < b.m_pieces.size())
                    carry += std::uint64_t{a.m_pieces[i]} * b.m_pieces[k];
                result.m_pieces[i + k] = static_cast<std::uint32_t>(carry);
                carry >>= 32U;
            }
        }
        result.m_negative = a.m_negative != b.m_negative;
        return result.trimmed();
    }
    friend Whole operator+(const Whole& a, const Whole& b) {
        if (a.m_negative == b.m_negative)
            return combined(a, b, 1);
        return smaller(a, b) ? combined(b, a, -1) : combined(a, b, -1);
    }
    friend Whole operator-(const Whole& a, Whole b) {
        b.m_negative = !b.m_negative;
        return a + b;
    }
    // As a fraction from 0.5 to 1 and a power of two.
    [[nodiscard]] long double parts(long& exponent) const {
        long double top = 0;
        const std::size_t used = std::min<std::size_t>(4, m_pieces.size());
        for (std::size_t i = 0; i < used; ++i)
            top = top * 4294967296.0L + m_pieces[m_pieces.size() - 1 - i];
        int shift = 0;
        top = std::frexp(top, &shift);
        exponent = shift + 32 * static_cast<long>(m_pieces.size() - used);
        return m_negative ? -top : top;
    }

private:
    static bool smaller(const Whole& a, const Whole& b) {
        if (a.m_pieces.size() != b.m_pieces.size())
            return a.m_pieces.size() < b.m_pieces.size();
        return std::lexicographical_compare(a.m_pieces.rbegin(), a.m_pieces.rend(), b.m_pieces.rbegin(),
                                            b.m_pieces.rend());
    }
    static Whole combined(const Whole& large, const Whole& other, int sign) {
        Whole result = large;
        result.m_pieces.resize(std::max(large.m_pieces.size(), other.m_pieces.size()) + 1);
        std::int64_t carry = 0;
        for (std::size_t i = 0; i < result.m_pieces.size(); ++i) {
            carry += result.m_pieces[i];
            if (i < other.m_pieces.size())
                carry += sign * std::int64_t{other.m_pieces[i]};
            result.m_pieces[i] = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
        return result.trimmed();
    }
    Whole& trimmed() {
        while (!m_pieces.empty() && m_pieces.back() == 0)
            m_pieces.pop_back();
        return *this;
    }

    std::vector<std::uint32_t> m_pieces; // the lowest first
    bool m_negative = false;
};

double quotient(const Whole& a, const Whole& b) {
    long up = 0;
    long down = 0;
    const long double top = a.parts(up);
    const long double bottom = b.parts(down);
    return top == 0 ? 0 : static_cast<double>(std::ldexp(top / bottom, static_cast<int>(up - down)));
}

// A double as so many 2^-40: exact for the temperatures and frequencies below.
constexpr double UNIT = 1.0 / (1 << 20);
double rounded(double value) {
    return std::round(value / UNIT) * UNIT;
}
Whole units(double value) {
    return static_cast<std::int64_t>(value / UNIT);
}

// The coefficients of 1, x, x^2, x^4, ... without any rounding before the last division.
std::vector<double> exact_fit(const std::vector<double>& x, const std::vector<double>& y, std::size_t columns) {
    std::vector<std::vector<Whole>> m(columns, std::vector<Whole>(columns + 1));
    for (std::size_t i = 0; i < x.size(); ++i) {
        std::vector<Whole> row{1, units(x[i])};
        while (row.size() < columns)
            row.push_back(row.back() * row.back());
        row.push_back(units(y[i]));
        for (std::size_t a = 0; a < columns; ++a)
            for (std::size_t b = 0; b <= columns; ++b)
                m[a][b] = m[a][b] + row[a] * row[b];
    }
    for (std::size_t k = 0; k < columns; ++k)
        for (std::size_t a = 0; a < columns; ++a) {
            const Whole factor = m[a][k];
            for (std::size_t b = 0; a != k && b <= columns; ++b)
                m[a][b] = m[a][b] * m[k][k] - m[k][b] * factor;
        }
    std::vector<double> result;
    double scale = UNIT; // of y, and with x^p taken in units
    for (std::size_t k = 0; k < columns; ++k) {
        result.push_back(quotient(m[k][columns], m[k][k]) * scale);
        scale = k == 0 ? 1 : UNIT / std::pow(UNIT, std::exp2(static_cast<double>(k)));
    }
    return result;
}

double at(const std::vector<double>& coefficients, double x) {
    double sum = coefficients[0];
    double power = x;
    for (std::size_t k = 1; k < coefficients.size(); ++k, power *= power)
        sum += coefficients[k] * power;
    return sum;
}

struct Samples {
    std::vector<double> x;
    std::vector<double> y;
};

Samples samples(std::size_t count, double low, double high, const std::function<double(double)>& f, double noise) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> temperature(low, high);
    std::uniform_real_distribution<double> error(-noise, noise);
    Samples result;
    for (std::size_t i = 0; i < count; ++i) {
        result.x.push_back(rounded(temperature(random)));
        result.y.push_back(rounded(f(result.x.back()) + error(random)));
    }
    return result;
}

double line(double x) {
    return -12 + 0.05 * x;
}
double parabola(double x) {
    return -12 + 0.03 * (x - 45) * (x - 45);
}
double cubic(double x) {
    return 1 + 0.002 * (x - 45) * (x - 45) * (x - 45);
}

TEST(QuadRegression, AgreesWithExactArithmetic) {
    struct Case {
        const char* name;
        double low;
        double high;
        std::function<double(double)> f;
        double noise;
        double tolerance;
    };
    const Case cases[] = {{"line", 20, 70, line, 0, 1e-9},          {"noisy line", 40, 55, line, 0.02, 1e-9},
                          {"parabola", 20, 70, parabola, 0, 1e-9},  {"cubic", 20, 70, cubic, 0.01, 1e-9},
                          {"around zero", -5, 7, cubic, 0.1, 1e-9}, {"one degree", 44.5, 45.5, parabola, 0.01, 1e-7},
                          {"a fifth", 44.9, 45.1, line, 0.01, 1e-6}};
    for (const auto& one : cases)
        for (const int order : {1, 2, 3, 4}) {
            const auto [x, y] = samples(60, one.low, one.high, one.f, one.noise);
            QuadRegression fit;
            ASSERT_EQ(fit.fit(x, y, order), 0) << one.name << order;
            const auto exact = exact_fit(x, y, static_cast<std::size_t>(order) + 1);
            ASSERT_EQ(fit.coefficients.size(), exact.size());
            for (const double t : {one.low, (one.low + one.high) / 2, one.high})
                EXPECT_NEAR(at(fit.coefficients, t), at(exact, t), one.tolerance) << one.name << order;
        }
}

TEST(QuadRegression, MeetsTheSumsOfATextbook) {
    QuadRegression fit;
    ASSERT_EQ(fit.fit(std::vector<double>{1, 2, 3, 4}, std::vector<double>{2, 3, 5, 6}, 1), 0);
    EXPECT_NEAR(fit.coefficients[0], 0.5, 1e-14); // SSE 0.2, SST 10
    EXPECT_NEAR(fit.coefficients[1], 1.4, 1e-14);
    EXPECT_NEAR(fit.r, std::sqrt(1 - 0.2 / 10), 1e-14);
    EXPECT_NEAR(fit.y_stddev, std::sqrt(0.2 / 3), 1e-14);
    EXPECT_EQ(fit.x_min, 1);
    EXPECT_EQ(fit.x_max, 4);
    EXPECT_NEAR(fit.evaluate(10), 14.5, 1e-12);
}

TEST(QuadRegression, SucceedsAtAllOrdersOnManyNoisyPoints) {
    for (const int order : {1, 2, 3, 4, 5, 6}) {
        const auto [x, y] = samples(2000, 40, 55, parabola, 0.02);
        QuadRegression fit;
        EXPECT_EQ(fit.fit(x, y, order), 0) << order;
        EXPECT_LT(fit.y_stddev, order == 1 ? 0.6 : 0.0125) << order;
    }
}

TEST(QuadRegression, FailsWithoutEnoughDifferentTemperatures) {
    for (const int order : {1, 2, 3, 4, 5, 6})
        for (int different = 1; different <= order; ++different) {
            std::vector<double> x;
            std::vector<double> y;
            for (int i = 0; i < 2000; ++i) {
                x.push_back(40.1 + 3.3 * (i % different));
                y.push_back(0.01 * (i % 17));
            }
            QuadRegression fit;
            EXPECT_EQ(fit.fit(x, y, order), -1) << order << " of " << different;
            EXPECT_EQ(fit.coefficients, std::vector<double>(static_cast<std::size_t>(order) + 1, 0.0));
            EXPECT_EQ(fit.x_min, 40.1);
        }
}

TEST(QuadRegression, ForgetsAnEarlierFitWhenItFails) {
    const double inf = std::numeric_limits<double>::infinity();
    const std::vector<double> x{1, 2, 3, 4};
    struct Case {
        std::vector<double> x;
        std::vector<double> y;
        double x_max;
    };
    const Case cases[] = {{{}, {}, 4},
                          {{1, 2}, {1}, 4},
                          {{1, 2, 9}, {0.1, 0.1, 0.1}, 9},
                          {{1, 2, 9}, {1, inf, 3}, 9},
                          {{1, 2, inf}, {1, 2, 3}, inf},
                          {{5}, {3}, 5}};
    for (const auto& one : cases) {
        QuadRegression fit;
        ASSERT_EQ(fit.fit(x, x, 2), 0);
        EXPECT_EQ(fit.fit(one.x, one.y, 2), -1);
        EXPECT_FALSE(fit.valid);
        EXPECT_EQ(fit.r, 0);
        EXPECT_EQ(fit.y_stddev, 0);
        EXPECT_EQ(fit.evaluate(3), 0);
        EXPECT_EQ(fit.x_max, one.x_max);
    }
}

TEST(Matrix, InvertsWhateverTheSizesOfItsNumbers) {
    Matrix m(2, 2);
    m(0, 0) = 4e-200;
    m(0, 1) = 1;
    m(1, 0) = 2;
    m(1, 1) = 1e200;
    Matrix inverse;
    Matrix one;
    ASSERT_EQ(m.invert(inverse), 0);
    ASSERT_EQ(m.product(inverse, one), 0);
    EXPECT_NEAR(one(0, 0), 1, 1e-12);
    EXPECT_NEAR(one(1, 1), 1, 1e-12);
    double determinant = 0;
    EXPECT_EQ(m.determinant(determinant), 0);
    EXPECT_NEAR(determinant, 2, 1e-12);
    m(1, 1) = 0.5e200; // twice the row above, from here on
    m(0, 1) = 1;
    EXPECT_EQ(m.invert(inverse), -1);
    EXPECT_EQ(Matrix(2, 3).invert(inverse), -1);
    EXPECT_EQ(Matrix(2, 3).product(m, one), -1);
    EXPECT_EQ(Matrix(2, 3).difference(m, one), -1);
    EXPECT_EQ(Matrix(2, 3).transpose().rows(), 3U);
}

} // namespace
} // namespace tickervantage
