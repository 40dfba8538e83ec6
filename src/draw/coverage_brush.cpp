#include "draw/coverage_brush.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::uint32_t OPAQUE = 0xFF00'0000;

std::uint32_t divided_by_255(std::uint32_t value) {
    return (value + 128 + ((value + 128) >> 8)) >> 8;
}

std::uint32_t premultiplied(const Color& color) {
    const auto channel = [](double value) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    const std::uint32_t alpha = channel(color.alpha);
    return alpha << 24 | divided_by_255(channel(color.red) * alpha) << 16 |
           divided_by_255(channel(color.green) * alpha) << 8 | divided_by_255(channel(color.blue) * alpha);
}

constexpr float FULL = 255;
constexpr std::ptrdiff_t EIGHT = 8; // pixels that are looked at together

void add(std::uint8_t& pixel, float share) {
    const int sum = pixel + static_cast<int>(share + 0.5F);
    pixel = static_cast<std::uint8_t>(std::min(sum, 255));
}

// Covers pixels from `from` to `to`, those at the ends in part.
void cover_piece(std::uint8_t* pixels, std::ptrdiff_t stride, float from, float to, float weight) {
    auto at = static_cast<int>(from);
    const auto last = static_cast<int>(to);
    std::uint8_t* pixel = pixels + at * stride;
    if (at == last) {
        add(*pixel, (to - from) * weight);
        return;
    }
    add(*pixel, (static_cast<float>(at + 1) - from) * weight);
    for (++at, pixel += stride; at < last; ++at, pixel += stride)
        add(*pixel, weight);
    if (const float rest = to - static_cast<float>(last); rest > 0)
        add(*pixel, rest * weight);
}

} // namespace

CoverageBrush::CoverageBrush(const Color& color) {
    for (std::uint32_t share = 0; share < m_by_coverage.size(); ++share)
        m_by_coverage[share] = scaled_pixel(premultiplied(color), share);
}

void CoverageBrush::fill(const PixelRows& pixels, int left, int right, float top, float bottom) const {
    std::uint32_t* const row = pixels.first + static_cast<int>(top) * pixels.stride;
    for (int column = left; column < right; ++column) // most boxes have one
        fill_column(row + column, pixels.stride, top, bottom);
}

void CoverageBrush::fill_row(std::uint32_t* pixels, std::ptrdiff_t count) const {
    lay_all(pixels, 1, count);
}

std::optional<std::uint32_t> CoverageBrush::opaque_pixel() const {
    const std::uint32_t source = m_by_coverage.back();
    return source >= OPAQUE ? std::optional(source) : std::nullopt;
}

void CoverageBrush::fill_column(std::uint32_t* pixel, std::ptrdiff_t stride, float top, float bottom) const {
    auto row = static_cast<int>(top);
    const auto end_row = static_cast<int>(bottom);
    if (row == end_row) {
        lay_one(*pixel, bottom - top);
        return;
    }
    if (const float above = top - static_cast<float>(row); above > 0) {
        lay_one(*pixel, 1 - above);
        pixel += stride;
        ++row;
    }
    pixel = lay_all(pixel, stride, end_row - row);
    if (const float below = bottom - static_cast<float>(end_row); below > 0)
        lay_one(*pixel, below);
}

// Pixels that lie side by side are mostly alike, so that what became of one can be said of the next.
std::uint32_t* CoverageBrush::lay_all(std::uint32_t* pixel, std::ptrdiff_t step, std::ptrdiff_t count) const {
    const std::uint32_t source = m_by_coverage.back();
    const std::uint32_t share = 255 - (source >> 24);
    if (share == 0) {
        for (; count > 0; --count, pixel += step)
            *pixel = source;
        return pixel;
    }
    std::uint32_t before = 0;
    std::uint32_t after = source;
    for (; count > 0; --count, pixel += step) {
        if (*pixel != before) {
            before = *pixel;
            after = laid_over(source, before);
        }
        *pixel = after;
    }
    return pixel;
}

void CoverageBrush::lay_one(std::uint32_t& pixel, float coverage) const {
    pixel = laid_over(m_by_coverage[static_cast<std::uint8_t>(coverage * 255 + 0.5F)], pixel);
}

