#include "gui/main/trend_view.h"

#include "gui/main/verdict_sign.h"
#include "qt/accessible_widgets.h"
#include "qt/in_words.h"
#include "qt/qt_canvas.h"
#include "qt/text_scale.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

Color as_color(const QColor& color) {
    return {.red = color.redF(), .green = color.greenF(), .blue = color.blueF()};
}

TrendPoint point_of(const TrendReading& reading) {
    return {.time = static_cast<double>(reading.time),
            .bound = reading.bound,
            .offset = reading.offset,
            .state = as_color(sign_of(reading.verdict).disc),
            .joins = reading.joins};
}

std::string time_of_day(std::int64_t moment) {
    return local_time_of_day(moment, QLocale()).toStdString();
}

} // namespace

TrendView::TrendView(QWidget* parent) : QWidget(parent) {
    announce_as(this, QAccessible::Graphic);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize TrendView::sizeHint() const {
    return scaled(QSize(600, 130), *this);
}

QSize TrendView::minimumSizeHint() const {
    return scaled(QSize(240, 112), *this);
}

void TrendView::show_trend(const Trend& trend) {
    m_trend = trend;
    m_instead.clear();
    m_points.clear();
    m_changes.clear();
    const TrendReading* before = nullptr;
    for (const TrendReading& reading : m_trend.readings) {
        m_points.push_back(point_of(reading));
        if (before != nullptr && before->verdict != reading.verdict)
            m_changes.push_back(m_points.back().time);
        before = &reading;
    }
    update();
    Q_EMIT pointed();
}

void TrendView::show_instead(const QString& words) {
    m_trend = {};
    m_points.clear();
    m_changes.clear();
    m_instead = words;
    setAccessibleDescription(words);
    point_at(std::nullopt);
    update();
}

TrendStrip TrendView::strip() const {
    return {.bounds = {0, 0, static_cast<double>(width()), static_cast<double>(height())},
            .from = static_cast<double>(m_trend.from),
            .to = static_cast<double>(m_trend.to),
            .points = m_points,
            .changes = m_changes,
            .pointer = m_pointer,
            .time_text = time_of_day,
            .decimal_point = QLocale().decimalPoint().toStdString()};
}

const TrendReading* TrendView::pointed_reading() const {
    if (!m_pointer || m_points.empty())
        return nullptr;
    const TrendStrip shown = strip();
    const TrendPoint* point = trend_point_at(shown, *m_pointer);
    return point == nullptr ? nullptr : &m_trend.readings[static_cast<std::size_t>(point - shown.points.data())];
}

void TrendView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    if (m_instead.isEmpty() && !m_points.empty()) {
        QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
        draw_trend(canvas, strip());
    } else {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        const int margin = fontMetrics().height();
        painter.drawText(rect().adjusted(margin, 0, -margin, 0), Qt::AlignCenter | Qt::TextWordWrap, m_instead);
    }
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Base);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void TrendView::point_at(const std::optional<double>& moment) {
    if (std::exchange(m_pointer, moment) == moment)
        return;
    update();
    Q_EMIT pointed();
}

void TrendView::mouseMoveEvent(QMouseEvent* event) {
    point_at(trend_moment_at(strip(), event->position().x()));
}

void TrendView::leaveEvent(QEvent*) {
    point_at(std::nullopt);
}

void TrendView::mousePressEvent(QMouseEvent* event) {
    event->accept(); // or the release never comes
}

void TrendView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT graph_wanted();
}

// From reading to reading; from nowhere to the newest one.
void TrendView::step(int readings) {
    if (m_points.empty())
        return;
    const auto last = static_cast<std::ptrdiff_t>(m_points.size()) - 1;
    std::ptrdiff_t at = last;
    if (m_pointer) {
        const auto after = std::ranges::upper_bound(m_points, *m_pointer, {}, &TrendPoint::time);
        at = std::clamp<std::ptrdiff_t>(after - m_points.begin() - 1 + readings, 0, last);
    }
    point_at(m_points[static_cast<std::size_t>(at)].time);
}

void TrendView::keyPressEvent(QKeyEvent* event) {
    constexpr int page = 30;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Q_EMIT graph_wanted();
        return;
    case Qt::Key_Left:
        return step(-1);
    case Qt::Key_Right:
        return step(1);
    case Qt::Key_PageUp:
        return step(-page);
    case Qt::Key_PageDown:
        return step(page);
    case Qt::Key_Home:
        return m_points.empty() ? void() : point_at(m_points.front().time);
    case Qt::Key_End:
        return m_points.empty() ? void() : point_at(m_points.back().time);
    case Qt::Key_Escape:
        return point_at(std::nullopt);
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace tickervantage
