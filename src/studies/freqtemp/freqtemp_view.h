// The plot of frequency against temperature: points, means by the degree, fits with their band, newest points.
//
// Temperature to the right in degrees Celsius, frequency upwards in ppm. Lengths in points, y up. Drawing takes any
// canvas and any size, and takes about as long for a million points as for some thousand. One thread at a time.
#pragma once

#include "draw/canvas.h"
#include "studies/freqtemp/scatter_map.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage {

class KeptPlot;
struct FreqTempScale;
struct PlotContent;

// What lies under a position.
struct FreqTempReading {
    double temperature = 0; // at the position
    double frequency = 0;
    struct NearPoint {
        std::string sensor;
        freqPoint point;
    };
    std::optional<NearPoint> near; // the nearest point of all that are shown, within NEAR of the position
    struct Fitted {
        std::string sensor;
        double frequency = 0; // of the fit at that temperature
        double y_stddev = 0;
    };
    std::vector<Fitted> fits; // those drawn at that temperature
};

class FreqTempView {
public:
    static constexpr double INSET_PLOT = 4.0; // of the drawing area inside the framed plot
    static constexpr int AXIS_MARKS = 10;     // divisions of either axis
    static constexpr double TEXT_OFFSET = 10.0;
    static constexpr double MARGIN_LEFT = 50.0;
    static constexpr double MARGIN_RIGHT = 20.0;
    static constexpr double MARGIN_BOTTOM = 30.0;
    static constexpr double POINT_SIZE = 4.0; // side of a square, diameter of a disc
    static constexpr double NEAR = 12.0;      // how far a position may lie from the point that it means

    bool m_show_scatter_points = true;
    bool m_show_mean_frequency = true;
    bool m_show_freq_bounds = true;
    bool m_show_last_record = true;

    // Ranges follow the selected entries' points. The fits are shared, not copied: hand the map over again when they
    // have changed.
    void set_scatter(const ScatterMap& scatter);

    // `kept`, if any, remembers what it takes to go on from this picture.
    void draw(Canvas& canvas, Rect visible, KeptPlot* kept = nullptr) const;

    // Brings what draw() or update() has drawn with `kept` up to date: no more is painted than has changed. False where
    // that will not do: then all is to be drawn anew, on an empty canvas.
    [[nodiscard]] bool update(Canvas& canvas, Rect visible, KeptPlot& kept) const;

    // None outside the drawing area.
    [[nodiscard]] std::optional<FreqTempReading> reading_at(Point position, Rect visible) const;

    // A ring around a point, for whoever points at it.
    void draw_marker(Canvas& canvas, Rect visible, const FreqTempReading::NearPoint& point) const;

    [[nodiscard]] double min_temp() const { return m_min_temp; }
    [[nodiscard]] double max_temp() const { return m_max_temp; }
    [[nodiscard]] double min_freq() const { return m_min_freq; }
    [[nodiscard]] double max_freq() const { return m_max_freq; }

    // Name and colour of each entry that is drawn.
    [[nodiscard]] std::vector<std::pair<std::string, Color>> shown() const;

    // Whether any selected entry has a point: without one there are axes and no more.
    [[nodiscard]] bool is_empty() const { return m_is_empty; }

private:
    [[nodiscard]] PlotContent content(Rect visible) const;
    void draw_emphasis(Canvas& canvas, const FreqTempScale& scale) const;
    void draw_entries(Canvas& canvas, const FreqTempScale& scale) const;

    ScatterMap m_scatter;
    double m_min_temp = 0; // whole degrees
    double m_max_temp = 0;
    double m_min_freq = 0; // whole units
    double m_max_freq = 0;
    bool m_is_empty = true;
};

} // namespace tickervantage
