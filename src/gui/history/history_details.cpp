// The history window's legend, statistics, cursors, events and explanations.
#include "gui/history/histogram_view.h"
#include "gui/history/history_plot.h"
#include "gui/history/history_window.h"
#include "gui/history/history_words.h"
#include "qt/qt_canvas.h"
#include "studies/history/lane_painter.h"

#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolTip>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace tickervantage {
namespace {

constexpr int key_role = Qt::UserRole;
constexpr int time_role = Qt::UserRole + 1;
constexpr int most_events = 2000; // in the table; more than anybody reads
constexpr int swatch_side = 12;

QIcon swatch(const Color& color, const QPalette& palette) {
    const Color readable = CanvasColors::from_palette(palette).readable(color);
    QPixmap picture(swatch_side, swatch_side);
    picture.fill(QColor::fromRgbF(static_cast<float>(readable.red), static_cast<float>(readable.green),
                                  static_cast<float>(readable.blue)));
    return picture;
}

QIcon standing_swatch(SourceStanding standing, const QPalette& palette) {
    QPixmap picture(2 * swatch_side, swatch_side);
    picture.fill(palette.color(QPalette::Base));
    QPainter painter(&picture);
    QtCanvas canvas(painter, swatch_side, CanvasColors::from_palette(palette));
    draw_standing(canvas, {0, 0, 2.0 * swatch_side, swatch_side}, standing);
    painter.end();
    return picture;
}

// Those that any source of the lanes had.
std::set<SourceStanding> standings_in(const HistoryData& data) {
    std::set<SourceStanding> found;
    for (const HistoryLane& lane : data.lanes())
        for (const LaneStretch& stretch : lane.stretches)
            found.insert(standing_of(stretch.rule));
    return found;
}

std::string key_of(const QTreeWidgetItem& item) {
    return item.data(0, key_role).toString().toStdString();
}

} // namespace

void HistoryWindow::fill_legend() {
    const QSignalBlocker quiet(m_controls.legend);
    const auto* current = m_controls.legend->currentItem();
    const std::string chosen = current != nullptr ? key_of(*current) : "";
    m_controls.legend->clear();
    const HistoryView& view = m_controls.plot->view();
    for (const HistoryCurve& curve : view.curves()) {
        auto* item = new QTreeWidgetItem(m_controls.legend, {curve_words(curve.key), QString()});
        item->setData(0, key_role, QString::fromStdString(curve.key));
        item->setIcon(0, swatch(curve.color, palette()));
        item->setCheckState(0, view.is_shown(curve) ? Qt::Checked : Qt::Unchecked);
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        if (curve.key == chosen)
            m_controls.legend->setCurrentItem(item);
    }
    if (view.options.lanes)
        for (const SourceStanding standing : standings_in(*m_data)) {
            auto* item = new QTreeWidgetItem(m_controls.legend, {standing_words(standing), QString()});
            item->setIcon(0, standing_swatch(standing, palette()));
            item->setFlags(Qt::ItemIsEnabled);
        }
    show_values();
}

void HistoryWindow::legend_changed(QTreeWidgetItem* item) {
    m_controls.plot->change([item](HistoryView& view) {
        if (item->checkState(0) == Qt::Checked)
            view.options.hidden.erase(key_of(*item));
        else
            view.options.hidden.insert(key_of(*item));
    });
    m_statistics_timer.start();
}

// The curve alone in its panel; all of them again when it was alone.
void HistoryWindow::isolate(QTreeWidgetItem* item) {
    const std::string key = key_of(*item);
    if (key.empty()) // one of the lanes' states
        return;
    m_controls.plot->change([&key](HistoryView& view) {
        const auto curves = view.curves();
        const auto chosen = std::ranges::find(curves, key, &HistoryCurve::key);
        if (chosen == curves.end())
            return;
        const auto is_beside = [&](const HistoryCurve& curve) {
            return curve.panel == chosen->panel && curve.key != key;
        };
        const bool was_alone = view.is_shown(*chosen) && std::ranges::none_of(curves, [&](const HistoryCurve& curve) {
                                   return is_beside(curve) && view.is_shown(curve);
                               });
        view.options.hidden.erase(key);
        for (const HistoryCurve& curve : curves) {
            if (!is_beside(curve))
                continue;
            if (was_alone)
                view.options.hidden.erase(curve.key);
            else
                view.options.hidden.insert(curve.key);
        }
    });
    fill_legend();
    m_statistics_timer.start();
}

