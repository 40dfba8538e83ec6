#include "gui/history/history_words.h"

#include "base/local_clock.h"
#include "gui/common/source_words.h"
#include "qt/in_words.h"
#include "qt/local_number.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(history)
};

constexpr std::string_view other_prefix = "other ";
constexpr std::string_view difference_prefix = "difference ";
constexpr std::string_view source_prefix = "source ";
constexpr std::string_view temperature_prefix = "temperature ";

QString plain_curve_words(const std::string& key) {
    //: history window: names of curves
    static const std::map<std::string, const char*> names{
        {"offset", QT_TRANSLATE_NOOP("history", "Offset")},
        {"bound", QT_TRANSLATE_NOOP("history", "Largest possible error")},
        {"frequency", QT_TRANSLATE_NOOP("history", "Frequency")},
        {"skew", QT_TRANSLATE_NOOP("history", "Frequency ± skew")},
        {"root_delay", QT_TRANSLATE_NOOP("history", "Root delay")},
        {"root_dispersion", QT_TRANSLATE_NOOP("history", "Root dispersion")},
        {"compensation", QT_TRANSLATE_NOOP("history", "Compensation for temperature")}};
    const auto found = names.find(key);
    return found == names.end() ? QString::fromStdString(key) : Texts::tr(found->second);
}

QString verdict_words(const std::string& verdict) {
    //: history window: verdicts on the clock
    static const std::map<std::string, const char*> names{
        {"unavailable", QT_TRANSLATE_NOOP("history", "not available")},
        {"local", QT_TRANSLATE_NOOP("history", "own time only")},
        {"unsynchronised", QT_TRANSLATE_NOOP("history", "not synchronised")},
        {"holdover", QT_TRANSLATE_NOOP("history", "holdover")},
        {"correcting", QT_TRANSLATE_NOOP("history", "correcting")},
        {"leap", QT_TRANSLATE_NOOP("history", "synchronised, leap second pending")},
        {"synchronised", QT_TRANSLATE_NOOP("history", "synchronised")}};
    const auto found = names.find(verdict);
    return found == names.end() ? QString::fromStdString(verdict) : Texts::tr(found->second);
}

QString range_words(const TimeRange& range) {
    //: history window: from one date and time to another
    return Texts::tr("%1 to %2").arg(moment_words(range.from), moment_words(range.to));
}

// From the first to the last of one origin; none where it gave nothing.
std::optional<TimeRange> extent_of(const HistoryData& data, HistoryOrigin origin) {
    std::optional<TimeRange> extent;
    for (const OriginStretch& one : data.origins())
        if (one.origin == origin)
            extent = extent ? TimeRange{std::min(extent->from, one.range.from), std::max(extent->to, one.range.to)}
                            : one.range;
    return extent;
}

} // namespace

QString curve_words(const std::string& key) {
    if (key.starts_with(other_prefix))
        //: history window: a curve of the log that is laid over; %1 is its name
        return Texts::tr("%1, compared").arg(plain_curve_words(key.substr(other_prefix.size())));
    if (key.starts_with(difference_prefix))
        //: history window: the curve of this log less that of the other; %1 is its name
        return Texts::tr("%1, difference").arg(plain_curve_words(key.substr(difference_prefix.size())));
    if (key == temperature_prefix)
        //: history window: a curve, the temperature that chronyd read
        return Texts::tr("Temperature, by chronyd");
    if (key.starts_with(temperature_prefix))
        return QString::fromStdString(key.substr(temperature_prefix.size()));
    if (key.starts_with(source_prefix))
        return QString::fromStdString(key.substr(source_prefix.size()));
    return plain_curve_words(key);
}

