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

ClockWidget::ClockWidget(QWidget* parent) : InstrumentWidget(parent, seconds_in_a_minute), m_view(local_clock_time) {}

void ClockWidget::show_now() {
    // Every ten seconds the slow hands are off by a pixel, or the clock was set.
    constexpr int seconds_per_picture = 10;
    const ClockTime now = local_clock_time();
    const int picture = (now.hour * 3600 + now.minute * 60 + now.second) / seconds_per_picture;
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
    return static_cast<std::size_t>(local_clock_time().second);
}

} // namespace tickervantage