void HistoryWindow::show_values() {
    const auto& pointer = m_controls.plot->pointers().pointer;
    const auto readings = pointer ? m_controls.plot->view().readings_at(*pointer) : std::vector<CurveReading>();
    const QSignalBlocker quiet(m_controls.legend);
    for (int row = 0; row < m_controls.legend->topLevelItemCount(); ++row) {
        auto* item = m_controls.legend->topLevelItem(row);
        const auto found = std::ranges::find(readings, key_of(*item), &CurveReading::key);
        item->setText(1, found == readings.end() ? QString() : value_words(found->value.mean, found->unit));
    }
    if (pointer)
        //: history window: heading of the legend; %1 is a time of day
        m_controls.legend->headerItem()->setText(
            1, tr("At %1").arg(moment_words(*pointer).section(QLatin1Char(' '), 1, 1)));
}

void HistoryWindow::show_cursors() {
    const HistoryPointers& at = m_controls.plot->pointers();
    const HistoryView& view = m_controls.plot->view();
    m_controls.cursors->clear();
    const auto first = at.first ? view.readings_at(*at.first) : std::vector<CurveReading>();
    const auto second = at.second ? view.readings_at(*at.second) : std::vector<CurveReading>();
    //: history window: row of the table of cursors
    auto* times = new QTreeWidgetItem(m_controls.cursors, {tr("Time")});
    if (at.first)
        times->setText(1, moment_words(*at.first));
    if (at.second)
        times->setText(2, moment_words(*at.second));
    if (at.first && at.second)
        times->setText(3, duration_words(*at.second - *at.first));
    if (!at.first && !at.second)
        //: history window: in the table of cursors while there are none
        times->setText(1, tr("A click in the plot puts cursor A there, with Shift held cursor B."));
    for (const HistoryCurve& curve : view.curves()) {
        const auto one = std::ranges::find(first, curve.key, &CurveReading::key);
        const auto other = std::ranges::find(second, curve.key, &CurveReading::key);
        if (one == first.end() && other == second.end())
            continue;
        auto* row = new QTreeWidgetItem(m_controls.cursors, {curve_words(curve.key)});
        if (one != first.end())
            row->setText(1, value_words(one->value.mean, curve.unit));
        if (other != second.end())
            row->setText(2, value_words(other->value.mean, curve.unit));
        if (one == first.end() || other == second.end())
            continue;
        const double difference = other->value.mean - one->value.mean;
        row->setText(3, value_words(difference, curve.unit));
        if (const double time = other->time - one->time; time != 0)
            row->setText(4, value_words(difference / time * 3600, curve.unit));
    }
}

void HistoryWindow::fill_events() {
    const auto marks = m_controls.plot->view().marks_in_sight();
    std::vector<std::pair<double, MarkKind>> listed;
    listed.reserve(marks.size());
    for (const HistoryMark& mark : marks)
        listed.emplace_back(mark.time, mark.kind);
    if (std::exchange(m_listed, listed) == listed && !listed.empty())
        return; // who reads them keeps the place
    const QSignalBlocker quiet(m_controls.events);
    m_controls.events->clear();
    QList<QTreeWidgetItem*> rows;
    for (const HistoryMark& mark : marks) {
        if (rows.size() == most_events)
            break;
        const CauseWords cause = cause_words(cause_of(*m_data, mark));
        auto* row = new QTreeWidgetItem({moment_words(mark.time), kind_words(mark.kind), cause.who, mark_words(mark)});
        row->setToolTip(2, cause.why);
        row->setData(0, time_role, mark.time);
        rows << row;
    }
    m_controls.events->addTopLevelItems(rows);
    const int tab = m_controls.details->indexOf(m_controls.events_page);
    //: history window: a tab with the number of events in sight
    m_controls.details->setTabText(tab,
                                   tr("Events (%1)").arg(QLocale().toString(static_cast<qlonglong>(marks.size()))));
}

