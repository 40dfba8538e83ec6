// What `tickerctl plot error` and `tickerctl plot sources` do: a panel of the history window as a picture, of logs.
#pragma once

#include "base/failure.h"
#include "cli/logs/plot_options.h"
#include "studies/history/history_view.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class FollowedFiles;

struct HistoryPlot {
    HistoryPanel panel = HistoryPanel::error; // or sources
    std::vector<std::string> paths;           // logs, and folders of them
    bool events = false;                      // with flags where something happened
    std::optional<std::string> compare;       // other logs, laid over
};

// Needs a QGuiApplication. Waits for the disk.
[[nodiscard]] Result<> plot_history(FollowedFiles& files, const HistoryPlot& plot, const PlotOptions& options);

} // namespace tickervantage
