#include "gui/editor/config_menus.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <vector>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configmenus)
};

struct Item {
    const char* name; // null: a separator
    const char* text;
    QKeySequence shortcut;
};

/* TRANSLATOR configmenus
   configuration editor: menus and their items. The letter after an ampersand is the one that chooses the item together
   with Alt. */
const Item separator{nullptr, nullptr, {}};
const Item recent_files{"openRecent", QT_TRANSLATE_NOOP("configmenus", "Open &Recent"), {}};
const Item included_files{"includedFiles", QT_TRANSLATE_NOOP("configmenus", "Inclu&ded Files"), {}};

// QT_TRANSLATE_NOOP marks the texts for translators; tr above looks them up.
std::vector<Item> file_items() {
    return {{"newDocument", QT_TRANSLATE_NOOP("configmenus", "&New"), QKeySequence::New},
            {"openDocument", QT_TRANSLATE_NOOP("configmenus", "&Open…"), QKeySequence::Open},
            recent_files,
            {"openInstalled", QT_TRANSLATE_NOOP("configmenus", "Open &Installed Configuration"), {}},
            included_files,
            separator,
            {"saveDocument", QT_TRANSLATE_NOOP("configmenus", "&Save"), QKeySequence::Save},
            {"saveDocumentAs", QT_TRANSLATE_NOOP("configmenus", "Save &As…"),
             QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
            separator,
            {"closeEditor", QT_TRANSLATE_NOOP("configmenus", "&Close"), QKeySequence::Close}};
}

std::vector<Item> edit_items() {
    return {
        {"undo", QT_TRANSLATE_NOOP("configmenus", "&Undo"), QKeySequence::Undo},
        {"redo", QT_TRANSLATE_NOOP("configmenus", "&Redo"), QKeySequence::Redo},
        separator,
        {"cut", QT_TRANSLATE_NOOP("configmenus", "Cu&t"), QKeySequence::Cut},
        {"copy", QT_TRANSLATE_NOOP("configmenus", "&Copy"), QKeySequence::Copy},
        {"paste", QT_TRANSLATE_NOOP("configmenus", "&Paste"), QKeySequence::Paste},
        {"selectAll", QT_TRANSLATE_NOOP("configmenus", "Select &All"), QKeySequence::SelectAll},
        separator,
        {"find", QT_TRANSLATE_NOOP("configmenus", "&Find and Replace…"), QKeySequence::Find},
        {"findNext", QT_TRANSLATE_NOOP("configmenus", "Find &Next"), QKeySequence(Qt::Key_F3)},
        {"findPrevious", QT_TRANSLATE_NOOP("configmenus", "Find Pre&vious"), QKeySequence(Qt::SHIFT | Qt::Key_F3)},
        separator,
        {"complete", QT_TRANSLATE_NOOP("configmenus", "Complete &Directive"), QKeySequence(Qt::CTRL | Qt::Key_Space)}};
}

std::vector<Item> view_items() {
    return {{"zoomIn", QT_TRANSLATE_NOOP("configmenus", "Zoom &In"), QKeySequence::ZoomIn},
            {"zoomOut", QT_TRANSLATE_NOOP("configmenus", "Zoom &Out"), QKeySequence::ZoomOut},
            {"zoomBack", QT_TRANSLATE_NOOP("configmenus", "&Normal Size"), QKeySequence(Qt::CTRL | Qt::Key_0)}};
}

std::vector<Item> chrony_items() {
    return {{"check", QT_TRANSLATE_NOOP("configmenus", "&Check Syntax"), QKeySequence(Qt::CTRL | Qt::Key_Return)},
            {"install", QT_TRANSLATE_NOOP("configmenus", "&Install…"), {}},
            separator,
            {"help", QT_TRANSLATE_NOOP("configmenus", "&Help on Directives"), QKeySequence::HelpContents}};
}

QMenu* add_menu(QMenu* above, const Item& item) {
    QMenu* menu = above->addMenu(Texts::tr(item.text));
    menu->setObjectName(QLatin1String(item.name));
    return menu;
}

class Builder {
public:
    Builder(QMainWindow* window, const ConfigActionHandlers& handlers, const RecentFiles& recent)
        : m_window(window), m_handlers(handlers), m_recent(recent) {}

    void add(const QString& title, const std::vector<Item>& items) {
        QMenu* menu = m_window->menuBar()->addMenu(title);
        for (const auto& item : items) {
            if (item.name == nullptr)
                menu->addSeparator();
            else if (item.name == recent_files.name)
                fill_with_recent_files(add_menu(menu, item), m_recent);
            else if (item.name == included_files.name)
                (void)add_menu(menu, item); // filled by the window, which has the text
            else
                add_item(menu, item);
        }
    }

    ConfigActions actions;

private:
    void add_item(QMenu* menu, const Item& item) {
        QAction* action = menu->addAction(Texts::tr(item.text));
        action->setObjectName(QLatin1String(item.name));
        action->setShortcut(item.shortcut);
        actions[item.name] = action;
        const auto handler = m_handlers.find(item.name);
        action->setEnabled(handler != m_handlers.end() && handler->second);
        if (action->isEnabled())
            QObject::connect(action, &QAction::triggered, m_window, handler->second);
    }

    QMainWindow* m_window;
    const ConfigActionHandlers& m_handlers;
    const RecentFiles& m_recent;
};

} // namespace

void fill_with_recent_files(QMenu* menu, const RecentFiles& recent) {
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu, recent] {
        menu->clear();
        const QStringList files = recent.list ? recent.list() : QStringList();
        for (const auto& file : files) {
            const QString text = QString(file).replace(QLatin1Char('&'), QLatin1String("&&"));
            QObject::connect(menu->addAction(text), &QAction::triggered, menu, [recent, file] { recent.open(file); });
        }
        if (files.isEmpty())
            //: menu of recent files, when there are none
            menu->addAction(Texts::tr("None"))->setEnabled(false);
    });
}

ConfigActions build_config_menus(QMainWindow* window, const ConfigActionHandlers& handlers, const RecentFiles& recent) {
    Builder builder(window, handlers, recent);
    //: configuration editor: titles of the menus
    builder.add(Texts::tr("&File"), file_items());
    builder.add(Texts::tr("&Edit"), edit_items());
    builder.add(Texts::tr("&View"), view_items());
    builder.add(Texts::tr("Chron&y"), chrony_items());
    return builder.actions;
}

} // namespace tickervantage
