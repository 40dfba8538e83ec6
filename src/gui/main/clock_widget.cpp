#include "gui/main/clock_widget.h"

#include <QTime>

#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t seconds_in_a_minute = 60;

ClockTime local_clock_time() {
    const QTime now = QTime::currentTime();
    return {now.hour(), now.minute(), now.second()};
}

} // namespace

ClockWidget::ClockWidget(QWidget* parent)
    : InstrumentWidget(parent, seconds_in_a_minute), m_time(local_clock_time()), m_view([this] { return m_time; }) {}

void ClockWidget::show_now() {
    show_time(local_clock_time());
}

void ClockWidget::show_time(ClockTime time) {
    // Every ten seconds the slow hands are off by a pixel, or the clock was set.
    constexpr int seconds_per_picture = 10;
    const int picture = (time.hour * 3600 + time.minute * 60 + time.second) / seconds_per_picture;
    m_time = time;
    if (std::exchange(m_picture, picture) != picture)
        redraw_all();
    else
        redraw_hands();
}

void ClockWidget::draw_face(Canvas& canvas, Rect bounds) {
    m_view.draw_face(canvas, bounds);
    m_view.draw_slow_hands(canvas, bounds);
}

void ClockWidget::draw_hands(Canvas& canvas, Rect bounds) const {
    m_view.draw_second_hand(canvas, bounds);
}

std::size_t ClockWidget::hand_position() const {
    return static_cast<std::size_t>(m_time.second);
}

} // namespace tickervantage
