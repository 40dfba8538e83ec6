#include "chrony/status/quiet_reading.h"

#include "chrony/reports/current_frequency.h"

#include <utility>

namespace tickervantage {

QuietReading::QuietReading(const StatusCycleParts& parts, StatusCycleOptions options, int interval_seconds, Told told)
    : m_parts(parts), m_options(std::move(options)), m_told(std::move(told)),
      m_chronyc(std::make_shared<Runchronyc>(parts.execute, parts.privileged, programs_of(m_options), false, false,
                                             m_options.chronyc_arguments)),
      m_tools(std::make_shared<RefreshTools>(RefreshTools{RunningCheck(m_options.chronyc_arguments, m_options.root),
                                                          [] {
                                                              return false;
                                                          }})),
      m_timer(parts.timer.make_repeater("quiettimer", Pace::free)), m_background(parts.main_thread) {
    m_timer->start(interval_seconds, [this] { read(); });
    read();
}

void QuietReading::read() {
    if (std::exchange(m_is_reading, true))
        return;
    RefreshRequest wanted;
    wanted.runner = m_chronyc;
    wanted.command = "version"; // no report is shown
    wanted.configuration = configuration_of(m_options);
    m_background.start(
        m_parts.queue, [wanted, tools = m_tools] { return read_status(wanted, *tools); },
        [this](const RefreshReading& reading) { apply(reading); });
}

void QuietReading::apply(const RefreshReading& reading) {
    m_is_reading = false;
    if (m_options.history != nullptr)
        m_options.history->keep(reading.truth, static_cast<std::int64_t>(reading.basis->now));
    if (reading.report.has_frequency)
        m_parts.broadcast.post(current_frequency_key, current_frequency{reading.report.frequency}, Delivery::later);
    m_told(reading.truth);
}

} // namespace tickervantage
