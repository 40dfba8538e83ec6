#include "cli/logs/plot_history.h"

#include "base/failure_codes.h"
#include "cli/logs/plot_chart.h"
#include "studies/history/history_files.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace tickervantage {
namespace {

struct PlotData {
    std::shared_ptr<const HistoryData> data;
    TimeRange range;
};

std::optional<TimeRange> extent_of_lanes(const HistoryData& data) {
    std::optional<TimeRange> all;
    for (const HistoryLane& lane : data.lanes()) {
        const TimeRange one{lane.stretches.front().range.from, lane.newest};
        all = all ? TimeRange{std::min(all->from, one.from), std::max(all->to, one.to)} : one;
    }
    return all;
}

Result<PlotData> read_plot(FollowedFiles& files, const std::vector<std::string>& paths, HistoryPanel panel) {
    const bool is_error = panel == HistoryPanel::error;
    const auto logs = find_logs(files, paths, is_error ? LogKind::tracking : LogKind::selection);
    if (!logs)
        return tl::unexpected(logs.error());
    LoadedHistory loaded = load_history(files, {.logs = paths});
    if (!loaded.log_problems.empty())
        return tl::unexpected(loaded.log_problems.front());
    const auto range = is_error ? loaded.data->extent() : extent_of_lanes(*loaded.data);
    if (!range)
        return failed(FailureCode::log_without_record, {logs->front().path});
    return PlotData{std::move(loaded.data), {range->from, std::max(range->to, range->from + 1)}};
}

PlotCaption caption_of(const HistoryView& view, const HistoryPlot& plot) {
    const auto moment = [](double time) {
        return local_date_time(static_cast<std::int64_t>(std::floor(time)));
    };
    PlotCaption caption{.title = plot.panel == HistoryPanel::error ? "Error of the clock" : "Sources of the clock",
                        .lines = {moment(view.range().from) + " to " + moment(view.range().to)},
                        .legend = {}};
    for (const std::string& path : plot.paths)
        caption.lines.front() += ", " + path;
    if (plot.compare)
        caption.lines.push_back("other: " + *plot.compare);
    if (plot.panel == HistoryPanel::error)
        for (const HistoryCurve& curve : view.curves())
            if (view.is_shown(curve))
                caption.legend.push_back({curve.color, curve.key});
    return caption;
}

} // namespace

Result<> plot_history(FollowedFiles& files, const HistoryPlot& plot, const PlotOptions& options) {
    const auto read = read_plot(files, plot.paths, plot.panel);
    if (!read)
        return tl::unexpected(read.error());
    HistoryView view;
    view.set_data(read->data);
    view.set_range(read->range);
    view.options.panels = {};
    view.options.panels[static_cast<std::size_t>(plot.panel)] = true;
    view.options.panels[static_cast<std::size_t>(HistoryPanel::difference)] = plot.panel == HistoryPanel::error;
    if (!plot.events)
        view.options.marks.fill(false);
    if (plot.compare) {
        const auto other = read_plot(files, {*plot.compare}, plot.panel);
        if (!other)
            return tl::unexpected(other.error());
        view.set_other(other->data);
        view.options.lanes = false; // lanes cannot be laid over each other
    }
    const auto draw = [&view](Canvas& canvas, Rect bounds) {
        view.draw(canvas, bounds);
    };
    return plot_chart(options, caption_of(view, plot), draw);
}

} // namespace tickervantage
