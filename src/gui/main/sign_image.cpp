#include "gui/main/sign_image.h"

#include "qt/accessible_widgets.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

const QColor good(0x1e, 0x8e, 0x3e);
const QColor doubtful(0xe8, 0xa3, 0x17);
const QColor bad(0xc6, 0x28, 0x28);

void add_line(QPainterPath& path, QPointF from, QPointF to) {
    path.moveTo(from);
    path.lineTo(to);
}

} // namespace

DiscSign disc_signs::tick() {
    QPainterPath path;
    path.moveTo(9, 16.5);
    path.lineTo(14, 21.5);
    path.lineTo(23, 11);
    return {good, Qt::white, path};
}

DiscSign disc_signs::wave() {
    QPainterPath path;
    path.moveTo(8, 17);
    path.cubicTo(11, 9, 13, 9, 16, 16);
    path.cubicTo(19, 23, 21, 23, 24, 15);
    return {doubtful, Qt::black, path};
}

DiscSign disc_signs::cross() {
    QPainterPath path;
    add_line(path, {11, 11}, {21, 21});
    add_line(path, {21, 11}, {11, 21});
    return {bad, Qt::white, path};
}

DiscSign disc_signs::pause() {
    QPainterPath path;
    add_line(path, {12, 10}, {12, 22});
    add_line(path, {20, 10}, {20, 22});
    return {doubtful, Qt::black, path};
}

DiscSign disc_signs::arrow() {
    QPainterPath path;
    add_line(path, {8, 16}, {23, 16});
    add_line(path, {17, 10}, {23, 16});
    add_line(path, {17, 22}, {23, 16});
    return {doubtful, Qt::black, path};
}

DiscSign disc_signs::clock() {
    QPainterPath path;
    path.addEllipse(QRectF(8, 8, 16, 16));
    add_line(path, {16, 11.5}, {16, 16});
    add_line(path, {16, 16}, {19.5, 16});
    return {doubtful, Qt::black, path};
}

DiscSign disc_signs::plus_minus() {
    QPainterPath path;
    add_line(path, {16, 8}, {16, 18});
    add_line(path, {11, 13}, {21, 13});
    add_line(path, {11, 23}, {21, 23});
    return {good, Qt::white, path};
}

SignImage::SignImage(QWidget* parent, double lines) : QWidget(parent), m_lines(lines) {
    announce_as(this, QAccessible::Graphic);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SignImage::show_sign(const DiscSign& sign, const QString& meaning) {
    m_sign = sign;
    setAccessibleDescription(meaning);
    setToolTip(meaning);
    update();
}

QSize SignImage::sizeHint() const {
    const int side = static_cast<int>(std::lround(fontMetrics().height() * m_lines));
    return {side, side};
}

void paint_sign(QPainter& painter, const DiscSign& sign, double side) {
    constexpr double design_side = 32;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / design_side, side / design_side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(sign.disc);
    painter.drawEllipse(QRectF(1, 1, design_side - 2, design_side - 2));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sign.ink, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(sign.path);
}

void SignImage::paintEvent(QPaintEvent*) {
    if (m_sign.path.isEmpty())
        return; // nothing is known yet
    QPainter painter(this);
    paint_sign(painter, m_sign, std::min(width(), height()));
}

} // namespace tickervantage
