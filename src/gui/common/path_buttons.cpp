#include "gui/common/path_buttons.h"

#include "draw/plots/view_path.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QToolButton>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(plots)
};

QToolButton* arrow(QWidget* parent, const char* name, const QString& spoken, const QString& tooltip, int key) {
    auto* button = named(new QToolButton(parent), name, spoken, tooltip);
    button->setText(key == Qt::Key_Left ? QStringLiteral("◀") : QStringLiteral("▶"));
    button->setShortcut(QKeySequence(Qt::ALT | key));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setEnabled(false);
    return button;
}

} // namespace

PathButtons make_path_buttons(QWidget* parent) {
    //: plots: accessible name of the button with an arrow to the left, and its tooltip
    return {arrow(parent, "back", Texts::tr("Back"), Texts::tr("Back to what was in sight before (Alt+Left)"),
                  Qt::Key_Left),
            //: plots: accessible name of the button with an arrow to the right, and its tooltip
            arrow(parent, "forward", Texts::tr("Forward"), Texts::tr("Forward again (Alt+Right)"), Qt::Key_Right)};
}

void PathButtons::show(const ViewPath& path) const {
    back->setEnabled(path.can_go_back());
    forward->setEnabled(path.can_go_forward());
}

} // namespace tickervantage
