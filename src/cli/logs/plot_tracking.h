// What `tickerctl plot tracking` does: the tracking graph of a log as a picture, drawn as the tracking window draws it.
#pragma once

#include "base/failure.h"
#include "cli/logs/plot_options.h"
#include "studies/tracking/tracking_settings.h"

#include <optional>
#include <string>

namespace tickervantage {

class FollowedFiles;

struct TrackingPlot {
    std::string log;             // a path
    TrackingSettings settings;   // series, colours, scales; the time range is not looked at
    std::optional<double> hours; // of history, which then fills the width; none: by the horizontal zoom
    std::optional<LogTime> end;  // the moment at the time origin; none: the log's last record
};

// "2026-11-21T02:15:03Z" or "2026-11-21 02:15:03", in UTC.
[[nodiscard]] std::optional<LogTime> parse_log_time(const std::string& text);

// Switches on exactly the series named, separated by commas, as series_name has them. -1: one of them is none.
[[nodiscard]] int choose_series(const std::string& names, popover_settings& legend);

// Needs a QGuiApplication. Waits for the disk.
[[nodiscard]] Result<> plot_tracking(FollowedFiles& files, const TrackingPlot& plot, const PlotOptions& options);

} // namespace tickervantage
