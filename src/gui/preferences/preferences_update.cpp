#include "gui/preferences/preferences_update.h"

#include "gui/common/words.h"

#include <QVBoxLayout>

namespace tickervantage {

PreferencesUpdatePane::PreferencesUpdatePane(const std::string& version, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("UpdatePane"));
    //: preferences, updates: %1 is the version number
    auto* which = named(new QLabel(tr("This is Tickervantage %1.").arg(from_std(version)), this), "version",
                        //: preferences, updates: name of the line with the version
                        tr("Version"), QString());
    QFont bold = which->font();
    bold.setBold(true);
    which->setFont(bold);
    auto* how = new QLabel(
        //: preferences, updates
        tr("Updates come from the package manager that installed the program, together with those of your system. "
           "Tickervantage does not look for them itself and sends nothing to anybody."),
        this);
    how->setWordWrap(true);
    for (auto* label : {which, how})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* column = new QVBoxLayout(this);
    column->addWidget(which);
    column->addWidget(how);
    column->addStretch(1);
}

QString PreferencesUpdatePane::toolbarItemTitle() {
    //: preferences: name of a pane
    return tr("Updates");
}

QIcon PreferencesUpdatePane::toolbarItemIcon() {
    return QIcon::fromTheme(QStringLiteral("system-software-update"));
}

} // namespace tickervantage
