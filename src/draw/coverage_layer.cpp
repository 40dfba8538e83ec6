#include "draw/coverage_layer.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {

namespace {

constexpr int STRIPE = 256; // pixels

// A row of a fresh stripe: a cache line more, and so an odd number of them, because rows that lie a power of two apart
// push each other out of the cache.
constexpr int FRESH_ROW = STRIPE + 16;

} // namespace

void CoverageLayer::resize(int width, int height) {
    m_width = width;
    m_height = height;
    m_brushes.clear();
    m_background.reset();
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
    const auto top = static_cast<float>(std::max(box.y, 0.0));
    const auto bottom = static_cast<float>(std::min(box.y + std::max(box.height, 1.0), static_cast<double>(m_height)));
    if (!(left < right && top < bottom))
        return;
    const auto pixel = hides_all(left, right, top, bottom) ? m_brushes.back().opaque_pixel() : std::nullopt;
    if (pixel) {
        for (auto& stripe : m_stripes)
            stripe.clear();
        m_background = pixel;
    } else {
        add({static_cast<float>(left), top, static_cast<float>(right), bottom, 0, brush()}, left, right - 1);
    }
}

bool CoverageLayer::hides_all(int left, int right, double top, double bottom) const {
    return left <= 0 && right >= m_width && top < 1 && bottom > m_height - 1;
}

void CoverageLayer::add_columns(std::span<const ColumnSpan> spans, int first, double zero, double scale) {
    const auto height = static_cast<double>(m_height);
    const std::uint32_t last_brush = brush();
    for (const ColumnSpan& span : spans) {
        const std::int64_t column = span.column + first;
        if (column < 0 || column >= m_width)
            continue;
        const double length = std::max((span.high - span.low) * scale, 1.0);
        const double upper = zero - span.high * scale;
        const auto top = static_cast<float>(std::max(upper, 0.0));
        const auto bottom = static_cast<float>(std::min(upper + length, height));
        if (top < bottom)
            m_stripes[static_cast<std::size_t>(column) / STRIPE].push_back(
                {static_cast<float>(column), top, static_cast<float>(column + 1), bottom, 0, last_brush});
    }
}

void CoverageLayer::paint(const PixelRows& target) {
    const Rows rows = m_background ? fill_untouched(target) : Rows{};
    int left = 0;
    for (const auto& stripe : m_stripes) {
        const PixelRows pixels{target.first + left, target.stride};
        if (m_background)
            paint_anew(left, stripe, rows, pixels);
        else if (!stripe.empty())
            paint_stripe(left, stripe, pixels);
        left += STRIPE;
    }
    resize(m_width, m_height);
}

// In memory of its own first, all of which stays in the cache, whatever the picture's size; then each pixel of the
// picture is written once.
void CoverageLayer::paint_anew(int left, const std::vector<Piece>& pieces, Rows rows, const PixelRows& target) {
    m_fresh.resize(static_cast<std::size_t>(FRESH_ROW) * static_cast<std::size_t>(m_height));
    const int width = std::min(STRIPE, m_width - left);
    for (int row = rows.first; row < rows.end; ++row)
        std::copy_n(m_background_row.data(), width, m_fresh.data() + std::ptrdiff_t{row} * FRESH_ROW);
    paint_stripe(left, pieces, {m_fresh.data(), FRESH_ROW});
    for (int row = rows.first; row < rows.end; ++row)
        std::copy_n(m_fresh.data() + std::ptrdiff_t{row} * FRESH_ROW, width,
                    target.first + std::ptrdiff_t{row} * target.stride);
}

// The rows that pieces touch; the others are finished.
CoverageLayer::Rows CoverageLayer::fill_untouched(const PixelRows& target) {
    auto top = static_cast<float>(m_height);
    float bottom = 0;
    for (const auto& pieces : m_stripes)
        for (const Piece& piece : pieces) { // a line may lead upwards
            top = std::min(top, std::min(piece.top, piece.bottom) - piece.line_width);
            bottom = std::max(bottom, std::max(piece.top, piece.bottom) + piece.line_width);
        }
    const int end = static_cast<int>(std::min(std::ceil(bottom), static_cast<float>(m_height)));
    const int first = std::min(static_cast<int>(std::max(top, 0.0F)), end);
    m_background_row.assign(static_cast<std::size_t>(m_width), *m_background);
    for (int row = 0; row < m_height; ++row) // copied, which compilers leave to the library, and that is quicker
        if (row < first || row >= end)
            std::ranges::copy(m_background_row, target.first + row * target.stride);
    return {first, end};
}

void CoverageLayer::paint_stripe(int left, const std::vector<Piece>& pieces, const PixelRows& pixels) {
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
