// The window that sets the clock from one server, once: chronyd is stopped, a chronyd of one run sets the clock, and
// what it printed is shown.
//
// A run cannot be cancelled; its time-out bounds it. The window may be closed meanwhile. Main thread only; the
// settings outlive the window.
#pragma once

#include "roothelper/jobs/job_catalogue.h"
#include "roothelper/jobs/synchronize.h"
#include "settings/default_settings.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QWidget;

namespace tickervantage {

class Synchronize : public QDialog {
    Q_OBJECT
public:
    // A sheet of the parent. Deletes itself when it closes.
    Synchronize(DefaultSettings& settings, QWidget* parent);

    void windowDidLoad(); // once, before the window is shown
    void synchronize();
    void cancelSync();
    void show_result(const JobResult& result); // of the job that was wanted

Q_SIGNALS:
    void wanted(const Synchronisation& what);

private:
    void build();
    void build_options();
    void build_output();
    void set_busy(bool busy);
    void update_button();

    DefaultSettings& m_settings;
    QLineEdit* m_server = nullptr;
    QPushButton* m_sync = nullptr;
    QPushButton* m_close = nullptr;
    QProgressBar* m_busy = nullptr;
    QLabel* m_busy_msg = nullptr;
    QLabel* m_words = nullptr; // in its place while nothing is under way
    QCheckBox* m_restart_chronyd = nullptr;
    QPlainTextEdit* m_output = nullptr;
    QWidget* ph_timeout = nullptr;
    QSpinBox* m_timeout = nullptr; // in ph_timeout
    bool m_is_busy = false;
};

} // namespace tickervantage
