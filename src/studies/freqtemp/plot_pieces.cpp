#include "studies/freqtemp/plot_pieces.h"

#include "studies/freqtemp/plot_look.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace tickervantage {
namespace {

constexpr double SHARES = 8;     // of a pixel
constexpr double FARTHEST = 1e8; // pixels; nothing so far away is seen, and what leads there leads the same way
constexpr auto FARTHEST_SHARES = static_cast<std::int32_t>(FARTHEST * SHARES);
constexpr double HALVES = 2;    // of a pixel
constexpr double NEAR = 30'000; // pixels; farther away half a pixel is no measure
constexpr int SHARE_BITS = 3;
static_assert(1 << SHARE_BITS == static_cast<int>(SHARES));

// To the nearest; without the library's rounding, which takes longer than all the rest.
std::int32_t shares(double pixels) {
    constexpr std::int32_t above_zero = 1'000'000'000;
    const double near = std::min(std::max(-FARTHEST, pixels), FARTHEST); // also of what is no number
    return static_cast<std::int32_t>(near * SHARES + 0.5 + above_zero) - above_zero;
}

using Spots = std::vector<std::optional<Spot>>; // none: not finite

void add_pieces(std::vector<PlotPiece>& pieces, PlotPiece::Kind kind, const Spots& spots) {
    for (std::size_t i = 1; i < spots.size(); ++i)
        if (spots[i - 1] && spots[i])
            pieces.push_back({.kind = kind, .from = *spots[i - 1], .to = *spots[i], .lower_from = {}, .lower_to = {}});
}

// The band lies as far above the curve as below it.
void add_band(std::vector<PlotPiece>& pieces, const Spots& curve, std::int32_t half) {
    if (!std::ranges::all_of(curve, [](const auto& spot) { return spot.has_value(); }))
        return;
    const auto moved = [half](const std::optional<Spot>& spot, int by) {
        return Spot{spot->x, std::clamp(spot->y + by * half, -FARTHEST_SHARES, FARTHEST_SHARES)};
    };
    for (std::size_t i = 1; i < curve.size(); ++i)
        pieces.push_back({.kind = PlotPiece::Kind::band,
                          .from = moved(curve[i - 1], -1),
                          .to = moved(curve[i], -1),
                          .lower_from = moved(curve[i - 1], 1),
                          .lower_to = moved(curve[i], 1)});
}

// From 0 to 1, and closer together towards both: a curve through them is nowhere much farther off than they are.
double node(std::size_t number, std::size_t count) {
    return (1 - std::cos(std::numbers::pi * (static_cast<double>(number) + 0.5) / static_cast<double>(count))) / 2;
}

// The polynomial that has those values at the nodes.
class Interpolation {
public:
    explicit Interpolation(const std::vector<std::int32_t>& heights) : m_heights(heights) {
        const auto count = static_cast<double>(heights.size());
        for (std::size_t i = 0; i < heights.size(); ++i) {
            m_nodes.push_back(node(i, heights.size()));
            m_weights.push_back(std::sin(std::numbers::pi * (static_cast<double>(i) + 0.5) / count) *
                                (i % 2 == 0 ? 1 : -1));
        }
    }
    [[nodiscard]] double at(double place) const {
        double sum = 0;
        double total = 0;
        for (std::size_t i = 0; i < m_heights.size(); ++i) {
            const double away = place - m_nodes[i];
            if (away == 0)
                return m_heights[i];
            sum += m_weights[i] / away * m_heights[i];
            total += m_weights[i] / away;
        }
        return sum / total;
    }

private:
    const std::vector<std::int32_t>& m_heights;
    std::vector<double> m_nodes;
    std::vector<double> m_weights;
};

} // namespace

Point Spot::pixels() const {
    return {x / SHARES, y / SHARES};
}

