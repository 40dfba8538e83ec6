// The General pane: chrony's paths, the options of the daemon and of chronywake, launch at login, warnings.
//
// Every valid change is in the record at once. The settings are written by the actions, and by save_settings. Main
// thread only; the parts outlive the pane.
#pragma once

#include "gui/preferences/preferences_general_controls.h"
#include "gui/preferences/preferences_parts.h"

#include <QIcon>
#include <QWidget>

#include <array>
#include <chrono>
#include <future>
#include <memory>
#include <string>

class QMessageBox;

namespace tickervantage {

class PreferencesGeneralPane : public QWidget {
    Q_OBJECT
public:
    explicit PreferencesGeneralPane(const PreferencesParts& parts, QWidget* parent = nullptr);
    ~PreferencesGeneralPane() override;
    PreferencesGeneralPane(const PreferencesGeneralPane&) = delete;
    PreferencesGeneralPane& operator=(const PreferencesGeneralPane&) = delete;

    [[nodiscard]] static QString toolbarItemTitle();
    [[nodiscard]] static QIcon toolbarItemIcon();

    void show_record();   // fills the controls, and looks at the paths
    void save_settings(); // writes the record

    // Waits for the last change of launch at login, and takes it into the record. False when the time does not suffice.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

    void launchAtLogin();
    void adjustClock();
    void find_path(std::size_t path);
    void installChronyWake();
    void saveArguments();
    void testChronywake();
    void restoreDefaults();
    void resetWarnings();
    void detect();

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Shared;

    void connect_controls();
    void take_paths();
    void take_arguments();
    void finish_edit();
    void apply_adjustment();
    void show_adjustment(bool done, const std::string& sentence);
    void changed();
    void update_wake();
    void look_at_paths();
    void show_path_states(const std::array<PathState, 4>& states);
    void show_detected(const std::array<std::string, 4>& found);
    void show_login(bool on, const std::string& sentence);
    void show_test(const std::string& reply);
    void say(const QString& text, bool alarmed = false);
    QMessageBox* alert(const QString& title, const QString& text);

    const PreferencesParts& m_parts;
    std::shared_ptr<Shared> m_shared;
    PreferencesGeneralControls m_controls;
    std::array<PathState, 4> m_states{PathState::program, PathState::program, PathState::program, PathState::program};
    std::future<bool> m_login_changed; // whether it is on then; invalid: no change is under way
    bool m_testing = false;
    bool m_saving = false;
};

} // namespace tickervantage
