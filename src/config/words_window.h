// Small things that the windows of this folder share: naming a widget, and words that warn.
#pragma once

#include <QGuiApplication>
#include <QLabel>
#include <QPalette>
#include <QString>

#include <string_view>

namespace tickervantage {

template <typename Widget>
Widget* named(Widget* widget, const char* object_name, const QString& accessible_name, const QString& tooltip) {
    widget->setObjectName(QLatin1String(object_name));
    widget->setAccessibleName(accessible_name);
    widget->setToolTip(tooltip);
    return widget;
}

[[nodiscard]] inline QString from_std(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Red enough to be seen, on a light window and on a dark one.
inline void set_alarmed(QLabel* label, bool alarmed) {
    QPalette palette; // what it does not say is inherited
    constexpr int half = 128;
    // The program's palette: that of a widget may still be the former one while a change is on its way.
    const bool dark = QGuiApplication::palette().color(QPalette::Window).lightness() < half;
    if (alarmed)
        palette.setColor(QPalette::WindowText, dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20));
    label->setPalette(palette);
}

// Words below a field. The room for so many lines is always there: nothing moves while somebody types.
[[nodiscard]] inline QLabel* words_below(QWidget* parent, const char* object_name, int lines) {
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(object_name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setFixedHeight(lines * label->fontMetrics().lineSpacing() + 2);
    return label;
}

} // namespace tickervantage
