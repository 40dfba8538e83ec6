// chrony's reports as data: one record for a row of each report, in SI units unless a name says otherwise.
//
// What chronyc prints in place of a value that there is none of ("never", the placeholders of a source that was not
// heard yet) is an absent optional, never 0; so is what a damaged text lacks. Source: chronyc(1), the monitoring
// commands with the option -c.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct TrackingData {
    std::optional<std::uint32_t> reference_id; // 0: not synchronised
    std::string address;                       // of the source followed; empty for the clock itself and for none
    std::optional<int> stratum;
    std::optional<double> reference_time; // seconds since 1970, UTC: the last update from a source
    std::optional<double> system_time;    // s; negative: the system time is behind NTP time
    std::optional<double> last_offset;    // s
    std::optional<double> rms_offset;     // s
    std::optional<double> frequency_ppm;  // positive: the clock would run fast if it were not corrected
    std::optional<double> residual_frequency_ppm;
    std::optional<double> skew_ppm;
    std::optional<double> root_delay;      // s
    std::optional<double> root_dispersion; // s
    std::optional<double> update_interval; // s
    std::string leap_status;               // "Normal", "Insert second", "Delete second", "Not synchronised"
};

enum class SourceMode : unsigned char { server, peer, refclock };

struct SourceData {
    SourceMode mode{};
    char letter = '?';
    std::string source; // address, or reference ID of a reference clock; "ID#…" while the name has no address
    int stratum = 0;
    int poll = 0;                   // log2 s
    unsigned reach = 0;             // 0 to 255: the last eight polls, the newest in the lowest bit
    std::optional<double> last_rx;  // s since the last good measurement
    std::optional<double> offset;   // s, adjusted for what was corrected since; positive: our clock is ahead
    std::optional<double> measured; // s, as it was measured
    std::optional<double> error;    // s
};

struct SourceStatistics {
    std::string source;
    int samples = 0;
    int runs = 0;
    double span = 0; // s
    std::optional<double> frequency_ppm;
    std::optional<double> skew_ppm;
    std::optional<double> offset;  // s
    std::optional<double> std_dev; // s
};

struct ActivityData {
    int online = 0;
    int offline = 0;
    int burst_online = 0;
    int burst_offline = 0;
    int unresolved = 0;
};

struct SelectionData {
    char letter = '?';
    std::string source;
    bool authenticated = false;
    std::string configured_options; // letters such as N, P, T, R; "-" for none
    std::string effective_options;
    std::optional<double> last; // s since the last measurement; none: never
    double score = 0;
    std::optional<double> low; // s: where this source says the true offset lies
    std::optional<double> high;
    std::string leap;
};

struct AuthenticationData {
    std::string source;
    std::string mode;                        // "-", "SK", "NTS"
    std::optional<double> last_key_exchange; // s ago
    int cookies = 0;
};

struct NtpData {
    std::string source;
    std::string leap;
    int stratum = 0;
    std::uint32_t reference_id = 0;
    double root_delay = 0;      // s
    double root_dispersion = 0; // s
    std::uint64_t sent = 0;
    std::uint64_t received = 0;
    std::uint64_t valid = 0;
    std::uint64_t good = 0;
};

struct ServerData {
    std::uint64_t ntp_received = 0;
    std::uint64_t ntp_dropped = 0;
    std::uint64_t command_received = 0;
    std::uint64_t command_dropped = 0;
    std::uint64_t client_records_dropped = 0;
};

} // namespace tickervantage
