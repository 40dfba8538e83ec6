// The widget that shows a spectrum, and tells which bar is pointed at.
//
// Bars are pointed at with the mouse, or with the arrow keys, Home and End once the widget has the focus. Without a
// spectrum it shows a text instead of empty axes. The chart is painted once and kept as a picture until something about
// it changes. Main thread.
#pragma once

#include "gui/common/plot_surface.h"
#include "studies/spectrum/spectrum_view.h"

#include <cstddef>
#include <optional>

namespace tickervantage {

class SpectrumChart : public PlotSurface {
    Q_OBJECT
public:
    explicit SpectrumChart(QWidget* parent = nullptr);

    void set_spectrum(std::shared_ptr<const ComputedSpectrum> spectrum);

    [[nodiscard]] const SpectrumView& view() const { return m_view; }

Q_SIGNALS:
    void pointed(const std::optional<tickervantage::SpectrumReading>& reading); // none: no longer

protected:
    [[nodiscard]] bool is_empty() const override { return m_view.spectrum() == nullptr; }
    void draw_plot(Canvas& canvas) const override;
    void draw_over(QPainter& painter) const override; // the marker
    void pointer_moved(std::optional<Point> position) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void show_reading(std::optional<SpectrumReading> reading);

    SpectrumView m_view;
    std::optional<SpectrumReading> m_pointed;
};

} // namespace tickervantage
