// The periodogram of a million values at uneven times, against the three bare transforms that it cannot do without: of
// the same length, set up, run and freed. One JSON object, processor time in seconds, medians of turns.
#include "studies/laboratory/periodogram.h"
#include "studies/laboratory/trigonometric_sums.h"

#include <kissfft/kiss_fftr.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::size_t values = 1'000'000;
constexpr std::size_t grid = 4 * values;

double processor_seconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

template <typename Work>
double seconds_of(const Work& work) {
    const double start = processor_seconds();
    work();
    return processor_seconds() - start;
}

double median(std::vector<double> of) {
    std::ranges::sort(of);
    return of[of.size() / 2];
}

UnevenSeries uneven_series() {
    std::mt19937_64 random(1);
    std::normal_distribution<double> normal;
    std::uniform_int_distribution<int> late(0, 3);
    UnevenSeries series;
    for (std::size_t at = 0; at < values; ++at) {
        series.times.push_back(static_cast<double>(16 * at) + late(random));
        series.values.push_back(normal(random));
    }
    return series;
}

void transform(std::vector<float>& input, std::vector<kiss_fft_cpx>& output) {
    kiss_fftr_cfg setup = kiss_fftr_alloc(static_cast<int>(input.size()), 0, nullptr, nullptr);
    kiss_fftr(setup, input.data(), output.data());
    kiss_fftr_free(setup);
}

} // namespace
} // namespace tickervantage

int main(int count, char** words) {
    using namespace tickervantage;
    const int turns = count > 1 ? std::atoi(words[1]) : 5;
    const UnevenSeries series = uneven_series();
    std::vector<float> input(quick_length(grid), 0.5F);
    std::vector<kiss_fft_cpx> output(input.size() / 2 + 1);
    std::vector<double> ours;
    std::vector<double> peer;
    for (int turn = 0; turn < turns; ++turn) {
        ours.push_back(seconds_of([&] {
            if (!periodogram_of(series))
                std::abort();
        }));
        peer.push_back(seconds_of([&] {
            for (int times = 0; times < 3; ++times)
                transform(input, output);
        }));
    }
    std::printf("{\"periodogram\": %.4f, \"transforms\": %.4f}\n", median(ours), median(peer));
}
