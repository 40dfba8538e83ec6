// What the fuzzers hold to be true, of their seeds and of what a few changes make of them. A violation aborts.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#define X(name) extern "C" int name(const std::uint8_t* data, std::size_t size);
FUZZERS
#undef X

namespace tickervantage {
namespace {

struct Fuzzer {
    const char* name;
    int (*run)(const std::uint8_t* data, std::size_t size);
};

class Fuzzed : public ::testing::TestWithParam<Fuzzer> {};

std::vector<std::string> seeds_of(const std::string& name) {
    std::vector<std::string> seeds;
    for (const auto& entry : std::filesystem::directory_iterator(FUZZ_SEEDS "/" + name)) {
        std::ifstream file(entry.path(), std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return seeds;
}

TEST_P(Fuzzed, HoldsForSeedsAndTheirNeighbours) {
    const auto run = [](const std::string& text) {
        (void)GetParam().run(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    };
    std::mt19937 random(21);
    const auto below = [&random](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    const auto seeds = seeds_of(std::string(GetParam().name).substr(sizeof "fuzz_" - 1));
    ASSERT_FALSE(seeds.empty());
    for (const auto& seed : seeds) {
        run(seed);
        for (int round = 0; round < 200 && !seed.empty(); ++round) {
            std::string text = seed;
            for (std::size_t change = below(4) + 1; change > 0 && !text.empty(); --change) {
                const std::size_t at = below(text.size());
                switch (below(4)) {
                case 0:
                    text.erase(at, below(8));
                    break;
                case 1:
                    text[at] = static_cast<char>(below(256));
                    break;
                case 2:
                    text.insert(at, text.substr(below(text.size()), below(40)));
                    break;
                default:
                    text[at] = "0 \n:-\"\\.9"[below(9)];
                }
            }
            run(text);
        }
    }
}

#define X(name) Fuzzer{#name, name},
constexpr Fuzzer fuzzers[] = {FUZZERS};
#undef X

INSTANTIATE_TEST_SUITE_P(All, Fuzzed, ::testing::ValuesIn(fuzzers),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
} // namespace tickervantage
