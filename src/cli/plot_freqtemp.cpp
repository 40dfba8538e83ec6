#include "cli/plot_freqtemp.h"

#include "cli/plot_chart.h"

namespace tickervantage {

int plot_freqtemp(const FreqTempView& view, const PlotOptions& options, std::string& sentence) {
    PlotCaption caption{.title = "Frequency against temperature", .lines = {}, .legend = {}};
    view.for_each_shown([&](const std::string& sensor, const Color& color) {
        caption.legend.push_back({color, sensor});
    });
    const auto draw = [&view](Canvas& canvas, Rect bounds) {
        view.draw(canvas, bounds);
    };
    return plot_chart(options, caption, draw, sentence);
}

} // namespace tickervantage
