// Adds reading after reading to the history, for as long as a program looks at the clock.
//
// Opens the file when it is first needed and again after a failure; takes over when the program that kept the history
// has ended; thins what has grown old each hour. Waits for the disk; one thread at a time.
#pragma once

#include "history/history_recorder.h"
#include "history/history_writer.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tickervantage {

class HistoryKeeper {
public:
    explicit HistoryKeeper(std::string path) : m_path(std::move(path)) {}

    // Of reports that were read at `now` (s since 1970). Why nothing was kept: while another program does it that is
    // history_has_writer.
    [[nodiscard]] Result<> keep(const ChronyReports& reports, const std::optional<ErrorBudget>& budget,
                                std::int64_t now);
    [[nodiscard]] Result<> keep(const HistoryEvent& event);

    // The name of a damaged file that was set aside since the last call; to be told.
    [[nodiscard]] std::optional<std::string> take_kept_aside();

private:
    [[nodiscard]] Result<> open();
    [[nodiscard]] Result<> thin(std::int64_t now);
    [[nodiscard]] Result<> checked(Result<> done);

    std::string m_path;
    std::optional<HistoryWriter> m_writer;
    std::optional<HistoryRow> m_last;
    std::optional<std::int64_t> m_thinned;
    std::optional<std::string> m_kept_aside;
};

} // namespace tickervantage
