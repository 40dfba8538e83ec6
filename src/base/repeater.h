// Repeating timers on the main thread.
//
// All repeaters are paced by one shared timer service: while the service is stopped none of them fires, and those that
// were started go on when it starts again.
#pragma once

#include "base/dispatch.h"

#include <memory>
#include <string_view>

namespace tickervantage {

class Repeater {
public:
    virtual ~Repeater() = default;

    // Calls `tick` on the main thread every `interval_seconds` (more than 0), the first time one interval from now.
    // Starting again replaces interval and handler.
    virtual void start(double interval_seconds, Work tick) = 0;
    virtual void stop() = 0;
    [[nodiscard]] virtual bool is_running() const = 0;
};

// free: one interval after the other. wall_second: fires just after the wall clock's full seconds, so that a second
// hand neither lags nor skips; for intervals of whole seconds.
enum class Pace : unsigned char { free, wall_second };

class MasterTimer {
public:
    virtual ~MasterTimer() = default;

    virtual void start() = 0;
    virtual void stop() = 0;

    // The name is for people who debug. The service must outlive its repeaters.
    virtual std::unique_ptr<Repeater> make_repeater(std::string_view name, Pace pace) = 0;
};

} // namespace tickervantage
