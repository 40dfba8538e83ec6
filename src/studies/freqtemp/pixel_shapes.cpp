#include "draw/canvas_pixels.h"
#include "draw/clipping.h"
#include "draw/coverage_layer.h"
#include "studies/freqtemp/dot_counts.h"
#include "studies/freqtemp/plot_shapes.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tickervantage {
namespace {

constexpr int DISC_SLICES = 8;

// From a value straight to a pixel: with very many points their places in between cost as much as painting them.
class ValueToPixel {
public:
    // Where two values lie.
    ValueToPixel(double low, double place_of_low, double high, double place_of_high)
        : m_low(low), m_place(place_of_low), m_step((place_of_high - place_of_low) / (high - low)) {}

    [[nodiscard]] double at(double value) const { return m_place + (value - m_low) * m_step; }

private:
    double m_low;
    double m_place;
    double m_step;
};

class PixelShapes : public PlotShapes {
public:
    PixelShapes(const CanvasPixels& pixels, const FreqTempScale& scale) : m_pixels(pixels), m_scale(scale) {
        m_layer.resize(pixels.width, pixels.height);
    }

    void squares(const scatterEntry& entry, double side, const Color& color) override {
        const int pixels = std::max(1, static_cast<int>(std::lround(side * m_pixels.scale_x)));
        if (!m_counts)
            m_counts.emplace(m_pixels.width, m_pixels.height, pixels);
        const auto& ranges = m_scale.ranges;
        const freqPoint low{ranges.min_temp, ranges.min_freq};
        const freqPoint high{std::max(ranges.max_temp, ranges.min_temp + 1),
                             std::max(ranges.max_freq, ranges.min_freq + 1)};
        const Point from = placed(m_scale.place(low));
        const Point to = placed(m_scale.place(high));
        const ValueToPixel x(low.temperature, from.x, high.temperature, to.x);
        const ValueToPixel y(low.frequency, from.y, high.frequency, to.y);
        for_each_dot(entry, [&, &counts = *m_counts](freqPoint point, unsigned count) {
            counts.add(x.at(point.temperature), y.at(point.frequency), count);
        });
        m_counts->paint(color, m_pixels.rows);
    }

    void band(std::span<const Point> upper, std::span<const Point> lower, const Color& color) override {
        use(color);
        for (std::size_t i = 1; i < upper.size(); ++i)
            slice(placed(upper[i - 1]), placed(upper[i]), placed(lower[i - 1]).y, placed(lower[i]).y);
    }

    void line(std::span<const Point> corners, double width, const Color& color) override {
        use(color);
        for (const auto& part : clipped_line(corners, m_scale.area))
            for (std::size_t i = 1; i < part.size(); ++i)
                m_layer.add_line(placed(part[i - 1]), placed(part[i]), width * m_pixels.scale_x);
    }

    // Slices that lie upon each other.
    void disc(Point center, double diameter, const Color& color) override {
        use(color);
        const Point middle = placed(center);
        const double radius = diameter / 2 * m_pixels.scale_x;
        const double thickness = 2 * radius / DISC_SLICES;
        for (int i = 0; i < DISC_SLICES; ++i) {
            const double above = -radius + (i + 0.5) * thickness;
            const double half = std::sqrt(radius * radius - above * above);
            m_layer.add_line({middle.x - half, middle.y + above}, {middle.x + half, middle.y + above}, thickness);
        }
    }

    void end_entry() override {
        m_layer.paint(m_pixels.rows);
        m_color.reset();
    }

private:
    [[nodiscard]] Point placed(Point point) const { return {m_pixels.x(point.x), m_pixels.y(point.y)}; }

    void use(const Color& color) {
        if (m_color != color)
            m_layer.use(color);
        m_color = color;
    }

    // The columns of pixels whose middles lie between two corners.
    void slice(Point from, Point to, double lower_from, double lower_to) {
        const auto column = [this](double x) {
            return static_cast<int>(std::clamp(x, 0.0, static_cast<double>(m_pixels.width)) + 0.5);
        };
        const double rise = (to.y - from.y) / (to.x - from.x);
        const double lower_rise = (lower_to - lower_from) / (to.x - from.x);
        const int end = column(to.x);
        for (int at = column(from.x); at < end; ++at) {
            const double along = at + 0.5 - from.x;
            const double top = std::max(0.0, from.y + along * rise);
            const double bottom = std::min(static_cast<double>(m_pixels.height), lower_from + along * lower_rise);
            if (top < bottom)
                m_layer.add_box({static_cast<double>(at), top, 1, bottom - top});
        }
    }

    const CanvasPixels& m_pixels;
    const FreqTempScale& m_scale;
    std::optional<DotCounts> m_counts; // memory, made for the first entry
    CoverageLayer m_layer;
    std::optional<Color> m_color; // of the layer
};

} // namespace

std::unique_ptr<PlotShapes> shapes_on_pixels(const CanvasPixels& pixels, const FreqTempScale& scale) {
    return std::make_unique<PixelShapes>(pixels, scale);
}

} // namespace tickervantage
