#include "studies/laboratory/degrees_of_freedom.h"

#include <boost/math/distributions/chi_squared.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tickervantage {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double longest_sum = 100; // beyond it the asymptotic forms are exact enough

// The shape of the question: the d-th difference of phase that is averaged over factor/filter values.
struct Differences {
    int alpha = 0;     // power of the noise
    int order = 2;     // 2: Allan, 3: Hadamard
    double filter = 1; // F: 1 of the modified variances, else the factor
};

struct Asymptotic {
    double level = 0;
    double slope = 0;
};

// By the noise, from alpha = 2 downwards, for the orders 2 and 3.
using OfOrders = std::array<Asymptotic, 2>;
using AsymptoticTable = std::array<OfOrders, 5>;
constexpr AsymptoticTable of_modified{OfOrders{Asymptotic{0.778, 0.500}, Asymptotic{0.880, 0.667}},
                                      OfOrders{Asymptotic{0.997, 0.616}, Asymptotic{1.141, 0.843}},
                                      OfOrders{Asymptotic{1.033, 0.607}, Asymptotic{1.184, 0.848}},
                                      OfOrders{Asymptotic{1.048, 0.534}, Asymptotic{1.180, 0.816}},
                                      OfOrders{Asymptotic{1.302, 0.535}, Asymptotic{1.175, 0.777}}};
constexpr AsymptoticTable of_unmodified{OfOrders{}, // has a formula of its own
                                        OfOrders{Asymptotic{790, 410}, Asymptotic{9950, 6520}},
                                        OfOrders{Asymptotic{2.0 / 3, 1.0 / 3}, Asymptotic{7.0 / 9, 1.0 / 2}},
                                        OfOrders{Asymptotic{0.852, 0.375}, Asymptotic{0.997, 0.617}},
                                        OfOrders{Asymptotic{1.079, 0.368}, Asymptotic{1.033, 0.607}}};

const Asymptotic& asymptotic(const AsymptoticTable& table, const Differences& differences) {
    return table.at(static_cast<std::size_t>(2 - differences.alpha))
        .at(static_cast<std::size_t>(differences.order - 2));
}

// The generalised autocovariance of noise of that power in the phase, but for a constant.
double covariance(double t, int alpha) {
    t = std::abs(t);
    if (t == 0)
        return 0;
    switch (alpha) {
    case 2:
        return -t;
    case 1:
        return t * t * std::log(t);
    case 0:
        return t * t * t;
    case -1:
        return -t * t * t * t * std::log(t);
    case -2:
        return -t * t * t * t * t;
    case -3:
        return t * t * t * t * t * t * std::log(t);
    default: // -4
        return t * t * t * t * t * t * t;
    }
}

// Averaged over 1/filter; with an infinite filter its second derivative's place is taken by the next power.
double averaged(double t, const Differences& of) {
    if (std::isinf(of.filter))
        return covariance(t, of.alpha + 2);
    const double step = 1 / of.filter;
    return of.filter * of.filter *
           (2 * covariance(t, of.alpha) - covariance(t - step, of.alpha) - covariance(t + step, of.alpha));
}

double differenced(double t, const Differences& of) {
    const auto pair = [&](double shift) {
        return averaged(t - shift, of) + averaged(t + shift, of);
    };
    return of.order == 2 ? 6 * averaged(t, of) - 4 * pair(1) + pair(2)
                         : 20 * averaged(t, of) - 15 * pair(1) + 6 * pair(2) - pair(3);
}

// The squared correlations of `terms` neighbours among `looks` that stand 1/stride apart.
double basic_sum(double terms, double looks, double stride, const Differences& of) {
    const auto square = [&](double t) {
        const double value = differenced(t, of);
        return value * value;
    };
    double sum = square(0) + (1 - terms / looks) * square(terms / stride);
    for (double term = 1; term < terms; ++term)
        sum += 2 * (1 - term / looks) * square(term / stride);
    return sum;
}

double share_of_sum(double terms, double looks, double stride, const Differences& of) {
    const double alone = differenced(0, of);
    return basic_sum(terms, looks, stride, of) / (looks * alone * alone);
}

double binomial(int n, int k) {
    double value = 1;
    for (int i = 1; i <= k; ++i)
        value *= static_cast<double>(n - k + i) / i;
    return value;
}

