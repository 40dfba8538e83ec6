// Sizes that follow the user's font: a window laid out for small letters would cut large ones off.
#pragma once

#include <QComboBox>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace tickervantage {

// How many times larger the widget's letters are than those the pixel counts of this program were chosen with.
[[nodiscard]] inline double text_scale(const QWidget& widget) {
    constexpr double usual_line = 15; // pixels, of a font of nine points
    return std::max(1.0, widget.fontMetrics().height() / usual_line);
}

[[nodiscard]] inline int scaled(int length, const QWidget& widget) {
    return static_cast<int>(std::lround(length * text_scale(widget)));
}

// The size of a window; one that grows, grows no larger than its screen.
[[nodiscard]] inline QSize scaled(QSize size, const QWidget& window) {
    if (text_scale(window) <= 1)
        return size;
    const QSize wanted(scaled(size.width(), window), scaled(size.height(), window));
    return window.screen() != nullptr ? wanted.boundedTo(window.screen()->availableSize()) : wanted;
}

// A box that shows all of its longest entry, once it holds them: styles leave no room for how letters overhang and
// measure the arrow for small ones, so that the last letter of large ones is cut off.
inline void fit_entries(QComboBox* box) {
    box->setMinimumWidth(box->sizeHint().width() + 2 * box->fontMetrics().averageCharWidth());
}

} // namespace tickervantage
