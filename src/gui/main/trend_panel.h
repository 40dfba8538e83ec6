// The last hour of the clock, with its title and the values that are pointed at. Main thread.
#pragma once

#include "base/failure.h"
#include "chrony/status/trend.h"

#include <QWidget>

class QLabel;

namespace tickervantage {

class ElidedLabel;
class TrendView;

class TrendPanel : public QWidget {
    Q_OBJECT

public:
    explicit TrendPanel(QWidget* parent);

    // As it was read from the history, or why it could not be.
    void show_trend(const Result<Trend>& trend);

    // An empty picture until show_trend(), for a history that is being read.
    void wait_for_trend();

Q_SIGNALS:
    void graph_wanted();

private:
    void show_title();
    void show_readout();

    QLabel* m_title = nullptr;
    ElidedLabel* m_readout = nullptr;
    TrendView* m_view = nullptr;
};

} // namespace tickervantage
