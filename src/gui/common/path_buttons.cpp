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
    //: plots: accessible name of the button with an arrow to the left
    const QString back = Texts::tr("Back");
    //: plots: accessible name of the button with an arrow to the right
    const QString forward = Texts::tr("Forward");
    //: plots: tooltip of the button with an arrow to the left
    return {arrow(parent, "back", back, Texts::tr("Back to what was in sight before (Alt+Left)"), Qt::Key_Left),
            //: plots: tooltip of the button with an arrow to the right
            arrow(parent, "forward", forward, Texts::tr("Forward again (Alt+Right)"), Qt::Key_Right)};
}

void PathButtons::show(const ViewPath& path) const {
    back->setEnabled(path.can_go_back());
    forward->setEnabled(path.can_go_forward());
}

} // namespace tickervantage
