#include "gui/tracking/readout_label.h"

#include <QEvent>

#include <algorithm>

namespace tickervantage {

ReadoutLabel::ReadoutLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    take_room();
}

void ReadoutLabel::reserve(const QString& longest) {
    m_longest = longest;
    take_room();
}

void ReadoutLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    take_room();
}

void ReadoutLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        take_room();
}

void ReadoutLabel::take_room() {
    constexpr int any_height = 10'000;
    const QFontMetrics font = fontMetrics();
    const QRect words =
        font.boundingRect(QRect(0, 0, width(), any_height), Qt::AlignCenter | Qt::TextWordWrap, m_longest);
    setFixedHeight(std::max(words.height(), 2 * font.lineSpacing()) + 2); // a sentence of two lines fits as well
}

} // namespace tickervantage
