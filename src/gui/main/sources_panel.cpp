#include "gui/main/sources_panel.h"

#include "gui/main/explanation_text.h"
#include "gui/main/interval_view.h"
#include "gui/main/sources_model.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <algorithm>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(sources)
};

QSplitter* splitter(Qt::Orientation orientation, const char* object_name, QWidget* first, QWidget* second) {
    auto* both = new QSplitter(orientation);
    both->setObjectName(QLatin1String(object_name));
    both->setChildrenCollapsible(false);
    both->addWidget(first);
    both->addWidget(second);
    return both;
}

} // namespace

SourcesPanel::SourcesPanel(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("sources_panel"));
    build_table();
    //: main window: name of the picture beside the table of sources
    m_intervals =
        named(new IntervalView(this, *m_table, *m_model), "source_intervals", Texts::tr("Intervals"),
              //: main window: tooltip of the picture beside the table of sources
              Texts::tr("Where each source sees our clock: true time lies somewhere in its bar. Filled: used. "
                        "Shaded: what those that agree have in common."));
    //: main window: name of the text that explains a source
    m_explanation = named(new QTextBrowser(this), "source_explanation", Texts::tr("Explanation"));
    m_explanation->setOpenLinks(false);
    m_explanation->setTabChangesFocus(true);
    m_explanation->setMinimumHeight(m_explanation->fontMetrics().lineSpacing() * 4);
    build_root_row();
    lay_out();
    fit_columns();
    limit_height();
    m_intervals->hide(); // until there are any
}

void SourcesPanel::build_table() {
    m_model = new SourcesModel(this, palette());
    //: main window: name of the table of sources
    m_table = named(new QTableView(this), "sources", Texts::tr("Sources"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().lineSpacing() * 3 / 2);
    m_table->horizontalHeader()->setHighlightSections(false);
    // Which source, how far off, and since when comes first: in a narrow window the rest is behind the scroll bar.
    m_table->horizontalHeader()->moveSection(SourcesModel::offset, SourcesModel::stratum);
    m_table->horizontalHeader()->moveSection(SourcesModel::last_heard, SourcesModel::poll);
    m_table->horizontalHeader()->moveSection(m_table->horizontalHeader()->visualIndex(SourcesModel::reach),
                                             SourcesModel::reach);
    m_table->horizontalHeader()->setSortIndicatorClearable(true);
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder); // chronyc's order
    m_table->horizontalHeader()->setResizeContentsPrecision(50);
    m_table->setSortingEnabled(true);
    m_table->setMinimumHeight(m_table->fontMetrics().lineSpacing() * 5);
    m_table->setMinimumWidth(scaled(200, *this));
    connect(m_table->horizontalHeader(), &QHeaderView::sectionResized, this, &SourcesPanel::limit_table);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& now) { choose_row(now.row()); });
}

void SourcesPanel::build_root_row() {
    m_root_row = new QWidget(this);
    //: main window: beside the button that brings the reports which only an administrator may read
    auto* words = new QLabel(Texts::tr("Some reasons are in reports that only an administrator may read."), m_root_row);
    words->setObjectName(QStringLiteral("root_words"));
    words->setWordWrap(true);
    //: main window: button that brings the reports which only an administrator may read
    m_ask_root = named(new QPushButton(Texts::tr("Read &Them…"), m_root_row), "ask_root_reports",
                       //: main window: name of the button that brings the reports which only an administrator may read
                       Texts::tr("Read the administrator's reports"));
    auto* row = new QHBoxLayout(m_root_row);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(words, 1);
    row->addWidget(m_ask_root);
    connect(m_ask_root, &QPushButton::clicked, this, &SourcesPanel::root_reports_wanted);
    m_root_row->hide(); // until a reason is missing
}

void SourcesPanel::lay_out() {
    auto* across = splitter(Qt::Horizontal, "sources_splitter", m_table, m_intervals);
    across->setStretchFactor(0, 1);
    auto* down = splitter(Qt::Vertical, "explanation_splitter", across, m_explanation);
    down->setStretchFactor(0, 3);
    down->setStretchFactor(1, 2);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(down, 1);
    column->addWidget(m_root_row);
}

