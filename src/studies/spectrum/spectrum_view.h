// The spectrum as a bar chart: magnitudes from 0 to 1 over an axis of frequencies.
//
// Lengths are points, y up. The axis is labelled from 0 to half the sampling rate over the full width, though the bars
// include the mirrored upper half, which stands on a shade, right of a dashed line. With more bins than pixels each
// column of pixels shows the highest of its bins, so that no peak is lost and a chart of any length is drawn at once.
// Plain values; one thread at a time.
#pragma once

#include "draw/canvas.h"
#include "studies/spectrum/spectrum.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace tickervantage {

struct SpectrumReading {
    std::size_t bin = 0;
    double frequency = 0; // the true one, Hz: not the place on the axis
    double magnitude = 0;
    std::optional<double> period = {}; // s; none: the mean
    bool is_mirrored = false;
    friend bool operator==(const SpectrumReading&, const SpectrumReading&) = default;
};

class SpectrumView {
public:
    static constexpr double ORIGIN = 24.0; // from the left and lower edges
    static constexpr int DIVISIONS = 10;   // of either axis

    void set_spectrum(std::shared_ptr<const ComputedSpectrum> spectrum);
    [[nodiscard]] const std::shared_ptr<const ComputedSpectrum>& spectrum() const { return m_spectrum; }

    void draw(Canvas& canvas, Rect bounds) const;

    [[nodiscard]] std::size_t bars() const { return m_bars; } // bins that have a bar

    // A line over the bar of a bin, for whoever points at it.
    void draw_marker(Canvas& canvas, Rect bounds, std::size_t bin) const;

    // The bin whose bar is drawn at x; none beside the bars.
    [[nodiscard]] std::optional<SpectrumReading> reading_at(double x, Rect bounds) const;
    [[nodiscard]] std::optional<SpectrumReading> reading_of(std::size_t bin) const; // none: no such bar

private:
    void draw_axes(Canvas& canvas, Rect bounds) const;
    [[nodiscard]] std::optional<double> mirror_x(Rect plot) const;
    void shade_mirror(Canvas& canvas, Rect bounds) const;
    void mark_mirror(Canvas& canvas, Rect bounds) const;
    void draw_bars(Canvas& canvas, Rect bounds) const;
    [[nodiscard]] double axis_value(int division) const;

    std::shared_ptr<const ComputedSpectrum> m_spectrum; // null: none yet
    double m_samplefreq = 0;                            // half the sampling rate, Hz
    std::size_t m_bars = 0;                             // bins before the first that is not finite
};

} // namespace tickervantage
