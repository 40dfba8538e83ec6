// A histogram of the values in sight, with the middle and the ends of most of them. Main thread.
#pragma once

#include "draw/plots/value_axis.h"
#include "studies/history/history_statistics.h"

#include <QWidget>

namespace tickervantage {

class HistogramView : public QWidget {
    Q_OBJECT
public:
    explicit HistogramView(QWidget* parent = nullptr);

    // `name` of the values; of none without counts.
    void show_histogram(const QString& name, AxisUnit unit, const Histogram& histogram, const ValueSummary& statistics);

    [[nodiscard]] const Histogram& histogram() const { return m_histogram; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {160, 70}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    AxisUnit m_unit = AxisUnit::seconds;
    Histogram m_histogram;
    ValueSummary m_statistics;
};

} // namespace tickervantage
