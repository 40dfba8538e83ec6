// Drawings as picture files: PNG, SVG or PDF, by the file's suffix.
//
// Works without a display, but needs a QGuiApplication for its fonts. Waits for the disk; any thread on which the
// drawing may be drawn.
#pragma once

#include "base/failure.h"
#include "draw/plots/plot_caption.h"
#include "qt/canvas_colors.h"

#include <string>

namespace tickervantage {

struct PictureFormat {
    int width = 0; // pixels of a PNG, user units of an SVG; 96 an inch in a PDF
    int height = 0;
    double scale = 1; // pixels a point; the drawing gets width / scale by height / scale points
    CanvasColors colors = CanvasColors::light();
};

inline constexpr int LARGEST_PICTURE_SIDE = 16384;

// Draws over the text background's colour and writes beside the file before taking its place, so that a file that was
// there stays whole if anything fails.
[[nodiscard]] Result<> write_picture(const std::string& path, const PictureFormat& format, const DrawPlot& draw);

} // namespace tickervantage
