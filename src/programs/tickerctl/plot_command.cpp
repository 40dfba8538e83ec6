#include "programs/tickerctl/plot_command.h"

#include "instruments/clock_performance.h"
#include "instruments/dial.h"
#include "platform/qt/picture_file.h"

#include <QSize>
#include <QString>
#include <QTime>

#include <algorithm>
#include <charconv>

namespace tickervantage {
namespace {

int write_instrument(const PlotOptions& options, const std::function<void(Canvas&, Rect)>& draw,
                     std::string& sentence) {
    PictureFormat format;
    format.width = options.width;
    format.height = options.height;
    format.scale = dial_magnification(std::min(options.width, options.height));
    format.colors = options.dark ? CanvasColors::dark() : CanvasColors::light();
    return write_picture(options.output, format, draw, sentence);
}

std::optional<int> whole_number(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

} // namespace

int parse_size(std::string_view text, PlotOptions& options) {
    const auto cross = text.find('x');
    if (cross == std::string_view::npos)
        return -1;
    const auto width = whole_number(text.substr(0, cross));
    const auto height = whole_number(text.substr(cross + 1));
    const auto possible = [](const auto& side) { return side && *side > 0 && *side <= LARGEST_PICTURE_SIDE; };
    if (!possible(width) || !possible(height))
        return -1;
    options.width = *width;
    options.height = *height;
    return 0;
}

std::optional<ClockTime> parse_clock_time(std::string_view text) {
    const QString typed = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (const auto* format : {"H:mm:ss", "H:mm"})
        if (const QTime time = QTime::fromString(typed, QLatin1String(format)); time.isValid())
            return ClockTime{time.hour(), time.minute(), time.second()};
    return std::nullopt;
}

int plot_meter(double value, bool per_second, const PlotOptions& options, std::string& sentence) {
    ClockPerformance meter;
    meter.setValue(value, per_second);
    return write_instrument(options, [&](Canvas& canvas, Rect bounds) { meter.draw(canvas, bounds); }, sentence);
}

int plot_clock(ClockTime time, const PlotOptions& options, std::string& sentence) {
    AnalogClockView clock([time] { return time; });
    return write_instrument(options, [&](Canvas& canvas, Rect bounds) { clock.draw(canvas, bounds); }, sentence);
}

} // namespace tickervantage
