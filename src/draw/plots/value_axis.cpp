#include "draw/plots/value_axis.h"

#include "draw/plots/round_steps.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>

namespace tickervantage {
namespace {

struct Unit {
    double size; // in seconds, ppm, degrees
    const char* name;
};

constexpr std::array<Unit, 4> seconds_units{{{1, "s"}, {1e-3, "ms"}, {1e-6, "µs"}, {1e-9, "ns"}}};
constexpr std::array<Unit, 2> ppm_units{{{1, "ppm"}, {1e-3, "ppb"}}};
constexpr std::array<Unit, 1> celsius_units{{{1, "°C"}}};
constexpr std::array<Unit, 1> no_units{{{1, ""}}};

std::span<const Unit> units_of(AxisUnit unit) {
    switch (unit) {
    case AxisUnit::seconds:
        return seconds_units;
    case AxisUnit::ppm:
        return ppm_units;
    case AxisUnit::celsius:
        return celsius_units;
    case AxisUnit::none:
        break;
    }
    return no_units;
}

// The largest one that the size holds; a part per billion is left to what is a good deal smaller than one per million.
Unit unit_for(double size, AxisUnit unit) {
    const auto units = units_of(unit);
    const double least = unit == AxisUnit::ppm ? 0.01 : 0.9999;
    for (const Unit& one : units)
        if (size >= one.size * least)
            return one;
    return size > 0 ? units.back() : units.front();
}

std::string signed_text(std::string number, std::string_view decimal_point) {
    if (number.starts_with('-'))
        number.replace(0, 1, "−");
    if (const auto point = number.find('.'); point != std::string::npos)
        number.replace(point, 1, decimal_point);
    return number;
}

std::string superscript(int exponent) {
    static constexpr std::array<const char*, 10> digits{"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    std::string text = exponent < 0 ? "⁻" : "";
    for (const char digit : std::to_string(std::abs(exponent)))
        text += digits.at(static_cast<std::size_t>(digit - '0'));
    return text;
}

// A round number of an axis that goes over decades: 200, 0.05, 10⁶.
std::string decade_text(double number, std::string_view decimal_point) {
    if (number == 0)
        return "0";
    const double size = std::abs(number);
    const int exponent = static_cast<int>(std::floor(std::log10(size) + 1e-9));
    if (exponent >= -3 && exponent <= 4)
        return signed_text(fmt::format("{:.{}f}", number, std::max(0, -exponent)), decimal_point);
    const auto times = std::lround(size / std::pow(10, exponent));
    return fmt::format("{}{}10{}", number < 0 ? "−" : "", times == 1 ? "" : std::to_string(times) + "·",
                       superscript(exponent));
}

int digits_after_point(double step) {
    return std::max(0, static_cast<int>(std::ceil(-std::log10(step) - 1e-9)));
}

// A number among others that are a step apart: 0.34, 3.4·10⁻⁸.
std::string step_text(double number, double step, std::string_view decimal_point) {
    const int exponent = static_cast<int>(std::floor(std::log10(number) + 1e-9));
    const bool is_plain = exponent >= -3 && exponent <= 4;
    const double size = is_plain ? 1 : std::pow(10, exponent);
    const std::string text =
        signed_text(fmt::format("{:.{}f}", number / size, digits_after_point(step / size)), decimal_point);
    return is_plain ? text : text + "·10" + superscript(exponent);
}

// What can be drawn: finite, with a length that doubles can tell apart.
AxisSpan drawable(AxisSpan span) {
    constexpr double most = 1e30;
    if (!std::isfinite(span.low) || !std::isfinite(span.high))
        return {-1, 1};
    span.low = std::clamp(span.low, -most, most);
    span.high = std::clamp(span.high, -most, most);
    if (span.low > span.high)
        std::swap(span.low, span.high);
    const double size = std::max(std::abs(span.low), std::abs(span.high));
    if (span.high - span.low > size * 1e-9)
        return span;
    const double room = size > 0 ? size * 0.1 : 1e-9;
    return {span.low - room, span.high + room};
}

} // namespace

std::string value_text(double value, AxisUnit unit, int digits, std::string_view decimal_point) {
    if (!std::isfinite(value))
        return "–";
    const Unit chosen = unit_for(std::abs(value), unit);
    const double number = value / chosen.size;
    const double size = std::abs(number);
    const int before = size >= 1 ? static_cast<int>(std::floor(std::log10(size) + 1e-9)) + 1 : 1;
    std::string text = size > 0 && (size < 1e-4 || size >= 1e7)
                           ? fmt::format("{:.{}g}", number, digits)
                           : fmt::format("{:.{}f}", number, std::max(0, digits - before));
    text = signed_text(std::move(text), decimal_point);
    return *chosen.name == '\0' ? text : text + ' ' + chosen.name;
}

struct ValueAxis::Labels {
    double step;
    double base;
    Unit unit;
};

ValueAxis::ValueAxis(AxisUnit unit, AxisShape shape, AxisSpan span, double even_to)
    : m_unit(unit), m_shape(shape), m_span(drawable(span)), m_even_to(even_to) {
    const double largest = std::max(std::abs(m_span.low), std::abs(m_span.high));
    if (!(m_even_to > largest * 1e-12) || !std::isfinite(m_even_to))
        m_even_to = largest * 1e-3;
    if (m_shape == AxisShape::logarithmic) {
        m_span.low = std::max(m_span.low, std::min(m_even_to, m_span.high * 0.5));
        if (m_span.low <= 0 || m_span.high <= m_span.low)
            m_shape = AxisShape::linear;
    }
}

void ValueAxis::place_between(double bottom, double top) {
    m_bottom = bottom;
    m_points = std::max(1.0, top - bottom) / (bent(m_span.high) - bent(m_span.low));
}

double ValueAxis::bent(double value) const {
    if (m_shape == AxisShape::symmetric_log)
        return std::asinh(value / m_even_to);
    constexpr double far_below = 1e-12; // where zero stands; what is above that stands at its place, in sight or not
    return m_shape == AxisShape::logarithmic ? std::log(std::max(value, m_span.low * far_below)) : value;
}

double ValueAxis::unbent(double place) const {
    if (m_shape == AxisShape::symmetric_log)
        return std::sinh(place) * m_even_to;
    return m_shape == AxisShape::logarithmic ? std::exp(place) : place;
}

double ValueAxis::place_of(double value) const {
    return m_bottom + (bent(value) - bent(m_span.low)) * m_points;
}

double ValueAxis::value_at(double place) const {
    return unbent(bent(m_span.low) + (place - m_bottom) / m_points);
}

ValueAxis::Labels ValueAxis::labels(double room) const {
    const double step = round_step(std::max(room, 1.0) / m_points);
    const double size = std::max(std::abs(m_span.low), std::abs(m_span.high));
    if (size < step * 1000)
        return {step, 0, unit_for(size, m_unit)};
    const double coarse = step * 100;
    const double base = std::round((m_span.low + m_span.high) / 2 / coarse) * coarse;
    return {step, base, unit_for(std::max(m_span.high - base, base - m_span.low), m_unit)};
}

// The largest labels have two figures before the point, and those of three decades below fit into three digits.
double ValueAxis::unit_size() const {
    return std::max(std::abs(m_span.low), std::abs(m_span.high)) * 0.1;
}

// All decades; 2 and 5 between them where those fit too. Of those that stand too close together for a label each only
// the line remains, so that one sees that the axis goes by decades.
std::vector<ValueAxis::Decade> ValueAxis::decades(double room) const {
    const bool to_zero = m_shape == AxisShape::symmetric_log;
    const double smallest = to_zero ? m_even_to : m_span.low;
    const double largest = std::max(std::abs(m_span.low), std::abs(m_span.high));
    const int first = static_cast<int>(std::floor(std::log10(smallest) + 1e-9));
    const int last = static_cast<int>(std::floor(std::log10(largest) + 1e-9));
    const double decade = std::abs(place_of(largest) - place_of(largest / 10));
    constexpr double least_distance = 4; // of lines
    static constexpr std::array times{5.0, 2.0, 1.0};
    const std::size_t count = decade > 3.4 * room ? times.size() : 1;
    std::vector<Decade> found;
    double labelled = std::numeric_limits<double>::infinity(); // how far from zero the label further out stands
    for (int exponent = last; exponent >= first; --exponent)
        for (const double time : std::span(times).last(count)) {
            const double value = time * std::pow(10, exponent);
            const double distance = std::abs(place_of(value) - (to_zero ? place_of(0) : m_bottom));
            if (std::abs(value) > largest || (to_zero && distance < least_distance))
                continue;
            const bool fits = labelled - distance >= room && (!to_zero || distance >= room);
            if (fits)
                labelled = distance;
            found.push_back({value, fits});
            if (to_zero)
                found.push_back({-value, fits});
        }
    if (to_zero)
        found.push_back({0, true});
    std::erase_if(found, [this](const Decade& one) { return one.value < m_span.low || one.value > m_span.high; });
    std::ranges::sort(found, {}, &Decade::value);
    return found;
}

// Of a part of a decade, which has hardly a round number. The highest two stand nearest to each other.
std::vector<AxisTick> ValueAxis::even_ticks(double room, std::string_view decimal_point) const {
    const Unit unit = unit_for(unit_size(), m_unit);
    const double step = round_step(m_span.high * room / m_points);
    std::vector<AxisTick> found;
    for (double number = std::ceil(m_span.low / step); number * step <= m_span.high; ++number)
        found.push_back({number * step, step_text(number * step / unit.size, step / unit.size, decimal_point)});
    return found;
}

std::vector<AxisTick> ValueAxis::ticks(double room, std::string_view decimal_point) const {
    std::vector<AxisTick> found;
    if (m_shape == AxisShape::logarithmic && m_span.high / m_span.low < 4)
        return even_ticks(room, decimal_point);
    if (m_shape != AxisShape::linear) {
        const Unit unit = unit_for(unit_size(), m_unit);
        for (const Decade& decade : decades(room))
            found.push_back(
                {decade.value, decade.has_label ? decade_text(decade.value / unit.size, decimal_point) : ""});
        return found;
    }
    const auto [step, base, unit] = labels(room);
    const int digits = digits_after_point(step / unit.size);
    const auto first = static_cast<std::int64_t>(std::ceil((m_span.low - base) / step - 1e-6));
    const auto last = static_cast<std::int64_t>(std::floor((m_span.high - base) / step + 1e-6));
    for (std::int64_t number = first; number <= last; ++number) {
        const double from_base = static_cast<double>(number) * step;
        std::string text = number == 0 ? "0" : fmt::format("{:.{}f}", from_base / unit.size, digits);
        if (base != 0 && number > 0)
            text.insert(0, "+");
        found.push_back({base + from_base, signed_text(std::move(text), decimal_point)});
    }
    return found;
}

std::string ValueAxis::unit_text(double room, std::string_view decimal_point) const {
    if (m_shape != AxisShape::linear)
        return unit_for(unit_size(), m_unit).name;
    const auto [step, base, unit] = labels(room);
    if (base == 0)
        return unit.name;
    const Unit whole = unit_for(std::abs(base), m_unit);
    const std::string number = fmt::format("{:.{}f}", base / whole.size, digits_after_point(step * 100 / whole.size));
    return fmt::format("{} + {} {}", unit.name, signed_text(number, decimal_point), whole.name);
}

} // namespace tickervantage
