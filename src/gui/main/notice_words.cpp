#include "gui/main/notice_words.h"

#include "qt/in_words.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTime>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(tickervantage::TickervantageWindow)
};

QString silence_words(const QString& detail) {
    //: main window, status line
    const QString nothing = Texts::tr("chronyd gave no answer.");
    //: main window, status line: %1 is what chronyc printed instead of a report
    return detail.isEmpty() ? nothing : Texts::tr("chronyd gave no answer: %1").arg(detail);
}

} // namespace

QString words_of(const StatusNotice& notice) {
    const QString detail = notice.failure ? in_words(*notice.failure) : from_std(notice.detail);
    switch (notice.kind) {
    case StatusNotice::Kind::none:
        break;
    case StatusNotice::Kind::chronyc_failed:
        //: main window, status line: %1 says what happened to chronyc
        return Texts::tr("chronyc gave no answer: %1").arg(detail);
    case StatusNotice::Kind::daemon_silent:
        return silence_words(detail);
    case StatusNotice::Kind::unusual_leap:
        //: main window, status line: %1 is chrony's word for a leap second that is announced, such as "Delete
        //: second"
        return Texts::tr("chronyd answers, with the leap status “%1”.").arg(detail);
    case StatusNotice::Kind::needs_helper:
        //: main window, status line: %1 is a chronyc command
        return Texts::tr("The report “%1” needs administrator rights, which were not given.").arg(detail);
    case StatusNotice::Kind::report_incomplete:
        //: main window, status line: %1 says why the shown report failed or was cut
        return Texts::tr("The report is not complete: %1").arg(detail);
    }
    //: main window, status line: %1 is a time
    return Texts::tr("Last reading: %1").arg(QLocale().toString(QTime::currentTime(), QLocale::LongFormat));
}

} // namespace tickervantage
