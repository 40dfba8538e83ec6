// The General pane: chrony's paths, the options of the daemon and of chronywake, launch at login, warnings.
//
// Every valid change is in the record at once. The settings are written by the actions, and by save_settings. Main
// thread only; the parts outlive the pane.
#pragma once

#include "base/background.h"
#include "gui/preferences/preferences_general_controls.h"
#include "gui/preferences/preferences_parts.h"

#include <QIcon>
#include <QWidget>

#include <array>
#include <chrono>
#include <future>
#include <string>

class QMessageBox;

namespace tickervantage {

class PreferencesGeneralPane : public QWidget {
    Q_OBJECT
public:
    explicit PreferencesGeneralPane(const PreferencesParts& parts, QWidget* parent = nullptr);

    [[nodiscard]] static QString toolbarItemTitle();
    [[nodiscard]] static QIcon toolbarItemIcon();

    void show_record();   // fills the controls, and looks at the paths
    void save_settings(); // writes the record

    // Waits for the last change of launch at login, and takes it into the record. False when the time does not suffice.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

    void launchAtLogin();
    void keepHistory();
    void adjustClock();
    void find_path(std::size_t path);
    void installChronyWake();
    void saveArguments();
    void testChronywake();
    void restoreDefaults();
    void resetWarnings();
    void detect();

    // The answers to the wishes below. A failure without words was told elsewhere.
    void show_wake_service(const Result<>& done);
    void show_wake_test(const Result<std::string>& answer); // of chronywake, "200 OK" when all went well
    void show_adjustment(const Result<>& done);

Q_SIGNALS:
    void changed();             // when an edit is finished, not at every letter
    void defaults_wanted();     // in the record when this returns
    void wake_service_wanted(); // chronywake's service installed with the record's arguments, or removed
    void wake_test_wanted();    // chronywake run once
    void adjustment_wanted();   // of the clock by the installed daemon, or none, as the record says

protected:
    void changeEvent(QEvent* event) override;

private:
    void connect_controls();
    void fix_paths();
    void take_paths();
    void take_arguments();
    void finish_edit();
    void apply_adjustment();
    void update_wake();
    void look_at_paths();
    void look_at_history();
    void show_history(const Result<bool>& is_on);
    void show_path_states(const std::array<PathState, 4>& states);
    void show_detected(const std::array<std::string, 4>& found);
    void show_login(bool on, const Result<>& done);
    void say(const QString& text, bool alarmed = false);
    QMessageBox* alert(const QString& title, const QString& text);

    const PreferencesParts& m_parts;
    PreferencesGeneralControls m_controls;
    std::array<PathState, 4> m_states{PathState::program, PathState::program, PathState::program, PathState::program};
    std::future<bool> m_login_changed; // whether it is on then; invalid: no change is under way
    bool m_testing = false;
    bool m_saving = false;
    Background m_looks;
    Background m_logins;
    Background m_histories;
};

} // namespace tickervantage
