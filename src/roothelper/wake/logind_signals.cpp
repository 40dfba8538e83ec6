#include "roothelper/wake/logind_signals.h"

#include "base/failure_codes.h"

#include <systemd/sd-bus.h>

#include <cerrno>
#include <cstdint>
#include <utility>

namespace tickervantage {
namespace {

int note_wake_up(sd_bus_message* message, void* woke, sd_bus_error*) {
    int falls_asleep = 1;
    if (sd_bus_message_read(message, "b", &falls_asleep) >= 0 && falls_asleep == 0)
        *static_cast<bool*>(woke) = true;
    return 0;
}

} // namespace

LogindSignals::LogindSignals() = default;
LogindSignals::~LogindSignals() = default;

void LogindSignals::Close::operator()(sd_bus* bus) const {
    sd_bus_close_unref(bus);
}

Result<> LogindSignals::connect() {
    m_bus.reset();
    m_woke = false;
    sd_bus* bus = nullptr;
    int result = sd_bus_open_system(&bus);
    m_bus.reset(bus);
    if (result >= 0)
        result = sd_bus_match_signal(bus, nullptr, "org.freedesktop.login1", "/org/freedesktop/login1",
                                     "org.freedesktop.login1.Manager", "PrepareForSleep", note_wake_up, &m_woke);
    if (result >= 0)
        return {};
    m_bus.reset();
    return failed(FailureCode::cannot_listen, {}, -result);
}

SleepSignals::News LogindSignals::wait(std::optional<std::chrono::milliseconds> limit) {
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + limit.value_or(std::chrono::milliseconds(0));
    while (m_bus) {
        const int processed = sd_bus_process(m_bus.get(), nullptr);
        if (processed < 0)
            break;
        if (std::exchange(m_woke, false))
            return News::woke;
        if (processed > 0)
            continue; // there may be more
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - steady_clock::now()).count();
        if (limit && left <= 0)
            return News::nothing;
        const int waited = sd_bus_wait(m_bus.get(), limit ? static_cast<std::uint64_t>(left) : UINT64_MAX);
        if (waited < 0 && waited != -EINTR)
            break;
    }
    m_bus.reset();
    return News::lost;
}

} // namespace tickervantage
