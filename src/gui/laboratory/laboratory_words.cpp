#include "gui/laboratory/laboratory_words.h"

#include "base/number_text.h"
#include "gui/laboratory/laboratory_page.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <array>
#include <cmath>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

struct MeasureTexts {
    const char* name;
    const char* explanation;
    Color color;
};

/* TRANSLATOR laboratory
   The window that studies how steady the clock is. ADEV, MDEV, TDEV and MTIE are names that every language has. */
// As stability_measures has them.
//: laboratory: measures of stability: name and tooltip
constexpr std::array<MeasureTexts, 6> measures{
    {{QT_TRANSLATE_NOOP("laboratory", "Allan (ADEV)"),
      QT_TRANSLATE_NOOP("laboratory", "How much the mean frequency of one stretch differs from that of the next"),
      {0.55, 0.35, 0.1}},
     {QT_TRANSLATE_NOOP("laboratory", "Allan, overlapping (OADEV)"),
      QT_TRANSLATE_NOOP("laboratory",
                        "The same from stretches that overlap: the usual measure, surer than the plain one"),
      {0.15, 0.4, 0.8}},
     {QT_TRANSLATE_NOOP("laboratory", "Modified Allan (MDEV)"),
      QT_TRANSLATE_NOOP("laboratory", "Tells white from flicker noise of the measurement, which Allan's does not"),
      {0.1, 0.6, 0.35}},
     {QT_TRANSLATE_NOOP("laboratory", "Time (TDEV)"),
      QT_TRANSLATE_NOOP("laboratory", "The same as the modified one, as a time: how far the time itself wanders"),
      {0.8, 0.45, 0.05}},
     {QT_TRANSLATE_NOOP("laboratory", "Hadamard (HDEV)"),
      QT_TRANSLATE_NOOP("laboratory",
                        "As Allan's, but blind for a frequency that drifts evenly, as an aging crystal's does"),
      {0.6, 0.25, 0.7}},
     {QT_TRANSLATE_NOOP("laboratory", "Largest error (MTIE)"),
      QT_TRANSLATE_NOOP("laboratory", "The largest time error that came up within a stretch of that length"),
      {0.8, 0.15, 0.25}}}};

const MeasureTexts& texts_of(StabilityMeasure measure) {
    return measures.at(static_cast<std::size_t>(measure));
}

} // namespace

QString measure_words(StabilityMeasure measure) {
    return Texts::tr(texts_of(measure).name);
}

QString measure_explanation(StabilityMeasure measure) {
    return Texts::tr(texts_of(measure).explanation);
}

Color color_of(StabilityMeasure measure) {
    return texts_of(measure).color;
}

bool is_time(StabilityMeasure measure) {
    return measure == StabilityMeasure::tdev || measure == StabilityMeasure::mtie;
}

MarkShape shape_of(NoiseType noise) {
    switch (noise) {
    case NoiseType::white_pm:
        return MarkShape::circle;
    case NoiseType::flicker_pm:
        return MarkShape::diamond;
    case NoiseType::white_fm:
        return MarkShape::square;
    case NoiseType::flicker_fm:
        return MarkShape::triangle;
    case NoiseType::random_walk_fm:
        break;
    }
    return MarkShape::inverted_triangle;
}

QString noise_words(NoiseType noise) {
    switch (noise) {
    case NoiseType::white_pm:
        //: laboratory: kind of noise; PM: of the phase
        return Texts::tr("white PM");
    case NoiseType::flicker_pm:
        //: laboratory: kind of noise; PM: of the phase
        return Texts::tr("flicker PM");
    case NoiseType::white_fm:
        //: laboratory: kind of noise; FM: of the frequency
        return Texts::tr("white FM");
    case NoiseType::flicker_fm:
        //: laboratory: kind of noise; FM: of the frequency
        return Texts::tr("flicker FM");
    case NoiseType::random_walk_fm:
        break;
    }
    //: laboratory: kind of noise; FM: of the frequency
    return Texts::tr("random walk FM");
}

QString period_words(const SpectralPeak& peak) {
    QString length = from_std(span_text(peak.period(), 3, QLocale().decimalPoint().toStdString()));
    if (!peak.known)
        return length;
    switch (*peak.known) {
    case KnownPeriod::week:
        //: laboratory: period of a peak
        return Texts::tr("a week");
    case KnownPeriod::day:
        //: laboratory: period of a peak
        return Texts::tr("a day");
    case KnownPeriod::half_day:
        //: laboratory: period of a peak
        return Texts::tr("12 h, half a day");
    case KnownPeriod::hour:
        //: laboratory: period of a peak
        return Texts::tr("an hour");
    case KnownPeriod::poll_interval:
        break;
    }
    //: laboratory: period of a peak; %1 is a span of time
    return Texts::tr("%1, a poll interval").arg(length);
}

QString power_words(const std::optional<double>& value) {
    if (!value || !std::isfinite(*value))
        return QStringLiteral("–");
    const QString text = QLocale::c().toString(*value, 'e', 2); // "1.23e-09"
    const auto power = text.indexOf(QLatin1Char('e'));
    static const QString digits = QStringLiteral("⁰¹²³⁴⁵⁶⁷⁸⁹");
    const int exponent = QStringView(text).mid(power + 1).toInt();
    QString raised = exponent < 0 ? QStringLiteral("⁻") : QString();
    for (const QChar digit : QString::number(std::abs(exponent)))
        raised += digits.at(digit.digitValue());
    return text.left(power).replace(QLatin1Char('.'), QLocale().decimalPoint()) + QStringLiteral("·10") + raised;
}

QString seconds_words(double seconds) {
    return in_words(quantity::seconds(seconds));
}

QString span_words(double seconds) {
    return seconds < 1 ? seconds_words(seconds) : in_words(quantity::duration(seconds));
}

QString percent_words(double share) {
    return QLocale().toString(100 * share, 'g', 4);
}

QString moment_words(std::int64_t moment, std::int64_t now) {
    const QLocale locale;
    QString time = local_time_of_day(moment, locale);
    const auto date = QDateTime::fromSecsSinceEpoch(moment).date();
    const auto days = QDateTime::fromSecsSinceEpoch(now).date().daysTo(date);
    if (days == 0)
        return time;
    return (days > 0 && days < 7 ? locale.dayName(date.dayOfWeek(), QLocale::ShortFormat)
                                 : locale.toString(date, QLocale::ShortFormat)) +
           QLatin1Char(' ') + time;
}

QString origin_words(const LaboratoryData& data) {
    const auto& records = data.clock.records;
    const QLocale locale;
    const auto date_of = [&locale](const ClockRecord& record) {
        return locale.toString(QDateTime::fromSecsSinceEpoch(record.time), QLocale::ShortFormat);
    };
    const auto stretches = static_cast<int>(data.clock.stretches().size());
    //: laboratory: what is used; %1 a log, %2 and %3 dates and times, %4 a number, %5 a span of time
    QString text = Texts::tr("%1: %4 records from %2 to %3, one every %5")
                       .arg(data.name, date_of(records.front()), date_of(records.back()),
                            locale.toString(static_cast<qlonglong>(records.size())), span_words(data.clock.interval));
    if (stretches > 1)
        //: laboratory: goes on from "one every 64 s"
        text += Texts::tr(", in %n stretch(es) with gaps between them", nullptr, stretches);
    return text + QLatin1Char('.');
}

std::string csv_number(const std::optional<double>& value) {
    return value ? text_from_double(*value).value_or("") : "";
}

} // namespace tickervantage
