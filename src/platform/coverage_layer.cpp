#include "platform/coverage_layer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace tickervantage {

namespace {

constexpr float FULL = 255;

std::uint32_t divided_by_255(std::uint32_t value) {
    return (value + 128 + ((value + 128) >> 8)) >> 8;
}

// All four channels of a pixel times share / 255.
std::uint32_t scaled(std::uint32_t pixel, std::uint32_t share) {
    const auto halves = [share](std::uint32_t two) { // two channels, 16 bits apart
        const std::uint32_t product = two * share + 0x0080'0080;
        return ((product + ((product >> 8) & 0x00FF'00FF)) >> 8) & 0x00FF'00FF;
    };
    return halves(pixel & 0x00FF'00FF) | (halves((pixel >> 8) & 0x00FF'00FF) << 8);
}

std::uint32_t premultiplied(const Color& color) {
    const auto channel = [](double value) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    const std::uint32_t alpha = channel(color.alpha);
    return alpha << 24 | divided_by_255(channel(color.red) * alpha) << 16 |
           divided_by_255(channel(color.green) * alpha) << 8 | divided_by_255(channel(color.blue) * alpha);
}

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

std::size_t area(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

} // namespace

CoverageLayer::CoverageLayer(int width, int height)
    : m_width(width), m_height(height), m_first_covered(height), m_first_painted(height),
      m_coverage(area(width, height)), m_pixels(area(width, height)) {}

// Steep lines row by row, flat ones column by column: in each the line covers a short piece, slanted lines a longer
// one than their width.
void CoverageLayer::add_line(Point from, Point to, double line_width) {
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
    const float half = static_cast<float>(line_width) / 2 * std::sqrt(1 + slope * slope);
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

void CoverageLayer::cover(int row, float left, float right, float weight) {
    left = std::max(left, 0.0F);
    right = std::min(right, static_cast<float>(m_width));
    if (left < right)
        cover_piece(m_coverage.data() + area(m_width, row), 1, left, right, weight);
}

void CoverageLayer::cover_column(int column, float top, float bottom, float weight) {
    top = std::max(top, 0.0F);
    bottom = std::min(bottom, static_cast<float>(m_height));
    if (!(top < bottom))
        return;
    touch(static_cast<int>(top), static_cast<int>(std::ceil(bottom)));
    cover_piece(m_coverage.data() + column, m_width, top, bottom, weight);
}

void CoverageLayer::add_box(Rect box) {
    const auto edge = [](double at, int limit) {
        return static_cast<int>(std::clamp(std::floor(at + 0.5), 0.0, static_cast<double>(limit)));
    };
    const double right = std::max(box.x + box.width, box.x + 1);
    const double bottom = std::max(box.y + box.height, box.y + 1);
    const int first_column = edge(box.x, m_width);
    const int columns = edge(right, m_width) - first_column;
    const int first_row = edge(box.y, m_height);
    const int end_row = edge(bottom, m_height);
    if (columns <= 0)
        return;
    touch(first_row, end_row);
    std::uint8_t* at = m_coverage.data() + area(m_width, first_row) + first_column;
    for (int row = first_row; row < end_row; ++row, at += m_width)
        if (columns == 1)
            *at = 255;
        else
            std::memset(at, 255, static_cast<std::size_t>(columns));
}

void CoverageLayer::touch(int first_row, int end_row) {
    m_first_covered = std::min(m_first_covered, std::max(0, first_row));
    m_end_covered = std::max(m_end_covered, std::min(m_height, end_row));
}

void CoverageLayer::paint(const Color& color) {
    if (m_first_covered >= m_end_covered)
        return;
    std::array<std::uint32_t, 256> by_coverage{};
    for (std::uint32_t share = 0; share < 256; ++share)
        by_coverage[share] = scaled(premultiplied(color), share);
    const std::size_t end = area(m_width, m_end_covered);
    for (std::size_t i = area(m_width, m_first_covered); i < end;) {
        std::uint64_t eight = 0;
        if (i + sizeof eight <= end) {
            std::memcpy(&eight, m_coverage.data() + i, sizeof eight);
            if (eight == 0) {
                i += sizeof eight;
                continue;
            }
        }
        if (eight == ~std::uint64_t{0}) {
            const std::uint32_t source = by_coverage[255];
            for (std::size_t one = 0; one < sizeof eight; ++one)
                m_pixels[i + one] = source + scaled(m_pixels[i + one], 255 - (source >> 24));
            std::memset(m_coverage.data() + i, 0, sizeof eight);
            i += sizeof eight;
            continue;
        }
        const std::size_t stop = std::min(end, i + sizeof eight);
        for (; i < stop; ++i) {
            const std::uint32_t source = by_coverage[m_coverage[i]];
            m_pixels[i] = source + scaled(m_pixels[i], 255 - (source >> 24));
            m_coverage[i] = 0;
        }
    }
    m_first_painted = std::min(m_first_painted, m_first_covered);
    m_end_painted = std::max(m_end_painted, m_end_covered);
    m_first_covered = m_height;
    m_end_covered = 0;
}

} // namespace tickervantage
