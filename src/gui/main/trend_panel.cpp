#include "gui/main/trend_panel.h"

#include "gui/main/elided_label.h"
#include "gui/main/trend_view.h"
#include "gui/main/verdict_sign.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <algorithm>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(trend)
};

constexpr std::size_t least_readings = 2; // fewer are no line

QString no_history_words() {
    //: main window: in place of the picture of the last hour
    return Texts::tr("No history yet: it begins now, with a reading each few seconds. Leave this window open, and the "
                     "last hour appears here.");
}

QString nothing_to_show_words() {
    //: main window: in place of the picture of the last hour
    return Texts::tr(
        "Nothing vouched for the clock in this time. Once chronyd follows a source, its error appears here.");
}

QString words_of(const TrendReading& reading) {
    QString words = QLocale().toString(QDateTime::fromSecsSinceEpoch(reading.time).time(), QLocale::LongFormat);
    words += QStringLiteral("  ") + short_words(reading.verdict);
    if (reading.bound)
        //: main window, last hour: what is pointed at; %1 is a time such as 12 µs
        words += QStringLiteral("  ") + Texts::tr("within ±%1").arg(in_words(quantity::seconds(*reading.bound)));
    if (reading.offset)
        //: main window, last hour: what is pointed at, in chrony's words; %1 is a time such as +12 µs
        words +=
            QStringLiteral("  ") + Texts::tr("system time %1").arg(in_words(quantity::signed_seconds(*reading.offset)));
    return words;
}

} // namespace

TrendPanel::TrendPanel(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("trend_panel"));
    //: main window: name of the title above the picture of the last hour
    m_title = named(new QLabel(this), "trend_title", Texts::tr("What the last hour shows"));
    m_title->setTextFormat(Qt::PlainText);
    //: main window: name of the values of the last hour that are pointed at
    m_readout = named(new ElidedLabel(this), "trend_readout", Texts::tr("Values pointed at"));
    m_readout->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    //: main window: tooltip of the title above the picture of the last hour
    m_title->setToolTip(Texts::tr("Band: how far off the clock can have been. Line: how far off it was held to be. "
                                  "Coloured lane: its state. Click, or press Return, for the whole history."));
    //: main window: name of the picture of the last hour
    m_view = named(new TrendView(this), "trend", Texts::tr("Last hour"));
    auto* head = new QHBoxLayout;
    head->addWidget(m_title);
    head->addSpacing(16);
    head->addWidget(m_readout, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addLayout(head);
    column->addWidget(m_view, 1);
    connect(m_view, &TrendView::graph_wanted, this, &TrendPanel::graph_wanted);
    connect(m_view, &TrendView::pointed, this, &TrendPanel::show_readout);
    show_trend(Trend{});
}

void TrendPanel::show_trend(const Result<Trend>& trend) {
    if (!trend)
        m_view->show_instead(in_words(trend.error()));
    else if (trend->readings.size() < least_readings)
        m_view->show_instead(no_history_words());
    else if (std::ranges::none_of(trend->readings, [](const auto& reading) { return reading.bound.has_value(); }))
        m_view->show_instead(nothing_to_show_words());
    else
        m_view->show_trend(*trend);
    show_title();
    if (m_view->words_instead().isEmpty())
        m_view->setAccessibleDescription(m_title->text() + QStringLiteral(": ") + words_of(trend->readings.back()));
}

void TrendPanel::wait_for_trend() {
    m_view->show_instead(QStringLiteral(" "));
    show_title();
}

void TrendPanel::show_title() {
    const bool is_shown = m_view->words_instead().isEmpty();
    const auto minutes = static_cast<int>((m_view->trend().to - m_view->trend().from) / 60);
    //: main window: title of the picture of the clock's error; %1 is a number of minutes
    QString title = is_shown && minutes < 60 ? Texts::tr("Error of the clock in the last %1 min").arg(minutes)
                                             //: main window: title of the picture of the clock's error
                                             : Texts::tr("Error of the clock in the last hour");
    const QString unit = from_std(trend_unit(m_view->strip()));
    if (is_shown && !unit.isEmpty())
        //: main window: title of the picture of the clock's error; %1 is the title without the unit, %2 a unit such as
        //: µs
        title = Texts::tr("%1, in %2").arg(title, unit);
    if (title != m_title->text())
        m_title->setText(title);
}

void TrendPanel::show_readout() {
    const TrendReading* reading = m_view->pointed_reading();
    m_readout->setText(reading == nullptr ? QString() : words_of(*reading));
}

} // namespace tickervantage
