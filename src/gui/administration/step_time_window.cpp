#include "gui/administration/step_time_window.h"

#include "gui/common/words.h"
#include "qt/text_scale.h"
#include "roothelper/jobs/synchronize.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>

namespace tickervantage {
namespace {

QString length_words(double offset_seconds) {
    const StepLength length = length_of_step(offset_seconds);
    const QLocale locale;
    QStringList words;
    //: step window: parts of a length of time; %1 is a number
    if (length.days > 0)
        words += StepTime::tr("%1 d").arg(locale.toString(length.days));
    if (length.hours > 0)
        words +=
            //: step window: part of a length of time; %1 is a number of hours
            StepTime::tr("%1 h").arg(length.hours);
    if (length.minutes > 0)
        words +=
            //: step window: part of a length of time; %1 is a number of minutes
            StepTime::tr("%1 min").arg(length.minutes);
    constexpr int figures = 6;
    if (length.seconds > 0)
        words +=
            //: step window: part of a length of time; %1 is a number of seconds
            StepTime::tr("%1 s").arg(locale.toString(length.seconds, 'g', figures));
    return words.join(QLatin1Char(' '));
}

} // namespace

QString step_words(double offset_seconds) {
    if (offset_seconds == 0)
        //: step window: below the field with the offset
        return StepTime::tr("The clock stays as it is.");
    //: step window: below the field with the offset; %1 is a length of time
    const QString back = StepTime::tr("The clock will go back %1.");
    //: step window: below the field with the offset; %1 is a length of time
    const QString forward = StepTime::tr("The clock will go forward %1.");
    return (offset_seconds < 0 ? back : forward).arg(length_words(offset_seconds));
}

StepTime::StepTime(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("StepTime"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    //: step window: title
    setWindowTitle(tr("Step the Clock"));
    //: step window: name of the field, and its tooltip
    m_offset = named(new QLineEdit(this), "m_offset", tr("Offset"),
                     //: step window: tooltip of the offset
                     tr("Seconds, such as −1.5; a positive number sets the clock forward"));
    m_offset->setText(QLocale().toString(0.0, 'f', 1));
    m_offset->selectAll();
    m_words = words_below(this, "step_words", 2);
    //: step window: button
    m_step = named(new QPushButton(tr("&Step"), this), "step",
                   //: step window: name of the button
                   tr("Step"), QString());
    //: step window: button
    auto* close_button = named(new QPushButton(tr("Cancel"), this), "cancel", tr("Cancel"), QString());
    close_button->setAutoDefault(false);
    auto* form = new QFormLayout;
    //: step window: label
    form->addRow(tr("&Move the clock by (seconds):"), m_offset);
    form->addRow(m_words); // in all of the width: a number stays with its unit
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close_button);
    buttons->addWidget(m_step);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addLayout(buttons);
    constexpr int width = 360;
    setMinimumWidth(scaled(width, *this));
    connect(m_offset, &QLineEdit::textEdited, this, [this] { show_words(); });
    connect(m_step, &QPushButton::clicked, this, [this] { step(); });
    connect(close_button, &QPushButton::clicked, this, [this] { cancel(); });
    show_words();
}

// As the user's locale writes it, or with a decimal point; a true minus sign counts as one.
std::optional<double> StepTime::offset() const {
    const QString text = m_offset->text().trimmed().replace(QChar(0x2212), QLatin1Char('-'));
    bool readable = false;
    double seconds = QLocale().toDouble(text, &readable);
    if (!readable)
        seconds = QLocale::c().toDouble(text, &readable);
    return readable ? step_offset(seconds) : std::nullopt;
}

void StepTime::show_words() {
    const auto seconds = offset();
    //: step window: said when the field holds no offset
    m_words->setText(seconds ? step_words(*seconds) : tr("This is no number of seconds."));
    set_alarmed(m_words, !seconds);
    m_step->setEnabled(seconds.has_value());
}

void StepTime::step() {
    const auto seconds = offset();
    if (!seconds)
        return;
    if (*seconds != 0)
        Q_EMIT wanted(*seconds);
    close();
}

void StepTime::cancel() {
    close();
}

} // namespace tickervantage
