#include "studies/laboratory/compensation.h"

#include "base/failure_codes.h"
#include "studies/laboratory/day_gain.h"

#include <Eigen/Dense>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr std::int64_t seconds_a_day = 86400;
constexpr std::size_t fewest_in_day = 10; // fewer say nothing of a day
constexpr double worth_a_degree = 0.98;   // of the errors of the degree below

// Sums over one day's samples, each column about its mean of that day: the powers of the scaled temperature, then the
// frequency.
struct DaySums {
    Eigen::MatrixXd products;
    double count = 0;
};

struct Scale {
    double middle = 0;
    double half_range = 1;
};

Scale scale_of(const std::vector<TemperatureSample>& samples) {
    const auto [low, high] = std::ranges::minmax(samples, {}, &TemperatureSample::temperature);
    return {(low.temperature + high.temperature) / 2, (high.temperature - low.temperature) / 2};
}

using Row = Eigen::VectorXd;

Row row_of(const TemperatureSample& sample, const Scale& scale, int degree) {
    Row row(degree + 1);
    const double x = (sample.temperature - scale.middle) / scale.half_range;
    double power = 1;
    for (int at = 0; at < degree; ++at)
        row[at] = power *= x;
    row[degree] = sample.frequency;
    return row;
}

DaySums sums_of(const std::vector<Row>& rows) {
    Row mean = Row::Zero(rows.front().size());
    for (const Row& row : rows)
        mean += row;
    mean /= static_cast<double>(rows.size());
    DaySums sums{Eigen::MatrixXd::Zero(mean.size(), mean.size()), static_cast<double>(rows.size())};
    for (const Row& row : rows)
        sums.products.noalias() += (row - mean) * (row - mean).transpose();
    return sums;
}

// `samples` stand in the order of time.
std::vector<DaySums> days_of(const std::vector<TemperatureSample>& samples, const Scale& scale, int degree) {
    std::vector<DaySums> days;
    std::vector<Row> rows;
    for (std::size_t at = 0; at < samples.size(); ++at) {
        rows.push_back(row_of(samples[at], scale, degree));
        const bool ends =
            at + 1 == samples.size() || samples[at + 1].time / seconds_a_day != samples[at].time / seconds_a_day;
        if (ends && rows.size() >= fewest_in_day)
            days.push_back(sums_of(rows));
        if (ends)
            rows.clear();
    }
    return days;
}

Eigen::MatrixXd all_of(const std::vector<DaySums>& days) {
    Eigen::MatrixXd all = days.front().products;
    for (std::size_t at = 1; at < days.size(); ++at)
        all += days[at].products;
    return all;
}

Eigen::VectorXd solved(const Eigen::MatrixXd& sums, int degree) {
    const Eigen::Index y = sums.cols() - 1;
    return sums.topLeftCorner(degree, degree).completeOrthogonalDecomposition().solve(sums.col(y).head(degree));
}

// Of one day, by a curve: the mean square of what is left.
double rest_of(const DaySums& day, const Eigen::VectorXd& curve) {
    const Eigen::Index degree = curve.size();
    const Eigen::Index y = day.products.cols() - 1;
    const double rest = day.products(y, y) - 2 * curve.dot(day.products.col(y).head(degree)) +
                        curve.dot(day.products.topLeftCorner(degree, degree) * curve);
    return std::max(rest, 0.0) / day.count;
}

std::vector<double> rests_on_other_days(const std::vector<DaySums>& days, const Eigen::MatrixXd& all, int degree) {
    std::vector<double> rests;
    rests.reserve(days.size());
    for (const DaySums& one : days)
        rests.push_back(rest_of(one, solved(all - one.products, degree)));
    return rests;
}

double sum_of(const std::vector<double>& values) {
    double sum = 0;
    for (const double value : values)
        sum += value;
    return sum;
}

int best_degree(const std::vector<DaySums>& days, const Eigen::MatrixXd& all, int highest) {
    int best = 1;
    double least = sum_of(rests_on_other_days(days, all, 1));
    for (int degree = 2; degree <= highest; ++degree)
        if (const double rest = sum_of(rests_on_other_days(days, all, degree)); rest < worth_a_degree * least) {
            best = degree;
            least = rest;
        }
    return best;
}

void set_gain(const std::vector<DaySums>& days, const std::vector<double>& rests, Compensation& compensation) {
    std::vector<DayVariances> variances;
    for (std::size_t at = 0; at < days.size(); ++at) {
        const Eigen::Index y = days[at].products.cols() - 1;
        variances.push_back({.before = days[at].products(y, y) / days[at].count, .after = rests[at]});
    }
    const DayGain found = day_gain(variances);
    compensation.before = found.before;
    compensation.after = found.after;
    compensation.gain = found.gain;
    compensation.gain_low = found.low;
    compensation.gain_high = found.high;
}

// The powers of the temperature itself, the level from the samples.
FrequencyCurve curve_of(const Eigen::VectorXd& solution, const Scale& scale,
                        const std::vector<TemperatureSample>& samples) {
    FrequencyCurve curve{.middle = scale.middle, .powers = {0}};
    double shrink = 1;
    for (const double power : solution)
        curve.powers.push_back(power * (shrink /= scale.half_range));
    double level = 0;
    for (const TemperatureSample& sample : samples)
        level += sample.frequency - curve.at(sample.temperature);
    curve.powers.front() = level / static_cast<double>(samples.size());
    return curve;
}

