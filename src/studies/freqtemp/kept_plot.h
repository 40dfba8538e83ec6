// The plot of frequency against temperature on a canvas's own pixels, and what is needed to paint no more of it anew
// than has changed: a new frequency moves every curve a little, but most pixels stay as they are.
//
// What is painted in steps is the same, to the pixel, as what is painted at once. One thread at a time.
#pragma once

#include "draw/canvas.h"
#include "studies/freqtemp/cell_painter.h"
#include "studies/freqtemp/plot_cells.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage {

// What the plot shows. Borrowed.
struct PlotContent {
    const ScatterMap& scatter;
    FreqTempScale scale;
    PlotOptions options;
};

class KeptPlot {
public:
    // All of it, over the empty plot that the canvas shows. False where the canvas has no pixels of its own at hand:
    // nothing was painted.
    [[nodiscard]] bool paint_whole(Canvas& canvas, const PlotContent& content);

    // What has changed since the last call, whose picture the canvas still shows. False where that would not do,
    // because the scale, the colours, or the sensors are others, or it is not known what changed: all is to be painted
    // anew, the empty plot first.
    [[nodiscard]] bool paint_changes(Canvas& canvas, const PlotContent& content);

private:
    // As long as none of this changes, pixels mean the same.
    struct Setup {
        FreqTempRanges ranges;
        PlotOptions options;
        Rect area;
        PixelBox pixels; // in which there is anything to paint
        Point origin;    // where 0, 0 lies among them
        Point density;
        Color text;
        Color background;
        std::vector<std::pair<std::string, Color>> sensors;
        friend bool operator==(const Setup&, const Setup&) = default;
    };
    struct Inks {
        explicit Inks(const Color& color);
        DotShades dots;
        CoverageBrush band;
        CoverageBrush line;
        CoverageBrush newest;
    };
    struct Shapes {
        std::vector<PlotPiece> pieces;
        std::vector<PixelBox> cells; // that each of them meets
    };
    struct Dot {
        DotCounts::Corner corner;
        std::uint32_t place = 0; // among the cells
        std::uint32_t bin = 0;   // of the means; as many as there are: none
    };
    struct Sensor {
        explicit Sensor(const Color& color) : inks(color) {}

        Inks inks;
        PointList points; // as they were when they were painted
        std::shared_ptr<const PointDigest> digest;
        std::vector<Dot> dots; // of the points, from `first_dot` on; not with a digest
        std::size_t first_dot = 0;
        std::vector<freqStats> means;
        FitPlace fit;
        Shapes fit_shapes;
        Shapes other_shapes; // the line through the means, then the newest point
        std::optional<Spot> newest;
        PixelBox under; // the ring around it: these pixels were
        std::vector<std::uint32_t> under_pixels;
    };

    [[nodiscard]] static Setup setup_of(const CanvasPixels& pixels, const PlotContent& content);
    void begin(const Canvas& canvas, const CanvasPixels& pixels, const PlotContent& content);
    [[nodiscard]] Sensor sensor_of(const scatterEntry& entry, const Color& color);
    [[nodiscard]] bool take_changes(const PlotContent& content);
    [[nodiscard]] bool take_changes(Sensor& sensor, const scatterEntry& entry);
    void take_points(Sensor& sensor, const PointList& points, PointList::Steps steps);
    static void drop_dots(Sensor& sensor, std::size_t count);
    static void remake_means(Sensor& sensor, const std::vector<char>& stale);
    [[nodiscard]] Dot dot(freqPoint point, std::size_t bins) const;
    void make_shapes(Sensor& sensor, const scatterEntry& entry);
    void replace(Shapes& shapes, std::vector<PlotPiece> pieces);

    void paint_marked();
    void paint_dots(const Sensor& sensor);
    void count_dots(const Sensor& sensor);
    void put(const Shapes& shapes, std::size_t first_item);
    void paint_pieces(const Sensor& sensor, std::size_t cell, const std::vector<PlotCells::Item>& items);
    void paint_curve(const Sensor& sensor);
    void put_ring_on(Sensor& sensor);
    void take_ring_off(const Sensor& sensor);
    [[nodiscard]] PixelBox inside(std::size_t cell) const { return common(m_cells.box(cell), m_inside); }
    [[nodiscard]] double thickness(const PlotPiece& piece) const; // pixels

    std::optional<Setup> m_setup; // none: nothing is kept
    PixelScale m_scale;
    double m_density = 1; // pixels a point
    PixelRows m_rows;
    PixelBox m_inside; // the drawing area, at whose edges all is cut off but the rings
    std::uint32_t m_paper = 0;
    std::vector<Sensor> m_sensors;
    std::optional<CoverageBrush> m_text;
    std::optional<CoverageBrush> m_background;
    PlotCells m_cells;
    std::optional<DotCounts> m_counts;
    std::vector<DotCounts::Corner> m_counted;
    CellPainter m_painter;
};

} // namespace tickervantage
