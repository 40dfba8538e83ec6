#include "gui/editor/config_completer.h"

#include "chrony/configuration/directive_options.h"
#include "chrony/configuration/directives.h"
#include "gui/common/words.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTreeView>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr int WIDEST = 640;
constexpr int LINES = 10;
constexpr const char* directives_shown = "directivesShown"; // property: the list of them is made once

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configeditor)
};

QStandardItemModel* directive_model(QObject* parent) {
    auto* model = new QStandardItemModel(parent);
    for (const auto& directive : all_directives()) {
        if (directive.state == DirectiveState::ignored)
            continue;
        auto* name = new QStandardItem(from_std(directive.name));
        auto* help = new QStandardItem(QCoreApplication::translate("directives", directive.help));
        const QString line = from_std(directive.name) + QLatin1Char(' ') + from_std(directive.arguments);
        name->setToolTip(line.trimmed());
        help->setToolTip(line.trimmed());
        model->appendRow({name, help});
    }
    return model;
}

} // namespace

QCompleter* make_directive_completer(QPlainTextEdit* editor) {
    auto* completer = new QCompleter(editor);
    completer->setModel(directive_model(completer));
    completer->setProperty(directives_shown, true);
    completer->setModelSorting(QCompleter::CaseSensitivelySortedModel);
    completer->setMaxVisibleItems(LINES);
    completer->setWidget(editor);
    auto* list = new QTreeView;
    completer->setPopup(list);
    list->setObjectName(QStringLiteral("completions"));
    //: configuration editor: name of the list of directives, or of a directive's options
    list->setAccessibleName(Texts::tr("Completions"));
    list->setRootIsDecorated(false);
    list->setHeaderHidden(true);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->header()->setStretchLastSection(true);
    return completer;
}

void offer_directives(QCompleter& completer) {
    if (completer.property(directives_shown).toBool())
        return;
    completer.setProperty(directives_shown, true);
    completer.setModel(directive_model(&completer)); // which deletes the former one
}

void offer_options(QCompleter& completer, std::string_view before) {
    auto* model = new QStandardItemModel(&completer);
    for (const auto& option : options_after(before))
        model->appendRow({new QStandardItem(from_std(option.name)), new QStandardItem(from_std(option.value))});
    completer.setProperty(directives_shown, false);
    completer.setModel(model);
}

int completions_width(const QCompleter& completer) {
    auto* list = qobject_cast<QTreeView*>(completer.popup());
    list->resizeColumnToContents(0);
    list->resizeColumnToContents(1);
    const int columns = list->columnWidth(0) + list->columnWidth(1);
    return std::min(WIDEST, columns + list->verticalScrollBar()->sizeHint().width() + 2 * list->frameWidth());
}

} // namespace tickervantage
