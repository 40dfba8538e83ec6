#include "app/alert_sheet.h"

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

// An alert without anything that is only the one kind's.
struct Sheet {
    QMessageBox* box;
    QList<QPushButton*> buttons;

    [[nodiscard]] std::size_t pressed() const {
        const auto index = buttons.indexOf(qobject_cast<QPushButton*>(box->clickedButton()));
        return static_cast<std::size_t>(index < 0 ? buttons.size() - 1 : index);
    }
};

Sheet make_sheet(QWidget* window, const Alert& alert, QMessageBox::Icon icon) {
    Sheet sheet{new QMessageBox(icon, QStringLiteral("Tickervantage"), QString::fromStdString(alert.message),
                                QMessageBox::NoButton, window),
                {}};
    auto* box = sheet.box;
    box->setObjectName(QString::fromStdString(alert.identifier));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(QString::fromStdString(alert.informative));
    if (auto* label = box->findChild<QWidget*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QString(informative_width, QLatin1Char('n'))));
    for (const auto& text : alert.buttons)
        sheet.buttons +=
            box->addButton(QString::fromStdString(text),
                           &text == &alert.buttons.back() ? QMessageBox::RejectRole : QMessageBox::AcceptRole);
    box->setEscapeButton(sheet.buttons.back());
    return sheet;
}

QMessageBox::Icon icon_of(AlertKind kind) {
    switch (kind) {
    case AlertKind::question:
        return QMessageBox::Question;
    case AlertKind::information:
        return QMessageBox::Information;
    default:
        return QMessageBox::Warning;
    }
}

} // namespace

void show_alert(QWidget* window, const Alert& alert, AlertAnswered answered) {
    const Sheet sheet = make_sheet(window, alert, icon_of(alert.kind));
    sheet.box->setDefaultButton(sheet.buttons.front());
    //: check box of an alert
    auto* never = new QCheckBox(Texts::tr("Do not show this again"));
    never->setObjectName(QStringLiteral("suppress"));
    sheet.box->setCheckBox(never);
    QObject::connect(sheet.box, &QMessageBox::finished, sheet.box, [sheet, never, answered = std::move(answered)] {
        answered({.button = sheet.pressed(), .suppress = never->isChecked()});
    });
    sheet.box->open();
}

void show_question(QWidget* window, const Alert& alert, ButtonPressed answered) {
    const Sheet sheet = make_sheet(window, alert, QMessageBox::Question);
    sheet.box->setDefaultButton(sheet.buttons.back());
    QObject::connect(sheet.box, &QMessageBox::finished, sheet.box,
                     [sheet, answered = std::move(answered)] { answered(sheet.pressed()); });
    sheet.box->open();
}

} // namespace tickervantage
