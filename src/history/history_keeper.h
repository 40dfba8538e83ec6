// Adds reading after reading to the history, for as long as a program looks at the clock.
//
// Opens the file when it is first needed and again after a failure; takes over when the program that kept the history
// has ended; thins what has grown old each hour. Waits for the disk; one thread at a time, but for stop().
#pragma once

#include "history/history_recorder.h"
#include "history/history_writer.h"

#include <cstdint>
#include <functional>
#include <memory>
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
    // Also while another program keeps the history.
    [[nodiscard]] Result<> keep(const HistoryEvent& event);

    // Whether readings would be kept now; history_has_writer as above. Spares who asks a reading that nobody keeps.
    [[nodiscard]] Result<> open();

    // The name of a damaged file that was set aside since the last call; to be told.
    [[nodiscard]] std::optional<std::string> take_kept_aside();

    // Breaks off what takes long, and whatever comes is not kept. Any thread.
    void stop() { m_stop->stop(); }
    [[nodiscard]] bool is_stopped() const { return m_stop->is_stopped(); }

private:
    [[nodiscard]] Result<> with_writer(const std::function<Result<>()>& work);
    [[nodiscard]] Result<> thin(std::int64_t now);

    std::string m_path;
    std::shared_ptr<DatabaseStop> m_stop = std::make_shared<DatabaseStop>();
    std::optional<HistoryWriter> m_writer;
    bool m_is_damaged = false; // the file, as the last piece of work met it
    std::optional<HistoryRow> m_last;
    std::optional<std::int64_t> m_thinned;
    std::optional<std::string> m_kept_aside;
};

} // namespace tickervantage
