#include "chrony/status/window_history.h"

#include <utility>

namespace tickervantage {

WindowHistory::WindowHistory(const std::string& path, WindowHistoryParts parts)
    : m_parts(std::move(parts)), m_path(path), m_kept(std::make_shared<KeptReadings>(path, m_parts.logger)),
      m_background(m_parts.main_thread) {}

template <typename Work>
void WindowHistory::start(Work work) {
    ++m_waiting;
    m_background.start(m_parts.queue, std::move(work), [this](const Result<bool>& has_grown) {
        --m_waiting;
        tell(has_grown);
    });
}

void WindowHistory::keep(std::shared_ptr<const ClockTruth> truth, std::int64_t now) {
    constexpr int most_waiting = 20;
    if (m_waiting < most_waiting)
        start([kept = m_kept, truth = std::move(truth), now] { return kept->keep(*truth, now); });
}

void WindowHistory::keep(HistoryEvent event) {
    start([kept = m_kept, event = std::move(event)] { return kept->keep(event); });
}

void WindowHistory::tell(const Result<bool>& has_grown) {
    if (has_grown && *has_grown)
        m_parts.broadcast.post(history_grew_key, m_path, Delivery::now);
    const bool is_idle = has_grown && !*has_grown; // nothing was due, which mends nothing
    const auto failure = has_grown ? std::nullopt : std::optional(has_grown.error());
    if (!is_idle && std::exchange(m_told, failure) != failure)
        m_parts.problem(failure);
}

} // namespace tickervantage
