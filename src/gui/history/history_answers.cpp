// What the history window answers beyond showing: what a day or a night was like, and whether it is better since.
#include "gui/history/history_plot.h"
#include "gui/history/history_window.h"
#include "gui/history/history_words.h"
#include "gui/history/range_menu.h"

#include <QAction>
#include <QActionGroup>
#include <QLocale>
#include <QMenu>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

#include <cmath>

namespace tickervantage {

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
