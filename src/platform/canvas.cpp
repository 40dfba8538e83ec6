#include "platform/canvas.h"

#include <cmath>

namespace tickervantage {

void Path::add_line(Point from, Point to) {
    elements.push_back({.kind = Element::Kind::line, .from = from, .to = to, .rect = {}, .radius = {}});
}

void Path::add_ellipse(Rect box) {
    elements.push_back({.kind = Element::Kind::ellipse, .from = {}, .to = {}, .rect = box, .radius = {}});
}

void Path::add_rounded_rect(Rect box, double radius_x, double radius_y) {
    elements.push_back(
        {.kind = Element::Kind::rounded_rect, .from = {}, .to = {}, .rect = box, .radius = {radius_x, radius_y}});
}

Point polar(Point center, double radius, double angle) {
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

} // namespace tickervantage