struct Looks {
    double count = 0;                                             // M
    double stride = 1;                                            // S: looks within one averaging time
    double terms = 0;                                             // J: how far they hang together
    [[nodiscard]] double spans() const { return count / stride; } // r
};

double share_of_modified(const Looks& looks, const Differences& of) {
    if (looks.terms <= longest_sum)
        return share_of_sum(looks.terms, looks.count, looks.stride, of);
    if (looks.spans() < of.order + 1)
        return share_of_sum(longest_sum, longest_sum, longest_sum / looks.spans(), of);
    const auto& [level, slope] = asymptotic(of_modified, of);
    return (level - slope / looks.spans()) / looks.spans();
}

double share_of_frequency_noise(const Looks& looks, Differences of) {
    if (looks.terms <= longest_sum) {
        if (of.filter * (of.order + 1) > longest_sum)
            of.filter = infinite;
        return share_of_sum(looks.terms, looks.count, looks.stride, of);
    }
    if (looks.spans() < of.order + 1) {
        of.filter = infinite;
        return share_of_sum(longest_sum, longest_sum, longest_sum / looks.spans(), of);
    }
    const auto& [level, slope] = asymptotic(of_unmodified, of);
    return (level - slope / looks.spans()) / looks.spans();
}

double share_of_flicker_phase(const Looks& looks, Differences of) {
    if (looks.terms <= longest_sum)
        return share_of_sum(looks.terms, looks.count, looks.stride, of);
    if (looks.spans() < of.order + 1) {
        of.filter = longest_sum / looks.spans();
        return share_of_sum(longest_sum, longest_sum, longest_sum / looks.spans(), of);
    }
    const double alone = of.order == 2 ? 15.23 + 12 * std::log(of.filter) : 47.8 + 40 * std::log(of.filter);
    const auto& [level, slope] = asymptotic(of_unmodified, of);
    return (level - slope / looks.spans()) / (looks.spans() * alone * alone);
}

double share_of_white_phase(const Looks& looks, const Differences& of) {
    const int d = of.order;
    const double spans = looks.spans();
    if (std::ceil(spans) > d) {
        const double middle = binomial(2 * d, d);
        return (binomial(4 * d, 2 * d) / (middle * middle) - d / 2.0 / spans) / looks.count;
    }
    double sum = 1;
    for (int k = 1; k < std::ceil(spans); ++k) {
        const double share = binomial(2 * d, d - k) / binomial(2 * d, d);
        sum += 2 * (1 - k / spans) * share * share;
    }
    return sum / looks.count;
}

} // namespace

double degrees_of_freedom(StabilityMeasure measure, NoiseType noise, std::size_t factor, std::size_t count) {
    if (measure == StabilityMeasure::mtie)
        return 0;
    const bool is_modified = measure == StabilityMeasure::mdev || measure == StabilityMeasure::tdev;
    const auto m = static_cast<double>(factor);
    const Differences of{.alpha = static_cast<int>(noise),
                         .order = measure == StabilityMeasure::hdev ? 3 : 2,
                         .filter = is_modified ? 1 : m};
    const double length = m / of.filter + m * of.order;
    const auto values = static_cast<double>(count);
    if (values < length)
        return 0;
    Looks looks;
    looks.stride = measure == StabilityMeasure::adev ? 1 : m;
    looks.count = 1 + std::floor(looks.stride * (values - length) / m);
    looks.terms = std::min(looks.count, (of.order + 1) * looks.stride);
    if (is_modified || factor == 1)
        return 1 / share_of_modified(looks, of);
    if (noise == NoiseType::white_pm)
        return 1 / share_of_white_phase(looks, of);
    return 1 /
           (noise == NoiseType::flicker_pm ? share_of_flicker_phase(looks, of) : share_of_frequency_noise(looks, of));
}

std::optional<DeviationLimits> limits_of(double deviation, double degrees, double confidence) {
    if (!(degrees > 0))
        return std::nullopt;
    const boost::math::chi_squared distribution(degrees);
    const auto limit = [&](double share) {
        return deviation * std::sqrt(degrees / boost::math::quantile(distribution, share));
    };
    return DeviationLimits{limit((1 + confidence) / 2), limit((1 - confidence) / 2)};
}

} // namespace tickervantage
