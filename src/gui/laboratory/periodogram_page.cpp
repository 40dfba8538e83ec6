#include "gui/laboratory/periodogram_page.h"

#include "draw/plots/log_chart.h"
#include "gui/laboratory/chart_view.h"
#include "gui/laboratory/laboratory_words.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLocale>

#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

constexpr Color mean_color{0.15, 0.4, 0.8};
constexpr Color single_color{0.55, 0.55, 0.6};
constexpr Color peak_color{0.8, 0.15, 0.25};
constexpr double million = 1e6;

double decibels(double density) {
    return 10 * std::log10(std::max(density, 1e-300));
}

QString decibel_words(double decibels) {
    QString text = QLocale::c().toString(decibels, 'f', 1);
    text.replace(QLatin1Char('.'), QLocale().decimalPoint());
    return text.replace(QLatin1Char('-'), QStringLiteral("−"));
}

std::string point_of_locale() {
    return QLocale().decimalPoint().toStdString();
}

} // namespace

PeriodogramPage::PeriodogramPage(QWidget* parent, LaboratoryPageParts parts)
    //: laboratory: title of the page's pictures
    : LaboratoryPage(parent, "periodogram", Texts::tr("Periodogram of the clock"), std::move(parts)) {
    build_choices();
}

void PeriodogramPage::build_choices() {
    //: laboratory: name of a menu, and its tooltip
    m_quantity = named(new QComboBox(this), "quantity", Texts::tr("Quantity"),
                       //: laboratory: tooltip of the menu
                       Texts::tr("In what rhythms are looked for"));
    //: laboratory: entries of the menu: the oscillator's frequency, and the offsets that chronyd found
    m_quantity->addItems({Texts::tr("Frequency of the clock"), Texts::tr("Offsets that chronyd found")});
    fit_entries(m_quantity);
    //: laboratory: box, and its tooltip
    m_trend = named(new QCheckBox(Texts::tr("Without &trend"), this), "trend", Texts::tr("Without trend"),
                    //: laboratory: tooltip of the box
                    Texts::tr("Takes a straight line out first: a steady drift hides slow rhythms"));
    choices().addWidget(m_quantity);
    choices().addWidget(m_trend);
    choices().addStretch(1);
    connect(m_quantity, &QComboBox::activated, this, &PeriodogramPage::choices_changed);
    connect(m_trend, &QCheckBox::toggled, this, &PeriodogramPage::choices_changed);
}

void PeriodogramPage::compute() {
    m_shown = static_cast<ClockQuantity>(m_quantity->currentIndex());
    start(
        [quantity = m_shown, asked = PeriodogramQuestion{m_trend->isChecked()}](const LaboratoryData& data) {
            auto found = periodogram_of(series_of(data.clock, quantity), asked);
            if (found)
                found->density = {}; // what is shown are the bands
            return found;
        },
        [this](const Result<Periodogram>& answer) { show_answer(answer); });
}

void PeriodogramPage::show_answer(const Result<Periodogram>& answer) {
    if (!answer)
        return show_refusal(in_words(answer.error()));
    m_found = *answer;
    show_result(chart_of(), rows());
    show_headline(headline(), method());
}

LogChart PeriodogramPage::chart_of() const {
    LogChart chart{.axis = LogAxisKind::frequency, .from = m_found.bands.front().from, .to = m_found.bands.back().to};
    //: laboratory: title of the level axis
    chart.axis_title = Texts::tr("Frequency; above: its period").toStdString();
    chart.has_periods = true;
    //: laboratory: name of a band: from the smallest to the largest of neighbouring values
    ChartSeries extent{.name = Texts::tr("Single values").toStdString(),
                       .ink = single_color,
                       .has_line = false,
                       .has_band = true,
                       .is_told = false};
    //: laboratory: name of a curve
    ChartSeries mean{.name = Texts::tr("Mean, with 95 % limits").toStdString(), .ink = mean_color, .has_band = true};
    for (const SpectralBand& band : m_found.bands) {
        const double middle = std::sqrt(band.from * band.to);
        extent.points.push_back({middle, decibels(band.density),
                                 decibels(std::max<double>(band.smallest, band.density * 1e-3)),
                                 decibels(band.largest)});
        mean.points.push_back({middle, decibels(band.density), decibels(band.low), decibels(band.high)});
    }
    //: laboratory: name of the marks of what stands out
    ChartSeries peaks{.name = Texts::tr("Rhythms").toStdString(), .ink = peak_color, .has_line = false};
    //: laboratory: title of the upright axis
    ChartPanel panel{.title = (m_shown == ClockQuantity::offset
                                   ? Texts::tr("Power spectral density (dB relative to 1 s²/Hz)")
                                   //: laboratory: title of the upright axis
                                   : Texts::tr("Power spectral density (dB relative to 1 (s/s)²/Hz)"))
                                  .toStdString(),
                     .shape = AxisShape::linear};
    for (const SpectralPeak& peak : m_found.peaks) {
        peaks.points.push_back({.x = peak.frequency, .y = decibels(peak.density), .shape = MarkShape::diamond});
        panel.flags.push_back({peak.frequency, decibels(peak.density), period_words(peak).toStdString()});
    }
    panel.series = {std::move(extent), std::move(mean), std::move(peaks)};
    chart.panels.push_back(std::move(panel));
    return chart;
}