// Where it stands, and the moment about which before and after are compared.
void HistoryWindow::mark_event(const QTreeWidgetItem* item) {
    if (item != nullptr)
        m_controls.plot->set_cursor_at(false, item->data(0, time_role).toDouble());
}

// An hour about it, or what is in sight where that is less.
void HistoryWindow::show_event(QTreeWidgetItem* item) {
    const double time = item->data(0, time_role).toDouble();
    const double length = std::min(3600.0, m_controls.plot->path().now().length());
    m_controls.plot->go({time - length / 2, time + length / 2});
    m_controls.plot->set_cursor_at(false, time);
}

void HistoryWindow::show_statistics() {
    m_controls.statistics->clear();
    for (const CurveNumbers& one : m_numbers) {
        const ValueSummary& found = one.statistics;
        auto* row = new QTreeWidgetItem(
            m_controls.statistics, {curve_words(one.key), QLocale().toString(static_cast<qlonglong>(found.count))});
        int column = 2;
        const double rare = found.percentiles[3];
        for (const double value : {found.percentiles[1], found.percentiles[2], furthest_of(found), found.percentiles[0],
                                   rare, found.mean, found.deviation, found.rms})
            row->setText(column++, value_words(value, one.unit));
        if (found.rms > std::max(std::abs(found.percentiles[0]), std::abs(rare)))
            for (int ruled = column - 3; ruled < column; ++ruled)
                //: history window: tooltip of mean, standard deviation and RMS where they say little
                row->setToolTip(ruled, tr("A few very large values rule this number: the median and the percentiles "
                                          "tell what the others are like."));
        for (int at = 1; at < column; ++at)
            row->setTextAlignment(at, Qt::AlignRight | Qt::AlignVCenter);
    }
    show_histogram();
    show_before_after();
    show_origins();
}

// Of the curve chosen in the legend, else of the offset.
void HistoryWindow::show_histogram() {
    const auto* chosen = m_controls.legend->currentItem();
    const std::string key = chosen != nullptr ? key_of(*chosen) : "offset";
    auto found = std::ranges::find(m_numbers, key, &CurveNumbers::key);
    if (found == m_numbers.end())
        found = m_numbers.begin();
    if (found == m_numbers.end())
        m_controls.histogram->show_histogram({}, {}, {}, {});
    else
        m_controls.histogram->show_histogram(curve_words(found->key), found->unit, found->histogram, found->statistics);
}

void HistoryWindow::show_lane(const QString& source, double time) {
    const auto& lanes = m_data->lanes();
    const auto found = std::ranges::find(lanes, source.toStdString(), &HistoryLane::source);
    if (found == lanes.end())
        return;
    m_controls.source->setHtml(lane_words(*found, time));
    m_controls.details->setCurrentWidget(m_controls.source);
}

void HistoryWindow::show_marks(const QPoint& place, const std::vector<HistoryMark>& marks) const {
    constexpr std::size_t most = 8;
    QStringList lines;
    for (const HistoryMark& mark : marks)
        if (lines.size() < static_cast<qsizetype>(most))
            lines << moment_words(mark.time) + QStringLiteral("  ") + mark_words(mark);
    if (lines.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(place, lines.join(QLatin1Char('\n')), m_controls.plot);
}

void HistoryWindow::show_origins() {
    QString words = origin_words(*m_data, m_loaded);
    if (m_share)
        words.prepend(share_words(*m_share, m_controls.plot->view().options.limit.value_or(0)) + QLatin1Char(' '));
    if (!m_compared.isEmpty())
        words += QLatin1Char(' ') + compared_words(m_compared);
    m_controls.origins->setText(words);
    m_controls.origins->setVisible(!m_controls.origins->text().isEmpty());
}

} // namespace tickervantage
