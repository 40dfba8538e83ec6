#include "gui/editor/check_image.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace tickervantage {
namespace {

constexpr int SIDE = 16;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configeditor)
};

// Those of the main window's status images.
QColor color_of(CheckImage image) {
    switch (image) {
    case CheckImage::partially_available:
        return {0xe8, 0xa3, 0x17};
    case CheckImage::available:
        return {0x1e, 0x8e, 0x3e};
    default:
        return {0xc6, 0x28, 0x28};
    }
}

// A tick, a cross, or a bar.
QPainterPath mark_of(CheckImage image) {
    QPainterPath path;
    switch (image) {
    case CheckImage::partially_available:
        path.moveTo(5, 8);
        path.lineTo(11, 8);
        break;
    case CheckImage::available:
        path.moveTo(4.5, 8.5);
        path.lineTo(7, 11);
        path.lineTo(11.5, 5.5);
        break;
    default:
        path.moveTo(5.2, 5.2);
        path.lineTo(10.8, 10.8);
        path.moveTo(10.8, 5.2);
        path.lineTo(5.2, 10.8);
    }
    return path;
}

QPixmap pixmap_of(CheckImage image, int scale) {
    QPixmap pixmap(SIDE * scale, SIDE * scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color_of(image));
    painter.drawEllipse(QRectF(1, 1, SIDE - 2, SIDE - 2));
    painter.setBrush(Qt::NoBrush);
    const QColor mark = image == CheckImage::partially_available ? Qt::black : Qt::white;
    painter.setPen(QPen(mark, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(mark_of(image));
    return pixmap;
}

} // namespace

QIcon icon_of(CheckImage image) {
    QIcon icon;
    for (const int scale : {1, 2, 3})
        for (const auto mode : {QIcon::Normal, QIcon::Disabled}) // a state does not fade with its button
            icon.addPixmap(pixmap_of(image, scale), mode);
    return icon;
}

QString words_of(CheckImage image) {
    switch (image) {
    case CheckImage::partially_available:
        //: configuration editor: state of the text
        return Texts::tr("Not checked");
    case CheckImage::available:
        //: configuration editor: state of the text
        return Texts::tr("Syntax OK");
    default:
        //: configuration editor: state of the text
        return Texts::tr("Syntax error");
    }
}

} // namespace tickervantage
