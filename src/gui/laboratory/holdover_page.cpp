#include "gui/laboratory/holdover_page.h"

#include "draw/plots/log_chart.h"
#include "gui/laboratory/chart_view.h"
#include "gui/laboratory/laboratory_words.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

#include <array>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

constexpr std::array quantiles{0.5, 0.9, 0.95, 0.99};
constexpr int default_quantile = 2;
constexpr double milliseconds = 1e3; // in a second
constexpr Color forecast_color{0.15, 0.4, 0.8};
constexpr Color chronyd_color{0.8, 0.45, 0.05};
constexpr double margin = 1.3; // of the level axis

} // namespace

HoldoverPage::HoldoverPage(QWidget* parent, LaboratoryPageParts parts)
    //: laboratory: title of the page's pictures
    : LaboratoryPage(parent, "holdover", Texts::tr("Forecast without sources"), std::move(parts)) {
    build_choices();
}

void HoldoverPage::build_choices() {
    //: laboratory: name of a field, and its tooltip
    m_limit =
        named(new QDoubleSpinBox(this), "limit", Texts::tr("Limit"),
              //: laboratory: tooltip of the field
              Texts::tr("How far off the clock may be: the headline says until when it would not be further off"));
    m_limit->setDecimals(3);
    m_limit->setRange(1e-3, 1e6);
    m_limit->setValue(1);
    m_limit->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    m_limit->setSuffix(QStringLiteral(" ms"));
    m_limit->setKeyboardTracking(false);
    //: laboratory: name of a menu, and its tooltip
    m_quantile = named(new QComboBox(this), "quantile", Texts::tr("Share of the past"),
                       //: laboratory: tooltip of the menu
                       Texts::tr("So much of the past stayed within the forecast"));
    for (const double share : quantiles)
        //: laboratory: entry of the menu; %1 is a number
        m_quantile->addItem(Texts::tr("%1 % of the past").arg(percent_words(share)));
    m_quantile->setCurrentIndex(default_quantile);
    fit_entries(m_quantile);
    //: laboratory: label of the field
    auto* label = new QLabel(Texts::tr("L&imit:"), this);
    label->setBuddy(m_limit);
    for (QWidget* widget : std::initializer_list<QWidget*>{label, m_limit, m_quantile})
        choices().addWidget(widget);
    choices().addStretch(1);
    connect(m_limit, &QDoubleSpinBox::valueChanged, this, &HoldoverPage::choices_changed);
    connect(m_quantile, &QComboBox::activated, this, &HoldoverPage::choices_changed);
}

void HoldoverPage::compute() {
    const double limit = m_limit->value() / milliseconds;
    const double share = quantiles.at(static_cast<std::size_t>(m_quantile->currentIndex()));
    start([limit, share](const LaboratoryData& data) { return forecast_holdover(data.clock, share, limit); },
          [this](const HoldoverForecast& forecast) { show_forecast(forecast); });
}

void HoldoverPage::show_forecast(const HoldoverForecast& forecast) {
    m_forecast = forecast;
    if (m_forecast.horizons.empty())
        //: laboratory: in place of the chart; %1 is a span of time
        return show_refusal(
            Texts::tr("There is not enough history: even 5 minutes ahead need 50 minutes of it without a "
                      "gap, and this has %1.")
                .arg(span_words(data().clock.seconds())));
    show_result(chart_of(), rows());
    show_headline(headline(), comparison());
}

LogChart HoldoverPage::chart_of() const {
    //: laboratory: title of the level axis
    LogChart chart{.axis = LogAxisKind::duration,
                   .axis_title = Texts::tr("Time since the sources were lost").toStdString()};
    chart.from = m_forecast.horizons.front().seconds / margin;
    chart.to = m_forecast.horizons.back().seconds * margin;
    //: laboratory: name of a curve
    ChartSeries past{.name = Texts::tr("Forecast from the past").toStdString(),
                     .ink = forecast_color,
                     .has_band = true,
                     .has_bars = true};
    //: laboratory: name of a curve
    ChartSeries bound{.name = Texts::tr("chronyd's own bound").toStdString(), .ink = chronyd_color, .is_dashed = true};
    for (const HoldoverError& error : m_forecast.horizons) {
        past.points.push_back({error.seconds, error.error, error.low, error.high, MarkShape::circle});
        bound.points.push_back({.x = error.seconds, .y = error.chronyd, .shape = MarkShape::square, .is_hollow = true});
    }
    //: laboratory: title of the upright axis
    ChartPanel panel{.title = Texts::tr("Error").toStdString(),
                     .unit = AxisUnit::seconds,
                     .series = {std::move(past), std::move(bound)}};
    //: laboratory: beside a line in the chart; %1 is a span of time
    panel.levels.push_back(
        {*m_forecast.limit, Texts::tr("limit %1").arg(seconds_words(*m_forecast.limit)).toStdString(), ColorRole::red});
    chart.panels.push_back(std::move(panel));
    chart.upright = m_forecast.limit_after;
    return chart;
}

