// What the window reads, kept in the history: a reading each ten seconds, and each that brings something new.
//
// Waits for the disk: on one queue. What goes wrong is logged once, and the window goes on.
#pragma once

#include "base/logger.h"
#include "chrony/truth/clock_truth.h"
#include "history/history_keeper.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tickervantage {

class KeptReadings {
public:
    // The logger outlives it.
    KeptReadings(std::string path, Logger& logger) : m_keeper(std::move(path)), m_logger(logger) {}

    // As it was read at `now`, s since 1970.
    void keep(const ClockTruth& truth, std::int64_t now);

private:
    void log_once(const std::string& sentence);

    HistoryKeeper m_keeper;
    Logger& m_logger;
    std::optional<HistoryRow> m_last;
    std::string m_logged;
};

} // namespace tickervantage
