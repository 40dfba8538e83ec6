#include "gui/history/range_menu.h"

#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QDateTimeEdit>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLocale>
#include <QMenu>
#include <QPushButton>

#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(history)
};

constexpr int newest = 7;
const QTime evening(18, 0);
const QTime morning(8, 0);

double moment_of(QDate date, QTime time) {
    return static_cast<double>(QDateTime(date, time).toSecsSinceEpoch());
}

QDateTime date_time_of(double moment) {
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(moment)));
}

TimeRange night_after(QDate date) {
    return {moment_of(date, evening), moment_of(date.addDays(1), morning)};
}

TimeRange whole_day(QDate date) {
    return {static_cast<double>(date.startOfDay().toSecsSinceEpoch()),
            static_cast<double>(date.addDays(1).startOfDay().toSecsSinceEpoch())};
}

template <typename Words>
void add_ranges(QMenu* menu, QDate last, TimeRange (*range_of)(QDate), const TimeRange& known,
                const RangeChosen& chosen, const Words& words_of) {
    for (int back = 0; back < newest; ++back) {
        const QDate date = last.addDays(-back);
        const TimeRange range = range_of(date);
        if (range.to <= known.from)
            return;
        const QLocale locale;
        QAction* action =
            menu->addAction(words_of(locale.dayName(date.dayOfWeek()), locale.toString(date, QLocale::ShortFormat)));
        QObject::connect(action, &QAction::triggered, menu, [chosen, range] { chosen(range); });
    }
}

QDateTimeEdit* moment_field(QDialog* dialog, const char* name, const QString& spoken, double moment) {
    auto* field = named(new QDateTimeEdit(date_time_of(moment), dialog), name, spoken);
    field->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    field->setCalendarPopup(true);
    return field;
}

} // namespace

void fill_range_menu(QMenu* menu, const TimeRange& known, const RangeChosen& chosen) {
    menu->clear();
    const QDateTime end = date_time_of(known.to);
    const QDate last_evening = end.time() < evening ? end.date().addDays(-1) : end.date();
    add_ranges(menu, last_evening, night_after, known, chosen, [](const QString& day, const QString& date) {
        //: history window: menu of nights; %1 is a day of the week, %2 a date
        return Texts::tr("%1 night, %2").arg(day, date);
    });
    menu->addSeparator();
    add_ranges(menu, end.date(), whole_day, known, chosen, [](const QString& day, const QString& date) {
        //: history window: menu of days; %1 is a day of the week, %2 a date
        return Texts::tr("%1, %2").arg(day, date);
    });
}

void ask_for_range(QWidget* window, const TimeRange& now, RangeChosen chosen) {
    auto* dialog = new QDialog(window);
    dialog->setObjectName(QStringLiteral("range_dialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    //: history window: title of a dialog
    dialog->setWindowTitle(Texts::tr("Show a Period"));
    //: history window: fields of that dialog
    auto* from = moment_field(dialog, "range_from", Texts::tr("From"), now.from);
    //: history window: field of that dialog
    auto* to = moment_field(dialog, "range_to", Texts::tr("To"), now.to);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, dialog);
    //: history window: button of that dialog
    auto* show = buttons->addButton(Texts::tr("Show"), QDialogButtonBox::AcceptRole);
    show->setObjectName(QStringLiteral("show_range"));
    auto* form = new QFormLayout(dialog);
    //: history window: labels of the fields
    form->addRow(Texts::tr("&From:"), from);
    //: history window: label of a field
    form->addRow(Texts::tr("&To:"), to);
    form->addRow(buttons);
    const auto check = [=] {
        show->setEnabled(from->dateTime() < to->dateTime());
    };
    QObject::connect(from, &QDateTimeEdit::dateTimeChanged, show, check);
    QObject::connect(to, &QDateTimeEdit::dateTimeChanged, show, check);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(dialog, &QDialog::accepted, window, [from, to, chosen = std::move(chosen)] {
        chosen({static_cast<double>(from->dateTime().toSecsSinceEpoch()),
                static_cast<double>(to->dateTime().toSecsSinceEpoch())});
    });
    dialog->open();
}

} // namespace tickervantage
