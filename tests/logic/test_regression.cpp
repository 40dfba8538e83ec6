#include "studies/freqtemp/matrix.h"
#include "studies/freqtemp/quad_regression.h"
#include "support/test.h"

namespace tickervantage {
namespace {

// What least squares of 1, x, x^2, x^4, ... make of each y: its part in the space that these columns span.
std::vector<long double> fitted_values(const std::vector<double>& x, const std::vector<double>& y, int order) {
    std::vector<std::vector<long double>> columns{std::vector<long double>(x.size(), 1), {x.begin(), x.end()}};
    while (columns.size() <= static_cast<std::size_t>(order)) {
        columns.push_back(columns.back());
        for (auto& value : columns.back())
            value *= value;
    }
    const auto product = [](const auto& one, const auto& other) {
        return std::inner_product(one.begin(), one.end(), other.begin(), 0.0L);
    };
    std::vector<long double> rest(y.begin(), y.end());
    const auto take_away = [&product](auto& from, const auto& column) {
        const long double share = product(from, column) / product(column, column);
        for (std::size_t i = 0; i < from.size(); ++i)
            from[i] -= share * column[i];
    };
    for (std::size_t k = 0; k < columns.size(); ++k) {
        for (std::size_t pass = 0; pass < 3 * k; ++pass) // the later passes take away what rounding left of the first
            take_away(columns[k], columns[pass % k]);
        take_away(rest, columns[k]);
    }
    for (std::size_t i = 0; i < rest.size(); ++i)
        rest[i] = y[i] - rest[i];
    return rest;
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
        result.x.push_back(temperature(random));
        result.y.push_back(f(result.x.back()) + error(random));
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

TEST(QuadRegression, AgreesWithWiderArithmetic) {
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
            ASSERT_EQ(fit.coefficients.size(), static_cast<std::size_t>(order) + 1);
            const auto expected = fitted_values(x, y, order);
            for (std::size_t i = 0; i < x.size(); ++i)
                EXPECT_NEAR(at(fit.coefficients, x[i]), static_cast<double>(expected[i]), one.tolerance)
                    << one.name << order;
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
