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

    // As it was read at `now`, s since 1970. Whether the file has grown; a failure is for people. While another program
    // keeps the same history there is nothing to tell.
    [[nodiscard]] Result<bool> keep(const ClockTruth& truth, std::int64_t now);
    [[nodiscard]] Result<bool> keep(const HistoryEvent& event);

    // Whatever is under way or comes is not kept. Any thread.
    void stop() { m_keeper.stop(); }

private:
    [[nodiscard]] Result<bool> told(const Result<>& kept);
    void log_once(const std::string& sentence);

    HistoryKeeper m_keeper;
    Logger& m_logger;
    std::optional<HistoryRow> m_last;
    std::string m_logged;
};

} // namespace tickervantage
