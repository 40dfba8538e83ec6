// The widget that shows a spectrum, and tells which bar is pointed at.
//
// Bars are pointed at with the mouse, or with the arrow keys, Home and End once the widget has the focus. Without a
// spectrum it shows a text instead of empty axes. The chart is painted once and kept as a picture until something about
// it changes. Main thread.
#pragma once

#include "studies/spectrum/spectrum_view.h"

#include <QPixmap>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <optional>

class QPainter;

namespace tickervantage {

class SpectrumChart : public QWidget {
    Q_OBJECT
public:
    explicit SpectrumChart(QWidget* parent = nullptr);

    void set_spectrum(std::shared_ptr<const ComputedSpectrum> spectrum);
    void set_empty_text(const QString& text);

    [[nodiscard]] const SpectrumView& view() const { return m_view; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void pointed(const std::optional<tickervantage::SpectrumReading>& reading); // none: no longer

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] Rect bounds() const;
    [[nodiscard]] QPixmap picture() const; // without the marker
    void paint_empty(QPainter& painter) const;
    void paint_marker(QPainter& painter) const;
    void point_at(std::optional<SpectrumReading> reading);
    void repaint_chart();

    SpectrumView m_view;
    QString m_empty_text;
    QPixmap m_picture; // null: to be painted
    std::optional<SpectrumReading> m_pointed;
};

} // namespace tickervantage
