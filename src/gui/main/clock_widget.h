// The main window's clock: the machine's local time. Main thread.
#pragma once

#include "draw/instruments/analog_clock_view.h"
#include "gui/main/instrument_widget.h"

namespace tickervantage {

class ClockWidget : public InstrumentWidget {
public:
    explicit ClockWidget(QWidget* parent);

    // Both draw what has changed since it was drawn last.
    void show_now();
    void show_time(ClockTime time);

protected:
    // The slow hands are part of the kept face.
    void draw_face(Canvas& canvas, Rect bounds) override;
    void draw_hands(Canvas& canvas, Rect bounds) const override;
    [[nodiscard]] std::size_t hand_position() const override;

private:
    ClockTime m_time; // shown: one for all that a picture is made of
    AnalogClockView m_view;
    int m_picture = -1; // which of the day's pictures of the slow hands is kept
};

} // namespace tickervantage