// In steps fine enough for a polynomial of this degree; the middle between the extremes, and how far they are apart.
std::pair<double, double> middle_and_span(const Compensation& compensation) {
    constexpr int steps = 1000;
    double low = compensation.curve.at(compensation.coldest);
    double high = low;
    for (int step = 1; step <= steps; ++step) {
        const double value =
            compensation.curve.at(compensation.coldest + (compensation.warmest - compensation.coldest) * step / steps);
        low = std::min(low, value);
        high = std::max(high, value);
    }
    return {(low + high) / 2, high - low};
}

CompensationStudy refuse(FailureCode code, std::vector<std::string> arguments,
                         std::optional<Compensation> known = std::nullopt) {
    return {std::move(known), Failure{code, std::move(arguments)}};
}

std::string in_tenths(double value) {
    return fmt::format("{:.1f}", value);
}

} // namespace

double FrequencyCurve::at(double temperature) const {
    double value = 0;
    for (std::size_t at = powers.size(); at-- > 0;)
        value = value * (temperature - middle) + powers[at];
    return value;
}

double Compensation::compensation_at(double temperature) const {
    return f_ref - curve.at(temperature);
}

CompensationStudy study_compensation(std::vector<TemperatureSample> samples, int highest_degree) {
    if (samples.size() < 2)
        return refuse(FailureCode::compensation_without_history, {"0.0"});
    std::ranges::sort(samples, {}, &TemperatureSample::time);
    const double history =
        static_cast<double>(samples.back().time - samples.front().time) / static_cast<double>(seconds_a_day);
    if (history < shortest_temperature_history)
        return refuse(FailureCode::compensation_without_history, {in_tenths(history)});
    const Scale scale = scale_of(samples);
    if (2 * scale.half_range < smallest_temperature_range)
        return refuse(FailureCode::compensation_without_range, {in_tenths(2 * scale.half_range)});
    const auto days = days_of(samples, scale, highest_degree);
    if (days.size() < static_cast<std::size_t>(shortest_temperature_history))
        return refuse(FailureCode::compensation_without_days, {std::to_string(days.size())});

    const Eigen::MatrixXd all = all_of(days);
    const int degree = best_degree(days, all, highest_degree);
    Compensation compensation;
    compensation.curve = curve_of(solved(all, degree), scale, samples);
    compensation.coldest = scale.middle - scale.half_range;
    compensation.warmest = scale.middle + scale.half_range;
    set_gain(days, rests_on_other_days(days, all, degree), compensation);
    const auto [middle, span] = middle_and_span(compensation);
    compensation.f_ref = middle;
    if (span > 2 * largest_used_compensation)
        return refuse(FailureCode::compensation_too_large, {in_tenths(span)}, compensation);
    if (compensation.gain_low <= 1)
        return refuse(FailureCode::compensation_without_gain,
                      {fmt::format("{:.2f}", compensation.gain_low), fmt::format("{:.2f}", compensation.gain_high)},
                      compensation);
    return {compensation, std::nullopt};
}

std::vector<TempcompPoint> points_of(const Compensation& compensation, double unit) {
    std::vector<TempcompPoint> points;
    for (double degree = std::ceil(compensation.coldest); degree <= compensation.warmest; ++degree)
        points.push_back({degree * unit, compensation.compensation_at(degree)});
    const TempcompPoint first = points.front();
    const TempcompPoint last = points.back();
    points.insert(points.begin(), {first.temperature - unit, first.compensation});
    points.push_back({last.temperature + unit, last.compensation});
    return points;
}

std::string points_text(const std::vector<TempcompPoint>& points) {
    std::string text;
    for (const TempcompPoint& point : points)
        text += fmt::format("{:g} {:.4f}\n", point.temperature, point.compensation + 0.0);
    return text;
}

std::optional<std::array<double, 4>> coefficients_of(const Compensation& compensation, double unit) {
    if (compensation.degree() > highest_coefficient_degree)
        return std::nullopt;
    const auto power = [&](std::size_t at) {
        return at < compensation.curve.powers.size() ? compensation.curve.powers[at] : 0;
    };
    return std::array{compensation.curve.middle * unit, compensation.f_ref - power(0), -power(1) / unit,
                      -power(2) / (unit * unit)};
}

double compensation_in(const std::vector<TempcompPoint>& points, double temperature) {
    const auto found = std::ranges::lower_bound(points, temperature, {}, &TempcompPoint::temperature);
    const auto after = static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(found - points.begin(), 1, static_cast<std::ptrdiff_t>(points.size()) - 1));
    const TempcompPoint& low = points[after - 1];
    const TempcompPoint& high = points[after];
    return low.compensation + (temperature - low.temperature) / (high.temperature - low.temperature) *
                                  (high.compensation - low.compensation);
}

void take_off(const std::vector<TempcompPoint>& points, double unit, std::int64_t since,
              std::vector<TemperatureSample>& samples) {
    for (TemperatureSample& sample : samples)
        if (sample.time >= since)
            sample.frequency -= compensation_in(points, sample.temperature * unit);
}

} // namespace tickervantage
