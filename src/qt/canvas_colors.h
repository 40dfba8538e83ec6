// What the colour roles of a canvas look like in a light or dark surrounding.
//
// A plain record; making one from a palette is cheap. Main thread.
#pragma once

#include "draw/canvas.h"

#include <QColor>

class QPalette;

namespace tickervantage {

struct CanvasColors {
    QColor text;
    QColor text_background;
    QColor blue;
    QColor red;
    QColor grey;
    QColor shadow; // translucent

    [[nodiscard]] const QColor& of(ColorRole role) const;

    // As Canvas::readable says, on `text_background`.
    [[nodiscard]] Color readable(const Color& line) const;

    // The user's own colours; the hues are lightened or darkened until they can be read on the palette's base.
    [[nodiscard]] static CanvasColors from_palette(const QPalette& palette);

    // The same in every surrounding, for pictures.
    [[nodiscard]] static CanvasColors light();
    [[nodiscard]] static CanvasColors dark();
};

// The ratio of luminances as WCAG 2 counts it: 1 for equal colours, 21 for black on white.
[[nodiscard]] double contrast_ratio(const QColor& one, const QColor& other);

} // namespace tickervantage
