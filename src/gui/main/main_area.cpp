#include "gui/main/main_area.h"

#include "gui/main/verdict_panel.h"
#include "qt/text_scale.h"

#include <QBoxLayout>
#include <QResizeEvent>
#include <QSplitter>
#include <QTimer>

#include <algorithm>

namespace tickervantage {
namespace {

// Points.
constexpr int wide_enough = 1080;    // for two halves
constexpr int row_wide_enough = 760; // for all controls of the report in one row
constexpr int report_width = 600;    // of most of chrony's reports

constexpr double left_share = 0.4; // of the half with the instruments: the sources need more

} // namespace

MainArea::MainArea(QWidget* parent) : QScrollArea(parent) {
    setObjectName(QStringLiteral("main_area"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

void MainArea::adapt(QSplitter* halves, VerdictPanel* verdict, QBoxLayout* report_row) {
    m_halves = halves;
    m_verdict = verdict;
    m_report_row = report_row;
}

QSize MainArea::minimumSizeHint() const {
    return scaled(QSize(560, 380), *this);
}

QSize MainArea::sizeHint() const {
    return scaled(QSize(1180, 720), *this);
}

void MainArea::set_out(int width) {
    const bool wide = width >= scaled(wide_enough, *this);
    const auto orientation = wide ? Qt::Horizontal : Qt::Vertical;
    m_verdict->set_wide(wide);
    m_report_row->setDirection(wide || width >= scaled(row_wide_enough, *this) ? QBoxLayout::LeftToRight
                                                                               : QBoxLayout::TopToBottom);
    if (m_halves->orientation() == orientation && m_is_set_out)
        return;
    m_halves->setOrientation(orientation);
    if (wide) // once the halves have the width that they are to share
        QTimer::singleShot(0, m_halves, [halves = m_halves] {
            const int left = std::max(static_cast<int>(halves->width() * left_share), scaled(report_width, *halves));
            halves->setSizes({left, halves->width() - left});
        });
    m_is_set_out = true;
}

void MainArea::resizeEvent(QResizeEvent* event) {
    if (m_halves != nullptr)
        set_out(event->size().width()); // before the widget takes its size, which follows from this
    QScrollArea::resizeEvent(event);
}

} // namespace tickervantage
