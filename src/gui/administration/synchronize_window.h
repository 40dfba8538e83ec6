// The window that sets the clock from one server, once: chronyd is stopped, a chronyd of one run sets the clock, and
// what it printed is shown.
//
// A run cannot be cancelled; its time-out bounds it. The window may be closed meanwhile. Main thread only; the parts
// outlive the window.
#pragma once

#include "roothelper/jobs/synchronize.h"
#include "settings/default_settings.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QWidget;

namespace tickervantage {

struct SynchronizeOutcome {
    std::string output;   // of chronyd
    std::string sentence; // why nothing was done; empty: it was done, or the user did not give the rights
    bool done = false;
};

struct SynchronizeParts {
    DefaultSettings& settings;
    // Comes back on the main thread.
    std::function<void(const Synchronisation& what, std::function<void(const SynchronizeOutcome& outcome)> done)>
        synchronise;
};

class Synchronize : public QDialog {
    Q_OBJECT
public:
    // A sheet of the parent. Deletes itself when it closes.
    Synchronize(SynchronizeParts parts, QWidget* parent);
    ~Synchronize() override;
    Synchronize(const Synchronize&) = delete;
    Synchronize& operator=(const Synchronize&) = delete;

    void windowDidLoad(); // once, before the window is shown
    void synchronize();
    void cancelSync();

private:
    struct Shared;

    void build();
    void build_options();
    void build_output();
    void set_busy(bool busy);
    void show_outcome(const SynchronizeOutcome& outcome);
    void update_button();

    SynchronizeParts m_parts;
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
    std::shared_ptr<Shared> m_shared;
};

} // namespace tickervantage
