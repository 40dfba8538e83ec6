// Word that the machine has woken up.
#pragma once

#include "base/failure.h"

#include <chrono>
#include <optional>

namespace tickervantage {

class SleepSignals {
public:
    enum class News : unsigned char {
        woke,
        nothing, // the time is over
        lost,    // nothing will come any more; connect() again
    };

    virtual ~SleepSignals() = default;

    // A failure when there is nobody to listen to.
    [[nodiscard]] virtual Result<> connect() = 0;

    // Blocks until there is news, for ever without a limit.
    [[nodiscard]] virtual News wait(std::optional<std::chrono::milliseconds> limit) = 0;
};

} // namespace tickervantage
