// The widget that shows frequency against temperature and tells what is pointed at.
//
// One points with the mouse; or, once the widget has the focus, with the arrow keys (Shift: further), Home and End, and
// Escape to stop. The plot is painted once and kept as a picture until something about it changes; with nothing to show
// a text says why. Main thread.
#pragma once

#include "qt/qt_canvas.h"
#include "studies/freqtemp/freqtemp_view.h"

#include <QPixmap>
#include <QString>
#include <QWidget>

#include <optional>

class QPainter;

namespace tickervantage {

class FreqTempPlot : public QWidget {
    Q_OBJECT

public:
    explicit FreqTempPlot(QWidget* parent = nullptr);

    // Runs `change` on the view, then draws anew and tells what is now under the pointer.
    template <typename Change>
    void change(const Change& change) {
        change(m_view);
        view_changed();
    }
    void set_empty_text(const QString& text); // shown while no point is

    [[nodiscard]] const QString& empty_text() const { return m_empty_text; }

    [[nodiscard]] const FreqTempView& view() const { return m_view; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void pointed(const std::optional<tickervantage::FreqTempReading>& reading); // none: at nothing any more

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] Rect bounds() const;
    [[nodiscard]] Rect drawing_area() const;
    [[nodiscard]] Point inside(Point position) const;
    [[nodiscard]] std::optional<Point> after_key(const QKeyEvent& event) const;
    void view_changed();
    void paint_empty(QPainter& painter) const;
    void paint_marker(QPainter& painter) const;
    void point_at(std::optional<Point> position);

    FreqTempView m_view;
    QString m_empty_text;
    QPixmap m_picture; // null: to be painted
    CanvasMemory m_canvas_memory;
    std::optional<Point> m_pointer; // y up, as in the view
    bool m_by_key = false;          // then the position is shown too
    std::optional<FreqTempReading> m_reading;
};

} // namespace tickervantage
