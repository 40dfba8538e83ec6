// A canvas that keeps lines, boxes and texts that were drawn on it, for tests to read.
#pragma once

#include "draw/canvas.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage::testing {

class RecordingCanvas : public Canvas {
public:
    struct StyledStroke {
        Path path;
        LineStyle style;
    };
    struct Polyline {
        std::vector<Point> points;
        Ink ink;
        double width;
    };
    struct Boxes {
        std::vector<Rect> boxes;
        Ink ink;
    };
    struct Text {
        std::string text;
        Rect box;
        TextStyle style;
    };

    std::vector<StyledStroke> styled_strokes;
    std::vector<Polyline> polylines;
    std::vector<Boxes> boxes;
    std::vector<Text> texts;
    double pixel_side = 1;

    void fill(const Path&, ColorRole, FillRule) override {}
    void stroke(const Path&, ColorRole, double, Shadow) override {}
    void stroke(const Path& path, const LineStyle& style) override { styled_strokes.push_back({path, style}); }
    void polyline(std::span<const Point> points, const Ink& ink, double width) override {
        polylines.push_back({{points.begin(), points.end()}, ink, width});
    }
    void fill_rects(std::span<const Rect> all, const Ink& ink) override {
        boxes.push_back({{all.begin(), all.end()}, ink});
    }
    void fill_polygon(std::span<const Point>, const Ink&) override {}
    [[nodiscard]] double pixel() const override { return pixel_side; }
    void text(std::string_view text, Rect box, const TextStyle& style) override {
        texts.push_back({std::string(text), box, style});
    }
};

} // namespace tickervantage::testing
