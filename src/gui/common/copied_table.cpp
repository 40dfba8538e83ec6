#include "gui/common/copied_table.h"

#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QStringList>
#include <QTreeWidget>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(tables)
};

QString line_of(const QTreeWidget& table, const QTreeWidgetItem& item) {
    QStringList cells;
    for (int column = 0; column < table.columnCount(); ++column)
        cells << item.text(column);
    return cells.join(QLatin1Char('\t'));
}

} // namespace

void copy_table(const QTreeWidget& table) {
    const bool is_part = !table.selectedItems().isEmpty();
    QStringList lines{line_of(table, *table.headerItem())};
    for (int row = 0; row < table.topLevelItemCount(); ++row)
        if (const auto* item = table.topLevelItem(row); item->isSelected() || !is_part)
            lines << line_of(table, *item);
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void offer_copying(QTreeWidget* table) {
    //: tables: menu item, the chosen rows go to the clipboard
    auto* copy = new QAction(Texts::tr("&Copy Values"), table);
    copy->setObjectName(QStringLiteral("copy_rows"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    copy->setShortcutVisibleInContextMenu(true);
    QObject::connect(copy, &QAction::triggered, table, [table] { copy_table(*table); });
    table->addAction(copy);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
}

} // namespace tickervantage
