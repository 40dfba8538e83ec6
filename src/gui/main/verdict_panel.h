// Above everything in the main window: whether the clock is right, and how far off it can be. Main thread.
#pragma once

#include "chrony/truth/clock_truth.h"

#include <QFrame>

#include <optional>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace tickervantage {

class BudgetView;
class SignImage;

class VerdictPanel : public QFrame {
    Q_OBJECT

public:
    explicit VerdictPanel(QWidget* parent);

    void show_truth(const ClockTruth& truth);

    // Why nothing is known, while that is the verdict.
    void show_silence(const QString& sentence);

    // Words and budget side by side, or one below the other.
    void set_wide(bool wide);

Q_SIGNALS:
    void explanation_wanted();

private:
    void build_words();
    void build_notice();
    void show_notice(Verdict verdict);

    std::optional<Verdict> m_verdict; // shown
    SignImage* m_image = nullptr;
    QLabel* m_name = nullptr;
    QLabel* m_reason = nullptr;
    QLabel* m_error = nullptr;
    QLabel* m_caution = nullptr;
    QFrame* m_notice = nullptr; // the two below
    QLabel* m_notice_words = nullptr;
    QPushButton* m_explain = nullptr;
    BudgetView* m_budget = nullptr;
    QBoxLayout* m_row = nullptr;
};

} // namespace tickervantage
