// A chart as a picture file, with its caption if one is wanted.
//
// Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "base/failure.h"
#include "cli/logs/plot_options.h"
#include "draw/plots/plot_caption.h"

#include <functional>
#include <string>

namespace tickervantage {

[[nodiscard]] Result<> plot_chart(const PlotOptions& options, const PlotCaption& caption,
                                  const std::function<void(Canvas&, Rect)>& draw);

} // namespace tickervantage
