#include "qt/in_words.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include <system_error>
#include <variant>

namespace tickervantage {
namespace {

std::string own_words(FailureCode code) {
    return QCoreApplication::translate("failures", words_of(code)).toStdString();
}

// The C library's words, which follow the locale that Qt has set for the process.
std::string own_system_words(int error) {
    return QString::fromLocal8Bit(std::generic_category().message(error).c_str()).toStdString();
}

std::string in_words(const Moment& moment, const QLocale& locale) {
    const QString time = local_time_of_day(moment.seconds, locale);
    const QDate date = QDateTime::fromSecsSinceEpoch(moment.seconds).date();
    const QString text = moment.has_date ? locale.toString(date, QLocale::ShortFormat) + QLatin1Char(' ') + time : time;
    return text.toStdString();
}

} // namespace

QString in_words(const Failure& failure) {
    return QString::fromStdString(put_into_words(failure, {.words = own_words, .system_words = own_system_words}));
}

QString local_time_of_day(std::int64_t seconds, const QLocale& locale) {
    static const QRegularExpression with_seconds(QStringLiteral("[:.]s{1,2}"));
    QString format = locale.timeFormat(QLocale::ShortFormat); // of some locales with seconds
    return locale.toString(QDateTime::fromSecsSinceEpoch(seconds).time(), format.remove(with_seconds));
}

QString in_words(const Sentence& sentence) {
    const std::string words = QCoreApplication::translate(sentence.context, sentence.words).toStdString();
    const QLocale locale;
    Sentence local = sentence;
    for (SentenceValue& value : local.values)
        if (const auto* moment = std::get_if<Moment>(&value))
            value = in_words(*moment, locale);
    return QString::fromStdString(filled(words, local, locale.decimalPoint().toStdString()));
}

QString in_words(const Quantity& quantity) {
    return QString::fromStdString(text_of(quantity, QLocale().decimalPoint().toStdString()));
}

} // namespace tickervantage
