// The sources: a table, the picture of their intervals beside it, and the explanation of the one that was chosen, or
// of all. Main thread.
#pragma once

#include "chrony/truth/clock_truth.h"

#include <QWidget>

#include <memory>
#include <string>

class QPushButton;
class QTableView;
class QTextBrowser;

namespace tickervantage {

class IntervalView;
class SourcesModel;

class SourcesPanel : public QWidget {
    Q_OBJECT

public:
    explicit SourcesPanel(QWidget* parent);

    void show_truth(const std::shared_ptr<const ClockTruth>& truth);

    // Not of another machine: chronyd gives them to root on its own alone.
    void offer_root_reports(bool offered);

    // The clock as a whole and every source, until one is chosen.
    void explain_all();

Q_SIGNALS:
    // The reports that only root may read: asked for once, then they come with every reading.
    void root_reports_wanted();

protected:
    void changeEvent(QEvent* event) override;

private:
    void build_table();
    void build_root_row();
    void lay_out();
    void fit_columns();
    void limit_table();
    void limit_height();
    void choose_row(int row);
    void show_explanation();
    void restore_choice();

    SourcesModel* m_model = nullptr;
    QTableView* m_table = nullptr;
    IntervalView* m_intervals = nullptr;
    QTextBrowser* m_explanation = nullptr;
    QWidget* m_root_row = nullptr;
    QPushButton* m_ask_root = nullptr;
    bool m_offers_root = true;
    std::string m_chosen; // its address; empty: none, and all are explained
    QString m_shown;      // the explanation as it stands there
};

} // namespace tickervantage
