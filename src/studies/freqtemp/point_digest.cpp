#include "studies/freqtemp/point_digest.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr std::size_t CELLS = 512; // on each side of the grid; a square covers one of them on any screen
constexpr std::uint8_t FULL = 3;
constexpr double MOST_DEGREES = 10'000; // no temperature of a machine comes near: a file may hold anything

std::size_t cell_of(double value, double low, double width) {
    return std::min(CELLS - 1, static_cast<std::size_t>((value - low) / width * CELLS));
}

// A range of no length is one cell wide.
double width_of(double low, double high) {
    return high > low && std::isfinite(high - low) ? high - low : std::max(1.0, std::abs(low));
}

// From cell to cell, as they lie in memory when they are drawn.
std::vector<PointDigest::Dot> ordered(const std::vector<PointDigest::Dot>& dots,
                                      const std::vector<std::uint32_t>& cells) {
    std::vector<PointDigest::Dot> result;
    result.reserve(dots.size());
    for (const std::uint32_t cell : cells)
        if (cell != 0)
            result.push_back(dots[cell - 1]);
    return result;
}

std::vector<PointDigest::Dot> thinned(const PointList& points, const PointExtent& extent) {
    const double width = width_of(extent.min_temperature, extent.max_temperature);
    const double height = width_of(extent.min_frequency, extent.max_frequency);
    std::vector<std::uint32_t> cells(CELLS * CELLS); // number of the cell's dot, from 1
    std::vector<PointDigest::Dot> dots;
    for (const auto& part : points.spans())
        for (std::size_t i = 0; i < part.x.size(); ++i) {
            auto& cell = cells[cell_of(part.y[i], extent.min_frequency, height) * CELLS +
                               cell_of(part.x[i], extent.min_temperature, width)];
            if (cell == 0) {
                dots.push_back({.point = {part.x[i], part.y[i]}, .count = 1});
                cell = static_cast<std::uint32_t>(dots.size());
            } else if (auto& dot = dots[cell - 1]; dot.count < FULL) {
                ++dot.count;
            }
        }
    return ordered(dots, cells);
}

} // namespace

void freqStats::add(double frequency) {
    ++count;
    const double delta = frequency - mean;
    mean += delta / static_cast<double>(count);
    variance += delta * (frequency - mean);
}

std::vector<freqStats> mean_frequencies(const PointList& points, double min_temperature, std::size_t bins) {
    std::vector<freqStats> result(bins);
    const double first = min_temperature - 0.5;
    for (const auto& part : points.spans())
        for (std::size_t i = 0; i < part.x.size(); ++i)
            if (const double bin = part.x[i] - first; bin >= 0 && bin < static_cast<double>(bins))
                result[static_cast<std::size_t>(bin)].add(part.y[i]);
    return result;
}

std::shared_ptr<const PointDigest> make_digest(const PointList& points) {
    if (points.size() < DIGEST_FROM)
        return nullptr;
    const auto extent = *points.extent();
    auto digest = std::make_shared<PointDigest>();
    digest->dots = thinned(points, extent);
    digest->first_degree = std::floor(extent.min_temperature);
    digest->means =
        mean_frequencies(points, digest->first_degree, degree_bins(digest->first_degree, extent.max_temperature));
    digest->last = points.back();
    return digest;
}

std::size_t degree_bins(double min_temperature, double max_temperature) {
    return static_cast<std::size_t>(
               std::clamp(std::floor(max_temperature - min_temperature + 0.5), 0.0, MOST_DEGREES)) +
           1;
}

} // namespace tickervantage
