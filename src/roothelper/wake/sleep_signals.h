// Word that the machine has woken up.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace tickervantage {

class SleepSignals {
public:
    enum class News : unsigned char {
        woke,
        nothing, // the time is over
        lost,    // nothing will come any more; connect() again
    };

    virtual ~SleepSignals() = default;

    // -1 and one sentence when there is nobody to listen to.
    [[nodiscard]] virtual int connect(std::string& sentence) = 0;

    // Blocks until there is news, for ever without a limit.
    [[nodiscard]] virtual News wait(std::optional<std::chrono::milliseconds> limit) = 0;
};

} // namespace tickervantage
