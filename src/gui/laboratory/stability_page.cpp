#include "gui/laboratory/stability_page.h"

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
#include <QLabel>
#include <QSpinBox>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

constexpr std::array confidences{0.683, 0.95, 0.99};
constexpr int smallest_poll = -7;
constexpr int largest_poll = 24;

// The line below which a deviation is the network's; of times it is level.
ChartSeries floor_line(double at_one_second, bool of_times, double from, double to) {
    //: laboratory: name of a line in the chart: deviations below it are the network's noise
    ChartSeries line{.name = Texts::tr("Below: not the clock").toStdString(),
                     .ink = ColorRole::red,
                     .is_dashed = true,
                     .is_told = false};
    for (const double tau : {from, to})
        line.points.push_back({.x = tau, .y = of_times ? at_one_second / std::sqrt(3.0) : at_one_second / tau});
    return line;
}

ChartSeries series_of(const StabilityCurve& curve) {
    ChartSeries series{
        .name = measure_words(curve.measure).toStdString(), .ink = color_of(curve.measure), .has_bars = true};
    for (const StabilityPoint& point : curve.points)
        series.points.push_back({.x = point.tau,
                                 .y = point.value,
                                 .low = point.low,
                                 .high = point.high,
                                 .shape = point.noise ? shape_of(*point.noise) : MarkShape::dot,
                                 .is_hollow = point.is_hollow});
    return series;
}

} // namespace

struct StabilityPage::Answer {
    Result<std::vector<StabilityCurve>> curves;
    std::optional<double> best_interval;
    std::optional<double> floor; // at 1 s
};

StabilityPage::StabilityPage(QWidget* parent, LaboratoryPageParts parts)
    //: laboratory: title of the page's pictures
    : LaboratoryPage(parent, "stability", Texts::tr("Stability of the clock"), std::move(parts)) {
    build_choices();
    build_poll();
}

void StabilityPage::build_choices() {
    for (std::size_t at = 0; at < m_measures.size(); ++at) {
        const StabilityMeasure measure = stability_measures.at(at);
        const QByteArray name = QByteArray("measure_") + name_of(measure).data();
        auto* box =
            named(new QCheckBox(from_std(name_of(measure)).toUpper(), this), name.constData(), measure_words(measure),
                  measure_words(measure) + QStringLiteral(": ") + measure_explanation(measure));
        box->setChecked(measure == StabilityMeasure::oadev);
        connect(box, &QCheckBox::toggled, this, &StabilityPage::choices_changed);
        choices().addWidget(box);
        m_measures.at(at) = box;
    }
    choices().addStretch(1);
    //: laboratory: name of a menu, and its tooltip
    m_confidence = named(new QComboBox(this), "confidence", Texts::tr("Confidence"),
                         //: laboratory: tooltip of the menu of confidences
                         Texts::tr("How probable it is that the true deviation lies within an error bar"));
    for (const double confidence : confidences)
        //: laboratory: entry of the menu of confidences; %1 is a number
        m_confidence->addItem(Texts::tr("%1 % bars").arg(percent_words(confidence)));
    //: laboratory: name of a menu, and its tooltip
    m_spacing = named(new QComboBox(this), "spacing", Texts::tr("Averaging times"),
                      //: laboratory: tooltip of the menu of averaging times
                      Texts::tr("Which averaging times are worked out"));
    //: laboratory: averaging times: each twice as long as the one before, ten times as long, or all
    m_spacing->addItems({Texts::tr("Doubling times"), Texts::tr("Decades"), Texts::tr("All times")});
    for (QComboBox* box : {m_confidence, m_spacing}) {
        fit_entries(box);
        connect(box, &QComboBox::activated, this, &StabilityPage::choices_changed);
        more_choices().addWidget(box);
    }
}

void StabilityPage::build_poll() {
    const auto field = [this](const char* name, int value) {
        //: laboratory: tooltip of the fields minpoll and maxpoll
        auto* box = named(
            new QSpinBox(this), name, QLatin1String(name),
            //: laboratory: tooltip of the fields minpoll and maxpoll
            Texts::tr("Of the sources in chrony.conf, which is read for it; chronyd's own default is %1").arg(value));
        box->setRange(smallest_poll, largest_poll);
        box->setValue(value);
        box->setPrefix(QLatin1String(name) + QLatin1Char(' '));
        connect(box, &QSpinBox::valueChanged, this, &StabilityPage::show_advice);
        more_choices().addWidget(box);
        return box;
    };
    m_minpoll = field("minpoll", PollLimits().minpoll);
    m_maxpoll = field("maxpoll", PollLimits().maxpoll);
    more_choices().addStretch(1);
}

void StabilityPage::set_poll_limits(const PollLimits& limits) {
    m_minpoll->setValue(limits.minpoll);
    m_maxpoll->setValue(limits.maxpoll);
}

StabilityQuestion StabilityPage::question() const {
    StabilityQuestion question;
    question.measures.clear();
    for (std::size_t at = 0; at < m_measures.size(); ++at)
        if (m_measures.at(at)->isChecked())
            question.measures.push_back(stability_measures.at(at));
    question.confidence = confidences.at(static_cast<std::size_t>(m_confidence->currentIndex()));
    question.spacing = static_cast<TauSpacing>(m_spacing->currentIndex());
    return question;
}

void StabilityPage::compute() {
    const StabilityQuestion asked = question();
    if (asked.measures.empty())
        //: laboratory: in place of the chart
        return show_refusal(Texts::tr("Choose a measure above."));
    m_shown_confidence = asked.confidence;
    start(
        [asked](const LaboratoryData& data) {
            return Answer{stability_of(data.phase, asked), best_poll_interval(data.phase),
                          measurement_floor(data.phase, 1)};
        },
        [this](const Answer& answer) { show_answer(answer); });
}

