#include "draw/instruments/analog_clock_view.h"

#include "draw/instruments/dial.h"

#include <string>
#include <utility>

namespace tickervantage {

namespace {

constexpr double STRAIGHT_UP = 75.0; // a quarter of a turn, one turn on
constexpr int TICKS = 60;
constexpr int TICKS_PER_NUMERAL = 5;
constexpr int NUMERALS = 12;
constexpr double NUMERAL_INSET = 16.0;
constexpr double NUMERAL_BOX_WIDTH = 20.0;

Path clock_ticks(const Dial& dial) {
    Path ticks;
    for (int position = TICKS; position >= 1; --position)
        dial.add_tick(ticks, position, position % TICKS_PER_NUMERAL == 0 ? 10.0 : 5.0);
    return ticks;
}

} // namespace

AnalogClockView::AnalogClockView(std::function<ClockTime()> local_time) : m_local_time(std::move(local_time)) {}

void AnalogClockView::draw(Canvas& canvas, Rect bounds) {
    draw_face(canvas, bounds);
    const ClockTime time = m_local_time(); // one for all hands
    slow_hands(canvas, bounds, time);
    second_hand(canvas, bounds, time);
}

void AnalogClockView::draw_face(Canvas& canvas, Rect bounds) {
    const Dial dial(bounds, clockIntervals);
    dial.draw_face(canvas);
    if (!m_ticks || m_ticks_bounds != bounds) {
        m_ticks = clock_ticks(dial);
        m_ticks_bounds = bounds;
    }
    canvas.stroke(*m_ticks, ColorRole::text, 1.0, Shadow::none);
    for (int numeral = 1; numeral <= NUMERALS; ++numeral)
        dial.draw_label(canvas, std::to_string(numeral), NUMERAL_INSET, STRAIGHT_UP - TICKS_PER_NUMERAL * numeral,
                        NUMERAL_BOX_WIDTH);
}

void AnalogClockView::draw_slow_hands(Canvas& canvas, Rect bounds) const {
    slow_hands(canvas, bounds, m_local_time());
}

void AnalogClockView::draw_second_hand(Canvas& canvas, Rect bounds) const {
    second_hand(canvas, bounds, m_local_time());
}

void AnalogClockView::slow_hands(Canvas& canvas, Rect bounds, ClockTime time) {
    const Dial dial(bounds, clockIntervals);
    dial.draw_needle(canvas, {STRAIGHT_UP - hour_value(time), 0.6, 3.0, ColorRole::text});
    dial.draw_needle(canvas, {STRAIGHT_UP - minute_value(time), 0.85, 2.0, ColorRole::text});
}

void AnalogClockView::second_hand(Canvas& canvas, Rect bounds, ClockTime time) {
    const Dial dial(bounds, clockIntervals);
    dial.draw_needle(canvas, {STRAIGHT_UP - time.second, 0.98, 1.0, ColorRole::red});
    dial.draw_hub(canvas);
}

double AnalogClockView::hour_value(ClockTime time) {
    return (time.hour * 3600 + time.minute * 60 + time.second) * 5 / 3600.0;
}

double AnalogClockView::minute_value(ClockTime time) {
    return (time.minute * 60 + time.second) / 60.0;
}

} // namespace tickervantage
