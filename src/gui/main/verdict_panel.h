// Above everything in the main window: whether the clock is right, how far off it can be, and where something is wrong,
// the one button that mends it. Main thread.
#pragma once

#include "chrony/truth/clock_truth.h"
#include "roothelper/jobs/mending.h"

#include <QFrame>

#include <optional>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace tickervantage {

class BudgetView;
class NoticeBar;
class SignImage;

class VerdictPanel : public QFrame {
    Q_OBJECT

public:
    explicit VerdictPanel(QWidget* parent);

    void show_truth(const ClockTruth& truth);
    // What was seen of the machine since.
    void show_mending_facts(const MendingFacts& facts);

    // What the watch tells, in words; empty: nothing.
    void show_alarm(const QString& words);

    // Why nothing is known, while that is the verdict.
    void show_silence(const QString& sentence);

    // Words and budget side by side, or one below the other.
    void set_wide(bool wide);

Q_SIGNALS:
    void explanation_wanted();
    void mending_wanted(Mending what); // any other thing that mends
    void quiet_wanted();               // of the alarm

private:
    void build_words();
    void build_notice();
    void show_notice();

    std::optional<Verdict> m_verdict; // shown
    MendingFacts m_facts;
    QString m_alarm;                   // empty: none
    Mending m_mending = Mending::none; // offered
    SignImage* m_image = nullptr;
    QLabel* m_name = nullptr;
    QLabel* m_reason = nullptr;
    QLabel* m_error = nullptr;
    QLabel* m_caution = nullptr;
    NoticeBar* m_notice = nullptr; // the four below
    QLabel* m_notice_words = nullptr;
    QPushButton* m_explain = nullptr;
    QPushButton* m_mend = nullptr;
    QPushButton* m_quiet = nullptr;
    BudgetView* m_budget = nullptr;
    QBoxLayout* m_row = nullptr;
};

} // namespace tickervantage