void StabilityPage::show_answer(const Answer& answer) {
    if (!answer.curves)
        return show_refusal(in_words(answer.curves.error()));
    m_curves = *answer.curves;
    std::erase_if(m_curves, [](const StabilityCurve& curve) { return curve.points.empty(); });
    if (m_curves.empty())
        //: laboratory: in place of the chart
        return show_refusal(Texts::tr("The log is too short for any of these averaging times."));
    m_best_interval = answer.best_interval;
    m_floor = answer.floor;
    show_result(chart_of(answer), rows());
    show_advice();
}

LogChart StabilityPage::chart_of(const Answer& answer) const {
    //: laboratory: title of the level axis
    LogChart chart{.axis = LogAxisKind::duration, .axis_title = Texts::tr("Averaging time").toStdString()};
    chart.from = 1e30;
    chart.to = 0;
    for (const StabilityCurve& curve : m_curves) {
        chart.from = std::min(chart.from, curve.points.front().tau / 1.5);
        chart.to = std::max(chart.to, curve.points.back().tau * 1.5);
    }
    for (const bool of_times : {false, true}) {
        //: laboratory: titles of upright axes
        ChartPanel panel{
            .title = (of_times ? Texts::tr("Time") : Texts::tr("Deviation of the frequency (s/s)")).toStdString(),
            .unit = of_times ? AxisUnit::seconds : AxisUnit::none};
        for (const StabilityCurve& curve : m_curves)
            if (is_time(curve.measure) == of_times)
                panel.series.push_back(series_of(curve));
        if (panel.series.empty())
            continue;
        if (answer.floor)
            panel.series.push_back(floor_line(*answer.floor, of_times, chart.from, chart.to));
        chart.panels.push_back(std::move(panel));
    }
    return chart;
}

QStringList StabilityPage::headings() const {
    //: laboratory: headings of the table of deviations
    return {Texts::tr("Measure"), Texts::tr("Averaging time"), Texts::tr("Number"), Texts::tr("Deviation"),
            //: laboratory: headings of the table of deviations: limits of the true one
            Texts::tr("At least"), Texts::tr("At most"),
            //: laboratory: headings of the table of deviations: kind of noise, and what it is of
            Texts::tr("Noise"), Texts::tr("Of what")};
}

std::vector<QStringList> StabilityPage::rows() const {
    std::vector<QStringList> rows;
    for (const StabilityCurve& curve : m_curves)
        for (const StabilityPoint& point : curve.points)
            rows.push_back({from_std(name_of(curve.measure)).toUpper(), span_words(point.tau), QString::number(point.n),
                            power_words(point.value), power_words(point.low), power_words(point.high),
                            point.noise ? QString::fromUtf8(sign_of(shape_of(*point.noise), point.is_hollow)) +
                                              QLatin1Char(' ') + noise_words(*point.noise)
                                        : QStringLiteral("–"),
                            !m_floor ? QStringLiteral("–")
                            //: laboratory: what a deviation is of: hollow points are the network's noise
                            : point.is_hollow ? Texts::tr("not the clock")
                                              //: laboratory: what a deviation is of
                                              : Texts::tr("the clock")});
    return rows;
}

void StabilityPage::show_advice() {
    if (m_curves.empty())
        return;
    if (m_best_interval)
        return show_headline(in_words(poll_advice(*m_best_interval, m_minpoll->value(), m_maxpoll->value())));
    //: laboratory: in place of the advice on poll intervals
    show_headline(
        m_floor ? Texts::tr("Within this log the clock nowhere surely wanders more than the network shakes: there is "
                            "nothing to advise on poll intervals.")
                //: laboratory: in place of the advice on poll intervals
                : Texts::tr("How much the network shakes stands in chrony's tracking log only: without it nothing "
                            "can be advised on poll intervals, and no point is told from the measurement."));
}

QString StabilityPage::words_at_pointer() const {
    const ChartPlace place = *chart().pointed();
    const ChartPoint& point = point_at(chart().chart(), place);
    const ChartSeries& series = chart().chart().panels[place.panel].series[place.series];
    const bool of_times = chart().chart().panels[place.panel].unit == AxisUnit::seconds;
    const auto value = [of_times](double number) {
        return of_times ? seconds_words(number) : power_words(number);
    };
    //: laboratory: what is pointed at; %1 a measure, %2 a span of time, %3 a value
    QString words = Texts::tr("%1 over %2: %3").arg(from_std(series.name), span_words(point.x), value(point.y));
    if (point.low && point.high)
        //: laboratory: goes on from a value; %1 and %2 are its limits, %3 a number
        words += Texts::tr(", with %3 % between %1 and %2")
                     .arg(value(*point.low), value(*point.high), percent_words(m_shown_confidence));
    if (point.is_hollow)
        //: laboratory: goes on from a value: it is below the measurement's floor
        words += Texts::tr("; not the clock: the network shakes more than that");
    return words;
}

std::string StabilityPage::csv() const {
    std::string text = "measure,tau,n,value,low,high,noise,hollow\n";
    for (const StabilityCurve& curve : m_curves)
        for (const StabilityPoint& point : curve.points)
            text += std::string(name_of(curve.measure)) + ',' + csv_number(point.tau) + ',' + std::to_string(point.n) +
                    ',' + csv_number(point.value) + ',' + csv_number(point.low) + ',' + csv_number(point.high) + ',' +
                    std::string(point.noise ? name_of(*point.noise) : "") + ',' + (point.is_hollow ? '1' : '0') + '\n';
    return text;
}

} // namespace tickervantage
