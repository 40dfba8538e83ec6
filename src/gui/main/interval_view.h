// Beside the table of sources: the interval in which each sees our clock, at the height of its row. A click chooses the
// row. Main thread.
#pragma once

#include "draw/plots/interval_picture.h"
#include "gui/main/sources_model.h"

#include <QWidget>

class QTableView;

namespace tickervantage {

class IntervalView : public QWidget {
    Q_OBJECT

public:
    // The table shows the model; both live longer.
    IntervalView(QWidget* parent, QTableView& table, const SourcesModel& model);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    // What is painted for that size, without the painting.
    [[nodiscard]] IntervalPicture picture() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] std::vector<IntervalRow> rows_in_sight() const;

    QTableView& m_table;
    const SourcesModel& m_model;
};

} // namespace tickervantage