PixelScale::PixelScale(const FreqTempScale& scale, const CanvasPixels& pixels)
    : m_low{scale.ranges.min_temp, scale.ranges.min_freq} {
    const Point from = scale.place(m_low);
    const Point to = scale.place({m_low.temperature + 1, m_low.frequency + 1});
    m_corner = {pixels.x(from.x), pixels.y(from.y)};
    m_step = {pixels.x(to.x) - m_corner.x, pixels.y(to.y) - m_corner.y};
}

Spot PixelScale::spot(freqPoint value) const {
    const Point at = pixel(value);
    return {shares(at.x), shares(at.y)};
}

bool PlotPiece::is_steep() const {
    return std::abs(to.y - from.y) >= std::abs(to.x - from.x);
}

PixelBox PlotPiece::box(double thickness) const {
    const Spot end = kind == Kind::newest ? from : to;
    const auto [left, right] = std::minmax(from.x, end.x);
    std::int32_t top = std::min(from.y, end.y);
    std::int32_t bottom = std::max(from.y, end.y);
    int across = static_cast<int>(thickness / 2) + 1;
    int down = across;
    if (kind == Kind::band) {
        top = std::min({top, lower_from.y, lower_to.y});
        bottom = std::max({bottom, lower_from.y, lower_to.y});
        across = down = 0;
    } else if (kind != Kind::newest) { // a slanted line is thicker along one axis, and ends square along the other
        (is_steep() ? across : down) = static_cast<int>(thickness * 0.75) + 1;
        (is_steep() ? down : across) = 0;
    }
    return {(left >> SHARE_BITS) - across, (top >> SHARE_BITS) - down, (right >> SHARE_BITS) + across + 1,
            (bottom >> SHARE_BITS) + down + 1};
}

FitPlace place_of(const QuadRegression& fit, const PixelScale& scale) {
    const Spot left = scale.spot({fit.x_min, 0});
    const double height = scale.pixel({0, 0}).y - scale.pixel({0, fit.y_stddev}).y;
    FitPlace place{.heights = {},
                   .band = static_cast<std::int32_t>(std::lround(std::min(NEAR, std::abs(height)) * HALVES)),
                   .left = left.x,
                   .right = scale.spot({fit.x_max, 0}).x};
    const std::size_t count = fit.coefficients.size();
    for (std::size_t i = 0; i < count; ++i) {
        const double x = fit.x_min + (fit.x_max - fit.x_min) * node(i, count);
        const double y = scale.pixel({x, fit.evaluate(x)}).y;
        if (!(std::abs(y) < NEAR))
            return {.heights = {}, .band = place.band, .left = place.left, .right = place.right};
        place.heights.push_back(static_cast<std::int32_t>(std::lround(y * HALVES)));
    }
    return place;
}

std::vector<PlotPiece> fit_pieces(const QuadRegression& fit, const FitPlace& place, bool with_band,
                                  const PixelScale& scale) {
    const auto corners = plot_look::curve_of(fit);
    const Interpolation line(place.heights);
    Spots curve;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const double along = static_cast<double>(i) / std::max<double>(1, static_cast<double>(corners.size() - 1));
        if (!place.heights.empty())
            curve.push_back(
                Spot{place.left + static_cast<std::int32_t>(std::lround((place.right - place.left) * along)),
                     shares(line.at(along) / HALVES)});
        else if (std::isfinite(corners[i].frequency))
            curve.push_back(scale.spot(corners[i]));
        else
            curve.push_back(std::nullopt);
    }
    std::vector<PlotPiece> pieces;
    if (with_band)
        add_band(pieces, curve, place.band * static_cast<std::int32_t>(SHARES / HALVES));
    add_pieces(pieces, PlotPiece::Kind::curve, curve);
    return pieces;
}

void add_line(std::vector<PlotPiece>& pieces, PlotPiece::Kind kind, std::span<const freqPoint> corners,
              const PixelScale& scale) {
    Spots spots;
    for (const auto& corner : corners)
        spots.push_back(std::isfinite(corner.frequency) ? std::optional(scale.spot(corner)) : std::nullopt);
    add_pieces(pieces, kind, spots);
}

} // namespace tickervantage
