#include "draw/coverage_brush.h"

#include <algorithm>
#include <bit>
#include <cmath>

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

} // namespace tickervantage
