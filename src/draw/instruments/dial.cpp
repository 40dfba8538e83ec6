#include "draw/instruments/dial.h"

#include <algorithm>
#include <numbers>

namespace tickervantage {

namespace {

constexpr double RING_WIDTH = 3.0;
constexpr double NEEDLE_INSET = 10.0;
constexpr double NEEDLE_TAIL = 0.2;
constexpr double HUB_DIAMETER = 8.0;
constexpr double LABEL_BOX_HEIGHT = 20.0;
constexpr double LABEL_BOX_DROP = 13.0; // from the label's point to the box's lower edge

} // namespace

double dial_magnification(double side) {
    return std::max(1.0, side / DIAL_LAYOUT_SIDE);
}

Rect dial_square(Rect bounds) {
    const double side = std::min(bounds.width, bounds.height);
    const Point center = bounds.center();
    return {center.x - side / 2, center.y - side / 2, side, side};
}

Dial::Dial(Rect bounds, double intervals)
    : m_bounds(dial_square(bounds)), m_face_radius(std::max(0.0, m_bounds.width / 2 - RING_WIDTH)),
      m_step(2 * std::numbers::pi / intervals) {}

Point Dial::point(double inset, double position) const {
    return polar(m_bounds.center(), m_face_radius - inset, position * m_step);
}

Rect Dial::face() const {
    const Point center = m_bounds.center();
    return {center.x - m_face_radius, center.y - m_face_radius, 2 * m_face_radius, 2 * m_face_radius};
}

void Dial::add_tick(Path& path, double position, double length) const {
    path.add_line(point(0, position), point(length, position));
}

void Dial::draw_face(Canvas& canvas) const {
    Path ring;
    ring.add_rounded_rect(m_bounds, m_bounds.width / 2, m_bounds.height / 2);
    ring.add_ellipse(face());
    canvas.fill(ring, ColorRole::blue, FillRule::even_odd);

    Path disc;
    disc.add_ellipse(face());
    canvas.fill(disc, ColorRole::text_background, FillRule::nonzero);
}

void Dial::draw_label(Canvas& canvas, std::string_view text, double inset, double position, double box_width) const {
    const Point at = point(inset, position);
    canvas.text(text, {at.x - box_width / 2, at.y - LABEL_BOX_DROP, box_width, LABEL_BOX_HEIGHT}, {});
}

void Dial::draw_needle(Canvas& canvas, const Needle& needle) const {
    const Point center = m_bounds.center();
    const double radius = m_face_radius - NEEDLE_INSET;
    const double angle = needle.position * m_step;
    Path path;
    path.add_line(polar(center, -NEEDLE_TAIL * radius, angle), polar(center, needle.length * radius, angle));
    canvas.stroke(path, needle.color, needle.width, Shadow::soft);
}

void Dial::draw_hub(Canvas& canvas) const {
    const Point center = m_bounds.center();
    Path hub;
    hub.add_ellipse({center.x - HUB_DIAMETER / 2, center.y - HUB_DIAMETER / 2, HUB_DIAMETER, HUB_DIAMETER});
    canvas.fill(hub, ColorRole::text, FillRule::nonzero);
}

} // namespace tickervantage
