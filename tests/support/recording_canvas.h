// A canvas that keeps what was drawn on it, for tests to read.
#pragma once

#include "platform/canvas.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage::testing {

class RecordingCanvas : public Canvas {
public:
    struct Fill {
        Path path;
        ColorRole color;
        FillRule rule;
    };
    struct Stroke {
        Path path;
        ColorRole color;
        double width;
        Shadow shadow;
    };
    struct Text {
        std::string text;
        Rect box;
        TextStyle style;
    };

    std::vector<Fill> fills;
    std::vector<Stroke> strokes;
    std::vector<Text> texts;

    void fill(const Path& path, ColorRole color, FillRule rule) override { fills.push_back({path, color, rule}); }
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override {
        strokes.push_back({path, color, width, shadow});
    }
    void text(std::string_view text, Rect box, const TextStyle& style) override {
        texts.push_back({std::string(text), box, style});
    }
};

} // namespace tickervantage::testing