void SourcesPanel::show_truth(const std::shared_ptr<const ClockTruth>& truth) {
    const bool has_others = m_model->rowCount() != static_cast<int>(truth->sources.size()) ||
                            m_model->truth().reports.names != truth->reports.names;
    m_model->show(truth);
    if (has_others) {
        fit_columns();
        limit_height();
        m_intervals->setVisible(!truth->sources.empty());
    }
    restore_choice();
    m_root_row->setVisible(m_offers_root && truth->reports.sources && !truth->sources.empty() &&
                           !truth->reports.selection);
    show_explanation();
}

void SourcesPanel::offer_root_reports(bool offered) {
    m_offers_root = offered;
    m_root_row->setVisible(offered && m_root_row->isVisibleTo(this));
}

// With room for what the cells of these sources may say later.
void SourcesPanel::fit_columns() {
    const auto has_name = [](const JudgedSource& source) {
        return source.name.value_or(source.data.source) != source.data.source;
    };
    m_table->setColumnHidden(SourcesModel::name, std::ranges::none_of(m_model->truth().sources, has_name));
    m_table->resizeColumnsToContents();
    const QFontMetrics metrics = m_table->fontMetrics();
    int states = 0;
    for (int rule = 0; rule <= static_cast<int>(SelectionRule::unknown); ++rule)
        states = std::max(states, metrics.horizontalAdvance(words_of(static_cast<SelectionRule>(rule))));
    const auto leave = [&](int column, int words) {
        m_table->setColumnWidth(column, std::max(m_table->columnWidth(column), words + metrics.height()));
    };
    leave(SourcesModel::state, states + m_table->iconSize().width());
    leave(SourcesModel::offset, metrics.horizontalAdvance(QStringLiteral("+888 µs ± 88.8 ms")));
    leave(SourcesModel::last_heard, metrics.horizontalAdvance(QStringLiteral("88 min 88 s")));
}

// The table gets no more than it needs of the width: the picture can use the rest.
void SourcesPanel::limit_table() {
    const int frame = 2 * m_table->frameWidth() + m_table->verticalScrollBar()->sizeHint().width();
    m_table->setMaximumWidth(std::max(m_table->horizontalHeader()->length() + frame, m_table->minimumWidth()));
}

// Nor more of the height: the explanation below can use the rest.
void SourcesPanel::limit_height() {
    constexpr int least_rows = 6; // a few sources more or less leave the rest where it is
    const int rows = std::max(m_model->rowCount(), least_rows) * m_table->verticalHeader()->defaultSectionSize();
    const int height = rows + m_table->horizontalHeader()->sizeHint().height() + 2 * m_table->frameWidth() +
                       m_table->horizontalScrollBar()->sizeHint().height();
    m_table->setMaximumHeight(height);
    m_intervals->setMaximumHeight(height);
}

// After other sources came, the chosen one may still be among them.
void SourcesPanel::restore_choice() {
    if (m_chosen.empty() || m_table->selectionModel()->hasSelection())
        return;
    const int row = m_model->row_of(m_chosen);
    if (row >= 0)
        m_table->selectRow(row);
}

void SourcesPanel::choose_row(int row) {
    if (row < 0)
        return; // the table was filled anew
    m_chosen = m_model->truth().sources[m_model->source_in(row)].data.source;
    show_explanation();
}

void SourcesPanel::explain_all() {
    m_chosen.clear();
    m_table->clearSelection();
    m_table->setCurrentIndex({});
    show_explanation();
    m_explanation->setFocus();
}

void SourcesPanel::show_explanation() {
    const int row = m_chosen.empty() ? -1 : m_model->row_of(m_chosen);
    const QString text = row < 0 ? whole_explanation(m_model->truth())
                                 : explanation_text(m_model->truth().explanations[m_model->source_in(row)]);
    if (text == m_shown)
        return;
    m_shown = text;
    const int down = m_explanation->verticalScrollBar()->value();
    m_explanation->setHtml(text);
    m_explanation->verticalScrollBar()->setValue(down);
}

void SourcesPanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && m_model != nullptr)
        m_model->set_palette(palette());
    QWidget::changeEvent(event);
}

} // namespace tickervantage
