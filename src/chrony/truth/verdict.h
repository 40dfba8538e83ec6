// Whether the clock is right, and how far off it can be at the most: what chrony's reports amount to.
//
// chronyd calls the leap status "Normal" as long as it has any reference, also for a clock that follows nothing but
// itself, and for one whose last server died hours ago. So the verdict looks at the sources too. Sources: chronyc(1),
// tracking, for the bound; RFC 5905, section 11, for what it is made of. Pure functions, any thread.
#pragma once

#include "chrony/data/reports.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class Verdict : unsigned char {
    unavailable,    // chronyc could not be run or got no answer
    local,          // chronyd follows this machine's own clock
    unsynchronised, // chronyd follows nothing
    holdover,       // the clock runs on by itself since the last source was heard
    correcting,     // an offset far beyond what the sources leave open is being slewed away
    leap,           // synchronised, and a leap second is pending
    synchronised,
};

inline constexpr std::array verdicts{Verdict::unavailable, Verdict::local, Verdict::unsynchronised, Verdict::holdover,
                                     Verdict::correcting,  Verdict::leap,  Verdict::synchronised};

// "holdover": for files and command lines, never translated.
[[nodiscard]] std::string_view name_of(Verdict verdict);

// Whether the clock is kept right by sources: the exit status of a command that was asked.
[[nodiscard]] bool follows_time(Verdict verdict);

// Whether chronyd uses this source for the clock.
[[nodiscard]] bool is_used(const SourceData& source);

// Not silent for more than four polls. A server that was killed may keep its place in use for a while.
[[nodiscard]] bool was_heard_lately(const SourceData& source);

// The first that fits. Without the report of the sources, as from a saved tracking report, holdover is never said.
[[nodiscard]] Verdict judge(const ChronyReports& reports);

// What the error can be at the most, and why: the four parts add up to the bound.
struct ErrorBudget {
    double bound = 0;               // s
    double correction = 0;          // s: what is being slewed away
    double delay = 0;               // s: half of the path to the reference may be lost on one side
    double dispersion_measured = 0; // s
    double dispersion_growth = 0;   // s: what was added since the last update; 0 where its age is not known
    double growth = 0;              // s/s, from now on without a source
    std::optional<double> age;      // s since the last update
};

// chrony.conf(5): the frequency error that chronyd assumes of a clock.
inline constexpr double default_maxclockerror_ppm = 1;

// None where nothing vouches for a bound (unavailable, local, unsynchronised), and where the report lacks a part of it.
[[nodiscard]] std::optional<ErrorBudget> error_budget(const ChronyReports& reports,
                                                      double maxclockerror_ppm = default_maxclockerror_ppm);

// What the error probably is, with 95 %: of the newest 64 offsets of the tracking log if there are 16 at least, else
// twice the RMS offset. None where nothing vouches for a bound either.
[[nodiscard]] std::optional<double> expected_error(const ChronyReports& reports,
                                                   const std::vector<double>& newest_offsets = {});

} // namespace tickervantage
