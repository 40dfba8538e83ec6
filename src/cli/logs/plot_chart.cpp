#include "cli/logs/plot_chart.h"

#include "qt/picture_file.h"

namespace tickervantage {

Result<> plot_chart(const PlotOptions& options, const PlotCaption& caption,
                    const std::function<void(Canvas&, Rect)>& draw) {
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

} // namespace tickervantage
