// The files of one kind that were opened or saved last, and the menus that offer them. Main thread.
#pragma once

#include "settings/settings_keys.h"

#include <QObject>
#include <QStringList>

class QMenu;

namespace tickervantage {

class DefaultSettings;

class RecentFiles : public QObject {
    Q_OBJECT
public:
    // The settings and the key outlive the object, and the object its menus.
    RecentFiles(DefaultSettings& settings, const TextListKey& key) : m_settings(settings), m_key(key) {}

    [[nodiscard]] QStringList paths() const; // the newest first
    void remember(const QString& path);
    void fill(QMenu* menu); // whenever it opens

Q_SIGNALS:
    void chosen(const QString& path); // in a menu

private:
    void list(QMenu* menu);

    DefaultSettings& m_settings;
    const TextListKey& m_key;
};

} // namespace tickervantage
