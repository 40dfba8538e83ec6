#include "programs/tickerctl/plot_freqtemp.h"

#include "platform/qt/picture_file.h"

namespace tickervantage {

int plot_freqtemp(const FreqTempView& view, const PlotOptions& options, std::string& sentence) {
    PictureFormat format;
    format.width = options.width;
    format.height = options.height;
    format.colors = options.dark ? CanvasColors::dark() : CanvasColors::light();
    return write_picture(
        options.output, format, [&view](Canvas& canvas, Rect bounds) { view.draw(canvas, bounds); }, sentence);
}

} // namespace tickervantage
