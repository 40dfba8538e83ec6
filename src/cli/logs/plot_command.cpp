#include "cli/logs/plot_command.h"

#include "draw/instruments/clock_performance.h"
#include "draw/instruments/dial.h"
#include "qt/picture_file.h"

#include <algorithm>
#include <functional>

namespace tickervantage {

static_assert(largest_plot_side <= LARGEST_PICTURE_SIDE);

namespace {

Result<> write_instrument(const PlotOptions& options, const std::function<void(Canvas&, Rect)>& draw) {
    PictureFormat format;
    format.width = options.width;
    format.height = options.height;
    format.scale = dial_magnification(std::min(options.width, options.height));
    format.colors = options.dark ? CanvasColors::dark() : CanvasColors::light();
    return write_picture(options.output, format, draw);
}

} // namespace

Result<> plot_meter(double value, bool per_second, const PlotOptions& options) {
    ClockPerformance meter;
    meter.setValue(value, per_second);
    return write_instrument(options, [&](Canvas& canvas, Rect bounds) { meter.draw(canvas, bounds); });
}

Result<> plot_clock(ClockTime time, const PlotOptions& options) {
    AnalogClockView clock([time] { return time; });
    return write_instrument(options, [&](Canvas& canvas, Rect bounds) { clock.draw(canvas, bounds); });
}

} // namespace tickervantage
