#include "app/window_menus.h"

#include "app/bring_to_front.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

#include <algorithm>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(windowmenus)
};

constexpr const char* listed = "openWindow"; // the items' name

bool closes_by_key(const QWidget& window) {
    const auto shortcuts = window.findChildren<QShortcut*>();
    const auto actions = window.findChildren<QAction*>();
    const QKeySequence key(QKeySequence::Close);
    return std::ranges::any_of(shortcuts, [&key](const auto* one) { return one->key() == key; }) ||
           std::ranges::any_of(actions, [&key](const auto* one) { return one->shortcut() == key; });
}

QMenuBar* menu_bar_of(QWidget& window) {
    if (auto* main = qobject_cast<QMainWindow*>(&window))
        return main->menuBar();
    if (window.layout() == nullptr)
        return nullptr;
    auto* bar = new QMenuBar(&window);
    window.layout()->setMenuBar(bar);
    window.resize(window.width(), window.height() + bar->sizeHint().height()); // it takes no room from the rest
    return bar;
}

// What has a size of its own may be larger than a small screen, or one with large letters.
void shrink_to_screen(QWidget& window) {
    const QSize frame(0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight));
    window.resize(window.size().boundedTo(window.screen()->availableSize() - frame));
}

// As a title bar shows it.
QString title_of(const QWidget& window) {
    QString title = window.windowTitle();
    title.replace(QLatin1String("[*]"), window.isWindowModified() ? QLatin1String("*") : QLatin1String());
    return title.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

WindowMenus::WindowMenus(QMenu& menu, QAction& quit)
    : m_menu(menu), m_quit(quit), m_items(menu.actions()), m_windows{menu.parentWidget()->window()} {
    connect(&menu, &QMenu::aboutToShow, this, [this] { list_open_windows(m_menu, *m_windows.front()); });
    QCoreApplication::instance()->installEventFilter(this);
}

bool WindowMenus::eventFilter(QObject* receiver, QEvent* event) {
    const bool is_polish = event->type() == QEvent::Polish;
    if ((is_polish || event->type() == QEvent::Show) && receiver->isWidgetType()) {
        auto* window = static_cast<QWidget*>(receiver);
        const bool is_window = window->windowType() == Qt::Window;
        if (is_polish && is_window && !m_windows.contains(window))
            add_to(*window);
        if (is_polish && window->windowType() == Qt::Dialog && !closes_by_key(*window))
            add_to_dialog(*window);
        if (!is_polish && !event->spontaneous() && (is_window || window->windowType() == Qt::Dialog))
            shrink_to_screen(*window);
    }
    return QObject::eventFilter(receiver, event);
}

void WindowMenus::add_to(QWidget& window) {
    m_windows.removeAll(QPointer<QWidget>());
    m_windows.append(&window);
    const bool closes = closes_by_key(window);
    QMenuBar* bar = menu_bar_of(window);
    if (bar == nullptr)
        return;
    //: title of the menu with the program's windows
    QMenu* menu = bar->addMenu(Texts::tr("&Window"));
    menu->setObjectName(QStringLiteral("windows"));
    menu->addActions(m_items);
    menu->addSeparator();
    if (!closes)
        //: item of the menu with the program's windows
        menu->addAction(Texts::tr("&Close Window"), QKeySequence::Close, &window, &QWidget::close);
    menu->addAction(&m_quit);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, &window] { list_open_windows(*menu, window); });
}

// It has no menu bar, but the keys of one.
void WindowMenus::add_to_dialog(QWidget& dialog) {
    connect(new QShortcut(QKeySequence::Close, &dialog), &QShortcut::activated, &dialog, &QWidget::close);
    if (!dialog.isModal())
        dialog.addAction(&m_quit);
}

void WindowMenus::list_open_windows(QMenu& menu, const QWidget& here) {
    const auto items = menu.actions();
    for (auto* item : items)
        if (item->objectName() == QLatin1String(listed))
            delete item;
    menu.addSeparator()->setObjectName(QLatin1String(listed));
    for (const auto& window : std::as_const(m_windows)) {
        if (window.isNull() || !window->isVisible())
            continue;
        QAction* item = menu.addAction(title_of(*window));
        item->setObjectName(QLatin1String(listed));
        item->setCheckable(true);
        item->setChecked(window == &here);
        connect(item, &QAction::triggered, window.data(), [window = window.data()] { bring_to_front(*window); });
    }
}

} // namespace tickervantage
