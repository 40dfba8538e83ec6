// A level axis over decades: spans of time, or frequencies. Places in points, from left to right. A plain value, any
// thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class LogAxisKind : unsigned char { duration, frequency }; // s, Hz

class LogAxis {
public:
    // From `low` to `high`, both above zero; a span that cannot be drawn is widened.
    LogAxis(LogAxisKind kind, double low, double high, double left, double right);

    [[nodiscard]] double place_of(double value) const;
    [[nodiscard]] double value_at(double place) const;

    struct Mark {
        double value = 0;
        double place = 0;
        std::string text;
    };
    // Round values so far apart that labels `room` points wide fit: "1 s", "10 min", "1 d"; of frequencies "1 mHz". A
    // part of a decade has even steps in one unit: "1.2 h", "1.4 h".
    [[nodiscard]] std::vector<Mark> marks(double room, std::string_view decimal_point) const;

    // Of an axis of frequencies: the periods that they belong to, where they stand.
    [[nodiscard]] std::vector<Mark> period_marks(double room, std::string_view decimal_point) const;

private:
    [[nodiscard]] std::vector<Mark> chosen(const std::vector<Mark>& wanted, double room) const;
    [[nodiscard]] bool is_part_of_a_decade() const;

    LogAxisKind m_kind;
    double m_low;
    double m_high;
    double m_left;
    double m_points; // an e-fold
};

// "250 ms", "2 min", "1.5 d": one unit, so many digits.
[[nodiscard]] std::string span_text(double seconds, int digits, std::string_view decimal_point);
// "11.6 µHz"
[[nodiscard]] std::string frequency_text(double hertz, int digits, std::string_view decimal_point);

} // namespace tickervantage
