// The program's own log: what it did and what went wrong, for people who look for a fault later.
#pragma once

#include <string_view>

namespace tickervantage {

enum class LogLevel : unsigned char { info, warning, error };

class Logger {
public:
    virtual ~Logger() = default;

    // One sentence, without a line break at its end. Returns at once; from any thread. Never fails: a log that cannot
    // be written says so once on standard error.
    virtual void log(LogLevel level, std::string_view sentence) = 0;
};

} // namespace tickervantage
