#include "gui/laboratory/laboratory_page.h"

#include "gui/common/copied_table.h"
#include "gui/laboratory/chart_view.h"
#include "qt/named_widget.h"

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

QLabel* words(QWidget* parent, const QString& name, const QString& spoken) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAccessibleName(spoken);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QTreeWidget* value_table(QWidget* parent, const QString& name) {
    auto* table = new QTreeWidget(parent);
    table->setObjectName(name);
    //: laboratory: name of the table of values
    table->setAccessibleName(Texts::tr("Values"));
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setAlternatingRowColors(true);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->header()->setStretchLastSection(true);
    table->setMinimumHeight(60);
    return table;
}

// Lines that are there stay, chosen and where they are scrolled to.
void fill(QTreeWidget* table, const std::vector<QStringList>& rows) {
    const auto count = static_cast<int>(rows.size());
    while (table->topLevelItemCount() > count)
        delete table->takeTopLevelItem(count);
    while (table->topLevelItemCount() < count)
        new QTreeWidgetItem(table);
    for (int row = 0; row < count; ++row)
        for (int column = 0; column < table->columnCount(); ++column)
            table->topLevelItem(row)->setText(column, rows[static_cast<std::size_t>(row)].value(column));
}

} // namespace

LaboratoryPage::LaboratoryPage(QWidget* parent, const char* name, QString title, LaboratoryPageParts parts)
    : QWidget(parent), m_parts(std::move(parts)), m_title(std::move(title)), m_background(m_parts.main_thread) {
    setObjectName(QLatin1String(name) + QStringLiteral("_page"));
    build(name);
    m_exports = std::make_unique<PlotExport>(this, m_chart, *this, m_parts.exports);
    m_exports->set_enabled(false);
    connect(m_exports.get(), &PlotExport::said, this, &LaboratoryPage::said);
    connect(m_chart, &ChartView::pointed_changed, this, &LaboratoryPage::show_pointed);
    add_copying();
}

void LaboratoryPage::build(const char* name) {
    const QString prefix = QLatin1String(name) + QLatin1Char('_');
    m_choices = new QHBoxLayout;
    m_more_choices = new QHBoxLayout;
    //: laboratory: name of the sentence above the chart
    m_headline = words(this, prefix + QStringLiteral("headline"), Texts::tr("What it says"));
    QFont font = m_headline->font();
    font.setBold(true);
    m_headline->setFont(font);
    //: laboratory: name of the words below the headline
    m_remark = words(this, prefix + QStringLiteral("remark"), Texts::tr("Remark"));
    auto* panes = new QSplitter(Qt::Vertical, this);
    m_chart = new ChartView(panes);
    m_chart->setObjectName(prefix + QStringLiteral("chart"));
    m_chart->setAccessibleName(m_title);
    m_table = value_table(panes, prefix + QStringLiteral("table"));
    panes->addWidget(m_chart);
    panes->addWidget(m_table);
    panes->setStretchFactor(0, 1);
    panes->setCollapsible(0, false);
    panes->setSizes({420, 150});
    //: laboratory: name of the line that says what is pointed at
    m_pointed = words(this, prefix + QStringLiteral("pointed"), Texts::tr("At the pointer"));
    m_pointed->setMinimumHeight(m_pointed->fontMetrics().lineSpacing());
    auto* column = new QVBoxLayout(this);
    column->addLayout(m_choices);
    column->addLayout(m_more_choices);
    column->addWidget(m_headline);
    column->addWidget(m_remark);
    column->addWidget(panes, 1);
    column->addWidget(m_pointed);
}

void LaboratoryPage::add_copying() {
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    //: laboratory: menu item, the table goes to the clipboard
    auto* copy = new QAction(Texts::tr("Copy &Values"), this);
    copy->setObjectName(QStringLiteral("copy_values"));
    copy->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    copy->setShortcutVisibleInContextMenu(true);
    connect(copy, &QAction::triggered, this, [this] { copy_table(*m_table); });
    addAction(copy);
    m_table->addAction(copy);
    m_chart->addAction(copy);
}

void LaboratoryPage::set_data(std::shared_ptr<const LaboratoryData> data, const QString& reason) {
    m_chart->forget_view();
    if (!data)
        show_refusal(reason);
    follow(std::move(data));
}

void LaboratoryPage::follow(std::shared_ptr<const LaboratoryData> data) {
    m_data = std::move(data);
    choices_changed();
}

void LaboratoryPage::choices_changed() {
    m_background.forget_newest();
    m_is_stale = m_data != nullptr;
    compute_if_needed();
}

void LaboratoryPage::compute_if_needed() {
    if (!isVisible() || !std::exchange(m_is_stale, false))
        return;
    if (m_chart->is_empty())
        //: laboratory: in place of the chart while it is being computed
        m_chart->clear(Texts::tr("Computing…"));
    compute();
}

void LaboratoryPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    compute_if_needed();
}

void LaboratoryPage::show_result(LogChart chart, const std::vector<QStringList>& rows) {
    m_chart->set_chart(std::move(chart));
    m_table->setHeaderLabels(headings());
    fill(m_table, rows);
    for (int column = 0; column < m_table->columnCount(); ++column)
        m_table->resizeColumnToContents(column);
    m_exports->set_enabled(true);
}

void LaboratoryPage::show_headline(const QString& headline, const QString& remark) {
    m_headline->setText(headline);
    m_headline->setVisible(!headline.isEmpty());
    m_remark->setText(remark);
    m_remark->setVisible(!remark.isEmpty());
}

void LaboratoryPage::show_refusal(const QString& reason) {
    m_chart->clear(reason);
    show_headline({});
    m_table->clear();
    m_exports->set_enabled(false);
}

void LaboratoryPage::show_pointed() {
    m_pointed->setText(m_chart->pointed() ? words_at_pointer() : QString());
}

void LaboratoryPage::draw_plot(Canvas& canvas, Rect bounds) const {
    m_chart->draw_on(canvas, bounds);
}

PlotCaption LaboratoryPage::plot_caption() const {
    PlotCaption caption{.title = m_title.toStdString(), .lines = {m_data->name.toStdString()}, .legend = {}};
    if (!m_headline->text().isEmpty())
        caption.lines.push_back(m_headline->text().toStdString());
    return caption;
}

std::shared_ptr<PlotTable> LaboratoryPage::plot_table() {
    struct Table : PlotTable {
        std::string text;
        [[nodiscard]] std::string csv() const override { return text; }
    };
    auto table = std::make_shared<Table>();
    table->text = csv();
    return table;
}

} // namespace tickervantage
