#include "gui/main/main_area.h"

#include "gui/main/verdict_panel.h"
#include "qt/text_scale.h"

#include <QDataStream>
#include <QIODevice>
#include <QMap>
#include <QResizeEvent>
#include <QSplitter>
#include <QTimer>

#include <algorithm>

namespace tickervantage {
namespace {

// Points.
constexpr int wide_enough = 1080; // for two halves
constexpr int least_side = 440;   // of the half with the instruments

constexpr double sources_share = 0.65; // they need more than the instruments
constexpr double trend_share = 0.24;   // of the height

QByteArray state_of(const QWidget& area) {
    QMap<QString, QByteArray> states;
    for (const auto* splitter : area.findChildren<QSplitter*>())
        states.insert(splitter->objectName(), splitter->saveState());
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << states;
    return bytes;
}

void restore_state(const QWidget& area, const QByteArray& bytes) {
    QMap<QString, QByteArray> states;
    QDataStream stream(bytes);
    stream >> states;
    for (auto* splitter : area.findChildren<QSplitter*>()) {
        const auto orientation = splitter->orientation();
        splitter->restoreState(states.value(splitter->objectName())); // of what is no state nothing comes
        splitter->setOrientation(orientation);
    }
}

} // namespace

MainArea::MainArea(QWidget* parent) : QScrollArea(parent) {
    setObjectName(QStringLiteral("main_area"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

void MainArea::adapt(const MainSplitters& splitters, VerdictPanel& verdict) {
    m_splitters = splitters;
    m_verdict = &verdict;
}

QSize MainArea::minimumSizeHint() const {
    return scaled(QSize(560, 240), *this);
}

QSize MainArea::sizeHint() const {
    return scaled(QSize(1180, 720), *this);
}

QByteArray MainArea::layout_state() const {
    std::array<QByteArray, 2> states = m_states;
    const bool is_wide = m_splitters.halves->orientation() == Qt::Horizontal;
    if (m_is_set_out)
        states.at(is_wide ? 1 : 0) = state_of(*this);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << states[0] << states[1];
    return bytes;
}

void MainArea::restore_layout(const QByteArray& state) {
    QDataStream stream(state);
    stream >> m_states[0] >> m_states[1];
}

// Once the halves have the width that they are to share.
void MainArea::share_width() {
    auto* halves = m_splitters.halves;
    const bool is_wide = halves->orientation() == Qt::Horizontal;
    const QByteArray& kept = m_states.at(is_wide ? 1 : 0);
    if (!kept.isEmpty()) {
        restore_state(*this, kept);
        return;
    }
    if (!is_wide)
        return;
    const int rows = m_splitters.rows->height();
    const int trend = static_cast<int>(rows * trend_share);
    m_splitters.rows->setSizes({trend, rows - trend});
    const int side = std::max(static_cast<int>(halves->width() * (1 - sources_share)), scaled(least_side, *halves));
    halves->setSizes({halves->width() - side, side});
}

void MainArea::set_out(int width) {
    const bool wide = width >= scaled(wide_enough, *this);
    const auto orientation = wide ? Qt::Horizontal : Qt::Vertical;
    m_verdict->set_wide(wide);
    if (m_splitters.halves->orientation() == orientation && m_is_set_out)
        return;
    if (m_is_set_out)
        m_states.at(wide ? 0 : 1) = state_of(*this);
    m_splitters.halves->setOrientation(orientation);
    m_is_set_out = true;
    QTimer::singleShot(0, this, &MainArea::share_width);
}

void MainArea::resizeEvent(QResizeEvent* event) {
    if (m_splitters.halves != nullptr)
        set_out(event->size().width()); // before the widget takes its size, which follows from this
    QScrollArea::resizeEvent(event);
}

} // namespace tickervantage
