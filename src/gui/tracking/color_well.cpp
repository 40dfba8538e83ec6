#include "gui/tracking/color_well.h"

#include "qt/canvas_colors.h"

#include <QColorDialog>
#include <QPainter>

namespace tickervantage {
namespace {

QColor to_qt(const Color& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

// By the eight-bit parts, so that a colour that was not changed reads back as it was.
Color from_qt(const QColor& color) {
    constexpr double full = 255;
    return {color.red() / full, color.green() / full, color.blue() / full, color.alpha() / full};
}

} // namespace

ColorWell::ColorWell(QWidget* parent) : QPushButton(parent) {
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, [this] { choose(); });
}

void ColorWell::set_color(const Color& color) {
    m_color = color;
    setAccessibleDescription(to_qt(color).name());
    update();
}

QSize ColorWell::sizeHint() const {
    const int height = fontMetrics().height();
    return {height * 3, height + 8};
}

void ColorWell::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    constexpr int border = 6;
    // As lines in it are drawn, so that they can be found again.
    const Color shown = CanvasColors::from_palette(palette()).readable(m_color);
    painter.fillRect(rect().adjusted(border, border, -border, -border), to_qt(shown));
}

void ColorWell::choose() {
    auto* dialog = new QColorDialog(to_qt(m_color), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(accessibleName());
    connect(dialog, &QColorDialog::colorSelected, this, [this](const QColor& chosen) {
        set_color(from_qt(chosen));
        Q_EMIT color_chosen();
    });
    dialog->open();
}

} // namespace tickervantage
