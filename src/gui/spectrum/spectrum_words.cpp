#include "gui/spectrum/spectrum_words.h"

#include "base/local_clock.h"
#include "qt/named_widget.h"
#include "studies/spectrum/transform.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace tickervantage {
namespace {

constexpr int READING_FIGURES = 4;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(spectrum)
};

} // namespace

QString words_of(const SpectrumFailure& failure, const QString& series) {
    //: spectrum window: reasons why no spectrum was computed
    switch (failure.problem) {
    case SpectrumProblem::interval:
        return Texts::tr("The interval must be more than 0 seconds.");
    case SpectrumProblem::duration:
        return
            //: spectrum window: reason why no spectrum was computed
            Texts::tr("The duration must be at least half an interval.");
    case SpectrumProblem::too_long:
        //: %1 a whole number
        return Texts::tr("A spectrum has at most %1 samples: shorten the duration or lengthen the interval.")
            .arg(QLocale().toString(static_cast<qulonglong>(longest_transform)));
    case SpectrumProblem::absent:
        //: %1 a time, %2 the series as the selector names it
        return Texts::tr("The record of %1 has no value for “%2”.")
            .arg(from_std(local_date_time(failure.time)), series);
    case SpectrumProblem::memory:
        break;
    }
    return
        //: spectrum window: reason why no spectrum was computed
        Texts::tr("There is not enough memory for a spectrum of that many samples.");
}

QString words_of(const SpectrumReading& reading) {
    const QLocale locale;
    const auto number = [&locale](double value) {
        return locale.toString(value, 'g', READING_FIGURES);
    };
    const QString bin = locale.toString(static_cast<qulonglong>(reading.bin));
    if (!reading.period)
        //: spectrum window: the first bar is pointed at; %1 its number, %2 its height
        return Texts::tr("Bar %1, the mean: height %2").arg(bin, number(reading.magnitude));
    //: spectrum window: the bar pointed at; %1 its number, %2 a frequency, %3 a time, %4 its height
    const QString text = Texts::tr("Bar %1: repeats every %3 s (%2 Hz), height %4")
                             .arg(bin, number(reading.frequency), number(*reading.period), number(reading.magnitude));
    //: spectrum window: %1 a bar of the upper half as above
    return reading.is_mirrored ? Texts::tr("%1 (mirror image)").arg(text) : text;
}

QString doubt_words(const ComputedSpectrum& spectrum) {
    const QLocale locale;
    const auto number = [&locale](std::size_t count) {
        return locale.toString(static_cast<qulonglong>(count));
    };
    QStringList words;
    if (spectrum.doubtful.extrapolated > 1)
        //: spectrum window: %1 and %2 are whole numbers
        words += Texts::tr("%1 of %2 samples are extrapolated beyond the records; a shorter interval avoids that.")
                     .arg(number(spectrum.doubtful.extrapolated), number(spectrum.count));
    if (spectrum.doubtful.before_records > 0)
        //: spectrum window: %1 and %2 are whole numbers
        words += Texts::tr("%1 of %2 samples are older than the records, and count as 0.")
                     .arg(number(spectrum.doubtful.before_records), number(spectrum.count));
    return words.join(QLatin1Char(' '));
}

PlotCaption caption_of(const ComputedSpectrum& spectrum, const QString& series) {
    const QLocale locale;
    //: exported spectrum: its title; %1 the series
    PlotCaption caption{.title = Texts::tr("Spectrum: %1").arg(series).toStdString(), .lines = {}, .legend = {}};
    const double duration = spectrum.interval * static_cast<double>(spectrum.count);
    caption.lines.push_back(
        //: exported spectrum: %1 a number of seconds, %2 a date with time and zone, %3 a number of seconds
        Texts::tr("%1 s up to %2, a sample every %3 s")
            .arg(locale.toString(duration), from_std(local_date_time(spectrum.newest)),
                 locale.toString(spectrum.interval))
            .toStdString());
    //: exported spectrum: what its axes are
    caption.lines.push_back(
        Texts::tr("Across: frequency in Hz. Upwards: strength, that of the highest bar being 1").toStdString());
    //: exported spectrum: what the shade is
    caption.lines.push_back(Texts::tr("Shaded: mirror image of the left half").toStdString());
    if (const QString doubt = doubt_words(spectrum); !doubt.isEmpty())
        caption.lines.push_back(doubt.toStdString());
    return caption;
}

} // namespace tickervantage
