// One spectrum of 4096 samples, from the samples to the normalised bins, against the bare library: setting up, running
// and freeing one complex transform of that length.
#include "studies/spectrum/transform.h"

#include <benchmark/benchmark.h>
#include <kissfft/kiss_fft.h>

#include <algorithm>
#include <random>
#include <vector>

namespace tickervantage {
namespace {

constexpr int LENGTH = 4096;

std::vector<double> samples() {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0, 1e-6);
    std::vector<double> result(LENGTH);
    std::ranges::generate(result, [&] { return noise(random); });
    return result;
}

void kissfft(benchmark::State& state) {
    std::vector<kiss_fft_cpx> input;
    for (const double sample : samples())
        input.push_back({static_cast<float>(sample), 0});
    std::vector<kiss_fft_cpx> output(input.size());
    for (auto _ : state) {
        kiss_fft_cfg setup = kiss_fft_alloc(LENGTH, 0, nullptr, nullptr);
        kiss_fft(setup, input.data(), output.data());
        kiss_fft_free(setup);
        benchmark::DoNotOptimize(output.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(kissfft);

void spectrum(benchmark::State& state) {
    const std::vector<double> input = samples();
    for (auto _ : state) {
        const SpectrumPair bins = spectrumOf(input);
        benchmark::DoNotOptimize(bins.phases.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(spectrum);

} // namespace
} // namespace tickervantage

BENCHMARK_MAIN();
