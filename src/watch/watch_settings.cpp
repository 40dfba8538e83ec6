#include "watch/watch_settings.h"

#include "settings/settings_catalogue.h"

namespace tickervantage {

WatchThresholds load_thresholds(const DefaultSettings& settings) {
    return {.holdover = load(settings, settings::watch_holdover),
            .bound = load(settings, settings::watch_bound),
            .usable = static_cast<double>(load(settings, settings::watch_sources)),
            .step = load(settings, settings::watch_step)};
}

void save(DefaultSettings& settings, const WatchThresholds& thresholds) {
    save(settings, settings::watch_holdover, thresholds.holdover);
    save(settings, settings::watch_bound, thresholds.bound);
    save(settings, settings::watch_sources, static_cast<std::int64_t>(thresholds.usable));
    save(settings, settings::watch_step, thresholds.step);
}

WatchMemory load_memory(const DefaultSettings& settings) {
    return {.raised = load(settings, settings::watch_raised), .quiet = load(settings, settings::watch_quiet)};
}

void save(DefaultSettings& settings, const WatchMemory& memory) {
    save(settings, settings::watch_raised, memory.raised);
    save(settings, settings::watch_quiet, memory.quiet);
}

} // namespace tickervantage
