#include "chrony/status/kept_readings.h"

#include "base/failure_codes.h"

namespace tickervantage {

Result<bool> KeptReadings::keep(const ClockTruth& truth, std::int64_t now) {
    constexpr std::int64_t interval = 10;
    const HistoryRow row = history_reading(now, truth.reports, truth.budget).row;
    const bool is_due = !m_last || now >= m_last->time + interval || now < m_last->time;
    if (m_keeper.is_stopped() || (!is_due && events_between(m_last, row).empty()))
        return false;
    m_last = row;
    return told(m_keeper.keep(truth.reports, truth.budget, now));
}

Result<bool> KeptReadings::keep(const HistoryEvent& event) {
    return m_keeper.is_stopped() ? Result<bool>(false) : told(m_keeper.keep(event));
}

Result<bool> KeptReadings::told(const Result<>& kept) {
    if (const auto aside = m_keeper.take_kept_aside())
        log_once("The history was damaged. It is kept as " + *aside + ".");
    if (kept)
        m_logged.clear();
    const bool is_harmless = !kept && (m_keeper.is_stopped() || kept.error().code == FailureCode::history_has_writer);
    if (kept || is_harmless)
        return kept.has_value();
    log_once(english(kept.error()));
    return tl::unexpected(kept.error());
}

void KeptReadings::log_once(const std::string& sentence) {
    if (sentence != m_logged)
        m_logger.log(LogLevel::error, sentence);
    m_logged = sentence;
}

} // namespace tickervantage
