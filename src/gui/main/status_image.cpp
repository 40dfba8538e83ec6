#include "gui/main/status_image.h"

#include "qt/accessible_widgets.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

namespace tickervantage {
namespace {

QColor disc_color(chronydStatus status) {
    switch (status) {
    case chronydStatus::synchronised:
        return {0x1e, 0x8e, 0x3e};
    case chronydStatus::notlocked:
        return {0xe8, 0xa3, 0x17};
    case chronydStatus::unavailable:
        break;
    }
    return {0xc6, 0x28, 0x28};
}

// The sign on the disc, in a square of side 32 with y down: a tick, a wave that has not settled, a cross.
QPainterPath sign(chronydStatus status) {
    QPainterPath path;
    switch (status) {
    case chronydStatus::synchronised:
        path.moveTo(9, 16.5);
        path.lineTo(14, 21.5);
        path.lineTo(23, 11);
        break;
    case chronydStatus::notlocked:
        path.moveTo(8, 17);
        path.cubicTo(11, 9, 13, 9, 16, 16);
        path.cubicTo(19, 23, 21, 23, 24, 15);
        break;
    case chronydStatus::unavailable:
        path.moveTo(11, 11);
        path.lineTo(21, 21);
        path.moveTo(21, 11);
        path.lineTo(11, 21);
        break;
    }
    return path;
}

} // namespace

StatusImage::StatusImage(chronydStatus status, QWidget* parent) : QWidget(parent), m_status(status) {
    announce_as(this, QAccessible::Graphic);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    //: main window: name of the image beside the words for the daemon's state
    setAccessibleName(QCoreApplication::translate("status", "State of chronyd"));
    setAccessibleDescription(status_words(status));
    setToolTip(status_words(status));
}

QSize StatusImage::sizeHint() const {
    const int side = fontMetrics().height() * 2;
    return {side, side};
}

void StatusImage::paintEvent(QPaintEvent*) {
    constexpr double design_side = 32;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = std::min(width(), height()) / design_side;
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc_color(m_status));
    painter.drawEllipse(QRectF(1, 1, design_side - 2, design_side - 2));
    const QColor sign_color = m_status == chronydStatus::notlocked ? QColor(Qt::black) : QColor(Qt::white);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sign_color, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(sign(m_status));
}

QString status_words(chronydStatus status) {
    switch (status) {
    case chronydStatus::synchronised:
        //: main window: state of the daemon
        return QCoreApplication::translate("status", "Synchronised");
    case chronydStatus::notlocked:
        //: main window: state of the daemon; it runs but follows no source yet
        return QCoreApplication::translate("status", "Not synchronised");
    case chronydStatus::unavailable:
        break;
    }
    //: main window: state of the daemon; it gave no usable answer
    return QCoreApplication::translate("status", "Not available");
}

} // namespace tickervantage
