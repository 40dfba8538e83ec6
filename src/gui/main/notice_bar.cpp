#include "gui/main/notice_bar.h"

#include "draw/canvas.h"
#include "qt/canvas_colors.h"

#include <QHBoxLayout>
#include <QPainter>

namespace tickervantage {
namespace {

constexpr int edge = 4; // points
constexpr int radius = 4;
constexpr int across = 8;
constexpr int down = 6;

QColor color_of(NoticeTone tone, const QPalette& palette) {
    switch (tone) {
    case NoticeTone::hint:
        break;
    case NoticeTone::doubt:
        return {0xe8, 0xa3, 0x17};
    case NoticeTone::harm:
        return {0xc6, 0x28, 0x28};
    }
    return CanvasColors::from_palette(palette).blue;
}

} // namespace

NoticeBar::NoticeBar(QWidget* parent, NoticeTone tone) : QFrame(parent), m_tone(tone), m_row(new QHBoxLayout(this)) {
    m_row->setContentsMargins(edge + across, down, across, down);
    m_row->setSpacing(across);
}

void NoticeBar::set_tone(NoticeTone tone) {
    m_tone = tone;
    update();
}

void NoticeBar::add(QWidget* words) {
    m_row->addWidget(words, 1);
}

void NoticeBar::add_button(QWidget* button) {
    m_row->addWidget(button, 0, Qt::AlignVCenter);
}

// A tint of the edge's colour, so that it fits light and dark surroundings.
void NoticeBar::paintEvent(QPaintEvent*) {
    constexpr double tint = 0.13;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor color = color_of(m_tone, palette());
    painter.setClipRect(QRect(0, 0, edge, height()));
    painter.setBrush(color);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setClipRect(rect().adjusted(edge, 0, 0, 0));
    color.setAlphaF(static_cast<float>(tint));
    painter.setBrush(color);
    painter.drawRoundedRect(rect(), radius, radius);
}

} // namespace tickervantage
