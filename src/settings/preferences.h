// The preferences as records: loaded at launch, saved when the program ends, read by whoever needs one.
#pragma once

#include <cstdint>
#include <string>

namespace tickervantage {

class DefaultSettings;

// Where chrony lies as long as nobody has said otherwise.
struct ChronyPaths {
    std::string config;
    std::string chronyc;
    std::string chronyd;
    std::string chronywake;
    bool from_distribution = false; // found on this machine, rather than documented
    friend bool operator==(const ChronyPaths&, const ChronyPaths&) = default;
};

[[nodiscard]] ChronyPaths documented_paths();

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
    ChronyPaths usual = documented_paths(); // what the paths were loaded with where none was stored

    // The usual paths count only where none of the four was ever set: what a user has mixed is left as it is.
    static PreferencesGeneral load(const DefaultSettings& settings, const ChronyPaths& former = documented_paths());
    // What has changed since it was loaded or saved. One path that was changed makes all four set.
    void save(DefaultSettings& settings) const;
    // Of all but launch_login. The paths are then as if they had never been set; the rest waits for a save.
    void restore_defaults(DefaultSettings& settings, const ChronyPaths& usual = documented_paths());

    [[nodiscard]] ChronyPaths paths() const { return {config, chronyc, chronyd, chronywake, usual.from_distribution}; }
    [[nodiscard]] bool uses_distribution_unasked() const { return usual.from_distribution && paths() == usual; }
};

struct PreferencesAdvanced {
    bool restart_gpsd = false;
    bool frequency = false; // the frequency-temperature window is offered
    bool spectrum = false;  // the spectrum window is offered

    static PreferencesAdvanced load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
};

} // namespace tickervantage
