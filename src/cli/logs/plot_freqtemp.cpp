#include "cli/logs/plot_freqtemp.h"

#include "cli/logs/plot_chart.h"

namespace tickervantage {

Result<> plot_freqtemp(const FreqTempView& view, const PlotOptions& options) {
    PlotCaption caption{.title = "Frequency against temperature", .lines = {}, .legend = {}};
    view.for_each_shown([&](const std::string& sensor, const Color& color) {
        caption.legend.push_back({color, sensor});
    });
    const auto draw = [&view](Canvas& canvas, Rect bounds) {
        view.draw(canvas, bounds);
    };
    return plot_chart(options, caption, draw);
}

} // namespace tickervantage
