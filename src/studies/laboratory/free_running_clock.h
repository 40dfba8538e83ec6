// The clock as it would have run had nobody steered it, worked out of a tracking log.
//
// chronyd takes the frequency that it noted in one record out of the clock until the next one, and notes there by how
// much the clock was still off. Both together are what the oscillator did meanwhile:
//   phase[i] = phase[i-1] + frequency[i-1] × (time[i] − time[i-1]) + offset[i].
// Measured against simulated machines this is right to some microseconds over two weeks; below some sixty intervals it
// is the noise of the measurements rather than the clock. A stretch ends where nothing was noted for more than four
// median intervals, where the reference was lost and where time went back. One thread. Source: chrony.conf(5), log
// tracking.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class FollowedFiles;

inline constexpr double maxclockerror = 1e-6; // s/s, chronyd's default

struct ClockRecord {
    std::int64_t time = 0;      // s since 1970
    double phase = 0;           // s, positive: ahead
    double frequency = 0;       // s/s, positive: fast
    double offset = 0;          // s, as it was noted
    double bound = 0;           // s: root dispersion + root delay / 2
    double bound_growth = 0;    // s/s: skew, and what chronyd adds for any clock
    bool begins_stretch = true; // nothing is known between this record and the one before
};

struct FreeRunningClock {
    std::vector<ClockRecord> records;
    double interval = 0;             // s, the median between two records; 0: fewer than two
    std::optional<double> offset_sd; // s, the median of what chronyd noted: how much the network shakes

    // From one stretch's first record to its last, added up.
    [[nodiscard]] double seconds() const;
    [[nodiscard]] std::vector<std::span<const ClockRecord>> stretches() const;
};

// Takes what chronyd noted, one after the other.
class FreeRunningClockReader {
public:
    // Of a log; lines that are no records are passed over.
    void add_line(std::string_view line);
    // All but the phase; a second record of the same second is passed over.
    void add(ClockRecord record);
    void add_loss(); // of the reference
    [[nodiscard]] FreeRunningClock finish() &&;

private:
    std::vector<ClockRecord> m_noted;
    std::vector<double> m_deviations; // of offsets
    bool m_is_lost = true;            // the reference, in the record before
};

// A tracking log, or those of a folder, the rotated ones first. Fewer than two records are a failure.
[[nodiscard]] Result<FreeRunningClock> read_free_running_clock(FollowedFiles& files, const std::string& path);

} // namespace tickervantage
