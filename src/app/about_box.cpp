#include "app/about_box.h"

#include <QApplication>
#include <QCoreApplication>
#include <QLabel>
#include <QMessageBox>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(about)
};

} // namespace

void show_about(QWidget* parent) {
    auto* box = new QMessageBox(parent);
    box->setObjectName(QStringLiteral("about"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    //: About box: title
    box->setWindowTitle(Texts::tr("About Tickervantage"));
    box->setTextFormat(Qt::PlainText);
    constexpr int side = 64;
    box->setIconPixmap(QApplication::windowIcon().pixmap(side));
    box->setText(QStringLiteral("Tickervantage " TICKERVANTAGE_VERSION));
    //: About box: what the program is, and its licence
    box->setInformativeText(
        Texts::tr("Installs, configures, controls and monitors chrony, the NTP software, on this "
                  "workstation.\n\nCopyright © 2026 the Tickervantage developers. Free software under "
                  "the MIT licence, without warranty.\n\nchrony is a separate program under the GNU "
                  "General Public License, version 2."));
    box->setStandardButtons(QMessageBox::Close);
    if (auto* const icon = box->findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))) {
        icon->setAccessibleName(QStringLiteral("Tickervantage"));
        //: About box: what a screen reader says of the picture
        icon->setAccessibleDescription(Texts::tr("The program's icon"));
    }
    box->open();
}

} // namespace tickervantage
