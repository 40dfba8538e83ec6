#include "studies/freqtemp/dot_counts.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

namespace tickervantage {
namespace {

constexpr std::size_t EIGHT = 8; // pixels that are counted together
constexpr std::size_t BLOCK = 4 * EIGHT;
constexpr std::uint64_t ONES = 0x0101'0101'0101'0101;

static_assert(DotCounts::FULL == 8, "bit 3 tells a full count");
static_assert(std::endian::native == std::endian::little, "the first of eight pixels is the lowest byte");

std::uint64_t eight_at(const std::uint8_t* pixels) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, pixels, sizeof eight);
    return eight;
}

struct Shade {
    std::uint32_t source = 0; // multiplied by its alpha
    std::uint32_t rest = 255; // how much is left of what was there
};
using Shades = std::array<Shade, DotCounts::FULL + 1>;

// What comes of laying the colour over something as many times.
Shades shades_of(const Color& color) {
    const auto bits = [](double value) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    const double through = 1 - std::clamp(color.alpha, 0.0, 1.0);
    Shades shades;
    for (std::size_t times = 1; times < shades.size(); ++times) {
        const double alpha = 1 - std::pow(through, static_cast<double>(times));
        shades[times].source = bits(alpha) << 24 | bits(color.red * alpha) << 16 | bits(color.green * alpha) << 8 |
                               bits(color.blue * alpha);
        shades[times].rest = 255 - bits(alpha);
    }
    return shades;
}

void paint_run(const std::uint8_t* counts, std::size_t length, const Shades& shades, std::uint32_t* pixels) {
    for (std::size_t at = 0; at < length; ++at) {
        const Shade& shade = shades[counts[at]];
        if (shade.rest == 0)
            pixels[at] = shade.source; // what is hidden is not read: waiting for it costs the most
        else if (shade.rest < 255)
            pixels[at] = shade.source + scaled_pixel(pixels[at], shade.rest);
    }
}

} // namespace

DotCounts::DotCounts(int width, int height, int side)
    : m_width(width), m_height(height), m_side(side),
      m_stride((static_cast<std::size_t>(width + 2 * side) + EIGHT + BLOCK - 1) / BLOCK * BLOCK),
      m_counts(m_stride * static_cast<std::size_t>(height + 2 * side)) {
    for (auto left = static_cast<std::size_t>(side); left > 0; left -= std::min(left, EIGHT))
        m_square_row.push_back(left >= EIGHT ? ONES : ONES >> (8 * (EIGHT - left)));
}

void DotCounts::add(double x, double y, unsigned times) {
    const double corner = m_side - m_side / 2.0 + 0.5; // from the middle to the corner, to be rounded down
    const double column = x + corner;
    const double row = y + corner;
    if (!(column >= 0 && row >= 0 && column < m_width + m_side && row < m_height + m_side))
        return;
    const std::size_t corner_at = static_cast<std::size_t>(row) * m_stride + static_cast<std::size_t>(column);
    cover(m_counts.data() + corner_at, std::min(times, FULL - 1));
}

void DotCounts::cover(std::uint8_t* corner, unsigned times) {
    for (int row = 0; row < m_side; ++row, corner += m_stride) {
        std::uint8_t* at = corner;
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

std::size_t DotCounts::place(int row) const {
    return static_cast<std::size_t>(row + m_side) * m_stride + static_cast<std::size_t>(m_side);
}

void DotCounts::paint(const Color& color, const PixelRows& pixels) {
    const Shades shades = shades_of(color);
    const auto border = static_cast<std::size_t>(m_side);
    for (int row = 0; row < m_height + 2 * m_side; ++row) {
        const int above = row - m_side;
        const bool is_inside = above >= 0 && above < m_height;
        std::uint8_t* const counts = m_counts.data() + static_cast<std::size_t>(row) * m_stride;
        for (std::size_t block = 0; block < m_stride; block += BLOCK) {
            std::uint8_t* const at = counts + block;
            if ((eight_at(at) | eight_at(at + EIGHT) | eight_at(at + 2 * EIGHT) | eight_at(at + 3 * EIGHT)) == 0)
                continue;
            if (is_inside) {
                const std::size_t first = std::max(block, border);
                const std::size_t end_column = std::min(block + BLOCK, border + static_cast<std::size_t>(m_width));
                if (first < end_column)
                    paint_run(counts + first, end_column - first, shades,
                              pixels.first + above * pixels.stride + (first - border));
            }
            std::memset(at, 0, BLOCK);
        }
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
