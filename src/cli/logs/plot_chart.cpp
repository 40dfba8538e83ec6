#include "cli/logs/plot_chart.h"

#include "base/local_clock.h"
#include "qt/picture_file.h"
#include "studies/spectrum/spectrum_view.h"

#include <fmt/format.h>

#include <memory>
#include <utility>

namespace tickervantage {
namespace {

PlotCaption caption_of(const ComputedSpectrum& spectrum) {
    PlotCaption caption{.title = fmt::format("Spectrum: {}", spectrum_series_name(spectrum.series)),
                        .lines = {fmt::format("{} s up to {}, a sample every {} s",
                                              spectrum.interval * static_cast<double>(spectrum.count),
                                              local_date_time(spectrum.newest), spectrum.interval),
                                  "Shaded: mirror image of the left half"},
                        .legend = {}};
    if (const std::string doubt = doubt_of(spectrum); !doubt.empty())
        caption.lines.push_back(doubt);
    return caption;
}

} // namespace

Result<> plot_chart(const PlotOptions& options, const PlotCaption& caption, const DrawPlot& draw) {
    PictureFormat format;
    format.width = options.width;
    format.height = options.height;
    format.colors = options.dark ? CanvasColors::dark() : CanvasColors::light();
    if (!options.caption)
        return write_picture(options.output, format, draw);
    const auto captioned = [&](Canvas& canvas, Rect bounds) {
        draw_captioned(canvas, bounds, caption, draw);
    };
    return write_picture(options.output, format, captioned);
}

Result<> plot_freqtemp(const FreqTempView& view, const PlotOptions& options) {
    PlotCaption caption{.title = "Frequency against temperature", .lines = {}, .legend = {}};
    for (const auto& [sensor, color] : view.shown())
        caption.legend.push_back({color, sensor});
    const auto draw = [&view](Canvas& canvas, Rect bounds) {
        view.draw(canvas, bounds);
    };
    return plot_chart(options, caption, draw);
}

Result<> plot_spectrum(ComputedSpectrum spectrum, const PlotOptions& options) {
    const PlotCaption caption = caption_of(spectrum);
    SpectrumView view;
    view.set_spectrum(std::make_shared<const ComputedSpectrum>(std::move(spectrum)));
    const auto draw = [&view](Canvas& canvas, Rect bounds) {
        view.draw(canvas, bounds);
    };
    return plot_chart(options, caption, draw);
}

} // namespace tickervantage
