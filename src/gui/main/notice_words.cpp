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

// chronyc's own words for it fit each of the reasons.
QString distant_silence_words(const QString& host, const QString& detail) {
    //: main window, status line: %1 is another machine, %2 what chronyc printed instead of a report
    return Texts::tr("%1 gave no answer (%2). Either it cannot be reached, or its chronyd does not answer other "
                     "machines: that takes the directives cmdallow and bindcmdaddress in its chrony.conf.")
        .arg(host, detail);
}

QString silence_words(const QString& host, const QString& detail) {
    if (!host.isEmpty())
        return distant_silence_words(host, detail);
    //: main window, status line
    const QString nothing = Texts::tr("chronyd gave no answer.");
    //: main window, status line: %1 is what chronyc printed instead of a report
    return detail.isEmpty() ? nothing : Texts::tr("chronyd gave no answer: %1").arg(detail);
}

} // namespace

QString words_of(const StatusNotice& notice, const QString& host) {
    const QString detail = notice.failure ? in_words(*notice.failure) : from_std(notice.detail);
    switch (notice.kind) {
    case StatusNotice::Kind::none:
        break;
    case StatusNotice::Kind::chronyc_failed:
        //: main window, status line: %1 says what happened to chronyc
        return Texts::tr("chronyc gave no answer: %1").arg(detail);
    case StatusNotice::Kind::daemon_silent:
        return silence_words(host, detail);
    case StatusNotice::Kind::unusual_leap:
        //: main window, status line: %1 is chrony's word for a leap second that is announced, such as "Delete
        //: second"
        return Texts::tr("chronyd answers, with the leap status “%1”.").arg(detail);
    case StatusNotice::Kind::asking:
        if (detail.isEmpty())
            //: main window, status line: this machine is read again
            return Texts::tr("Asking this machine…");
        //: main window, status line: %1 is another machine
        return Texts::tr("Asking %1…").arg(detail);
    case StatusNotice::Kind::not_from_afar:
        //: main window, status line: %1 is a chronyc command
        return Texts::tr("chronyd gives the report “%1” to root on its own machine alone. Choose another report.")
            .arg(detail);
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
