#include "platform/coverage_layer.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {

namespace {

constexpr int STRIPE = 64; // pixels

} // namespace

void CoverageLayer::resize(int width, int height) {
    m_width = width;
    m_height = height;
    m_brushes.clear();
    m_stripes.resize(static_cast<std::size_t>((width + STRIPE - 1) / STRIPE));
    for (auto& stripe : m_stripes)
        stripe.clear();
}

void CoverageLayer::use(const Color& color) {
    m_brushes.emplace_back(color);
}

// `left` and `right` are the columns at the piece's ends, both of them its own.
void CoverageLayer::add(const Piece& piece, int left, int right) {
    if (left >= m_width || right < 0)
        return;
    const unsigned first = static_cast<unsigned>(std::max(left, 0)) / STRIPE;
    const unsigned last = static_cast<unsigned>(std::min(right, m_width - 1)) / STRIPE;
    for (unsigned stripe = first; stripe <= last; ++stripe)
        m_stripes[stripe].push_back(piece);
}

void CoverageLayer::add_line(Point from, Point to, double line_width) {
    const auto column = [this](double at) {
        return static_cast<int>(std::clamp(at, -1.0, static_cast<double>(m_width)));
    };
    const auto [left, right] = std::minmax(from.x, to.x);
    add({static_cast<float>(from.x), static_cast<float>(from.y), static_cast<float>(to.x), static_cast<float>(to.y),
         static_cast<float>(line_width), brush()},
        column(left - line_width), column(right + line_width));
}

void CoverageLayer::add_box(Rect box) {
    const auto side = [this](double at) { // rounded; far quicker than the library's rounding
        return static_cast<int>(std::clamp(at, -1.0, m_width + 1.0) + 1.5) - 1;
    };
    const int left = side(box.x);
    const int right = side(std::max(box.x + box.width, box.x + 1));
    const double top = std::max(box.y, 0.0);
    const double bottom = std::min(box.y + std::max(box.height, 1.0), static_cast<double>(m_height));
    if (left < right && top < bottom)
        add({static_cast<float>(left), static_cast<float>(top), static_cast<float>(right), static_cast<float>(bottom),
             0, brush()},
            left, right - 1);
}

void CoverageLayer::paint(const PixelRows& target) {
    int left = 0;
    for (auto& stripe : m_stripes) {
        paint_stripe(left, stripe, target);
        stripe.clear();
        left += STRIPE;
    }
    m_brushes.clear();
}

void CoverageLayer::paint_stripe(int left, const std::vector<Piece>& pieces, const PixelRows& target) {
    const PixelRows pixels{target.first + left, target.stride};
    m_tile.resize(std::min(STRIPE, m_width - left), m_height);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const Piece& piece = pieces[i];
        const auto shift = static_cast<float>(left);
        if (piece.line_width > 0)
            m_tile.add_line({piece.left - shift, piece.top}, {piece.right - shift, piece.bottom}, piece.line_width);
        else
            paint_box(piece, left, pixels);
        if (i + 1 == pieces.size() || pieces[i + 1].brush != piece.brush)
            m_tile.paint(m_brushes[piece.brush], pixels);
    }
}

void CoverageLayer::paint_box(const Piece& box, int stripe_left, const PixelRows& target) const {
    const int left = std::max(static_cast<int>(box.left) - stripe_left, 0);
    const int right = std::min({static_cast<int>(box.right) - stripe_left, STRIPE, m_width - stripe_left});
    m_brushes[box.brush].fill(target, left, right, box.top, box.bottom);
}

} // namespace tickervantage
