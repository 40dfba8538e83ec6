#include "app/alert_window.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(alerts)
};

constexpr int informative_width = 58; // letters: a path and a version should stay on one line

} // namespace

void show_alert(QWidget* window, const Alert& alert, std::function<void(AlertAnswer)> answered) {
    auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Tickervantage"),
                                QString::fromStdString(alert.message), QMessageBox::NoButton, window);
    box->setObjectName(QString::fromStdString(alert.identifier));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(QString::fromStdString(alert.informative));
    if (auto* label = box->findChild<QWidget*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QString(informative_width, QLatin1Char('n'))));
    QList<QPushButton*> buttons;
    for (const auto& text : alert.buttons)
        buttons += box->addButton(QString::fromStdString(text),
                                  &text == &alert.buttons.back() ? QMessageBox::RejectRole : QMessageBox::AcceptRole);
    box->setDefaultButton(buttons.front());
    box->setEscapeButton(buttons.back());
    //: check box of an alert
    auto* never = new QCheckBox(Texts::tr("Do not show this again"));
    never->setObjectName(QStringLiteral("suppress"));
    box->setCheckBox(never);
    QObject::connect(box, &QMessageBox::finished, box, [box, buttons, never, answered = std::move(answered)] {
        const auto pressed = buttons.indexOf(qobject_cast<QPushButton*>(box->clickedButton()));
        const auto button = pressed < 0 ? buttons.size() - 1 : pressed;
        answered({.button = static_cast<std::size_t>(button), .suppress = never->isChecked()});
    });
    box->open();
}

} // namespace tickervantage
