#include "history/history_keeper.h"

#include "base/failure_codes.h"

#include <cstdlib>
#include <filesystem>
#include <utility>

namespace tickervantage {

Result<> HistoryKeeper::open() {
    std::error_code unknown;
    if (m_writer && std::filesystem::exists(m_path, unknown))
        return {};
    m_writer.reset(); // the file was taken away: what is written to it would be lost
    auto opened = HistoryWriter::open(m_path, {m_stop, m_is_damaged});
    if (!opened)
        return tl::unexpected(opened.error());
    m_is_damaged = false;
    m_thinned.reset(); // whoever kept it before may not have come to that
    m_writer = std::move(*opened);
    if (m_writer->kept_aside())
        m_kept_aside = m_writer->kept_aside();
    auto last = m_writer->last_row();
    if (!last)
        return failed(FailureCode::cannot_write, {m_path}, last.error());
    m_last = std::move(*last);
    return {};
}

// Damage may show itself anywhere in the file: it is set aside then, and the work goes into a new one.
Result<> HistoryKeeper::with_writer(const std::function<Result<>()>& work) {
    const auto named = [&] {
        const auto done = work();
        return done ? Result<>() : failed(FailureCode::cannot_write, {m_path}, done.error());
    };
    auto done = open().and_then(named);
    if (!done && is_damage(done.error())) {
        m_writer.reset();
        m_is_damaged = true;
        done = open().and_then(named);
    }
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
    const HistoryReading reading = history_reading(now, reports, budget);
    auto kept = with_writer([&] {
        auto added = m_writer->add(reading, events_between(m_last, reading.row));
        if (added)
            m_last = reading.row;
        return added;
    });
    return kept ? with_writer([&] { return thin(now); }) : kept;
}

Result<> HistoryKeeper::keep(const HistoryEvent& event) {
    auto kept = with_writer([&] { return m_writer->add(event); });
    const bool is_others = !kept && kept.error().code == FailureCode::history_has_writer;
    return is_others ? HistoryWriter::add_beside(m_path, event) : kept;
}

std::optional<std::string> HistoryKeeper::take_kept_aside() {
    return std::exchange(m_kept_aside, std::nullopt);
}

} // namespace tickervantage
