#include "gui/tracking/tracking_words.h"

#include "gui/tracking/legend.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(tracking)
};

// Three significant decimals in the unit that fits: readable, and never 0.000 for a nanosecond.
QString value_text(Series series, double value, const QLocale& locale) {
    if (std::isnan(value))
        return QStringLiteral("–");
    if (series == Series::frequency)
        return locale.toString(value * 1e6, 'f', 3) + QStringLiteral(" ppm");
    const double size = std::abs(value);
    const auto [factor, unit] = size < 1e-6   ? std::pair(1e9, " ns")
                                : size < 1e-3 ? std::pair(1e6, " µs")
                                : size < 1    ? std::pair(1e3, " ms")
                                              : std::pair(1.0, " s");
    return locale.toString(value * factor, 'f', 3) + QString::fromUtf8(unit);
}

} // namespace

QString words_of(const Readout& readout, const std::array<bool, series_count>& shown, const QLocale& locale) {
    QString text = from_std(local_date_time(readout.time));
    for (std::size_t i = 0; i < series_count; ++i) {
        if (!shown[i])
            continue;
        const auto series = static_cast<Series>(i);
        QString value = series_title(series) + QLatin1Char(' ') + value_text(series, readout.values[i], locale);
        text += QStringLiteral("   ") + value.replace(QLatin1Char(' '), QChar::Nbsp); // lines end between series
    }
    return text;
}

QString longest_words(const std::array<bool, series_count>& shown, const QLocale& locale) {
    constexpr double LONGEST = -999.999e-6; // in microseconds, and three digits of ppm
    Readout readout;
    readout.values.fill(LONGEST);
    return words_of(readout, shown, locale);
}

QString empty_words(const EmptyLog& log) {
    const QString configuration = QString::fromStdString(log.configuration);
    if (log.is_live && log.setting == TrackingLogSetting::not_asked_for)
        //: tracking window: shown in place of the graph; %1 is the path of chrony.conf
        return Texts::tr(
                   "chronyd writes no tracking log: %1 has no line “log tracking”.\n"
                   "“Turn On Logging…” in the main window adds that line; so can you, in the configuration editor.")
            .arg(configuration);
    if (log.is_live && log.setting == TrackingLogSetting::no_folder)
        //: tracking window: shown in place of the graph; %1 is the path of chrony.conf
        return Texts::tr("chronyd writes no tracking log: %1 asks for one, but no line “logdir” says where to.\n"
                         "Add a line such as “logdir /var/log/chrony” in the configuration editor, check it, and "
                         "install it.")
            .arg(configuration);
    if (log.problem)
        return in_words(*log.problem);
    if (log.has_older_records)
        //: tracking window: shown in place of the graph
        return Texts::tr("All records of this log are older than the time range shown.\n"
                         "Choose a longer range, or the whole log.");
    if (!log.is_live)
        //: tracking window: shown in place of the graph of a file that somebody opened
        return Texts::tr("This file holds no record of a tracking log.");
    if (log.setting == TrackingLogSetting::written)
        //: tracking window: shown in place of the graph
        return Texts::tr("The log has no record yet.\n"
                         "chronyd adds one with each update of the clock, once it follows a server.");
    //: tracking window: shown in place of the graph
    return Texts::tr("The log has no record yet.\n"
                     "chronyd adds one with each update of the clock, if its configuration has the lines "
                     "“log tracking” and “logdir”.");
}

QString description_of(const TrackingView& view, Rect frame, const std::optional<LogEnds>& ends,
                       const QLocale& locale) {
    const auto newest = view.readout(frame.width, {0, 0, frame.width, frame.height});
    if (!ends || !newest)
        //: tracking window: read out by screen readers
        return Texts::tr("The log has no records yet.");
    //: tracking window: the graph as screen readers read it out; %1 and %2 are times, %3 the newest record
    return Texts::tr("%n record(s) from %1 to %2. Newest: %3", nullptr, static_cast<int>(view.records().size()))
        .arg(from_std(local_date_time(ends->first)), from_std(local_date_time(ends->last)),
             words_of(*newest, view.shown, locale));
}

PlotCaption caption_of(const TrackingView& view, Rect frame, Rect visible, const QString& log) {
    const auto moment_at = [&](double x) {
        const double before = (view.time_origin({0, 0, frame.width, frame.height}).x - x) / view.xscale;
        return to_integer(std::floor(view.right_end() - std::max(0.0, before)));
    };
    PlotCaption caption{.title = log.toStdString(), .lines = {}, .legend = {}};
    caption.lines.push_back(
        //: exported graph: the time that it shows; %1 and %2 are dates with time and zone
        Texts::tr("%1 to %2")
            .arg(from_std(local_date_time(moment_at(visible.x))),
                 from_std(local_date_time(moment_at(visible.x + visible.width))))
            .toStdString());
    for (std::size_t i = 0; i < series_count; ++i)
        if (view.shown[i])
            caption.legend.push_back({view.colors[i], series_title(static_cast<Series>(i)).toStdString()});
    return caption;
}

} // namespace tickervantage
