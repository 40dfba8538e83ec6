// A table for chronyd's temperature compensation, from frequencies and the temperatures at which they were read: how
// the clock's frequency goes with the temperature, whether that is so on days that were not asked, and what it would
// gain. Pure functions, any thread.
//
// Each day has a level of its own in the fit, so that the crystal's aging is not taken for an effect of the
// temperature. A day is judged by the curve of all other days: neighbouring readings know each other, days hardly do.
// Source: chrony.conf(5), tempcomp.
#pragma once

#include "base/failure.h"
#include "chrony/configuration/tempcomp_points.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct TemperatureSample {
    std::int64_t time = 0;  // s since 1970
    double temperature = 0; // degrees Celsius
    double frequency = 0;   // ppm, positive: the clock runs fast
};

// A polynomial in (temperature − middle), of ordinary powers.
struct FrequencyCurve {
    double middle = 0; // degrees Celsius
    std::vector<double> powers;

    [[nodiscard]] double at(double temperature) const; // ppm
};

inline constexpr double largest_used_compensation = 9;    // ppm, within what chronyd takes
inline constexpr double smallest_temperature_range = 5;   // degrees
inline constexpr double shortest_temperature_history = 3; // days
inline constexpr int highest_curve_degree = 6;
inline constexpr int highest_coefficient_degree = 2; // of chronyd's form without a table

struct Compensation {
    FrequencyCurve curve;
    double f_ref = 0; // ppm: at it nothing is compensated
    double coldest = 0;
    double warmest = 0;
    // Deviations of the frequency within a day, ppm, on days that the curve was not made of.
    double before = 0;
    double after = 0;
    double gain = 0; // before / after; the 95 % interval follows
    double gain_low = 0;
    double gain_high = 0;

    [[nodiscard]] int degree() const { return static_cast<int>(curve.powers.size()) - 1; }
    [[nodiscard]] double compensation_at(double temperature) const; // ppm
};

// What came of it: with `refused` the compensation says as much as is known.
struct CompensationStudy {
    std::optional<Compensation> compensation;
    std::optional<Failure> refused;
};

// The degree is the one that days not asked agree with best, at most `highest_degree`.
[[nodiscard]] CompensationStudy study_compensation(std::vector<TemperatureSample> samples,
                                                   int highest_degree = highest_curve_degree);

// One point each degree, in `unit`ths of a degree; beyond both ends the compensation stays what it is there.
[[nodiscard]] std::vector<TempcompPoint> points_of(const Compensation& compensation, double unit);

// A line for each point, as chronyd reads it.
[[nodiscard]] std::string points_text(const std::vector<TempcompPoint>& points);

// chronyd's T0, k0, k1 and k2, in the same unit; none where the curve has a higher degree.
[[nodiscard]] std::optional<std::array<double, 4>> coefficients_of(const Compensation& compensation, double unit);

// The compensation that chronyd works out of a table; between two points on the straight line between them, beyond the
// ends on that of the last two. The table has two points or more.
[[nodiscard]] double compensation_in(const std::vector<TempcompPoint>& points, double temperature);

// What the clock would have done without the compensation that was in use from that moment on, s since 1970.
void take_off(const std::vector<TempcompPoint>& points, double unit, std::int64_t since,
              std::vector<TemperatureSample>& samples);

} // namespace tickervantage
