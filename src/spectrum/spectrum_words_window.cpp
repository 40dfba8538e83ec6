#include "spectrum/spectrum_words_window.h"

#include "spectrum/transform.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

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
            .arg(QLocale().toString(QDateTime::fromSecsSinceEpoch(failure.time, Qt::UTC), QLocale::ShortFormat),
                 series);
    case SpectrumProblem::memory:
        break;
    }
    return
        //: spectrum window: reason why no spectrum was computed
        Texts::tr("There is not enough memory for a spectrum of that many samples.");
}

QString words_of(const SpectrumReading& reading) {
    const QLocale locale;
    //: spectrum window: the bar pointed at; %1 its number, %2 its place on the frequency axis, %3 its height
    return Texts::tr("Bin %1, at %2 Hz on the axis: magnitude %3")
        .arg(locale.toString(static_cast<qulonglong>(reading.bin)),
             locale.toString(reading.frequency, 'g', READING_FIGURES),
             locale.toString(reading.magnitude, 'g', READING_FIGURES));
}

} // namespace tickervantage
