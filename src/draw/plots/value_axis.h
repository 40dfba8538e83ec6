// One axis of values, upright: where a value stands, and which labels stand beside it.
//
// All labels of an axis are in one unit, which its title names; each has three significant digits at the most and is
// true where it stands. Where neighbouring labels would differ in a later digit, they count from a round base that the
// title names too. Places in points, upwards. A plain value, any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class AxisShape : unsigned char {
    linear,
    symmetric_log, // logarithmic to both sides of zero, and even about zero
    logarithmic,   // for what cannot be negative
};

// What the numbers behind an axis are: seconds are labelled in ns, µs, ms or s, frequencies in ppb or ppm.
enum class AxisUnit : unsigned char { seconds, ppm, celsius, none };

// A value in the unit that suits its size, with so many significant digits: "−20.5 µs". NaN is "–".
[[nodiscard]] std::string value_text(double value, AxisUnit unit, int digits, std::string_view decimal_point);

struct AxisSpan {
    double low = 0;
    double high = 0;
};

struct AxisTick {
    double value = 0;
    std::string label; // without unit; empty: a grid line without a label
};

class ValueAxis {
public:
    // `even_to`: of a symmetric axis, about where it becomes logarithmic; of a logarithmic one the smallest value of
    // interest. A span without length, or of numbers that are not finite, is widened to one that can be drawn.
    ValueAxis(AxisUnit unit, AxisShape shape, AxisSpan span, double even_to = 0);

    void place_between(double bottom, double top);

    [[nodiscard]] double place_of(double value) const;
    [[nodiscard]] double value_at(double place) const;
    [[nodiscard]] AxisSpan span() const { return m_span; }
    [[nodiscard]] AxisShape shape() const { return m_shape; }

    // From below upwards, so far apart that labels `room` points high fit.
    [[nodiscard]] std::vector<AxisTick> ticks(double room, std::string_view decimal_point = ".") const;

    // "µs"; with a base "ppb + −5.123 ppm", which each label is added to; empty where the numbers have no unit.
    [[nodiscard]] std::string unit_text(double room, std::string_view decimal_point = ".") const;

private:
    struct Labels; // of a linear axis: step, base and unit
    [[nodiscard]] Labels labels(double room) const;
    [[nodiscard]] double bent(double value) const;
    [[nodiscard]] double unbent(double place) const;
    struct Decade {
        double value;
        bool has_label;
    };
    [[nodiscard]] std::vector<Decade> decades(double room) const;
    [[nodiscard]] std::vector<AxisTick> even_ticks(double room, std::string_view decimal_point) const;
    [[nodiscard]] double unit_size() const; // of a logarithmic axis: what its unit suits

    AxisUnit m_unit;
    AxisShape m_shape;
    AxisSpan m_span;
    double m_even_to;
    double m_bottom = 0;
    double m_points = 1; // a bent unit
};

} // namespace tickervantage
