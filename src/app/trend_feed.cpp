#include "app/trend_feed.h"

#include "chrony/status/trend.h"
#include "gui/main/tickervantage_window.h"
#include "history/history_recorder.h"

#include <chrono>
#include <optional>
#include <utility>

namespace tickervantage {
namespace {

std::int64_t seconds_now() {
    return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

} // namespace

TrendFeed::TrendFeed(std::string file, DispatchQueueSerial& queue, MainThread& main_thread, TickervantageWindow& window)
    : m_file(std::move(file)), m_queue(queue), m_window(window), m_background(main_thread) {
    connect(&window, &TickervantageWindow::truth_shown, this, &TrendFeed::take);
    if (!m_file.empty())
        window.wait_for_trend(); // not even that there is none is known yet
}

void TrendFeed::take(const std::shared_ptr<const ClockTruth>& truth) {
    m_newest = truth;
    m_newest_time = seconds_now();
    read();
}

void TrendFeed::read() {
    if (m_file.empty())
        return;
    m_background.start_newest(
        m_queue,
        [file = m_file, now = seconds_now(), truth = m_newest, time = m_newest_time] {
            return read_trend(file, now,
                              truth ? std::optional(history_reading(time, truth->reports, truth->budget).row)
                                    : std::nullopt);
        },
        [this](const Result<Trend>& trend) { m_window.show_trend(trend); });
}

} // namespace tickervantage
