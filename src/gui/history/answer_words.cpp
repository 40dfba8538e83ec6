// The texts of the history window that answer a question: whose doing, how long within a limit, better since when, and
// what stands beside the crosshair.
#include "gui/common/source_words.h"
#include "gui/history/history_words.h"
#include "studies/history/lane_painter.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(history)
};

} // namespace

CauseWords cause_words(const Cause& cause) {
    const QString source = QString::fromStdString(cause.source);
    const auto sources = static_cast<int>(cause.sources);
    switch (cause.culprit) {
    case Culprit::machine:
        //: history window: whose doing an event was, in brief; the next one is why
        return {Texts::tr("This machine"), Texts::tr("chronyd or this machine itself began, ended or was told to.")};
    case Culprit::way:
        //: history window: whose doing an event was, in brief; %n sources did not answer
        return {Texts::tr("Network: all %n silent", nullptr, sources),
                //: history window: why
                Texts::tr("All sources fell silent at once: the network, or this machine's part of it.")};
    case Culprit::silent:
        //: history window: whose doing an event was, in brief; %1 is a source's address
        return {Texts::tr("%1: silent").arg(source),
                //: history window: why; %1 is a source's address
                Texts::tr("%1 no longer answered.").arg(source)};
    case Culprit::refused:
        //: history window: whose doing an event was, in brief; %1 is a source's address
        return {Texts::tr("%1: not believed").arg(source),
                //: history window: why; %1 is a source's address
                Texts::tr("%1 said something else than the other sources, or was too uncertain.").arg(source)};
    case Culprit::dissent:
        //: history window: whose doing an event was, in brief; and why
        return {Texts::tr("The sources"), Texts::tr("The sources disagreed, so that none could be believed.")};
    case Culprit::choice:
        //: history window: whose doing an event was, in brief
        return {Texts::tr("Nobody"),
                //: history window: why; %1 is a source's address
                Texts::tr("%1 was still good: chronyd found another one better.").arg(source)};
    case Culprit::temperature:
        //: history window: whose doing an event was, in brief; %1 is a number of degrees
        return {Texts::tr("Temperature, %1 °C").arg(QLocale().toString(cause.degrees, 'f', 1)),
                //: history window: why
                Texts::tr("It changed so much in the hour before, and with it the machine's oscillator.")};
    case Culprit::unknown:
        break;
    }
    //: history window: why it is not said whose doing an event was
    return {QStringLiteral("–"), Texts::tr("What was kept does not tell.")};
}

QString compared_words(const QString& path) {
    //: history window: what is laid over; %1 is a file or a folder
    return Texts::tr("Compared with it: %1.").arg(path);
}

QString share_words(const LimitShare& share, double limit) {
    const double known = share.within + share.outside;
    const QString bound = value_words(limit, AxisUnit::seconds);
    if (known <= 0)
        //: history window: %1 is a time such as 1.00 ms
        return Texts::tr("Within ±%1: in what is in sight nothing tells.").arg(bound);
    if (share.excursions == 0)
        //: history window: %1 is a time such as 1.00 ms, %2 a span of time
        return Texts::tr("Certainly within ±%1 all the time of which something is known, %2.")
            .arg(bound, duration_words(known));
    // Rounded so that the clock looks worse, never better.
    const QString percent = QLocale().toString(std::floor(share.within / known * 1e4) / 100, 'f', 2);
    //: history window: %1 is a time such as 1.00 ms, %2 a number, %3 and %4 spans of time, %n how often
    return Texts::tr("Certainly within ±%1 for %2 % of the time; beyond it %n time(s), %3 in all, at the longest %4.",
                     nullptr, static_cast<int>(share.excursions))
        .arg(bound, percent, duration_words(share.outside), duration_words(share.longest));
}

QString change_words(const BeforeAfter& change) {
    const QString times = QLocale().toString(change.times(), 'f', change.times() < 10 ? 1 : 0);
    switch (change.change()) {
    case BeforeAfter::Change::same:
        //: history window: a quantity before and after a moment
        return Texts::tr("About the same");
    case BeforeAfter::Change::smaller:
        //: history window: a quantity after a moment; %1 is a number above 1
        return std::isfinite(change.times()) ? Texts::tr("%1 times smaller").arg(times) : Texts::tr("Smaller");
    case BeforeAfter::Change::larger:
        //: history window: a quantity after a moment; %1 is a number above 1
        return std::isfinite(change.times()) ? Texts::tr("%1 times larger").arg(times) : Texts::tr("Larger");
    case BeforeAfter::Change::unknown:
        break;
    }
    //: history window: before or after a moment there are fewer than twenty values
    return Texts::tr("Too few values");
}

PointerNotes notes_at(const HistoryView& view, double time, double near) {
    PointerNotes notes{.time = time, .moment = moment_words(time).toStdString()};
    for (const CurveReading& one : view.readings_at(time)) {
        const QString value = one.form == CurveForm::band
                                  ? QStringLiteral("± ") + value_words((one.value.high - one.value.low) / 2, one.unit)
                                  : value_words(one.value.mean, one.unit);
        notes.values.push_back(
            {one.panel, one.color, (curve_words(one.key) + QStringLiteral("  ") + value).toStdString()});
    }
    if (view.options.lanes)
        for (const HistoryLane& lane : view.data().lanes())
            if (const LaneStretch* stretch = lane.at(time))
                notes.values.push_back({HistoryPanel::sources, color_of(standing_of(stretch->rule)),
                                        lane.source + "  " + words_of(stretch->rule).toStdString()});
    const auto marks = view.marks_in_sight();
    const auto nearest =
        std::ranges::min_element(marks, {}, [time](const HistoryMark& mark) { return std::abs(mark.time - time); });
    if (nearest != marks.end() && std::abs(nearest->time - time) <= near)
        notes.event = mark_words(*nearest).toStdString();
    return notes;
}

} // namespace tickervantage
