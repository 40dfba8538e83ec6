#include "gui/common/recent_files.h"

#include "settings/default_settings.h"
#include "settings/settings_catalogue.h"

#include <QCoreApplication>
#include <QMenu>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr qsizetype MOST_RECENT_FILES = 10;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configmenus)
};

} // namespace

QStringList RecentFiles::paths() const {
    QStringList paths;
    for (const auto& path : load(m_settings, m_key))
        paths.append(QString::fromStdString(path));
    return paths;
}

void RecentFiles::remember(const QString& path) {
    QStringList known = paths();
    known.removeAll(path);
    known.prepend(path);
    std::vector<std::string> kept;
    for (const auto& one : known.first(std::min(known.size(), MOST_RECENT_FILES)))
        kept.push_back(one.toStdString());
    save(m_settings, m_key, kept);
}

void RecentFiles::fill(QMenu* menu) {
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { list(menu); });
}

void RecentFiles::list(QMenu* menu) {
    menu->clear();
    const QStringList files = paths();
    for (const auto& file : files) {
        const QString text = QString(file).replace(QLatin1Char('&'), QLatin1String("&&"));
        connect(menu->addAction(text), &QAction::triggered, this, [this, file] { Q_EMIT chosen(file); });
    }
    if (files.isEmpty())
        //: menu of recent files, when there are none
        menu->addAction(Texts::tr("None"))->setEnabled(false);
}

} // namespace tickervantage
