// The main window's meter, as the status cycle sets it. Main thread.
#pragma once

#include "draw/instruments/clock_performance.h"
#include "gui/main/instrument_widget.h"

#include <string>
#include <utility>

namespace tickervantage {

class MeterWidget : public InstrumentWidget {
public:
    // The meter outlives the widget.
    MeterWidget(ClockPerformance& meter, QWidget* parent) : InstrumentWidget(parent), m_meter(meter) {}

    // Draws what has changed since it was drawn last.
    void show_now() {
        const std::string scale = m_meter.full_scale_text();
        if (std::exchange(m_scale, scale) != scale)
            redraw_all(); // the labels changed with the scale
        else
            redraw_hands();
    }

protected:
    void draw_face(Canvas& canvas, Rect bounds) override { m_meter.draw_face(canvas, bounds); }
    void draw_hands(Canvas& canvas, Rect bounds) const override { m_meter.draw_hands(canvas, bounds); }

private:
    ClockPerformance& m_meter;
    std::string m_scale; // that the kept face is labelled for
};

} // namespace tickervantage
