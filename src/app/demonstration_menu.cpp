#include "app/demonstration_menu.h"

#include "chrony/demonstration/recorded_day.h"
#include "qt/in_words.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(demonstration)
};

std::vector<std::size_t> all_servers() {
    std::vector<std::size_t> servers;
    for (std::size_t at = 0; at < demonstration_servers.size(); ++at)
        servers.push_back(at);
    return servers;
}

} // namespace

DemonstrationMenu::DemonstrationMenu(DemonstrationMenuParts parts, const ApplicationMenus& menus)
    : m_parts(std::move(parts)), m_is_out(demonstration_servers.size(), false), m_background(m_parts.main_thread) {
    QMenu* menu = menus.m_action;
    QAction* before = menu->actions().value(0);
    //: menu of a demonstration: ends one of its servers; %1 is its address
    m_first = new QAction(Texts::tr("&Pull Out Server %1").arg(QLatin1String(demonstration_servers.front())), menu);
    m_first->setObjectName(QStringLiteral("pullOutServer"));
    //: tooltip of that item
    m_first->setToolTip(Texts::tr("Another server takes over within seconds; once more puts it back"));
    //: menu of a demonstration: ends all of its servers
    m_all = new QAction(Texts::tr("Pull Out &All Servers"), menu);
    m_all->setObjectName(QStringLiteral("pullOutServers"));
    //: tooltip of that item
    m_all->setToolTip(
        Texts::tr("The clock then runs on by itself, and the error bound grows; once more puts them back"));
    for (QAction* action : {m_first, m_all})
        action->setCheckable(true);
    menu->insertActions(before, {m_first, m_all});
    menu->insertSeparator(before);
    connect(m_first, &QAction::triggered, this, [this](bool out) { pull_out({0}, out); });
    connect(m_all, &QAction::triggered, this, [this](bool out) { pull_out(all_servers(), out); });
}

void DemonstrationMenu::pull_out(const std::vector<std::size_t>& servers, bool out) {
    for (QAction* action : {m_first, m_all})
        action->setEnabled(false); // until it is done
    const auto work = [control = m_parts.control, servers, out] {
        Result<> done;
        for (const std::size_t server : servers)
            if (done)
                done = control.pull_out(server, out);
        return done;
    };
    m_background.start(m_parts.queue, work, [this, servers, out](const Result<>& done) {
        for (const std::size_t server : servers)
            m_is_out.at(server) = out && done;
        show();
        if (!done)
            Q_EMIT complained(in_words(done.error()));
        Q_EMIT changed();
    });
}

void DemonstrationMenu::show() {
    const bool all = std::ranges::find(m_is_out, false) == m_is_out.end();
    m_first->setChecked(m_is_out.front());
    m_all->setChecked(all);
    m_first->setEnabled(!all);
    m_all->setEnabled(true);
}

} // namespace tickervantage
