// A centre-zero meter whose full scale follows the value in decades.
//
// Values are nanoseconds, or nanoseconds per second where so flagged; a positive value turns the needle clockwise. The
// needle rests at its stop for values beyond the largest scale (10^15 ns) and for the infinities, and at zero for a
// value that is not a number. Lengths are points, y up. One thread at a time.
#pragma once

#include "draw/canvas.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tickervantage {

class ClockPerformance {
public:
    static constexpr int DIVISIONS = 100; // from the centre to either end
    static constexpr double MAX_DEFLECTION = 100.0;
    static constexpr double MIN_DEFLECTION = -100.0;
    static constexpr double meterIntervals = 300.0; // divisions of a full turn of the dial

    // `redraw` is called after every new value, from setValue; it must not draw there and then. May be empty.
    explicit ClockPerformance(std::function<void()> redraw = {});

    void setValue(double value, bool perSecond);

    // As a value of 0, but without a needle: there is nothing to show.
    void setNoValue();

    void draw(Canvas& canvas, Rect bounds);

    // The two halves of draw: face, ticks and labels, which change with the scale only, and the needle over them.
    void draw_face(Canvas& canvas, Rect bounds);
    void draw_hands(Canvas& canvas, Rect bounds) const;

    [[nodiscard]] double value() const { return m_value; }
    [[nodiscard]] std::uint64_t scale() const { return m_scale; }             // ns per division, a power of ten
    [[nodiscard]] std::uint64_t scale_value() const { return m_scale_value; } // full scale, in scale_units()
    [[nodiscard]] const std::string& scale_units() const { return m_scale_units; }
    [[nodiscard]] int scale_exp() const { return m_scale_exp; } // one second is 10^scale_exp of the unit
    [[nodiscard]] double deflection() const;                    // divisions, from MIN_DEFLECTION to MAX_DEFLECTION

    // The text under the dial: "Max: 100 ns/s".
    [[nodiscard]] std::string full_scale_text() const;
    // The text at one of the marks, a multiple of 20 divisions.
    [[nodiscard]] std::string mark_text(int deflection) const;

private:
    void set_full_scale(std::uint64_t full_scale);

    std::function<void()> m_redraw;
    std::optional<Path> m_ticks;
    Rect m_ticks_bounds;
    bool m_has_value = true;
    std::uint64_t m_scale = 1;
    double m_value = 0;
    int m_scale_exp = 1;
    std::uint64_t m_scale_value = 1;
    std::string m_scale_units;
};

} // namespace tickervantage
