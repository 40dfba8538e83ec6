#include "studies/freqtemp/dot_counts.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

namespace tickervantage {
namespace {

constexpr std::size_t EIGHT = 8; // pixels that are counted together
constexpr std::uint64_t ONES = 0x0101'0101'0101'0101;

static_assert(DotCounts::FULL == 8, "bit 3 tells a full count");
static_assert(std::endian::native == std::endian::little, "the first of eight pixels is the lowest byte");

std::uint64_t eight_at(const std::uint8_t* pixels) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, pixels, sizeof eight);
    return eight;
}

void paint_run(const std::uint8_t* counts, int length, const DotShades& shades, std::uint32_t* pixels) {
    for (int at = 0; at < length; ++at) {
        const DotShades::Shade& shade = shades.by_count[counts[at]];
        if (shade.rest == 0)
            pixels[at] = shade.source; // what is hidden is not read: waiting for it costs the most
        else if (shade.rest < 255)
            pixels[at] = shade.source + scaled_pixel(pixels[at], shade.rest);
    }
}

} // namespace

PixelBox common(const PixelBox& one, const PixelBox& other) {
    const int left = std::max(one.left, other.left);
    const int top = std::max(one.top, other.top);
    return {left, top, std::max(left, std::min(one.right, other.right)),
            std::max(top, std::min(one.bottom, other.bottom))};
}

DotShades::DotShades(const Color& color) {
    const auto bits = [](double value) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    const double through = 1 - std::clamp(color.alpha, 0.0, 1.0);
    double rest = 1;
    for (auto& shade : by_count) {
        const double alpha = 1 - rest;
        shade.source = bits(alpha) << 24 | bits(color.red * alpha) << 16 | bits(color.green * alpha) << 8 |
                       bits(color.blue * alpha);
        shade.rest = 255 - bits(alpha);
        rest *= through;
    }
}

DotCounts::DotCounts(int width, int height, int side)
    : m_width(width), m_height(height), m_side(side), m_stride(static_cast<std::size_t>(width + 2 * side) + EIGHT),
      m_counts(m_stride * static_cast<std::size_t>(height + 2 * side)) {
    for (auto left = static_cast<std::size_t>(side); left > 0; left -= std::min(left, EIGHT))
        m_square_row.push_back(left >= EIGHT ? ONES : ONES >> (8 * (EIGHT - left)));
}

void DotCounts::add(Corner corner, unsigned times) {
    times = std::min(times, FULL - 1);
    std::uint8_t* line = m_counts.data() + static_cast<std::size_t>(corner.row) * m_stride + corner.column;
    for (int row = 0; row < m_side; ++row, line += m_stride) {
        std::uint8_t* at = line;
        for (const std::uint64_t ones : m_square_row) {
            std::uint64_t counts = eight_at(at);
            counts += ones * times; // 15 at most
            const std::uint64_t full = counts & (ONES * FULL);
            counts &= ~(full - (full >> 3)); // 8 again
            std::memcpy(at, &counts, sizeof counts);
            at += EIGHT;
        }
    }
}

void DotCounts::erase(Corner corner) {
    std::uint8_t* line = m_counts.data() + static_cast<std::size_t>(corner.row) * m_stride + corner.column;
    for (int row = 0; row < m_side; ++row, line += m_stride) {
        std::uint8_t* at = line;
        for (const std::uint64_t ones : m_square_row) {
            const std::uint64_t others = eight_at(at) & ~(ones * 0xFF);
            std::memcpy(at, &others, sizeof others);
            at += EIGHT;
        }
    }
}

std::size_t DotCounts::place(int row) const {
    return static_cast<std::size_t>(row + m_side) * m_stride + static_cast<std::size_t>(m_side);
}

void DotCounts::paint(const PixelBox& box, const PixelBox& limits, const DotShades& shades, const PixelRows& pixels) {
    constexpr int step = EIGHT;
    const PixelBox seen = common(box, limits);
    std::uint8_t* counts = m_counts.data() + place(box.top);
    for (int row = box.top; row < box.bottom; ++row, counts += m_stride)
        for (int at = box.left; at < box.right; at += step) {
            if (eight_at(counts + at) == 0)
                continue;
            const int first = std::max(at, seen.left);
            const int end = std::min(at + step, seen.right);
            if (row >= seen.top && row < seen.bottom && first < end)
                paint_run(counts + first, end - first, shades, pixels.first + row * pixels.stride + first);
            std::memset(counts + at, 0, static_cast<std::size_t>(std::min(step, box.right - at)));
        }
}

// The runs of one row's pixels that are covered `level` times or more.
void DotCounts::find_runs(int row, unsigned level, std::vector<Box>& runs) const {
    runs.clear();
    const std::uint8_t* const counts = m_counts.data() + place(row);
    const std::uint8_t* const end = counts + m_width;
    const auto is_covered = [level](std::uint8_t count) {
        return count >= level;
    };
    for (const std::uint8_t* at = counts; at != end;) {
        const std::uint8_t* const first = std::find_if(at, end, is_covered);
        at = std::find_if_not(first, end, is_covered);
        if (first != end)
            runs.push_back({static_cast<int>(first - counts), row, static_cast<int>(at - first), 1});
    }
}

// Equal runs of neighbouring rows are one box.
std::vector<DotCounts::Box> DotCounts::boxes(unsigned level) const {
    std::vector<Box> done;
    std::vector<Box> open; // those that reach down to the row, from the left
    std::vector<Box> runs;
    for (int row = 0; row < m_height; ++row) {
        find_runs(row, level, runs);
        auto above = open.begin();
        for (auto& run : runs) {
            const auto from = above;
            above = std::find_if(above, open.end(), [&run](const Box& box) { return box.left >= run.left; });
            done.insert(done.end(), from, above);
            if (above != open.end() && above->left == run.left && above->width == run.width) {
                run = {run.left, above->top, run.width, above->height + 1};
                ++above;
            }
        }
        done.insert(done.end(), above, open.end());
        open.swap(runs);
    }
    done.insert(done.end(), open.begin(), open.end());
    return done;
}

} // namespace tickervantage
