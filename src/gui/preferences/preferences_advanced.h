// The Advanced pane: three boxes, saved as soon as they change. Main thread only; the parts outlive the pane.
#pragma once

#include "gui/preferences/preferences_parts.h"

#include <QIcon>
#include <QWidget>

class QCheckBox;

namespace tickervantage {

class PreferencesAdvancedPane : public QWidget {
    Q_OBJECT
public:
    explicit PreferencesAdvancedPane(const PreferencesParts& parts, QWidget* parent = nullptr);

    [[nodiscard]] static QString toolbarItemTitle();
    [[nodiscard]] static QIcon toolbarItemIcon();

    void show_record(); // fills the controls
    void restartGPSD();
    void enableFrequency();
    void enableSpectrum();

Q_SIGNALS:
    void changed();

private:
    void take(bool& value, const QCheckBox* box);

    const PreferencesParts& m_parts;
    QCheckBox* m_restart_gpsd = nullptr;
    QCheckBox* m_frequency = nullptr;
    QCheckBox* m_spectrum = nullptr;
};

} // namespace tickervantage
