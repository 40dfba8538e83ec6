// Reads the history of the clock, also while another process adds to it. Calls wait for the disk; one thread at a time.
#pragma once

#include "history/database.h"
#include "history/records.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class HistoryReader {
public:
    // Fails with no_such_file where there is none. Files of later versions are read as far as they are known.
    [[nodiscard]] static Result<HistoryReader> open(const std::string& path);

    // By time, oldest first.
    [[nodiscard]] Result<std::vector<HistoryRow>> rows(const HistoryPeriod& period);
    // The newest one.
    [[nodiscard]] Result<std::optional<HistoryRow>> last_row();
    // Of one source, or of all.
    [[nodiscard]] Result<std::vector<SourceRow>> sources(const HistoryPeriod& period,
                                                         const std::optional<std::string>& source = std::nullopt);
    [[nodiscard]] Result<std::vector<HistoryEvent>> events(const HistoryPeriod& period);

protected:
    Database m_database;
};

} // namespace tickervantage
