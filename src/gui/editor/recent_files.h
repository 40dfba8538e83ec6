// The configurations that were opened or saved last, and the menus that offer them. Main thread.
#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace tickervantage {

class DefaultSettings;

class RecentFiles : public QObject {
    Q_OBJECT
public:
    // The settings outlive the object, and the object its menus.
    explicit RecentFiles(DefaultSettings& settings) : m_settings(settings) {}

    [[nodiscard]] QStringList paths() const; // the newest first
    void remember(const QString& path);
    void fill(QMenu* menu); // whenever it opens

Q_SIGNALS:
    void chosen(const QString& path); // in a menu

private:
    void list(QMenu* menu);

    DefaultSettings& m_settings;
};

} // namespace tickervantage
