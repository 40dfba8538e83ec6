#include "studies/tracking/value_fit.h"

#include "draw/plots/performance_graph.h"
#include "settings/settings_keys.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double FILLED = 0.9;          // of the height; the title and the dates stand beyond
constexpr double SMALL_SHARE = 0.1;     // of the values may rest on the zero line
constexpr double MOST_DECADES = 5;      // on either side of it
constexpr double FEWEST_DECADES = 0.25; // stretched over all of the height
constexpr double LABEL_EVERY = 50;      // points of the linear axis
constexpr double WORTH_OF_TRUTH = 12;   // a true axis may be so many times flatter than one that is not

const auto& scale_key = settings::tracking_vScale;
const auto& zoom_key = settings::tracking_vZoom;

// As PerformanceGraph has it: a plotted unit is 10 to the power of -6 - scale seconds.
double yscale_of(double scale) {
    return std::pow(10, scale - 3) * 1e9;
}

// Of the magnitudes, the one that so small a share of them is below.
double small_one(std::vector<double>& magnitudes) {
    const auto at =
        magnitudes.begin() + static_cast<std::ptrdiff_t>(SMALL_SHARE * static_cast<double>(magnitudes.size()));
    std::ranges::nth_element(magnitudes, at);
    return *at;
}

ValueFit fit_decades(std::vector<double>& magnitudes, double largest, double room) {
    const double highest = std::ceil(std::log10(largest));
    const double wanted = std::floor(std::log10(small_one(magnitudes)));
    const double unit = std::clamp(wanted, highest - MOST_DECADES, highest - 1);
    const double scale = std::clamp(-6 - unit, scale_key.minimum, scale_key.maximum);
    const double decades = std::max(FEWEST_DECADES, std::log10(largest * yscale_of(scale)));
    const double zoom = std::floor(std::log2(room / (decades * PerformanceGraph::DEFAULT_DECADE)) * 100) / 100;
    return {scale, std::clamp(zoom, zoom_key.minimum, zoom_key.maximum)};
}

bool labels_are_true(double yscale, double linear_scale, double room) {
    for (double height = LABEL_EVERY; height < room; height += LABEL_EVERY) {
        const double value = height / linear_scale / yscale;
        const double told = labelled_value(to_integer(std::round(height / linear_scale)), yscale);
        if (std::abs(told - value) > value * 1e-6)
            return false;
    }
    return true;
}

ValueFit fit_line(double largest, double room) {
    ValueFit best{scale_key.minimum, zoom_key.minimum};
    double highest = -1;
    for (double scale = scale_key.minimum; scale <= scale_key.maximum; ++scale)
        for (double zoom = zoom_key.minimum; zoom <= zoom_key.maximum; ++zoom) {
            const double linear_scale = std::exp2(zoom);
            const double height = largest * yscale_of(scale) * linear_scale;
            const bool is_true = labels_are_true(yscale_of(scale), linear_scale, room);
            const double worth = height * (is_true ? WORTH_OF_TRUTH : 1);
            if (height <= room && worth > highest) {
                highest = worth;
                best = {scale, zoom};
            }
        }
    return best;
}

} // namespace

std::optional<ValueFit> fit_values(std::vector<double> values, bool use_logscale, double height) {
    std::ranges::transform(values, values.begin(), [](double value) { return std::abs(value); });
    std::erase_if(values, [](double magnitude) { return !(magnitude > 0 && std::isfinite(magnitude)); });
    if (values.empty())
        return std::nullopt;
    const double largest = std::ranges::max(values);
    const double room = std::max(1.0, height / 2 * FILLED);
    return use_logscale ? fit_decades(values, largest, room) : fit_line(largest, room);
}

} // namespace tickervantage
