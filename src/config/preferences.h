// The preferences as records: loaded at launch, saved when the program ends, read by whoever needs one.
#pragma once

#include <cstdint>
#include <string>

namespace tickervantage {

class DefaultSettings;

struct PreferencesGeneral {
    std::string config; // the path of chrony.conf
    std::string chronyc;
    std::string chronyd;
    std::string chronywake;
    double make_thresh = 0;      // s
    std::int64_t make_limit = 0; // updates
    std::int64_t burst_good = 0; // measurements
    std::int64_t burst_max = 0;  // measurements
    std::string burst_netmask;
    bool launch_login = false;
    bool adj_system = true; // chronyd adjusts the system clock
    bool install_wake = true;

    static PreferencesGeneral load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
    void restore_defaults(); // of all but launch_login
};

struct PreferencesAdvanced {
    bool restart_gpsd = false;
    bool frequency = false; // the frequency-temperature window is offered
    bool spectrum = false;  // the spectrum window is offered

    static PreferencesAdvanced load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
};

} // namespace tickervantage
