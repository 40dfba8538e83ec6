#include "gui/laboratory/compensation_words.h"

#include "qt/in_words.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

constexpr double hour = 3600;

QString number(double value) {
    return QLocale().toString(value, 'g', 3);
}

QString ppm(double value) {
    //: laboratory, compensation: a frequency; %1 is a number
    return Texts::tr("%1 ppm").arg(number(value));
}

QString times(double value, double low, double high) {
    //: laboratory, compensation: how many times steadier a clock is; %1 is a number
    const QString gain = Texts::tr("%1 times").arg(number(value));
    //: laboratory, compensation: a gain with its interval; %1 is "4.1 times", %2 and %3 are numbers
    return high > 0 ? Texts::tr("%1 (%2 to %3)").arg(gain, number(low), number(high)) : gain;
}

// Of the longest look that there is.
const DayGain* longest(const CompensationState& state) {
    if (!state.gain)
        return nullptr;
    if (state.gain->week)
        return &*state.gain->week;
    return state.gain->day ? &*state.gain->day : nullptr;
}

QString refusal_words(const CompensationState& state) {
    //: laboratory, compensation: where there are no points yet
    return state.choice && state.choice->study.refused
               ? in_words(*state.choice->study.refused)
               : Texts::tr("No frequency was read together with a temperature yet.");
}

void add_expected(const Compensation& found, std::vector<QStringList>& rows) {
    //: laboratory, compensation: name of a figure, and what it means
    rows.push_back({Texts::tr("Frequency within a day"), ppm(found.before),
                    //: laboratory, compensation: what a figure means
                    Texts::tr("how far it goes up and down about its mean")});
    //: laboratory, compensation: name of a figure, and what it means
    rows.push_back({Texts::tr("With the compensation"), ppm(found.after),
                    //: laboratory, compensation: what a figure means
                    Texts::tr("on days that the compensation was not made of")});
    //: laboratory, compensation: name of a figure, and what it means
    rows.push_back({Texts::tr("Expected gain"), times(found.gain, found.gain_low, found.gain_high),
                    //: laboratory, compensation: what a figure means
                    Texts::tr("with 95 % certainty between the two limits")});
    const auto off = [](double deviation) {
        return in_words(quantity::seconds(error_after(hour, deviation)));
    };
    //: laboratory, compensation: name of a figure, and what it means
    rows.push_back({Texts::tr("An hour without sources"),
                    //: laboratory, compensation: %1 and %2 are times such as 430 µs
                    Texts::tr("%1 instead of %2").arg(off(found.after), off(found.before)),
                    //: laboratory, compensation: what a figure means
                    Texts::tr("how far the clock typically goes wrong when left to itself")});
}

void add_gained(const CompensationState& state, std::vector<QStringList>& rows) {
    const auto since = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(state.installed->since));
    const auto& sensor = state.installed->sensor;
    //: laboratory, compensation: name of a figure
    rows.push_back({Texts::tr("Installed since"), QLocale().toString(since, QLocale::ShortFormat),
                    sensor ? QString::fromStdString(sensor->chip + ' ' + sensor->input) : QString()});
    if (!state.gain)
        return;
    const auto add = [&rows](const QString& name, const std::optional<DayGain>& gain, const QString& otherwise) {
        rows.push_back(
            {name, gain ? times(gain->gain, gain->low, gain->high) : otherwise,
             //: laboratory, compensation: what was gained; %1 and %2 are frequencies such as 0.2 ppm
             gain ? Texts::tr("%1 instead of %2, by the log").arg(ppm(gain->after), ppm(gain->before)) : QString()});
    };
    //: laboratory, compensation: in place of a figure
    const QString later = Texts::tr("not known yet");
    //: laboratory, compensation: name of a figure
    add(Texts::tr("Gained in the last day"), state.gain->day, later);
    //: laboratory, compensation: name of a figure
    add(Texts::tr("Gained in the last week"), state.gain->week, later);
    if (state.gain->former)
        //: laboratory, compensation: name of a figure, and what it means
        rows.push_back({Texts::tr("Before it was installed"), ppm(*state.gain->former),
                        //: laboratory, compensation: what a figure means
                        Texts::tr("how far the frequency went up and down within a day")});
}

} // namespace

QString compensation_headline(const CompensationState& state) {
    const DayGain* gained = longest(state);
    switch (advice_of(state)) {
    case CompensationAdvice::gather:
        //: laboratory, compensation: headline; %1 is a sentence
        return Texts::tr("%1 Keep the window “Frequency and Temperature” open for some days, with chronyd running.")
            .arg(refusal_words(state));
    case CompensationAdvice::leave:
        //: laboratory, compensation: headline; %1 is a sentence
        return Texts::tr("A compensation is not worthwhile. %1").arg(refusal_words(state));
    case CompensationAdvice::install:
        //: laboratory, compensation: headline; %1 is a number
        return Texts::tr("With a compensation the clock would be %1 times steadier while the temperature changes.")
            .arg(number(state.choice->study.compensation->gain));
    case CompensationAdvice::wait:
        //: laboratory, compensation: headline
        return Texts::tr("A compensation is installed. What it gains shows after a day with chronyd's logs.");
    case CompensationAdvice::keep:
        //: laboratory, compensation: headline; %1 is a number
        return Texts::tr("A compensation is installed, and the clock is %1 times steadier by it.")
            .arg(number(gained->gain));
    case CompensationAdvice::take_back:
        //: laboratory, compensation: headline; %1 is a number
        return Texts::tr("The clock is less steady with the compensation that is installed (%1 times): take it back.")
            .arg(number(gained->gain));
    }
    return {};
}

QString few_points_words(std::size_t most, std::size_t needed) {
    const auto in_figures = [](std::size_t count) {
        return QLocale().toString(static_cast<qulonglong>(count));
    };
    //: laboratory, compensation: why there are too few days; %1 and %2 are numbers
    return Texts::tr("The window “Frequency and Temperature” keeps %1 points of a sensor, and drops the oldest before "
                     "there are enough days: it has to keep %2.")
        .arg(in_figures(most), in_figures(needed));
}

QString keep_points_words(std::size_t needed) {
    //: laboratory, compensation: button that has so many points kept; %1 is a number
    return Texts::tr("&Keep %1 Points").arg(QLocale().toString(static_cast<qulonglong>(needed)));
}

std::vector<QStringList> compensation_figures(const CompensationState& state) {
    std::vector<QStringList> rows;
    if (state.choice)
        //: laboratory, compensation: name of a figure
        rows.push_back({Texts::tr("Sensor"), QString::fromStdString(state.choice->sensor), {}});
    if (state.choice && state.choice->study.compensation)
        add_expected(*state.choice->study.compensation, rows);
    if (state.installed)
        add_gained(state, rows);
    if (state.unread)
        //: laboratory, compensation: in place of a figure
        rows.push_back({Texts::tr("Not read"), {}, in_words(*state.unread)});
    return rows;
}

} // namespace tickervantage
