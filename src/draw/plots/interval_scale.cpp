#include "draw/plots/interval_scale.h"

#include "draw/plots/round_steps.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace tickervantage {
namespace {

constexpr double margin = 0.05;          // of the width, to either side
constexpr double smallest_width = 1e-9;  // s: chrony's own resolution
constexpr double widest_even_ratio = 40; // of all that is shown to the narrowest interval

double width_of(const TimeInterval& interval) {
    return std::max(interval.high - interval.low, smallest_width);
}

double narrowest(std::span<const TimeInterval> intervals) {
    double width = std::numeric_limits<double>::max();
    for (const TimeInterval& interval : intervals)
        width = std::min(width, width_of(interval));
    return width;
}

struct Unit {
    double seconds;
    const char* name;
};

Unit unit_of(double size) {
    static constexpr std::array<Unit, 4> units{{{1, "s"}, {1e-3, "ms"}, {1e-6, "µs"}, {1e-9, "ns"}}};
    const auto* unit = std::ranges::find_if(units, [size](const Unit& one) { return size >= one.seconds * 0.9999; });
    return unit == units.end() ? units.back() : *unit;
}

std::string text_of(double seconds, const Unit& unit, std::string_view decimal_point) {
    constexpr double nothing = 1e-13; // what rounding leaves of a zero
    if (std::abs(seconds) < nothing)
        return "0";
    std::string number = fmt::format("{:.4g}", std::abs(seconds) / unit.seconds);
    if (const auto point = number.find('.'); point != std::string::npos)
        number.replace(point, 1, decimal_point);
    return (seconds < 0 ? "−" : "+") + number + ' ' + unit.name;
}

} // namespace

IntervalScale::IntervalScale(std::span<const TimeInterval> intervals, double left, double right) : m_left(left) {
    for (const TimeInterval& interval : intervals) {
        m_low = std::min(m_low, interval.low);
        m_high = std::max(m_high, interval.high);
    }
    if (m_high <= m_low)
        std::tie(m_low, m_high) = std::pair(-1e-6, 1e-6);
    const double least = intervals.empty() ? m_high - m_low : narrowest(intervals);
    if (m_high - m_low > widest_even_ratio * least)
        m_even_to = least / 2;
    const double room = margin * (bent(m_high) - bent(m_low));
    const double low = bent(m_low) - room;
    m_points_per_unit = std::max(1.0, right - left) / (bent(m_high) + room - low);
    m_left = left - low * m_points_per_unit;
}

double IntervalScale::bent(double seconds) const {
    return is_even() ? seconds : std::asinh(seconds / m_even_to);
}

double IntervalScale::place_of(double seconds) const {
    return m_left + bent(seconds) * m_points_per_unit;
}

std::vector<double> IntervalScale::even_values(double room) const {
    const auto multiples = [this](double step) {
        std::vector<double> values;
        for (double number = std::ceil(m_low / step); number * step <= m_high; ++number)
            values.push_back(number * step);
        return values;
    };
    auto values = multiples(round_step(room / m_points_per_unit));
    if (values.size() < 2) // one tells no scale: 4 is nearer than 5
        values = multiples(2 * round_step(room / m_points_per_unit / 2));
    return values;
}

std::vector<double> IntervalScale::decades(double room) const {
    std::vector<double> values{0};
    const auto add = [&](double sign, double end) {
        double last = place_of(0);
        const int first = static_cast<int>(std::ceil(std::log10(m_even_to)));
        for (double value = std::pow(10, first); value <= end; value *= 10) {
            if (std::abs(place_of(sign * value) - last) < room)
                continue;
            last = place_of(sign * value);
            values.push_back(sign * value);
        }
    };
    add(-1, -m_low);
    add(1, m_high);
    std::ranges::sort(values);
    return values;
}

std::vector<IntervalScale::Mark> IntervalScale::marks(double room, std::string_view decimal_point) const {
    std::vector<Mark> found;
    const double largest = std::max(-m_low, m_high);
    for (const double value : is_even() ? even_values(room) : decades(room))
        found.push_back({value, text_of(value, unit_of(is_even() ? largest : std::abs(value)), decimal_point)});
    return found;
}

} // namespace tickervantage
