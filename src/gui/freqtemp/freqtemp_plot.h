// The widget that shows frequency against temperature and tells what is pointed at.
//
// One points with the mouse; or, once the widget has the focus, with the arrow keys (Shift: further), Home and End, and
// Escape to stop. Main thread.
#pragma once

#include "gui/common/plot_surface.h"
#include "studies/freqtemp/freqtemp_view.h"
#include "studies/freqtemp/kept_plot.h"

#include <optional>

namespace tickervantage {

class FreqTempPlot : public PlotSurface {
    Q_OBJECT

public:
    explicit FreqTempPlot(QWidget* parent = nullptr);

    // Runs `change` on the view, then draws anew and tells what is now under the pointer.
    template <typename Change>
    void change(const Change& change) {
        change(m_view);
        plot_went_on();
        pointer_moved(m_pointer);
    }
    [[nodiscard]] const FreqTempView& view() const { return m_view; }

Q_SIGNALS:
    void pointed(const std::optional<tickervantage::FreqTempReading>& reading); // none: at nothing any more

protected:
    [[nodiscard]] bool is_empty() const override { return m_view.is_empty(); }
    void draw_plot(Canvas& canvas) const override { m_view.draw(canvas, bounds(), &m_kept); }
    [[nodiscard]] bool update_plot(Canvas& canvas) const override { return m_view.update(canvas, bounds(), m_kept); }
    void draw_over(QPainter& painter) const override;
    [[nodiscard]] QRectF text_area() const override;
    void plot_changed() override;
    void pointer_moved(std::optional<Point> position) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] Rect drawing_area() const;
    [[nodiscard]] Point inside(Point position) const;
    [[nodiscard]] std::optional<Point> after_key(const QKeyEvent& event) const;

    FreqTempView m_view;
    mutable KeptPlot m_kept;        // what the picture shows
    std::optional<Point> m_pointer; // y up, as in the view
    bool m_by_key = false;          // then the position is shown too
    std::optional<FreqTempReading> m_reading;
};

} // namespace tickervantage
