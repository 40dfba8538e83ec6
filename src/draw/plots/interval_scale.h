// The axis on which intervals of very different widths and places stand side by side: even where that shows them all,
// else logarithmic to both sides of zero, and even about zero as far as the narrowest interval is wide.
//
// Values in seconds, places in points. Plain functions of the record, any thread.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct TimeInterval {
    double low = 0;
    double high = 0;
    friend bool operator==(const TimeInterval&, const TimeInterval&) = default;
};

class IntervalScale {
public:
    // From `left` to `right` lie all intervals, and zero. Without any, a microsecond to both sides.
    IntervalScale(std::span<const TimeInterval> intervals, double left, double right);

    [[nodiscard]] double place_of(double seconds) const;
    [[nodiscard]] bool is_even() const { return m_even_to <= 0; }

    struct Mark {
        double value = 0; // s, round
        std::string text; // "−20 µs", "0"; in one unit where the axis is even
    };
    // From left to right, so far apart that labels as wide as `room` fit.
    [[nodiscard]] std::vector<Mark> marks(double room, std::string_view decimal_point) const;

private:
    [[nodiscard]] double bent(double seconds) const;
    [[nodiscard]] std::vector<double> even_values(double room) const;
    [[nodiscard]] std::vector<double> decades(double room) const;

    double m_low = 0;
    double m_high = 0;
    double m_even_to = 0; // s: about there the axis becomes logarithmic; 0: nowhere
    double m_left = 0;
    double m_points_per_unit = 1;
};

} // namespace tickervantage
