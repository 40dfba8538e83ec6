// The preferences window over its panes. Settings are written by the panes' actions and when the window closes. Main
// thread only; what the parts refer to outlives the window.
#pragma once

#include "config/preferences_parts.h"

#include <QWidget>

class QTabWidget;

namespace tickervantage {

class PreferencesAdvancedPane;
class PreferencesGeneralPane;
class PreferencesUpdatePane;

class Preferences : public QWidget {
    Q_OBJECT
public:
    enum class Pane : unsigned char { general, advanced, update };

    explicit Preferences(PreferencesParts parts);

    void show_pane(Pane pane); // and the window, in front; the controls show the records as they are now

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    PreferencesParts m_parts;
    QTabWidget* m_window = nullptr;
    PreferencesGeneralPane* prefsGeneral = nullptr;
    PreferencesAdvancedPane* prefsAdvanced = nullptr;
    PreferencesUpdatePane* prefsUpdate = nullptr;
};

} // namespace tickervantage
