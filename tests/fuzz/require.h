// What a fuzzer holds to be true: a violation ends it like a crash, so that its input is kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

inline void require(bool holds) {
    if (!holds)
        std::abort();
}
