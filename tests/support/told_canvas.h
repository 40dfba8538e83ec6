// A canvas that tells in words what is drawn on it, and drawings that were looked at once and are kept in such words.
//
// A kept drawing lies in tests/logic/drawn. Numbers may differ by a rounding. Where a drawing is to change, run the
// tests with TICKERVANTAGE_APPROVE=1 in the environment, which writes it anew, and look at what changed.
#pragma once

#include "draw/canvas.h"
#include "support/test.h"

#include <fmt/format.h>

namespace tickervantage::testing {

class ToldCanvas : public Canvas {
public:
    std::string told;

    void fill(const Path& path, ColorRole color, FillRule rule) override {
        tell("fill {}{}", name_of(color), rule == FillRule::even_odd ? " even-odd" : "");
        tell_path(path);
    }
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override {
        tell("stroke {} {}{}", name_of(color), number(width), shadow == Shadow::soft ? " soft" : "");
        tell_path(path);
    }
    void stroke(const Path& path, const LineStyle& style) override {
        std::string dash;
        for (const double length : style.dash)
            dash += " " + number(length);
        tell("stroke {} {}{}", name_of(style.ink), number(style.width), dash);
        tell_path(path);
    }
    void polyline(std::span<const Point> points, const Ink& ink, double width) override {
        tell("polyline {} {}, {} points", name_of(ink), number(width), points.size());
        tell_some(points, place);
    }
    void fill_rects(std::span<const Rect> boxes, const Ink& ink) override {
        tell("boxes {}, {}", name_of(ink), boxes.size());
        tell_some(boxes, box);
    }
    void fill_polygon(std::span<const Point> corners, const Ink& ink) override {
        tell("polygon {}, {} corners", name_of(ink), corners.size());
        tell_some(corners, place);
    }
    void begin_layer(Rect area) override { tell("layer {}", box(area)); }
    void end_layer() override { tell("end of layer"); }
    [[nodiscard]] double pixel() const override { return 1; }
    void text(std::string_view text, Rect where, const TextStyle& style) override {
        tell("text \"{}\" {} {} {} {}", text, box(where), number(style.size), name_of(style.color),
             style.align == TextAlign::center ? "center"
             : style.align == TextAlign::left ? "left"
                                              : "right");
    }

    template <class... Values>
    void tell(fmt::format_string<Values...> format, Values&&... values) {
        told += fmt::format(format, std::forward<Values>(values)...) + "\n";
    }
    static std::string number(double value) {
        const double tenths = std::round(value * 10) / 10;
        return fmt::format("{}", tenths == 0 ? 0.0 : tenths);
    }
    static std::string place(Point point) { return number(point.x) + "," + number(point.y); }
    static std::string box(Rect rect) {
        return place({rect.x, rect.y}) + " " + number(rect.width) + "x" + number(rect.height);
    }

private:
    static std::string name_of(const Ink& ink) {
        static constexpr const char* roles[] = {"text", "background", "blue", "red", "grey"};
        const std::string name = ink.own ? fmt::format("({:.2f} {:.2f} {:.2f} {:.2f})", ink.own->red, ink.own->green,
                                                       ink.own->blue, ink.own->alpha)
                                         : roles[static_cast<std::size_t>(ink.role)];
        return ink.opacity == 1 ? name : fmt::format("{}*{:.2f}", name, ink.opacity);
    }
    void tell_path(const Path& path) { tell_each(path.elements, 1, element); }
    // Of many about twenty.
    template <class Things, class Words>
    void tell_some(const Things& things, Words words) {
        tell_each(things, things.size() / 20 + 1, words);
    }
    template <class Things, class Words>
    void tell_each(const Things& things, std::size_t step, Words words) {
        std::string line = " ";
        for (std::size_t i = 0; i < things.size(); i += step) {
            line += " " + words(things[i]);
            if (line.size() > 100)
                tell("{}", std::exchange(line, " "));
        }
        if (line.size() > 1)
            tell("{}", line);
    }
    static std::string element(const Path::Element& one) {
        if (one.kind == Path::Element::Kind::line)
            return place(one.from) + "–" + place(one.to);
        return (one.kind == Path::Element::Kind::ellipse ? "ellipse " : "rounded ") + box(one.rect) + " " +
               place(one.radius);
    }
};

} // namespace tickervantage::testing
