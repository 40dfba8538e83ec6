// The last hour as a strip: how far off the clock can have been, how far it was, and in which state. A click, Return or
// the space bar asks for the history; the pointer or the arrow keys point at a moment. Main thread.
#pragma once

#include "chrony/status/trend.h"
#include "draw/plots/trend_strip.h"

#include <QWidget>

namespace tickervantage {

class TrendView : public QWidget {
    Q_OBJECT

public:
    explicit TrendView(QWidget* parent);

    void show_trend(const Trend& trend);
    // In place of the strip, until there is one again.
    void show_instead(const QString& words);

    // What is painted for the widget's size, without the painting.
    [[nodiscard]] TrendStrip strip() const;
    [[nodiscard]] const Trend& trend() const { return m_trend; }
    [[nodiscard]] const QString& words_instead() const { return m_instead; } // empty: the strip is shown
    // What is pointed at: null where nothing is, or nothing was read.
    [[nodiscard]] const TrendReading* pointed_reading() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void graph_wanted();
    void pointed(); // at another moment, or at none

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void point_at(const std::optional<double>& moment);
    void step(int readings);

    Trend m_trend;
    std::vector<TrendPoint> m_points;
    std::vector<double> m_changes;
    std::optional<double> m_pointer; // moment
    QString m_instead;
};

} // namespace tickervantage
