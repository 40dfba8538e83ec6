#include "studies/freqtemp/plot_look.h"

#include <algorithm>

namespace tickervantage::plot_look {
namespace {

constexpr int FIT_STEPS = 100;
constexpr std::size_t FEWEST_FOR_FIT = 3;
constexpr double LIGHTER = 0.2; // 20 hundredths added to each part of the colour

} // namespace

bool is_shown(const scatterEntry& entry) {
    return entry.selected && !entry.points.empty();
}

bool has_drawn_fit(const scatterEntry& entry) {
    return entry.points.size() >= FEWEST_FOR_FIT && entry.quadRegression->valid;
}

freqPoint newest_of(const scatterEntry& entry) {
    return entry.digest ? entry.digest->last : entry.points.back();
}

Color solid(Color color) {
    color.alpha = 1;
    return color;
}

Color lighter(const Color& color) {
    const auto part = [](double value) {
        return std::min(1.0, value + LIGHTER);
    };
    return {part(color.red), part(color.green), part(color.blue), color.alpha};
}

std::vector<freqPoint> curve_of(const QuadRegression& fit) {
    std::vector<freqPoint> corners;
    corners.reserve(FIT_STEPS + 1);
    const int steps = fit.x_max > fit.x_min ? FIT_STEPS : 0;
    for (int i = 0; i <= steps; ++i) {
        const double x = fit.x_min + (fit.x_max - fit.x_min) * i / FIT_STEPS;
        corners.push_back({x, fit.evaluate(x)});
    }
    return corners;
}

std::vector<freqPoint> mean_line(const std::vector<freqStats>& means, double first) {
    std::vector<freqPoint> corners;
    for (std::size_t bin = 0; bin < means.size(); ++bin)
        if (means[bin].count > 0)
            corners.push_back({first + static_cast<double>(bin), means[bin].mean});
    return corners;
}

} // namespace tickervantage::plot_look
