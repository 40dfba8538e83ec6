#include "gui/main/local_time_text.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

namespace tickervantage {
namespace {

// Qt knows a long and a short date. The medium one is the long one with a short month and without the weekday.
QString medium_date_format(const QLocale& locale) {
    static const QRegularExpression weekday(QStringLiteral("^dddd?[,،.]?\\s*|[,،]?\\s*dddd?$|dddd?\\s*[,،]?\\s*"));
    QString format = locale.dateFormat(QLocale::LongFormat);
    format.remove(weekday);
    return format.replace(QStringLiteral("MMMM"), QStringLiteral("MMM")).trimmed();
}

} // namespace

QString local_time_text(const QDateTime& time, const QLocale& locale) {
    return locale.toString(time.date(), medium_date_format(locale)) + QStringLiteral("  ") +
           locale.toString(time, locale.timeFormat(QLocale::LongFormat));
}

} // namespace tickervantage