QString standing_words(SourceStanding standing) {
    //: history window: legend of the lanes: how a source stands to the clock
    static constexpr std::array<const char*, source_standings> names{
        QT_TRANSLATE_NOOP("history", "The clock follows it"), QT_TRANSLATE_NOOP("history", "Used with it"),
        QT_TRANSLATE_NOOP("history", "Could be used"),        QT_TRANSLATE_NOOP("history", "Cannot be judged yet"),
        QT_TRANSLATE_NOOP("history", "Not believed"),         QT_TRANSLATE_NOOP("history", "Does not answer")};
    return Texts::tr(names.at(static_cast<std::size_t>(standing)));
}

HistoryWords panel_words() {
    HistoryWords words;
    //: history window: titles of panels
    words.panels = {Texts::tr("Error").toStdString(),
                    //: history window: title of a panel, of two machines' offsets
                    Texts::tr("Difference").toStdString(),
                    //: history window: title of a panel
                    Texts::tr("Frequency").toStdString(),
                    //: history window: title of a panel
                    Texts::tr("Delay and dispersion").toStdString(),
                    //: history window: title of a panel
                    Texts::tr("Sources").toStdString(),
                    //: history window: title of a panel
                    Texts::tr("Temperature").toStdString()};
    //: history window: in a panel's title behind its unit, as in "Error (µs, decades)": each line is ten times the one
    //: before it
    words.by_decades = Texts::tr("decades").toStdString();
    return words;
}

QString kind_words(MarkKind kind) {
    //: history window: kinds of events
    static constexpr std::array<const char*, mark_kinds> names{
        QT_TRANSLATE_NOOP("history", "chronyd started"), QT_TRANSLATE_NOOP("history", "chronyd ended"),
        QT_TRANSLATE_NOOP("history", "Clock stepped"),   QT_TRANSLATE_NOOP("history", "Another source"),
        QT_TRANSLATE_NOOP("history", "Source lost"),     QT_TRANSLATE_NOOP("history", "False ticker"),
        QT_TRANSLATE_NOOP("history", "No majority"),     QT_TRANSLATE_NOOP("history", "Frequency jumped"),
        QT_TRANSLATE_NOOP("history", "No records"),      QT_TRANSLATE_NOOP("history", "Time went back"),
        QT_TRANSLATE_NOOP("history", "Leap second"),     QT_TRANSLATE_NOOP("history", "Machine started"),
        QT_TRANSLATE_NOOP("history", "Machine slept"),   QT_TRANSLATE_NOOP("history", "Other message"),
        QT_TRANSLATE_NOOP("history", "State changed"),   QT_TRANSLATE_NOOP("history", "Something was done")};
    return Texts::tr(names.at(static_cast<std::size_t>(kind)));
}

QString mark_words(const HistoryMark& mark) {
    if (mark.sentence)
        return in_words(*mark.sentence);
    const QString from = QString::fromStdString(mark.from);
    const QString to = QString::fromStdString(mark.to);
    switch (mark.kind) {
    case MarkKind::verdict:
        //: history window: event; %1 and %2 are states such as "synchronised"
        return Texts::tr("From “%1” to “%2”").arg(verdict_words(mark.from), verdict_words(mark.to));
    case MarkKind::source:
        if (from.isEmpty())
            //: history window: event; %1 is a source's address
            return Texts::tr("The clock follows %1").arg(to);
        //: history window: event; %1 and %2 are addresses of sources
        return Texts::tr("The clock follows %2 instead of %1").arg(from, to);
    case MarkKind::lost:
        //: history window: event; %1 is a source's address
        return Texts::tr("%1 is lost: the clock follows nothing").arg(from);
    case MarkKind::job:
        //: history window: event; %1 is the name of a job, %2 how it ended
        return Texts::tr("%1: %2").arg(from, to);
    default:
        return to.isEmpty() ? kind_words(mark.kind) : kind_words(mark.kind) + QStringLiteral(": ") + to;
    }
}

QString value_words(double value, AxisUnit unit) {
    return from_std(value_text(value, unit, unit == AxisUnit::ppm ? 5 : 3, QLocale().decimalPoint().toStdString()));
}

