#include "gui/main/main_window_layout.h"

#include "gui/main/instruments_panel.h"
#include "gui/main/main_area.h"
#include "gui/main/report_pane.h"
#include "gui/main/sources_panel.h"
#include "gui/main/trend_panel.h"
#include "gui/main/verdict_panel.h"

#include <QBoxLayout>
#include <QSplitter>

namespace tickervantage {
namespace {

constexpr int margin = 12;
constexpr int spacing = 10;

QSplitter* splitter(Qt::Orientation orientation, const char* name, QWidget* first, QWidget* second) {
    auto* both = new QSplitter(orientation);
    both->setObjectName(QLatin1String(name));
    both->setChildrenCollapsible(false);
    both->setHandleWidth(spacing);
    both->addWidget(first);
    both->addWidget(second);
    return both;
}

} // namespace

// Above what has been told since ever: the answer, its last hour, and the sources it comes from. Beside these, or below
// them, what chronyd itself says.
void lay_out_main_window(MainArea& area, QWidget* central, MainWindowControls& controls) {
    controls.report = new ReportPane(central, controls);
    auto* side = splitter(Qt::Vertical, "side_splitter", new InstrumentsPanel(central, controls), controls.report);
    side->setStretchFactor(0, 3);
    side->setStretchFactor(1, 2);
    auto* halves = splitter(Qt::Horizontal, "halves", controls.sources, side);
    auto* rows = splitter(Qt::Vertical, "trend_splitter", controls.trend, halves);
    rows->setStretchFactor(0, 2);
    rows->setStretchFactor(1, 3);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(margin, margin, margin, 4);
    column->setSpacing(spacing);
    column->addWidget(controls.standing_bar);
    column->addWidget(controls.host_bar);
    column->addWidget(controls.wrong_program);
    column->addWidget(controls.verdict);
    column->addWidget(rows, 1);
    area.setWidget(central);
    area.adapt({.rows = rows, .halves = halves, .side = side}, *controls.verdict);
}

} // namespace tickervantage
