// What the history window answers beyond showing: what a day or a night was like, and whether it is better since.
#include "gui/history/history_plot.h"
#include "gui/history/history_window.h"
#include "gui/history/history_words.h"
#include "gui/history/range_menu.h"

#include <QAction>
#include <QActionGroup>
#include <QElapsedTimer>
#include <QLocale>
#include <QMenu>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t histogram_bins = 60;

} // namespace

void HistoryWindow::offer_ranges() {
    QMenu* menu = m_controls.when->menu();
    if (const auto known = m_data->extent())
        fill_range_menu(menu, *known, [this](const TimeRange& range) {
            show_period(range);
            m_controls.details->setCurrentWidget(m_controls.events_page); // who asks for a night asks what happened
        });
    menu->addSeparator();
    menu->addAction(m_controls.from_to);
}

void HistoryWindow::show_period(const TimeRange& range) {
    m_controls.plot->go(range);
    m_controls.plot->setFocus();
}

void HistoryWindow::choose_limit() {
    const double limit = m_controls.limits->checkedAction()->data().toDouble();
    m_controls.plot->change(
        [limit](HistoryView& view) { view.options.limit = limit > 0 ? std::optional(limit) : std::nullopt; });
    m_share.reset();
    m_statistics_timer.start();
}

// Counted anew only where the cursor has moved: the pointer moves all the time.
void HistoryWindow::split_at_cursor() {
    const auto& first = m_controls.plot->pointers().first;
    if (first == m_split)
        return;
    m_split = first;
    m_statistics_timer.start();
}

// The values in sight are copied, for the queue, in slices of time: of logs of years they are millions.
void HistoryWindow::count_statistics() {
    const HistoryView& view = m_controls.plot->view();
    m_gathered = {};
    m_to_gather.clear();
    for (const HistoryCurve& curve : view.curves())
        if (view.is_shown(curve))
            m_to_gather.push_back(curve.key);
    std::ranges::reverse(m_to_gather);
    gather();
}

void HistoryWindow::gather() {
    constexpr int slice = 12; // ms
    const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    const HistoryView& view = m_controls.plot->view();
    const auto curves = view.curves();
    const double end = std::nextafter(view.range().to, std::numeric_limits<double>::infinity());
    for (; !m_to_gather.empty(); m_to_gather.pop_back()) {
        if (clock.hasExpired(slice))
            return m_gather_timer.start(0);
        const auto curve = std::ranges::find(curves, m_to_gather.back(), &HistoryCurve::key);
        if (curve == curves.end())
            continue;
        const std::size_t last = curve->values->first_from(end);
        const std::size_t first = std::min(curve->values->first_from(view.range().from), last);
        const auto means = curve->values->means(first, last);
        Gathered& one = m_gathered.curves.emplace_back(Gathered{curve->key, curve->unit, {means.begin(), means.end()}});
        if (m_split)
            one.split = std::clamp(curve->values->first_from(*m_split), first, last) - first;
    }
    const TimedValues& bound = m_data->line(HistoryLine::bound);
    if (view.options.limit) {
        const std::size_t last = bound.first_from(end);
        const std::size_t first = std::min(bound.first_from(view.range().from), last);
        const auto times = bound.times(first, last);
        const auto means = bound.means(first, last);
        m_gathered.times.assign(times.begin(), times.end());
        m_gathered.bounds.assign(means.begin(), means.end());
    }
    count_gathered();
}

void HistoryWindow::count_gathered() {
    struct Counted {
        std::vector<CurveNumbers> numbers;
        std::optional<LimitShare> share;
    };
    m_statistics.start_newest(
        *m_parts.queue,
        [all = std::exchange(m_gathered, {}), limit = m_controls.plot->view().options.limit]() mutable {
            Counted counted;
            for (Gathered& one : all.curves)
                if (const auto summary = summary_of(one.values, history_shares)) {
                    const BeforeAfter change = compare_before_after(one.values, one.split, one.unit);
                    counted.numbers.push_back(
                        {one.key, one.unit, *summary, histogram_of(std::move(one.values), histogram_bins), change});
                }
            if (limit)
                counted.share = share_within(all.times, all.bounds, *limit);
            return counted;
        },
        [this](const Counted& counted) {
            m_numbers = counted.numbers;
            m_share = counted.share;
            show_statistics();
        });
}

void HistoryWindow::show_before_after() {
    QTreeWidget& table = *m_controls.before_after;
    table.clear();
    if (!m_split || *m_split <= m_controls.plot->view().range().from ||
        *m_split >= m_controls.plot->view().range().to) {
        //: history window: in the table "Before and after" while there is no cursor A in sight
        new QTreeWidgetItem(&table, {tr("A click in the plot, or on an event, puts cursor A there: what is in sight "
                                        "before it is compared with what came after.")});
        return;
    }
    for (const CurveNumbers& one : m_numbers) {
        if (one.key == "skew") // the frequency with its margins
            continue;
        const auto size = [&one](const std::optional<double>& value) {
            return value ? value_words(*value, one.unit) : QStringLiteral("–");
        };
        const auto count = [](std::size_t number) {
            return QLocale().toString(static_cast<qlonglong>(number));
        };
        auto* row = new QTreeWidgetItem(&table, {curve_words(one.key), change_words(one.change),
                                                 size(one.change.before), size(one.change.after),
                                                 count(one.change.count_before), count(one.change.count_after)});
        for (int column = 2; column < table.columnCount(); ++column)
            row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
}

} // namespace tickervantage
