// A widget that shows a plot: painted once, and kept as a picture until something about it changes, so that what
// follows the pointer costs no more than itself. While there is nothing to plot a text says why. Main thread.
#pragma once

#include "draw/canvas.h"
#include "qt/qt_canvas.h"

#include <QPalette>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <optional>

class QPainter;

namespace tickervantage {

class PlotSurface : public QWidget {
    Q_OBJECT

public:
    struct Sizes {
        QSize preferred;
        QSize smallest;
    };
    PlotSurface(QWidget* parent, Sizes sizes, QPalette::ColorRole background = QPalette::Base);

    void set_empty_text(const QString& text);
    [[nodiscard]] const QString& empty_text() const { return m_empty_text; }

    [[nodiscard]] QSize sizeHint() const override { return m_sizes.preferred; }
    [[nodiscard]] QSize minimumSizeHint() const override { return m_sizes.smallest; }

protected:
    [[nodiscard]] virtual bool is_empty() const = 0;
    virtual void draw_plot(Canvas& canvas) const = 0; // also while it is empty
    // Brings the picture of the plot that the canvas shows up to date; false where it has to be drawn anew, all of it.
    [[nodiscard]] virtual bool update_plot(Canvas& /*canvas*/) const { return false; }
    virtual void draw_over(QPainter& /*painter*/) const {}
    void draw_focus(QPainter& painter) const;       // a frame about the plot that has the keyboard
    [[nodiscard]] virtual QRectF text_area() const; // for the empty text
    virtual void plot_changed();                    // what it looks like: to be painted anew
    void plot_went_on();                            // what it shows: to be brought up to date
    // The pointer is there, y up, or left; so it is told too when the keyboard goes elsewhere.
    virtual void pointer_moved(std::optional<Point> /*position*/) {}

    [[nodiscard]] Rect bounds() const { return {0, 0, static_cast<double>(width()), static_cast<double>(height())}; }
    [[nodiscard]] Point flipped(const QPointF& position) const { return {position.x(), height() - position.y()}; }

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void paint_picture();
    [[nodiscard]] bool update_picture();
    void paint_empty(QPainter& painter) const;

    Sizes m_sizes;
    QPalette::ColorRole m_background;
    QString m_empty_text;
    QPixmap m_picture;        // null: to be painted
    bool m_is_behind = false; // the picture: to be brought up to date
    CanvasMemory m_canvas_memory;
};

} // namespace tickervantage
