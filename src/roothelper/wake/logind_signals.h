// The sleep signal of logind, on the system bus.
//
// logind says PrepareForSleep(true) before the machine sleeps and PrepareForSleep(false) when it is awake again; only
// the second matters here. The bus lets nobody but logind send it. Keep on one thread. Source:
// org.freedesktop.login1(5), sd-bus(3).
#pragma once

#include "roothelper/wake/wake_keeper.h"

#include <memory>

struct sd_bus;

namespace tickervantage {

class LogindSignals : public SleepSignals {
public:
    LogindSignals();
    ~LogindSignals() override;

    [[nodiscard]] Result<> connect() override;
    [[nodiscard]] News wait(std::optional<std::chrono::milliseconds> limit) override;

private:
    struct Close {
        void operator()(sd_bus* bus) const;
    };
    std::unique_ptr<sd_bus, Close> m_bus;
    bool m_woke = false;
};

} // namespace tickervantage
