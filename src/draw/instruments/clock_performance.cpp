#include "draw/instruments/clock_performance.h"

#include "draw/instruments/dial.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace tickervantage {

namespace {

constexpr double STRAIGHT_UP = 375.0; // a quarter of a turn, one turn on
constexpr int TICK_STEP = 5;
constexpr int MARK_STEP = 20;
constexpr double MARK_INSET = 21.0;
constexpr double MARK_BOX_WIDTH = 30.0;
constexpr double FULL_SCALE_TEXT_INSET = 10.0;
constexpr double FULL_SCALE_TEXT_HEIGHT = 20.0;
constexpr std::uint64_t LARGEST_SCALE = 10'000'000'000'000; // full scale eleven and a half days

std::uint64_t scale_for(double value) {
    std::uint64_t scale = 1;
    while (std::abs(value) / static_cast<double>(scale) > ClockPerformance::DIVISIONS && scale < LARGEST_SCALE)
        scale *= 10;
    return scale;
}

Path meter_ticks(const Dial& dial) {
    Path ticks;
    for (int mark = -ClockPerformance::DIVISIONS; mark <= ClockPerformance::DIVISIONS; mark += TICK_STEP)
        dial.add_tick(ticks, STRAIGHT_UP - mark, mark % MARK_STEP == 0 ? 10.0 : 5.0);
    return ticks;
}

// Short enough for the dial: "-.4", but "1.0" at the ends.
std::string tenths_text(int deflection) {
    if (deflection == 0)
        return "0";
    const int tenths = std::abs(deflection) / 10;
    return (deflection < 0 ? "-" : "") + (tenths == 10 ? std::string("1.0") : "." + std::to_string(tenths));
}

} // namespace

ClockPerformance::ClockPerformance(std::function<void()> redraw) : m_redraw(std::move(redraw)) {}

void ClockPerformance::setValue(double value, bool perSecond) {
    m_has_value = true;
    m_scale = scale_for(value);
    m_value = value;
    set_full_scale(m_scale * DIVISIONS);
    if (perSecond)
        m_scale_units += "/s";
    if (m_redraw)
        m_redraw();
}

void ClockPerformance::setNoValue() {
    setValue(0, false);
    m_has_value = false;
}

void ClockPerformance::set_full_scale(std::uint64_t full_scale) {
    struct Unit {
        std::uint64_t nanoseconds;
        int exponent;
        const char* name;
    };
    static constexpr auto UNITS =
        std::to_array<Unit>({{1'000'000'000, 0, "s"}, {1'000'000, 3, "ms"}, {1000, 6, "\u00b5s"}, {1, 9, "ns"}});

    const Unit& unit = *std::ranges::find_if(UNITS, [&](const Unit& one) { return full_scale >= one.nanoseconds; });
    m_scale_value = full_scale / unit.nanoseconds;
    m_scale_exp = unit.exponent;
    m_scale_units = unit.name;
}

double ClockPerformance::deflection() const {
    if (std::isnan(m_value))
        return 0;
    return std::clamp(m_value / static_cast<double>(m_scale), MIN_DEFLECTION, MAX_DEFLECTION);
}

std::string ClockPerformance::full_scale_text() const {
    return "Max: " + std::to_string(m_scale_value) + " " + m_scale_units;
}

std::string ClockPerformance::mark_text(int deflection) const {
    if (m_scale_value == 10)
        return std::to_string(deflection / 10);
    if (m_scale_value == 1)
        return tenths_text(deflection);
    return std::to_string(deflection);
}

void ClockPerformance::draw(Canvas& canvas, Rect bounds) {
    draw_face(canvas, bounds);
    draw_hands(canvas, bounds);
}

void ClockPerformance::draw_face(Canvas& canvas, Rect bounds) {
    const Dial dial(bounds, meterIntervals);
    dial.draw_face(canvas);
    if (!m_ticks || m_ticks_bounds != bounds) {
        m_ticks = meter_ticks(dial);
        m_ticks_bounds = bounds;
    }
    canvas.stroke(*m_ticks, ColorRole::text, 1.0, Shadow::none);
    for (int mark = -DIVISIONS; mark <= DIVISIONS; mark += MARK_STEP)
        dial.draw_label(canvas, mark_text(mark), MARK_INSET, STRAIGHT_UP - mark, MARK_BOX_WIDTH);

    const Rect face = dial.face();
    canvas.text(full_scale_text(),
                {face.x + FULL_SCALE_TEXT_INSET, face.y + FULL_SCALE_TEXT_INSET, face.width - 2 * FULL_SCALE_TEXT_INSET,
                 FULL_SCALE_TEXT_HEIGHT},
                {});
}

void ClockPerformance::draw_hands(Canvas& canvas, Rect bounds) const {
    const Dial dial(bounds, meterIntervals);
    if (m_has_value)
        dial.draw_needle(canvas, {STRAIGHT_UP - deflection(), 0.98, 1.0, ColorRole::text});
    dial.draw_hub(canvas);
}

} // namespace tickervantage
