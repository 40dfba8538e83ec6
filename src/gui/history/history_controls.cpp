#include "gui/history/history_controls.h"

#include "gui/common/copied_table.h"
#include "gui/history/histogram_view.h"
#include "gui/history/history_plot.h"
#include "gui/history/history_words.h"
#include "qt/named_widget.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(history)
};

QToolButton* tool(QWidget* parent, const char* name, const QString& text, const QString& tooltip) {
    auto* button = named(new QToolButton(parent), name, QString(text).remove(QLatin1Char('&')), tooltip);
    button->setText(text);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QComboBox* choice(QWidget* parent, const char* name, const QString& spoken, const QString& tooltip,
                  const QStringList& entries) {
    auto* box = named(new QComboBox(parent), name, spoken, tooltip);
    box->addItems(entries);
    return box;
}

void build_movement(QWidget* parent, HistoryControls& controls) {
    controls.path = make_path_buttons(parent);
    //: history window: name of the menu of ranges, its tooltip, and its entries
    controls.range = choice(parent, "range", Texts::tr("Range"), Texts::tr("How much is in sight, up to the newest"),
                            {Texts::tr("All"), Texts::tr("1 hour"), Texts::tr("6 hours"), Texts::tr("1 day"),
                             Texts::tr("1 week"), Texts::tr("30 days"), Texts::tr("1 year"), Texts::tr("Own range")});
    controls.when = tool(parent, "when",
                         //: history window: button with a menu of nights and days, and its tooltip
                         Texts::tr("Da&y"), Texts::tr("A night, a day, or any other period (Ctrl+G)"));
    controls.when->setPopupMode(QToolButton::InstantPopup);
    controls.when->setMenu(new QMenu(controls.when));
    //: history window: menu item, asks from when to when
    controls.from_to = new QAction(Texts::tr("&From … to …"), controls.when);
    controls.from_to->setObjectName(QStringLiteral("from_to"));
    controls.from_to->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
    parent->addAction(controls.from_to);
    //: history window: button that stays down, and its tooltip
    controls.follow = tool(parent, "follow", Texts::tr("Follow"), Texts::tr("Keep the newest reading in sight"));
    controls.follow->setCheckable(true);
    controls.zoom_by_drag =
        //: history window: button that stays down, and its tooltip
        tool(parent, "zoom_by_drag", Texts::tr("Select"),
             Texts::tr("Dragging zooms to what is selected, as it does "
                       "with Shift held; else it moves the plot"));
    controls.zoom_by_drag->setCheckable(true);
}

void build_choices(QWidget* parent, HistoryControls& controls) {
    controls.scale =
        //: history window: name of the menu of scales, its tooltip, and its entries
        choice(parent, "scale", Texts::tr("Scale"),
               Texts::tr("How seconds stand on their axes: evenly, or by decades "
                         "to both sides of zero"),
               {Texts::tr("Suitable scale"), Texts::tr("Even scale"), Texts::tr("Decades")});
    //: history window: name of the menu, its tooltip, and its entries
    controls.sources_form = choice(parent, "sources_form", Texts::tr("Sources as"), Texts::tr("How sources are shown"),
                                   {Texts::tr("Source states"), Texts::tr("Source offsets")});
    // On a narrow screen they give way, the longest words first.
    for (QComboBox* box : {controls.range, controls.scale, controls.sources_form})
        box->setMinimumWidth(9 * box->fontMetrics().averageCharWidth());
}

QAction* add_action(QMenu* menu, const char* name, const QString& text) {
    QAction* action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    return action;
}

void add_limits(QMenu* menu, HistoryControls& controls) {
    //: history window: menu of limits for the clock's error
    auto* limits = menu->addMenu(Texts::tr("Error &Limit"));
    limits->setObjectName(QStringLiteral("limits"));
    controls.limits = new QActionGroup(menu);
    const auto add = [&](const QString& text, double seconds) {
        QAction* action = controls.limits->addAction(limits->addAction(text));
        action->setCheckable(true);
        action->setData(seconds);
    };
    //: history window: menu item, no limit is drawn
    add(Texts::tr("&None"), 0);
    controls.limits->actions().front()->setChecked(true);
    for (const double seconds : {1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 5e-2, 1e-1, 1.0})
        add(value_words(seconds, AxisUnit::seconds), seconds);
}

void build_menu(QWidget* parent, HistoryControls& controls) {
    //: history window: button with a menu, and its tooltip
    controls.files = tool(parent, "files", Texts::tr("&Logs"),
                          Texts::tr("Logs, comparison, export. A log or a folder that is dropped on the window is "
                                    "opened; with Shift held it is compared."));
    controls.files->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(controls.files);
    //: history window: menu items
    controls.open_log = add_action(menu, "open_log", Texts::tr("&Open Log…"));
    //: history window: menu item, a folder with all logs of a machine
    controls.open_folder = add_action(menu, "open_folder", Texts::tr("Open &Folder of Logs…"));
    //: history window: menu item, lays another machine's log over this one
    controls.compare = add_action(menu, "compare", Texts::tr("Compa&re With…"));
    //: history window: menu item, the same with a folder of logs
    controls.compare_folder = add_action(menu, "compare_folder", Texts::tr("Compare &With Folder…"));
    //: history window: menu item
    controls.end_comparison = add_action(menu, "end_comparison", Texts::tr("&End Comparison"));
    controls.end_comparison->setEnabled(false);
    menu->addSeparator();
    //: history window: menu item
    controls.fit = add_action(menu, "fit", Texts::tr("Show &All"));
    controls.fit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
    //: history window: menu item, opens the window with the nine series of the tracking log
    controls.log_graph = add_action(menu, "log_graph", Texts::tr("Graph of the &Tracking Log"));
    //: history window: menu item, has chrony write the logs that this window needs
    controls.turn_on = add_action(menu, "turn_on", Texts::tr("Turn On &Logs…"));
    menu->addSeparator();
    add_limits(menu, controls);
    //: history window: menu item, writes a document about how long the clock was right
    controls.evidence = add_action(menu, "evidence", Texts::tr("&Save Evidence…"));
    controls.files->setMenu(menu);
}

QTreeWidget* table(QWidget* parent, const char* name, const QString& spoken, const QStringList& headings) {
    auto* tree = named(new QTreeWidget(parent), name, spoken);
    tree->setHeaderLabels(headings);
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setAlternatingRowColors(true);
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tree->setMinimumHeight(60);
    offer_copying(tree);
    return tree;
}

// The document of evidence, where one reads what happened.
QToolButton* build_prove(QWidget* page, const HistoryControls& controls) {
    auto* prove =
        tool(page, "prove",
             //: history window: button beside the list of events, and its tooltip
             Texts::tr("&Evidence…"), Texts::tr("A document about how long the clock was right in what is in sight"));
    QObject::connect(prove, &QToolButton::clicked, controls.evidence, &QAction::trigger);
    QObject::connect(controls.evidence, &QAction::changed, prove,
                     [prove, action = controls.evidence] { prove->setEnabled(action->isEnabled()); });
    return prove;
}

QWidget* build_events(QWidget* parent, HistoryControls& controls) {
    auto* page = new QWidget(parent);
    controls.events =
        //: history window: name of the table of events, and its headings
        table(page, "events", Texts::tr("Events"),
              {Texts::tr("Time"), Texts::tr("Event"), Texts::tr("Whose doing"), Texts::tr("What happened")});
    //: history window: button with a menu of kinds of events, and its tooltip
    controls.event_kinds = tool(page, "event_kinds", Texts::tr("&Kinds"), Texts::tr("Which kinds of events are shown"));
    controls.event_kinds->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(controls.event_kinds);
    for (std::size_t kind = 0; kind < mark_kinds; ++kind) {
        controls.kinds[kind] = menu->addAction(kind_words(static_cast<MarkKind>(kind)));
        controls.kinds[kind]->setCheckable(true);
        controls.kinds[kind]->setChecked(true);
    }
    controls.event_kinds->setMenu(menu);
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(controls.events, 1);
    auto* column = new QVBoxLayout;
    column->addWidget(controls.event_kinds);
    column->addWidget(build_prove(page, controls));
    column->addStretch(1);
    row->addLayout(column);
    return page;
}

void build_tables(QWidget* parent, HistoryControls& controls) {
    //: history window: name of the legend, its headings, and its tooltip
    controls.legend = table(parent, "legend", Texts::tr("Legend"), {Texts::tr("Curve"), Texts::tr("Value")});
    //: history window: tooltip of the legend
    controls.legend->header()->setSectionResizeMode(0, QHeaderView::Stretch); // names give way to values
    controls.legend->setToolTip(Texts::tr("A click on the box hides a curve; a double click, or Return, shows it alone "
                                          "in its panel"));
    //: history window: name of the tabs
    controls.details = named(new QTabWidget(parent), "details", Texts::tr("Details"));
    controls.details->setDocumentMode(true);
    //: history window: name of the table of statistics, and its headings
    controls.statistics =
        table(controls.details, "statistics", Texts::tr("Statistics of what is in sight"),
              {Texts::tr("Curve"), Texts::tr("Number"), Texts::tr("Median"), Texts::tr("95 %"), Texts::tr("Largest"),
               Texts::tr("5 %"), Texts::tr("99 %"), Texts::tr("Mean"), Texts::tr("Std. dev."), Texts::tr("RMS")});
    //: history window: name of the histogram
    controls.histogram = named(new HistogramView(controls.details), "histogram", Texts::tr("Histogram"));
    //: history window: name of the table of the two cursors, and its headings; Δ is the difference of the two
    controls.cursors = table(controls.details, "cursors", Texts::tr("Cursors"),
                             {Texts::tr("Curve"), Texts::tr("At A"), Texts::tr("At B"), Texts::tr("Δ"),
                              //: history window: heading; how much the curve rises in an hour
                              Texts::tr("Δ an hour")});
    controls.before_after =
        //: history window: name of a table, and its headings; sizes before cursor A and after it
        table(controls.details, "before_after", Texts::tr("Before and after"),
              {Texts::tr("Curve"), Texts::tr("Change"), Texts::tr("95 % before"), Texts::tr("95 % after"),
               Texts::tr("Values before"), Texts::tr("Values after")});
    controls.before_after->setToolTip(
        //: history window: tooltip of the table "Before and after"
        Texts::tr("How far 95 of 100 values in sight lay from zero before cursor A and after it; of frequencies and "
                  "temperatures, from their middle"));
    //: history window: name of the text about a source
    controls.source = named(new QTextBrowser(controls.details), "source", Texts::tr("Source"));
    controls.source->setFrameShape(QFrame::NoFrame);
    //: history window: in place of a source's explanation
    controls.source->setPlaceholderText(Texts::tr("A click on a source's lane tells how it stood at that time."));
    controls.events_page = build_events(controls.details, controls);
    //: history window: tabs
    controls.details->addTab(controls.statistics, Texts::tr("Statistics"));
    //: history window: a tab
    controls.details->addTab(controls.histogram, Texts::tr("Histogram"));
    //: history window: a tab
    controls.details->addTab(controls.events_page, Texts::tr("Events"));
    //: history window: a tab
    controls.details->addTab(controls.before_after, Texts::tr("Before/After"));
    //: history window: a tab
    controls.details->addTab(controls.cursors, Texts::tr("Cursors"));
    //: history window: a tab
    controls.details->addTab(controls.source, Texts::tr("Source"));
}

QLayout* top_row(const HistoryControls& controls) {
    auto* row = new QHBoxLayout;
    row->setSpacing(2); // all of it fits a screen 640 points wide
    for (QWidget* widget : std::initializer_list<QWidget*>{controls.path.back, controls.path.forward, controls.range,
                                                           controls.when, controls.follow, controls.zoom_by_drag})
        row->addWidget(widget);
    row->addStretch(1);
    row->addWidget(controls.scale);
    row->addWidget(controls.sources_form);
    row->addWidget(controls.files);
    return row;
}

QSplitter* build_splitters(QWidget* parent, const HistoryControls& controls) {
    auto* below = new QSplitter(Qt::Horizontal, parent);
    below->addWidget(controls.legend);
    below->addWidget(controls.details);
    below->setStretchFactor(0, 3);
    below->setStretchFactor(1, 5);
    auto* all = named(new QSplitter(Qt::Vertical, parent), "panes", QString());
    all->addWidget(controls.plot);
    all->addWidget(below);
    all->setStretchFactor(0, 1);
    all->setStretchFactor(1, 0);
    all->setCollapsible(0, false);
    all->setSizes({600, 140});
    return all;
}

} // namespace

HistoryControls build_history_controls(QWidget* parent) {
    HistoryControls controls;
    build_movement(parent, controls);
    build_choices(parent, controls);
    build_menu(parent, controls);
    //: history window: name of the panels
    controls.plot = named(new HistoryPlot(parent), "plot", Texts::tr("History of the clock"));
    build_tables(parent, controls);
    //: history window: name of the line that says where data come from
    controls.origins = named(new QLabel(parent), "origins", Texts::tr("Where the data come from"));
    controls.origins->setTextFormat(Qt::PlainText);
    controls.origins->setWordWrap(true);
    controls.origins->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* column = new QVBoxLayout(parent);
    column->addLayout(top_row(controls));
    column->addWidget(build_splitters(parent, controls), 1);
    column->addWidget(controls.origins);
    return controls;
}

} // namespace tickervantage
