#include "studies/laboratory/day_gain.h"

#include <boost/math/distributions/students_t.hpp>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double confidence = 0.95;
constexpr double smallest = 1e-12; // ppm²: a day that is explained to the last digit

double log_deviation(double variance) {
    return std::log(std::max(variance, smallest)) / 2;
}

// Of the mean, from the scatter of the days about it.
double reach_of(const std::vector<DayVariances>& days, double mean) {
    const auto count = static_cast<double>(days.size());
    double squares = 0;
    for (const auto& [before, after] : days) {
        const double off = log_deviation(before) - log_deviation(after) - mean;
        squares += off * off;
    }
    return boost::math::quantile(boost::math::students_t(count - 1), (1 + confidence) / 2) *
           std::sqrt(squares / (count - 1) / count);
}

} // namespace

DayGain day_gain(const std::vector<DayVariances>& days) {
    const auto count = static_cast<double>(days.size());
    double before = 0;
    double after = 0;
    for (const DayVariances& day : days) {
        before += log_deviation(day.before) / count;
        after += log_deviation(day.after) / count;
    }
    DayGain gain{.before = std::exp(before), .after = std::exp(after), .gain = std::exp(before - after)};
    if (days.size() < 2)
        return gain;
    const double reach = reach_of(days, before - after);
    gain.low = std::exp(before - after - reach);
    gain.high = std::exp(before - after + reach);
    return gain;
}

} // namespace tickervantage