QString PeriodogramPage::amplitude_words(double amplitude) const {
    constexpr int digits = 4; // limits lie close together
    return m_shown == ClockQuantity::offset
               ? from_std(value_text(amplitude, AxisUnit::seconds, digits, point_of_locale()))
               : from_std(value_text(amplitude * million, AxisUnit::ppm, digits, point_of_locale()));
}

QString PeriodogramPage::headline() const {
    if (m_found.peaks.empty())
        //: laboratory: headline of the periodogram
        return Texts::tr("No rhythm stands out from the noise.");
    const SpectralPeak& strongest = m_found.peaks.front();
    //: laboratory: headline of the periodogram; %1 a period, %2 to %4 how strong it is
    QString text = Texts::tr("The strongest rhythm has a period of %1: ±%2 (between %3 and %4).")
                       .arg(period_words(strongest), amplitude_words(strongest.amplitude),
                            amplitude_words(strongest.amplitude_low), amplitude_words(strongest.amplitude_high));
    const bool is_daily = strongest.known == KnownPeriod::day || strongest.known == KnownPeriod::half_day;
    if (is_daily && m_shown == ClockQuantity::frequency)
        text += QLatin1Char(' ') +
                //: laboratory: goes on from the headline
                Texts::tr("What comes back each day is the temperature, as a rule: compensating it is worth a try.");
    return text;
}

QString PeriodogramPage::method() const {
    //: laboratory: said of how the periodogram was made; %1 is a number
    const QString words = m_found.is_even ? Texts::tr("%1 values in even steps, by FFT.")
                                          //: laboratory: said of how the periodogram was made; %1 is a number
                                          : Texts::tr("%1 values at uneven times, by Lomb and Scargle's method.");
    return words.arg(QLocale().toString(static_cast<qlonglong>(m_found.count)));
}

QStringList PeriodogramPage::headings() const {
    //: laboratory: headings of the table of rhythms
    return {Texts::tr("Period"), Texts::tr("Frequency"), Texts::tr("Amplitude"), Texts::tr("At least"),
            Texts::tr("At most"), Texts::tr("Density"),
            //: laboratory: heading of the table of rhythms: how probable it is that noise alone does that
            Texts::tr("By chance")};
}

std::vector<QStringList> PeriodogramPage::rows() const {
    std::vector<QStringList> rows;
    for (const SpectralPeak& peak : m_found.peaks)
        rows.push_back(
            {period_words(peak), from_std(frequency_text(peak.frequency, 4, point_of_locale())),
             QStringLiteral("±") + amplitude_words(peak.amplitude),
             QStringLiteral("±") + amplitude_words(peak.amplitude_low),
             QStringLiteral("±") + amplitude_words(peak.amplitude_high),
             decibel_words(decibels(peak.density)) + QStringLiteral(" dB"),
             peak.false_alarm < 1e-6 ? QStringLiteral("< 10⁻⁶") : QLocale().toString(peak.false_alarm, 'g', 1)});
    return rows;
}

QString PeriodogramPage::words_at_pointer() const {
    const ChartPlace place = *chart().pointed();
    const ChartPoint& point = point_at(chart().chart(), place);
    //: laboratory: what is pointed at; %1 a span of time, %2 a frequency, %3 a number
    QString words = Texts::tr("Period %1 (%2): %3 dB")
                        .arg(from_std(span_text(1 / point.x, 3, point_of_locale())),
                             from_std(frequency_text(point.x, 3, point_of_locale())), decibel_words(point.y));
    if (point.low && point.high)
        //: laboratory: goes on from a value; %1 and %2 are its limits
        words +=
            Texts::tr(", with 95 % between %1 and %2 dB").arg(decibel_words(*point.low), decibel_words(*point.high));
    return words;
}

std::string PeriodogramPage::csv() const {
    std::string text = "from,to,density,low,high,smallest,largest\n";
    for (const SpectralBand& band : m_found.bands) {
        std::string line;
        for (const double value : {band.from, band.to, band.density, band.low, band.high, band.smallest, band.largest})
            line += (line.empty() ? "" : ",") + csv_number(value);
        text += line + '\n';
    }
    return text;
}

} // namespace tickervantage
