#include "programs/tickerctl/plot_spectrum.h"

#include "platform/qt/picture_file.h"
#include "spectrum/spectrum_view.h"

#include <memory>
#include <utility>

namespace tickervantage {

int plot_spectrum(ComputedSpectrum spectrum, const PlotOptions& options, std::string& sentence) {
    SpectrumView view;
    view.set_spectrum(std::make_shared<const ComputedSpectrum>(std::move(spectrum)));
    PictureFormat format;
    format.width = options.width;
    format.height = options.height;
    format.colors = options.dark ? CanvasColors::dark() : CanvasColors::light();
    return write_picture(
        options.output, format, [&view](Canvas& canvas, Rect bounds) { view.draw(canvas, bounds); }, sentence);
}

} // namespace tickervantage
