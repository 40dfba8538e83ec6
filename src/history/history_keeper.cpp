#include "history/history_keeper.h"

#include <cstdlib>
#include <filesystem>
#include <utility>

namespace tickervantage {

Result<> HistoryKeeper::open() {
    std::error_code unknown;
    if (m_writer && std::filesystem::exists(m_path, unknown))
        return {};
    m_writer.reset(); // the file was taken away: what is written to it would be lost
    auto opened = HistoryWriter::open(m_path);
    if (!opened)
        return tl::unexpected(opened.error());
    m_writer = std::move(*opened);
    if (m_writer->kept_aside())
        m_kept_aside = m_writer->kept_aside();
    auto last = m_writer->last_row();
    if (!last)
        return tl::unexpected(last.error());
    m_last = std::move(*last);
    return {};
}

Result<> HistoryKeeper::checked(Result<> done) {
    if (!done && is_damage(done.error()))
        m_writer.reset(); // the next one sets it aside
    return done;
}

Result<> HistoryKeeper::thin(std::int64_t now) {
    constexpr std::int64_t hour = 3600;
    if (m_thinned && std::abs(now - *m_thinned) < hour)
        return {};
    m_thinned = now;
    return m_writer->thin(now);
}

Result<> HistoryKeeper::keep(const ChronyReports& reports, const std::optional<ErrorBudget>& budget, std::int64_t now) {
    if (auto opened = open(); !opened)
        return opened;
    const HistoryReading reading = history_reading(now, reports, budget);
    auto done = m_writer->add(reading, events_between(m_last, reading.row));
    if (done) {
        m_last = reading.row;
        done = thin(now);
    }
    return checked(std::move(done));
}

Result<> HistoryKeeper::keep(const HistoryEvent& event) {
    if (auto opened = open(); !opened)
        return opened;
    return checked(m_writer->add(event));
}

std::optional<std::string> HistoryKeeper::take_kept_aside() {
    return std::exchange(m_kept_aside, std::nullopt);
}

} // namespace tickervantage
