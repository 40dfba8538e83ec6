#include "gui/preferences/preferences_window.h"

#include "gui/preferences/preferences_advanced.h"
#include "gui/preferences/preferences_general.h"
#include "gui/preferences/preferences_update.h"
#include "gui/preferences/preferences_watch.h"

#include <QCloseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

namespace tickervantage {
namespace {

// On a small screen the pane scrolls rather than being cut off.
template <typename Pane>
Pane* add_pane(QTabWidget* tabs, Pane* pane) {
    auto* area = new QScrollArea(tabs);
    area->setWidget(pane);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // it follows the control that has it
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumWidth(pane->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    tabs->addTab(area, Pane::toolbarItemIcon(), Pane::toolbarItemTitle());
    return pane;
}

} // namespace

Preferences::Preferences(PreferencesParts parts) : m_parts(std::move(parts)) {
    setObjectName(QStringLiteral("Preferences"));
    //: preferences window: title
    setWindowTitle(tr("Preferences"));
    m_window = new QTabWidget(this);
    m_window->setObjectName(QStringLiteral("m_window"));
    //: preferences window: name of its panes
    m_window->setAccessibleName(tr("Panes"));
    m_window->setFocusPolicy(Qt::NoFocus); // its bar of tabs has it, and would follow this
    m_window->tabBar()->setFocusPolicy(Qt::TabFocus);
    prefsGeneral = add_pane(m_window, new PreferencesGeneralPane(m_parts));
    prefsAdvanced = add_pane(m_window, new PreferencesAdvancedPane(m_parts));
    prefsUpdate = add_pane(m_window, new PreferencesUpdatePane(m_parts.version));
    m_watch = add_pane(m_window, new PreferencesWatchPane(m_parts));
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_window);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, [this] { close(); });
    constexpr int frame = 24; // of tabs and window around the pane
    resize(minimumSizeHint().width(), prefsGeneral->sizeHint().height() + 3 * frame);
}

void Preferences::show_pane(Pane pane) {
    if (!isVisible())
        show_records();
    m_window->setCurrentIndex(static_cast<int>(pane));
    show();
    raise();
    activateWindow();
}

void Preferences::show_records() {
    prefsGeneral->show_record();
    prefsAdvanced->show_record();
    m_watch->show_record();
}

bool Preferences::finish(std::chrono::milliseconds patience) {
    return prefsGeneral->finish(patience);
}

void Preferences::closeEvent(QCloseEvent* event) {
    prefsGeneral->save_settings();
    m_parts.advanced.save(m_parts.settings);
    QWidget::closeEvent(event);
}

} // namespace tickervantage
