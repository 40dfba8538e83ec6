// The shapes of one sensor in the plot, but its dots, cut into pieces that are small enough to be painted one by one.
//
// Places are in pixels, y DOWN, in eighths of a pixel: nobody sees finer, and so a fit that has hardly changed leaves
// most of its curve as it was. Plain values; any thread.
#pragma once

#include "draw/canvas_pixels.h"
#include "studies/freqtemp/dot_counts.h"
#include "studies/freqtemp/freqtemp_axes.h"
#include "studies/freqtemp/scatter_map.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tickervantage {

// In eighths of a pixel; far outside no longer exact.
struct Spot {
    std::int32_t x = 0;
    std::int32_t y = 0;

    [[nodiscard]] Point pixels() const;
    friend bool operator==(const Spot&, const Spot&) = default;
};

// From values to pixels.
class PixelScale {
public:
    PixelScale() = default;
    PixelScale(const FreqTempScale& scale, const CanvasPixels& pixels);

    [[nodiscard]] Point pixel(freqPoint value) const {
        return {m_corner.x + (value.temperature - m_low.temperature) * m_step.x,
                m_corner.y + (value.frequency - m_low.frequency) * m_step.y};
    }
    [[nodiscard]] Spot spot(freqPoint value) const; // of a finite one

private:
    freqPoint m_low;
    Point m_corner;
    Point m_step;
};

struct PlotPiece {
    enum class Kind : unsigned char { band, curve, mean, newest };
    Kind kind = Kind::curve;
    Spot from; // of the newest point: its place
    Spot to;
    Spot lower_from; // of the band
    Spot lower_to;

    [[nodiscard]] bool is_steep() const; // a line that is higher than wide

    // The pixels that may be painted when it is drawn; `thickness` in pixels, of a line or across the newest point.
    [[nodiscard]] PixelBox box(double thickness) const;
    friend bool operator==(const PlotPiece&, const PlotPiece&) = default;
};

struct PlotOptions {
    bool points = true;
    bool means = true;
    bool band = true;
    bool newest = true;
    friend bool operator==(const PlotOptions&, const PlotOptions&) = default;
};

// Where a fit lies: its curve through as many points as it has coefficients, and half the width of its band. To half a
// pixel, for a dot is no more exact: as long as that is the same, so is the curve.
struct FitPlace {
    std::vector<std::int32_t> heights; // in half pixels; empty: the curve leads too far away for that
    std::int32_t band = 0;             // in half pixels
    std::int32_t left = 0;             // of its ends, in eighths
    std::int32_t right = 0;
    friend bool operator==(const FitPlace&, const FitPlace&) = default;
};
[[nodiscard]] FitPlace place_of(const QuadRegression& fit, const PixelScale& scale);

// The pieces of a fit that is drawn, in the order in which they are painted. `place`: of that fit.
[[nodiscard]] std::vector<PlotPiece> fit_pieces(const QuadRegression& fit, const FitPlace& place, bool with_band,
                                                const PixelScale& scale);

// The pieces of the line with these corners.
void add_line(std::vector<PlotPiece>& pieces, PlotPiece::Kind kind, std::span<const freqPoint> corners,
              const PixelScale& scale);

} // namespace tickervantage
