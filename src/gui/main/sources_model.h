// The sources as a table: a row each, sorted by the column that was chosen. Main thread.
//
// A new reading of the same sources changes rows in place, so that selection and scroll position stay; what a cell says
// is put together when it is painted, so that a thousand sources cost as much as those in sight.
#pragma once

#include "chrony/truth/clock_truth.h"
#include "gui/common/source_words.h"

#include <QAbstractTableModel>
#include <QLocale>

#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

class SourcesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { state, name, address, stratum, poll, reach, offset, last_heard, column_count };

    explicit SourcesModel(QObject* parent, const QPalette& palette);

    void show(std::shared_ptr<const ClockTruth> truth);
    void set_palette(const QPalette& palette);

    [[nodiscard]] const ClockTruth& truth() const { return *m_truth; }
    // Which of the truth's sources stands in the row.
    [[nodiscard]] std::size_t source_in(int row) const { return m_order[static_cast<std::size_t>(row)]; }
    [[nodiscard]] int row_of(const std::string& wanted) const; // by its address; -1: none

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Column -1: in chronyc's order.
    void sort(int column, Qt::SortOrder order) override;

private:
    using Order = std::vector<std::size_t>;
    [[nodiscard]] Order sorted(const ClockTruth& truth) const;
    void rearrange(Order order, std::shared_ptr<const ClockTruth> truth);
    [[nodiscard]] QString text_in(const JudgedSource& source, int column) const;

    std::shared_ptr<const ClockTruth> m_truth = std::make_shared<const ClockTruth>();
    Order m_order; // by row
    int m_column = -1;
    Qt::SortOrder m_direction = Qt::AscendingOrder;
    StandingMarks m_marks;
};

} // namespace tickervantage
