#include "chrony/status/kept_readings.h"

#include "base/failure_codes.h"

namespace tickervantage {

void KeptReadings::keep(const ClockTruth& truth, std::int64_t now) {
    constexpr std::int64_t interval = 10;
    const HistoryRow row = history_reading(now, truth.reports, truth.budget).row;
    const bool is_due = !m_last || now >= m_last->time + interval || now < m_last->time;
    if (!is_due && events_between(m_last, row).empty())
        return;
    m_last = row;
    const auto kept = m_keeper.keep(truth.reports, truth.budget, now);
    if (const auto aside = m_keeper.take_kept_aside())
        log_once("The history was damaged. It is kept as " + *aside + ".");
    if (kept)
        m_logged.clear();
    else if (kept.error().code != FailureCode::history_has_writer) // the same history, kept by another program
        log_once(english(kept.error()));
}

void KeptReadings::log_once(const std::string& sentence) {
    if (sentence != m_logged)
        m_logger.log(LogLevel::error, sentence);
    m_logged = sentence;
}

} // namespace tickervantage
