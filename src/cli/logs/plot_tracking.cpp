#include "cli/logs/plot_tracking.h"

#include "base/failure_codes.h"
#include "base/repeater.h"
#include "chrony/log/log_pieces.h"
#include "chrony/log/tracking_line.h"
#include "cli/logs/plot_chart.h"
#include "studies/tracking/tracking_rows.h"
#include "studies/tracking/tracking_view.h"

#include <fmt/format.h>

#include <memory>
#include <sstream>

namespace tickervantage {
namespace {

// A picture does not move.
class StillTimer : public MasterTimer {
    class StillRepeater : public Repeater {
        void start(double, std::function<void()>) override {}
        void stop() override {}
        [[nodiscard]] bool is_running() const override { return false; }
    };

public:
    void start() override {}
    void stop() override {}
    std::unique_ptr<Repeater> make_repeater(std::string_view, Pace) override {
        return std::make_unique<StillRepeater>();
    }
};

void set_up(TrackingView& view, const TrackingPlot& plot, double width) {
    view.shown = plot.settings.legend.shown;
    view.colors = plot.settings.legend.colors;
    view.use_logscale = plot.settings.legend.use_logscale;
    view.set_vertical_zoom(plot.settings.vZoom);
    view.set_vertical_scale(plot.settings.vScale);
    view.set_horizontal_zoom(plot.settings.hZoom);
    if (plot.hours)
        view.xscale = (width - view.xaxis_offset) / (*plot.hours * 3600);
    view.pauseTime = static_cast<double>(plot.end.value_or(view.records().time(view.records().size() - 1)));
}

// The right edge of the graph, and as much above the zero line as below it.
void draw_newest(TrackingView& view, Canvas& canvas, Rect bounds) {
    const Rect frame = view.resizeFrame(bounds, bounds);
    view.drawRect(canvas, {0, 0, frame.width, frame.height},
                  {frame.width - bounds.width, (frame.height - bounds.height) / 2, bounds.width, bounds.height});
}

PlotCaption caption_of(const TrackingView& view, const std::string& log, double width) {
    const double seconds = (width - view.xaxis_offset) / view.xscale;
    PlotCaption caption{.title = log,
                        .lines = {fmt::format("{} to {}", local_date_time(to_integer(view.right_end() - seconds)),
                                              local_date_time(to_integer(view.right_end())))},
                        .legend = {}};
    for (std::size_t i = 0; i < series_count; ++i)
        if (view.shown[i])
            caption.legend.push_back({view.colors[i], std::string(series_name(static_cast<Series>(i)))});
    return caption;
}

} // namespace

std::optional<LogTime> parse_log_time(const std::string& text) {
    constexpr std::size_t date_length = 10;
    constexpr std::size_t time_length = 8;
    const bool zulu = text.size() == date_length + 1 + time_length + 1 && text.back() == 'Z';
    if (!zulu && text.size() != date_length + 1 + time_length)
        return std::nullopt;
    if (text[date_length] != (zulu ? 'T' : ' '))
        return std::nullopt;
    return log_time(std::string_view(text).substr(0, date_length),
                    std::string_view(text).substr(date_length + 1, time_length));
}

int choose_series(const std::string& names, popover_settings& legend) {
    std::array<bool, series_count> shown{};
    std::istringstream parts(names);
    for (std::string name; std::getline(parts, name, ',');) {
        std::size_t series = 0;
        while (series < series_count && series_name(static_cast<Series>(series)) != name)
            ++series;
        if (series == series_count)
            return -1;
        shown[series] = true;
    }
    legend.shown = shown;
    return 0;
}

Result<> plot_tracking(FollowedFiles& files, const TrackingPlot& plot, const PlotOptions& options) {
    StillTimer timer;
    TrackingView view({.master_timer = timer, .now = [] {
                           return 0.0;
                       }});
    const auto add = [&view](std::string_view line) {
        (void)view.add_line(line); // what is no data line is no record
    };
    if (auto read = read_log(files, plot.log, add); !read)
        return read;
    if (view.records().empty())
        return failed(FailureCode::log_without_record, {plot.log});
    set_up(view, plot, options.width);
    const auto draw = [&view](Canvas& canvas, Rect bounds) {
        draw_newest(view, canvas, bounds);
    };
    return plot_chart(options, caption_of(view, plot.log, options.width), draw);
}

} // namespace tickervantage
