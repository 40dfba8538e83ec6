// The Watching pane: what is told and where, from which value on, and how often that would have been so in the tracking
// log. Saved as soon as it changes. Main thread only; the parts outlive the pane.
#pragma once

#include "base/background.h"
#include "gui/preferences/preferences_parts.h"
#include "watch/log_alarms.h"

#include <QIcon>
#include <QWidget>

#include <map>

class QCheckBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;

namespace tickervantage {

class PreferencesWatchPane : public QWidget {
    Q_OBJECT
public:
    explicit PreferencesWatchPane(const PreferencesParts& parts, QWidget* parent = nullptr);

    [[nodiscard]] static QString toolbarItemTitle();
    [[nodiscard]] static QIcon toolbarItemIcon();

    void show_record(); // fills the controls, and reads the log

Q_SIGNALS:
    void changed();

private:
    void build_table(QGridLayout* grid);
    void add_limit(QGridLayout* grid, int row, WatchQuantity quantity, const QString& unit, double scale);
    void take();
    void count_in_log();
    void show_counts(const std::optional<LogAlarms>& alarms);

    struct Limit {
        QDoubleSpinBox* field = nullptr; // null: has none
        double scale = 1;                // of the unit shown, in the rule's unit
        QLabel* count = nullptr;
    };

    const PreferencesParts& m_parts;
    QCheckBox* m_notify = nullptr;
    QCheckBox* m_tray = nullptr;
    QLabel* m_log_words = nullptr;
    std::map<WatchQuantity, Limit> m_limits;
    Background m_counting;
};

} // namespace tickervantage
