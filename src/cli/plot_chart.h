// A chart as a picture file, with its caption if one is wanted.
//
// 0; or -1 with one sentence. Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "cli/plot_options.h"
#include "draw/plots/plot_caption.h"

#include <functional>
#include <string>

namespace tickervantage {

[[nodiscard]] int plot_chart(const PlotOptions& options, const PlotCaption& caption,
                             const std::function<void(Canvas&, Rect)>& draw, std::string& sentence);

} // namespace tickervantage
