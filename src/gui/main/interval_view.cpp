#include "gui/main/interval_view.h"

#include "chrony/truth/source_interval.h"
#include "qt/accessible_widgets.h"
#include "qt/qt_canvas.h"
#include "qt/text_scale.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(sources)
};

constexpr int foot_height = 18; // points

std::optional<TimeInterval> drawn(const std::optional<SourceInterval>& interval) {
    return interval ? std::optional(TimeInterval{interval->low, interval->high}) : std::nullopt;
}

IntervalRow::Kind kind_of(const JudgedSource& source) {
    if (is_used(source.data))
        return IntervalRow::Kind::used;
    return standing_of(source.rule) == SourceStanding::refused ? IntervalRow::Kind::refused : IntervalRow::Kind::unused;
}

IntervalScale scale_of(const ClockTruth& truth, int width) {
    std::vector<TimeInterval> intervals;
    for (const JudgedSource& source : truth.sources)
        if (const auto interval = drawn(interval_of(source)))
            intervals.push_back(*interval);
    return {intervals, 0, static_cast<double>(width)};
}

} // namespace

IntervalView::IntervalView(QWidget* parent, QTableView& table, const SourcesModel& model)
    : QWidget(parent), m_table(table), m_model(model) {
    announce_as(this, QAccessible::Graphic);
    const auto repaint = [this] {
        update();
    };
    connect(&model, &QAbstractItemModel::dataChanged, this, repaint);
    connect(&model, &QAbstractItemModel::modelReset, this, repaint);
    connect(&model, &QAbstractItemModel::layoutChanged, this, repaint);
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, repaint);
    connect(table.verticalScrollBar(), &QScrollBar::valueChanged, this, repaint);
}

QSize IntervalView::sizeHint() const {
    return scaled(QSize(180, 120), *this);
}

QSize IntervalView::minimumSizeHint() const {
    return scaled(QSize(130, 60), *this);
}

std::vector<IntervalRow> IntervalView::rows_in_sight() const {
    std::vector<IntervalRow> rows;
    const int top = m_table.viewport()->y();
    const int first = std::max(0, m_table.rowAt(0));
    for (int row = first; row < m_model.rowCount(); ++row) {
        const int below = m_table.rowViewportPosition(row);
        if (below > m_table.viewport()->height())
            break;
        const JudgedSource& source = m_model.truth().sources[m_model.source_in(row)];
        rows.push_back({.middle = height() - (top + below + m_table.rowHeight(row) / 2.0),
                        .interval = drawn(interval_of(source)),
                        .measured = source.data.offset,
                        .kind = kind_of(source),
                        .is_chosen = m_table.selectionModel()->isRowSelected(row)});
    }
    return rows;
}

IntervalPicture IntervalView::picture() const {
    const QWidget& viewport = *m_table.viewport();
    const int below = height() - viewport.y() - viewport.height();
    return {.bounds = {0, 0, static_cast<double>(width()), static_cast<double>(height())},
            .axis_height = static_cast<double>(viewport.y()),
            .foot_height = static_cast<double>(std::max(below, foot_height)),
            .row_height = static_cast<double>(m_table.verticalHeader()->defaultSectionSize()),
            .rows = rows_in_sight(),
            .shared = drawn(shared_interval(m_model.truth().sources)),
            //: picture of where each source sees our clock, at its left edge
            .below = Texts::tr("← clock is behind").toStdString(),
            //: picture of where each source sees our clock, at its right edge
            .above = Texts::tr("ahead →").toStdString(),
            .decimal_point = QLocale().decimalPoint().toStdString()};
}

void IntervalView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base()); // without sources there is no axis
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
    if (m_model.rowCount() > 0)
        draw_intervals(canvas, picture(), scale_of(m_model.truth(), width()));
}

void IntervalView::mousePressEvent(QMouseEvent* event) {
    const int row = m_table.rowAt(static_cast<int>(event->position().y()) - m_table.viewport()->y());
    if (row >= 0)
        m_table.selectRow(row);
}

} // namespace tickervantage