void CoverageBrush::lay(std::uint64_t coverage, std::uint32_t* pixels) const {
    while (coverage != 0) {
        const int at = std::countr_zero(coverage) / 8;
        const std::uint32_t source = m_by_coverage[coverage >> (8 * at) & 0xFF];
        // What is hidden is not read: waiting for it costs the most.
        pixels[at] = source >= OPAQUE ? source : laid_over(source, pixels[at]);
        coverage &= ~(std::uint64_t{0xFF} << (8 * at));
    }
}

void CoverageTile::resize(int width, int height) {
    const bool is_clean = m_first_covered >= m_end_covered;
    m_width = width;
    m_height = height;
    m_stride = (width + EIGHT - 1) / EIGHT * EIGHT;
    m_first_covered = height;
    m_end_covered = 0;
    const auto bytes = static_cast<std::size_t>(m_stride * height);
    if (!is_clean)
        m_coverage.assign(bytes, 0);
    else if (bytes > m_coverage.size())
        m_coverage.resize(bytes);
}

// Steep lines row by row, flat ones column by column: in each the line covers a short piece, slanted lines a longer
// one than their width.
void CoverageTile::add_line(Point from, Point to, float line_width) {
    const bool steep = std::abs(to.y - from.y) >= std::abs(to.x - from.x);
    const auto along = [steep](Point point) {
        return static_cast<float>(steep ? point.y : point.x);
    };
    const auto across = [steep](Point point) {
        return static_cast<float>(steep ? point.x : point.y);
    };
    if (along(from) > along(to))
        std::swap(from, to);
    const float start = along(from);
    const float end = along(to);
    if (!(end > start))
        return;
    const float slope = (across(to) - across(from)) / (end - start);
    const float half = line_width / 2 * std::sqrt(1 + slope * slope);
    const int first = std::max(0, static_cast<int>(std::floor(start)));
    const int last = std::min(steep ? m_height : m_width, static_cast<int>(std::ceil(end)));
    for (int line = first; line < last; ++line) {
        const float enter = std::max(start, static_cast<float>(line));
        const float leave = std::min(end, static_cast<float>(line + 1));
        const float middle = across(from) + ((enter + leave) / 2 - start) * slope;
        if (steep)
            cover(line, middle - half, middle + half, (leave - enter) * FULL);
        else
            cover_column(line, middle - half, middle + half, (leave - enter) * FULL);
    }
    if (steep)
        touch(first, last);
}

void CoverageTile::cover(int row, float left, float right, float weight) {
    left = std::max(left, 0.0F);
    right = std::min(right, static_cast<float>(m_width));
    if (left < right)
        cover_piece(row_at(row), 1, left, right, weight);
}

void CoverageTile::cover_column(int column, float top, float bottom, float weight) {
    top = std::max(top, 0.0F);
    bottom = std::min(bottom, static_cast<float>(m_height));
    if (!(top < bottom))
        return;
    touch(static_cast<int>(top), static_cast<int>(std::ceil(bottom)));
    cover_piece(m_coverage.data() + column, m_stride, top, bottom, weight);
}

void CoverageTile::touch(int first_row, int end_row) {
    m_first_covered = std::min(m_first_covered, std::max(0, first_row));
    m_end_covered = std::max(m_end_covered, std::min(m_height, end_row));
}

void CoverageTile::paint(const CoverageBrush& brush, const PixelRows& target) {
    static_assert(std::endian::native == std::endian::little, "the first of eight bytes is the lowest");
    for (int row = m_first_covered; row < m_end_covered; ++row) {
        std::uint8_t* coverage = row_at(row);
        std::uint32_t* pixels = target.first + row * target.stride;
        for (std::ptrdiff_t at = 0; at < m_stride; at += EIGHT) {
            std::uint64_t eight = 0;
            std::memcpy(&eight, coverage + at, sizeof eight);
            if (eight == 0)
                continue;
            brush.lay(eight, pixels + at);
            std::memset(coverage + at, 0, sizeof eight);
        }
    }
    m_first_covered = m_height;
    m_end_covered = 0;
}

} // namespace tickervantage