QString HoldoverPage::headline() const {
    const QString limit = seconds_words(*m_forecast.limit);
    const QString share = percent_words(m_forecast.quantile);
    const auto moment = [this](double seconds) {
        return moment_words(now() + static_cast<std::int64_t>(seconds), now());
    };
    const LimitInterval around = limit_interval(m_forecast);
    if (!m_forecast.limit_after)
        //: laboratory: headline; %1 is a limit, %2 a number, %3 a span of time
        return Texts::tr("Sources lost now: within %1, %2 %, for %3 and longer; the history tells no more.")
            .arg(limit, share, span_words(m_forecast.horizons.back().seconds));
    //: laboratory: headline; %1 is a limit, %2 a number, %3 a time of day
    const QString text =
        Texts::tr("Sources lost now: within %1, %2 %, until %3").arg(limit, share, moment(*m_forecast.limit_after));
    if (around.earliest && around.latest)
        //: laboratory: goes on from the headline; %1 and %2 are times of day
        return text +
               Texts::tr(" (give or take: between %1 and %2).").arg(moment(*around.earliest), moment(*around.latest));
    if (around.earliest)
        //: laboratory: goes on from the headline; %1 is a time of day
        return text + Texts::tr(" (give or take: until %1 at the least).").arg(moment(*around.earliest));
    return text + QLatin1Char('.');
}

QString HoldoverPage::comparison() const {
    const HoldoverError& last = m_forecast.horizons.back();
    //: laboratory: below the headline; %1 is a span of time, %2 to %4 how far the clock is off, %5 the same
    QString text =
        Texts::tr(
            "After %1 the clock would be off by at most %2 (between %3 and %4); chronyd's own bound would say %5.")
            .arg(span_words(last.seconds), seconds_words(last.error), seconds_words(last.low), seconds_words(last.high),
                 seconds_words(last.chronyd));
    if (m_forecast.horizons.size() == holdover_horizons.size())
        return text;
    const double next = holdover_horizons.at(m_forecast.horizons.size());
    //: laboratory: goes on from there; %1 to %3 are spans of time
    return text + QLatin1Char(' ') +
           Texts::tr("For %1 ahead %2 of history without a gap are needed; this has %3.")
               .arg(span_words(next), span_words(history_for_horizon * next), span_words(data().clock.seconds()));
}

QStringList HoldoverPage::headings() const {
    //: laboratory: headings of the table of forecasts
    return {Texts::tr("After"), Texts::tr("Error"), Texts::tr("At least"), Texts::tr("At most"),
            //: laboratory: heading of the table of forecasts
            Texts::tr("chronyd's own bound")};
}

std::vector<QStringList> HoldoverPage::rows() const {
    std::vector<QStringList> rows;
    for (const HoldoverError& error : m_forecast.horizons)
        rows.push_back({span_words(error.seconds), seconds_words(error.error), seconds_words(error.low),
                        seconds_words(error.high), seconds_words(error.chronyd)});
    return rows;
}

QString HoldoverPage::words_at_pointer() const {
    const ChartPlace place = *chart().pointed();
    const ChartPoint& point = point_at(chart().chart(), place);
    //: laboratory: what is pointed at; %1 a curve, %2 a span of time, %3 how far the clock is off
    QString words = Texts::tr("%1 after %2: %3")
                        .arg(from_std(chart().chart().panels[place.panel].series[place.series].name),
                             span_words(point.x), seconds_words(point.y));
    if (point.low && point.high)
        //: laboratory: goes on from a value; %1 and %2 are its limits, %3 a number
        words += Texts::tr(", with %3 % between %1 and %2")
                     .arg(seconds_words(*point.low), seconds_words(*point.high), QLocale().toString(95));
    return words;
}

std::string HoldoverPage::csv() const {
    std::string text = "seconds,error,low,high,chronyd\n";
    for (const HoldoverError& error : m_forecast.horizons)
        text += csv_number(error.seconds) + ',' + csv_number(error.error) + ',' + csv_number(error.low) + ',' +
                csv_number(error.high) + ',' + csv_number(error.chronyd) + '\n';
    return text;
}

} // namespace tickervantage
