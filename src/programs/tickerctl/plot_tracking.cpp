#include "programs/tickerctl/plot_tracking.h"

#include "chrony/log_pieces.h"
#include "graphs/tracking_line.h"
#include "graphs/tracking_rows.h"
#include "graphs/tracking_view.h"
#include "platform/qt/picture_file.h"
#include "platform/repeater.h"
#include "programs/tickerctl/terminal.h"

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

int plot_tracking(FollowedFiles& files, const TrackingPlot& plot, const PlotOptions& options, std::string& sentence) {
    StillTimer timer;
    TrackingView view({.master_timer = timer, .now = [] {
                           return 0.0;
                       }});
    const auto add = [&view](std::string_view line) {
        (void)view.add_line(line); // what is no data line is no record
    };
    if (read_log(files, plot.log, add, sentence) != 0)
        return failed;
    if (view.records().empty()) {
        sentence = fmt::format("The tracking log {} has no record.", plot.log);
        return answer_is_no;
    }
    set_up(view, plot, options.width);
    PictureFormat format;
    format.width = options.width;
    format.height = options.height;
    format.colors = options.dark ? CanvasColors::dark() : CanvasColors::light();
    const auto draw = [&view](Canvas& canvas, Rect bounds) {
        draw_newest(view, canvas, bounds);
    };
    return write_picture(options.output, format, draw, sentence) == 0 ? 0 : failed;
}

} // namespace tickervantage
