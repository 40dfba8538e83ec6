#include "studies/history/lane_painter.h"

#include "draw/graph_geometry.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double most_room = 22;
constexpr double share_of_lane = 0.8;
constexpr double missed_share = 0.35; // of the lane's height, when none of eight polls was answered
constexpr double hatch_step = 6;

// In a column that many states share, the worst is seen.
SourceStanding worse(SourceStanding one, SourceStanding other) {
    return std::max(one, other);
}

struct Run {
    double left;
    double right;
    SourceStanding standing;
    unsigned missed; // of eight
};

unsigned missed_of(unsigned reach) {
    return 8U - static_cast<unsigned>(std::popcount(reach & 0xFFU));
}

// Stretches put together until each can be seen.
std::vector<Run> runs_of(const HistoryLane& lane, const ColumnGrid& grid) {
    std::vector<Run> runs;
    auto at =
        std::ranges::lower_bound(lane.stretches, grid.range.from, {}, [](const auto& one) { return one.range.to; });
    for (; at != lane.stretches.end() && at->range.from <= grid.range.to; ++at) {
        const double left = std::max(grid.place_of(at->range.from), grid.area.x);
        const double right = std::min(std::max(grid.place_of(at->range.to), left + grid.pixel), right_edge(grid.area));
        const Run run{left, right, standing_of(at->rule), missed_of(at->reach)};
        if (right <= left)
            continue;
        if (!runs.empty() && run.right - runs.back().left < 2 * grid.pixel) {
            runs.back() = {runs.back().left, std::max(run.right, runs.back().right),
                           worse(runs.back().standing, run.standing), std::max(runs.back().missed, run.missed)};
        } else if (!runs.empty() && runs.back().standing == run.standing && runs.back().missed == run.missed &&
                   run.left - runs.back().right < grid.pixel) {
            runs.back().right = run.right;
        } else {
            runs.push_back(run);
        }
    }
    return runs;
}

void hatch(Canvas& canvas, Rect box, bool rising, const Ink& ink) {
    Path lines;
    const double first = std::floor((box.x - box.height) / hatch_step) * hatch_step;
    for (double x = first; x < right_edge(box); x += hatch_step) {
        const Segment line = rising ? Segment{{x, box.y}, {x + box.height, upper_edge(box)}}
                                    : Segment{{x, upper_edge(box)}, {x + box.height, box.y}};
        if (const auto seen = clipped(line, box))
            lines.add_line(seen->from, seen->to);
    }
    canvas.stroke(lines, {.ink = ink, .width = 1});
}

} // namespace

Color color_of(SourceStanding standing) {
    switch (standing) {
    case SourceStanding::best:
        return {0.09, 0.52, 0.22, 1};
    case SourceStanding::combined:
        return {0.20, 0.63, 0.33, 1};
    case SourceStanding::spare:
        return {0.10, 0.38, 0.78, 1};
    case SourceStanding::waiting:
        return {0.72, 0.47, 0.0, 1};
    case SourceStanding::refused:
        return {0.78, 0.05, 0.12, 1};
    case SourceStanding::silent:
        break;
    }
    return {0.45, 0.45, 0.48, 1};
}

double LaneLayout::height() const {
    return count == 0 ? 0 : std::min(most_room, area.height / static_cast<double>(count));
}

Rect LaneLayout::lane(std::size_t at) const {
    const double room = height();
    const double top = upper_edge(area) - room * static_cast<double>(at);
    return {area.x, top - room * (1 + share_of_lane) / 2, area.width, room * share_of_lane};
}

std::optional<std::size_t> LaneLayout::lane_at(double y) const {
    const double from_top = upper_edge(area) - y;
    if (count == 0 || from_top < 0 || from_top >= height() * static_cast<double>(count))
        return std::nullopt;
    return static_cast<std::size_t>(from_top / height());
}

void draw_standing(Canvas& canvas, Rect box, SourceStanding standing) {
    const Ink ink = canvas.readable(color_of(standing));
    const bool is_used = standing == SourceStanding::best || standing == SourceStanding::combined;
    canvas.fill_rects(std::span(&box, 1), ink.faded(standing == SourceStanding::best ? 0.9 : is_used ? 0.6 : 0.22));
    if (box.width < 3 || is_used)
        return;
    hatch(canvas, box, true, ink.faded(0.8));
    if (standing == SourceStanding::refused || standing == SourceStanding::silent)
        hatch(canvas, box, false, ink.faded(0.8));
}

void draw_lane(Canvas& canvas, const ColumnGrid& grid, Rect box, const HistoryLane& lane) {
    const Ink red(ColorRole::red);
    for (const Run& run : runs_of(lane, grid)) {
        draw_standing(canvas, {run.left, box.y, run.right - run.left, box.height}, run.standing);
        const Rect missed{run.left, box.y, run.right - run.left, box.height * missed_share * run.missed / 8};
        if (run.missed > 0)
            canvas.fill_rects(std::span(&missed, 1), red);
    }
}

} // namespace tickervantage
