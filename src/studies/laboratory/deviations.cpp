#include "studies/laboratory/deviations.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <numbers>

namespace tickervantage {
namespace {

constexpr std::array<std::string_view, stability_measures.size()> names{"adev", "oadev", "mdev",
                                                                        "tdev", "hdev",  "mtie"};

struct SquareSum {
    double sum = 0;
    std::size_t n = 0;

    void add(double value) {
        sum += value * value;
        ++n;
    }
};

// Second differences over `factor` values, each `step` values further on.
void add_allan(std::span<const double> x, std::size_t factor, std::size_t step, SquareSum& squares) {
    for (std::size_t at = 0; at + 2 * factor < x.size(); at += step)
        squares.add(x[at + 2 * factor] - 2 * x[at + factor] + x[at]);
}

void add_hadamard(std::span<const double> x, std::size_t factor, SquareSum& squares) {
    for (std::size_t at = 0; at + 3 * factor < x.size(); ++at)
        squares.add(x[at + 3 * factor] - 3 * x[at + 2 * factor] + 3 * x[at + factor] - x[at]);
}

// Second differences of means over `factor` values: the sum goes on from one place to the next by what comes and goes.
void add_modified(std::span<const double> x, std::size_t factor, SquareSum& squares) {
    if (x.size() < 3 * factor)
        return;
    long double sum = 0;
    for (std::size_t at = 0; at < factor; ++at)
        sum += x[at + 2 * factor] - 2 * x[at + factor] + x[at];
    const auto length = static_cast<double>(factor);
    squares.add(static_cast<double>(sum) / length);
    for (std::size_t at = 0; at + 3 * factor < x.size(); ++at) {
        sum += x[at + 3 * factor] - 3 * x[at + 2 * factor] + 3 * x[at + factor] - x[at];
        squares.add(static_cast<double>(sum) / length);
    }
}

// The values that may still be the window's largest, in falling order, with the places they stand at.
template <typename Before>
class ExtremeOfWindow {
public:
    void add(std::span<const double> x, std::size_t at) {
        while (!m_places.empty() && !Before()(x[m_places.back()], x[at]))
            m_places.pop_back();
        m_places.push_back(at);
    }
    void forget_before(std::size_t first) {
        while (m_places.front() < first)
            m_places.pop_front();
    }
    [[nodiscard]] std::size_t place() const { return m_places.front(); }

private:
    std::deque<std::size_t> m_places;
};

void add_largest_interval_error(std::span<const double> x, std::size_t factor, double& largest, std::size_t& n) {
    ExtremeOfWindow<std::greater<>> high;
    ExtremeOfWindow<std::less<>> low;
    for (std::size_t at = 0; at < x.size(); ++at) {
        high.add(x, at);
        low.add(x, at);
        if (at < factor)
            continue;
        high.forget_before(at - factor);
        low.forget_before(at - factor);
        largest = std::max(largest, x[high.place()] - x[low.place()]);
        ++n;
    }
}

std::optional<Deviation> largest_interval_error(const PhaseSegments& segments, std::size_t factor) {
    Deviation found;
    for (const auto& segment : segments)
        add_largest_interval_error(segment, factor, found.value, found.n);
    return found.n > 0 ? std::optional(found) : std::nullopt;
}

SquareSum squares_of(StabilityMeasure measure, const PhaseSegments& segments, std::size_t factor) {
    SquareSum squares;
    for (const auto& segment : segments) {
        if (measure == StabilityMeasure::hdev)
            add_hadamard(segment, factor, squares);
        else if (measure == StabilityMeasure::mdev || measure == StabilityMeasure::tdev)
            add_modified(segment, factor, squares);
        else
            add_allan(segment, factor, measure == StabilityMeasure::adev ? factor : 1, squares);
    }
    return squares;
}

} // namespace

std::string_view name_of(StabilityMeasure measure) {
    return names.at(static_cast<std::size_t>(measure));
}

std::optional<StabilityMeasure> stability_measure_named(std::string_view name) {
    const auto* const found = std::ranges::find(names, name);
    return found != names.end() ? std::optional(stability_measures.at(static_cast<std::size_t>(found - names.begin())))
                                : std::nullopt;
}

std::optional<Deviation> deviation(StabilityMeasure measure, const PhaseSegments& segments, double tau0,
                                   std::size_t factor) {
    if (measure == StabilityMeasure::mtie)
        return largest_interval_error(segments, factor);
    const SquareSum squares = squares_of(measure, segments, factor);
    if (squares.n == 0)
        return std::nullopt;
    const double tau = static_cast<double>(factor) * tau0;
    const double differences = measure == StabilityMeasure::hdev ? 6 : 2;
    const double value = std::sqrt(squares.sum / (differences * static_cast<double>(squares.n))) / tau;
    return Deviation{measure == StabilityMeasure::tdev ? value * tau / std::numbers::sqrt3 : value, squares.n};
}

} // namespace tickervantage
