#include "draw/plots/log_axis.h"

#include "draw/plots/round_steps.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

namespace tickervantage {
namespace {

struct Unit {
    double size;
    const char* name;
};

constexpr std::array<Unit, 7> span_units{
    {{86400, "d"}, {3600, "h"}, {60, "min"}, {1, "s"}, {1e-3, "ms"}, {1e-6, "µs"}, {1e-9, "ns"}}};
constexpr std::array<Unit, 5> frequency_units{{{1e3, "kHz"}, {1, "Hz"}, {1e-3, "mHz"}, {1e-6, "µHz"}, {1e-9, "nHz"}}};

const Unit& unit_for(double value, std::span<const Unit> units) {
    const auto fits = [value](const Unit& unit) {
        return value >= unit.size * 0.9995;
    };
    const auto found = std::ranges::find_if(units, fits);
    return found == units.end() ? units.back() : *found;
}

std::string with_point(std::string text, std::string_view decimal_point) {
    if (const auto point = text.find('.'); point != std::string::npos)
        text.replace(point, 1, decimal_point);
    return text;
}

std::string in_unit(double value, std::span<const Unit> units, int digits, std::string_view decimal_point) {
    const Unit& unit = unit_for(value, units);
    const double number = value / unit.size;
    const int before = number > 0 ? static_cast<int>(std::floor(std::log10(number) + 1e-9)) + 1 : 1;
    std::string text = number >= 1e6 || number < 1e-3 ? fmt::format("{:.{}g}", number, digits)
                                                      : fmt::format("{:.{}f}", number, std::max(0, digits - before));
    return with_point(std::move(text), decimal_point) + ' ' + unit.name;
}

struct Labelled {
    double value;
    std::string text;
};

// From low to high in steps of one unit; what a part of a decade has of rounder values is too little.
std::vector<Labelled> even_steps(double low, double high, double least_step, std::span<const Unit> units,
                                 std::string_view decimal_point) {
    const Unit& unit = unit_for(low, units);
    const double step = round_step(least_step / unit.size);
    const int decimals = std::max(0, static_cast<int>(std::ceil(-std::log10(step) - 1e-9)));
    std::vector<Labelled> all;
    for (double number = std::ceil(low / unit.size / step); number * step * unit.size <= high; ++number)
        all.push_back({number * step * unit.size,
                       with_point(fmt::format("{:.{}f}", number * step, decimals), decimal_point) + ' ' + unit.name});
    return all;
}

// The rounder a value, the earlier it stands.
std::vector<double> round_spans() {
    std::vector<double> spans{86400, 3600, 1, 60, 864000, 8640000, 600, 10, 21600};
    for (int exponent = -9; exponent < 0; ++exponent)
        spans.push_back(std::pow(10, exponent));
    for (int exponent = 3; exponent < 7; ++exponent)
        spans.push_back(86400 * std::pow(10, exponent));
    for (const double more : {10800.0, 43200.0, 172800.0, 432000.0, 1728000.0, 4320000.0, 1800.0, 7200.0, 300.0, 1200.0,
                              120.0, 30.0, 5.0, 20.0, 2.0})
        spans.push_back(more);
    return spans;
}

std::vector<double> round_frequencies() {
    std::vector<double> all;
    for (const double times : {1.0, 3.0, 2.0, 5.0})
        for (int exponent = -9; exponent < 6; ++exponent)
            all.push_back(times * std::pow(10, exponent));
    return all;
}

} // namespace

std::string span_text(double seconds, int digits, std::string_view decimal_point) {
    return in_unit(seconds, span_units, digits, decimal_point);
}

std::string frequency_text(double hertz, int digits, std::string_view decimal_point) {
    return in_unit(hertz, frequency_units, digits, decimal_point);
}

LogAxis::LogAxis(LogAxisKind kind, double low, double high, double left, double right)
    : m_kind(kind), m_low(low), m_high(high), m_left(left) {
    if (!(m_low > 0) || !std::isfinite(m_low))
        m_low = 1;
    if (!(m_high > m_low) || !std::isfinite(m_high))
        m_high = m_low * 10;
    m_points = std::max(1.0, right - left) / std::log(m_high / m_low);
}

double LogAxis::place_of(double value) const {
    return m_left + std::log(std::max(value, std::numeric_limits<double>::min()) / m_low) * m_points;
}

double LogAxis::value_at(double place) const {
    return m_low * std::exp((place - m_left) / m_points);
}

std::vector<LogAxis::Mark> LogAxis::chosen(const std::vector<Mark>& wanted, double room) const {
    std::vector<Mark> marks;
    for (const Mark& mark : wanted) {
        const bool is_inside = mark.value >= m_low * (1 - 1e-9) && mark.value <= m_high * (1 + 1e-9);
        const auto is_near = [&](const Mark& other) {
            return std::abs(other.place - mark.place) < room;
        };
        if (is_inside && std::ranges::none_of(marks, is_near))
            marks.push_back(mark);
    }
    std::ranges::sort(marks, {}, &Mark::place);
    return marks;
}

bool LogAxis::is_part_of_a_decade() const {
    return m_high / m_low < 4;
}

std::vector<LogAxis::Mark> LogAxis::marks(double room, std::string_view decimal_point) const {
    std::vector<Mark> wanted;
    const bool is_span = m_kind == LogAxisKind::duration;
    if (is_part_of_a_decade()) {
        const auto units = is_span ? std::span<const Unit>(span_units) : std::span<const Unit>(frequency_units);
        for (const Labelled& one : even_steps(m_low, m_high, m_high * room / m_points, units, decimal_point))
            wanted.push_back({one.value, place_of(one.value), one.text});
        return chosen(wanted, room);
    }
    for (const double value : is_span ? round_spans() : round_frequencies())
        wanted.push_back({value, place_of(value),
                          is_span ? span_text(value, 1, decimal_point) : frequency_text(value, 1, decimal_point)});
    return chosen(wanted, room);
}

std::vector<LogAxis::Mark> LogAxis::period_marks(double room, std::string_view decimal_point) const {
    std::vector<Mark> wanted;
    if (is_part_of_a_decade()) {
        for (const Labelled& one :
             even_steps(1 / m_high, 1 / m_low, room / m_low / m_points, span_units, decimal_point))
            wanted.push_back({1 / one.value, place_of(1 / one.value), one.text});
        return chosen(wanted, room);
    }
    for (const double span : round_spans())
        wanted.push_back({1 / span, place_of(1 / span), span_text(span, 1, decimal_point)});
    return chosen(wanted, room);
}

} // namespace tickervantage
