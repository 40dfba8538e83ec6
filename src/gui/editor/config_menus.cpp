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
    const char* icon; // its name in the desktop's themes; null: none
    QKeySequence shortcut;
};

/* TRANSLATOR configmenus
   configuration editor: menus and their items. The letter after an ampersand is the one that chooses the item together
   with Alt. */
const Item separator{nullptr, nullptr, nullptr, {}};
const Item recent_files{"openRecent", QT_TRANSLATE_NOOP("configmenus", "Open &Recent"), "document-open-recent", {}};
const Item included_files{"includedFiles", QT_TRANSLATE_NOOP("configmenus", "Inclu&ded Files"), nullptr, {}};

// QT_TRANSLATE_NOOP marks the texts for translators; tr above looks them up.
std::vector<Item> file_items() {
    return {{"newDocument", QT_TRANSLATE_NOOP("configmenus", "&New"), "document-new", QKeySequence::New},
            {"openDocument", QT_TRANSLATE_NOOP("configmenus", "&Open…"), "document-open", QKeySequence::Open},
            recent_files,
            {"openInstalled", QT_TRANSLATE_NOOP("configmenus", "Open &Installed Configuration"), nullptr, {}},
            included_files,
            separator,
            {"saveDocument", QT_TRANSLATE_NOOP("configmenus", "&Save"), "document-save", QKeySequence::Save},
            {"saveDocumentAs", QT_TRANSLATE_NOOP("configmenus", "Save &As…"), "document-save-as",
             QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
            separator,
            {"closeEditor", QT_TRANSLATE_NOOP("configmenus", "&Close"), "window-close", QKeySequence::Close}};
}

std::vector<Item> edit_items() {
    return {{"undo", QT_TRANSLATE_NOOP("configmenus", "&Undo"), "edit-undo", QKeySequence::Undo},
            {"redo", QT_TRANSLATE_NOOP("configmenus", "&Redo"), "edit-redo", QKeySequence::Redo},
            separator,
            {"cut", QT_TRANSLATE_NOOP("configmenus", "Cu&t"), "edit-cut", QKeySequence::Cut},
            {"copy", QT_TRANSLATE_NOOP("configmenus", "&Copy"), "edit-copy", QKeySequence::Copy},
            {"paste", QT_TRANSLATE_NOOP("configmenus", "&Paste"), "edit-paste", QKeySequence::Paste},
            {"selectAll", QT_TRANSLATE_NOOP("configmenus", "Select &All"), "edit-select-all", QKeySequence::SelectAll},
            separator,
            {"find", QT_TRANSLATE_NOOP("configmenus", "&Find and Replace…"), "edit-find", QKeySequence::Find},
            {"findNext", QT_TRANSLATE_NOOP("configmenus", "Find &Next"), "go-down", QKeySequence(Qt::Key_F3)},
            {"findPrevious", QT_TRANSLATE_NOOP("configmenus", "Find Pre&vious"), "go-up",
             QKeySequence(Qt::SHIFT | Qt::Key_F3)},
            separator,
            {"complete", QT_TRANSLATE_NOOP("configmenus", "Complete &Directive"), nullptr,
             QKeySequence(Qt::CTRL | Qt::Key_Space)}};
}

std::vector<Item> view_items() {
    return {{"zoomIn", QT_TRANSLATE_NOOP("configmenus", "Zoom &In"), "zoom-in", QKeySequence::ZoomIn},
            {"zoomOut", QT_TRANSLATE_NOOP("configmenus", "Zoom &Out"), "zoom-out", QKeySequence::ZoomOut},
            {"zoomBack", QT_TRANSLATE_NOOP("configmenus", "&Normal Size"), "zoom-original",
             QKeySequence(Qt::CTRL | Qt::Key_0)}};
}

std::vector<Item> chrony_items() {
    return {{"check", QT_TRANSLATE_NOOP("configmenus", "&Check Syntax"), "dialog-ok-apply",
             QKeySequence(Qt::CTRL | Qt::Key_Return)},
            {"install", QT_TRANSLATE_NOOP("configmenus", "&Install…"), "system-run", {}},
            separator,
            {"help", QT_TRANSLATE_NOOP("configmenus", "&Help on Directives"), "help-contents", {}}};
}

bool is_menu(const Item& item) {
    return item.name == recent_files.name || item.name == included_files.name;
}

void add(QMainWindow* window, const QString& title, const std::vector<Item>& items, ConfigActions& actions) {
    QMenu* menu = window->menuBar()->addMenu(title);
    for (const auto& item : items) {
        if (item.name == nullptr) {
            menu->addSeparator();
        } else if (is_menu(item)) {
            QMenu* below = menu->addMenu(Texts::tr(item.text));
            below->setObjectName(QLatin1String(item.name));
            if (item.icon != nullptr)
                below->setIcon(QIcon::fromTheme(QLatin1String(item.icon)));
        } else {
            QAction* action = menu->addAction(Texts::tr(item.text));
            action->setObjectName(QLatin1String(item.name));
            action->setShortcut(item.shortcut);
            if (item.icon != nullptr)
                action->setIcon(QIcon::fromTheme(QLatin1String(item.icon)));
            actions[item.name] = action;
        }
    }
}

} // namespace

ConfigActions build_config_menus(QMainWindow* window) {
    ConfigActions actions;
    //: configuration editor: titles of the menus
    add(window, Texts::tr("&File"), file_items(), actions);
    add(window, Texts::tr("&Edit"), edit_items(), actions);
    add(window, Texts::tr("&View"), view_items(), actions);
    add(window, Texts::tr("Chron&y"), chrony_items(), actions);
    return actions;
}

} // namespace tickervantage
