// The day before a demonstration: what a chronyd would have said and logged that followed the demonstration's servers,
// so that a history has something to show. Made here, by a simulation with a fixed seed; a pure function of its end.
//
// In hours before the end: at 21.5 one server goes wrong and is outvoted until 20; from 16.7 to 14.9 another one is
// followed; at 9.25 all servers fall silent for 75 minutes, and the clock is 5 ms off when they come back; at 4.5
// chronyd is restarted with a new configuration.
#pragma once

#include "chrony/data/reports.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tickervantage {

// The demonstration's servers, recorded as live. The first is of a better stratum than the others, so that it is clear
// who is followed.
inline constexpr std::array demonstration_servers{"127.0.0.1", "127.0.0.2", "127.0.0.3"};
[[nodiscard]] constexpr int demonstration_stratum(std::size_t server) {
    return server == 0 ? 5 : 6;
}

struct RecordedLogs {
    std::string tracking; // as chronyd writes them
    std::string measurements;
    std::string statistics;
};

struct RecordedDay {
    std::vector<ChronyReports> readings; // one each 10 s, with its time; without "tracking": chronyd was away
    std::int64_t installed = 0;          // s since 1970: a new configuration was
    RecordedLogs logs;
};

[[nodiscard]] RecordedDay recorded_day(std::int64_t end); // s since 1970

} // namespace tickervantage