QString moment_words(double time) {
    return from_std(local_date_time(static_cast<std::int64_t>(std::floor(time))));
}

QString duration_words(double seconds) {
    return in_words(quantity::duration(std::abs(seconds)));
}

QString origin_words(const HistoryData& data, const LoadedHistory& loaded) {
    QStringList parts;
    if (const auto logged = extent_of(data, HistoryOrigin::log))
        //: history window: where data come from; %1 is a span of time, %n the number of files
        parts << Texts::tr("Blue bar: chrony's log (%n file(s)), %1.", nullptr, static_cast<int>(loaded.logs.size()))
                     .arg(range_words(*logged));
    if (const auto stored = extent_of(data, HistoryOrigin::store))
        //: history window: where data come from; %1 is a span of time
        parts << Texts::tr("Grey bar: readings of this program, %1.").arg(range_words(*stored));
    for (const Failure& problem : loaded.log_problems)
        parts << in_words(problem);
    if (loaded.store_problem && data.extent() && loaded.logs.empty())
        parts << in_words(*loaded.store_problem);
    return parts.join(QLatin1Char(' '));
}

QString empty_words(const LoadedHistory& loaded) {
    //: history window: shown in place of the panels while there is nothing to show
    QString text = Texts::tr("Nothing is known of the clock's past yet.\n\nThis program keeps a reading every few "
                             "seconds: leave its main window open, and the history grows here by itself.\nchrony's "
                             "own logs go back further: choose “Turn On Logs…” to have chrony write them, or “Open "
                             "Log…” for one from elsewhere.");
    for (const Failure& problem : loaded.log_problems)
        text += QStringLiteral("\n\n") + in_words(problem);
    return text;
}

QString lane_words(const HistoryLane& lane, double time) {
    const LaneStretch* stretch = lane.at(time);
    const QString name = QString::fromStdString(lane.source).toHtmlEscaped();
    if (stretch == nullptr)
        //: history window: %1 is a source's address, %2 a date and time
        return Texts::tr("<p><b>%1</b> at %2</p><p>Nothing was kept of this source at that time: the program did not "
                         "run, or the source was not configured.</p>")
            .arg(name, moment_words(time));
    //: history window: %1 is a source's address, %2 a date and time, %3 its state in words, %4 a letter, %5 and %6
    //: times
    QString text = Texts::tr("<p><b>%1</b> at %2</p><p><b>%3</b> (chrony's sign for it: %4), from %5 to %6.</p>")
                       .arg(name, moment_words(time), words_of(stretch->rule).toHtmlEscaped(),
                            QString(QLatin1Char(stretch->letter)).toHtmlEscaped(), moment_words(stretch->range.from),
                            moment_words(stretch->range.to));
    //: history window: %1 are eight dots, full ones for polls that were answered
    text += Texts::tr("<p>Its newest polls: %1</p>").arg(reach_dots(stretch->reach));
    if (const auto at = lane.offsets.nearest(time)) {
        const TimedExtent value = lane.offsets.at(*at);
        //: history window: %1 is an offset, %2 a date and time
        text += Texts::tr("<p>Its offset: %1 at %2</p>")
                    .arg(value_words(value.mean, AxisUnit::seconds), moment_words(value.time));
    }
    //: history window: below what is known of a source
    return text + Texts::tr("<p><i>Not kept, so not known any more: the intervals by which chrony judged the sources "
                            "against each other, and the answers of this one.</i></p>");
}

PlotCaption caption_of(const HistoryView& view, const QString& title) {
    PlotCaption caption{.title = title.toStdString(), .lines = {range_words(view.range()).toStdString()}, .legend = {}};
    caption.lines.front() += ", " + zone_text(view.range().to, view.zone);
    for (const HistoryCurve& curve : view.curves())
        if (view.is_shown(curve))
            caption.legend.push_back({curve.color, curve_words(curve.key).toStdString()});
    return caption;
}

} // namespace tickervantage
