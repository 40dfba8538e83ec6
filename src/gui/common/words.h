// Small things that the windows of this folder share: words that warn, and room for words.
#pragma once

#include "qt/named_widget.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPalette>
#include <QString>

namespace tickervantage {

// Red enough to be read, on a light window and on a dark one.
[[nodiscard]] inline QColor alarm_color(const QPalette& surrounding) {
    constexpr int half = 128;
    const bool dark = surrounding.color(QPalette::Window).lightness() < half;
    return dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20);
}

inline void set_alarmed(QLabel* label, bool alarmed) {
    QPalette palette; // what it does not say is inherited
    // The program's palette: that of a widget may still be the former one while a change is on its way.
    if (alarmed)
        palette.setColor(QPalette::WindowText, alarm_color(QGuiApplication::palette()));
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
