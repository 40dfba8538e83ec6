// The preferences window over its panes. Settings are written by the panes' actions and when the window closes. Main
// thread only; what the parts refer to outlives the window.
#pragma once

#include "gui/preferences/preferences_parts.h"

#include <QWidget>

#include <chrono>

class QTabWidget;

namespace tickervantage {

class PreferencesAdvancedPane;
class PreferencesGeneralPane;
class PreferencesUpdatePane;
class PreferencesWatchPane;

class Preferences : public QWidget {
    Q_OBJECT
public:
    enum class Pane : unsigned char { general, advanced, update, watch };

    explicit Preferences(PreferencesParts parts);

    void show_pane(Pane pane); // and the window, in front; the controls show the records as they are now

    [[nodiscard]] PreferencesGeneralPane& general() { return *prefsGeneral; }
    [[nodiscard]] PreferencesAdvancedPane& advanced() { return *prefsAdvanced; }
    [[nodiscard]] PreferencesWatchPane& watch() { return *m_watch; }

    // The records are others now, not by this window.
    void show_records();

    // Waits until the file for launch at login is as it was asked for: for the program's end. False when the time does
    // not suffice.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    PreferencesParts m_parts;
    QTabWidget* m_window = nullptr;
    PreferencesGeneralPane* prefsGeneral = nullptr;
    PreferencesAdvancedPane* prefsAdvanced = nullptr;
    PreferencesUpdatePane* prefsUpdate = nullptr;
    PreferencesWatchPane* m_watch = nullptr;
};

} // namespace tickervantage
