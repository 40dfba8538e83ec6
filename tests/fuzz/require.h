// What a fuzzer holds to be true: a violation ends it like a crash, so that its input is kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace tickervantage {}
using namespace tickervantage;

inline void require(bool holds) {
    if (!holds)
        std::abort();
}

// What is done with any bytes, under the name that they have there.
#define FUZZED(bytes)                                                                                                  \
    static void run_fuzzed(const std::string& bytes);                                                                  \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {                                \
        run_fuzzed(std::string(data, data + size));                                                                    \
        return 0;                                                                                                      \
    }                                                                                                                  \
    static void run_fuzzed(const std::string& bytes)
