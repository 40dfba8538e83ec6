// All that is known of the temperature compensation on this machine: what the points that were gathered would give,
// what is installed, and what that has gained. Pure functions, any thread, but for the one that reads.
#pragma once

#include "base/user_files.h"
#include "studies/laboratory/compensation_choice.h"
#include "studies/laboratory/compensation_gain.h"

#include <optional>
#include <string>

namespace tickervantage {

struct CompensationPlaces {
    std::string map;           // of the frequency-temperature window; empty: none
    std::string configuration; // of chrony
};

struct CompensationState {
    ScatterMap map;                                 // as it was read
    std::optional<CompensationChoice> choice;       // none: no point with a time
    std::optional<InstalledCompensation> installed; // none: there is none of ours
    std::optional<CompensationGain> gain;           // of what is installed
    std::optional<Failure> unread;                  // why the map or the logs could not be read
};

// Waits for the disk, and for a study.
[[nodiscard]] CompensationState read_compensation(const CompensationPlaces& places, UserFiles& files,
                                                  FollowedFiles& logs);

enum class CompensationAdvice : unsigned char {
    gather, // points, for there are too few
    leave,  // a gain is not sure
    install,
    wait, // until the logs tell what is gained
    keep,
    take_back, // the clock is worse with it
};

[[nodiscard]] CompensationAdvice advice_of(const CompensationState& state);

// What a picture shows: the readings, the curve through them, and the readings as they would be with the compensation.
inline constexpr const char* picture_measured = "1 measured";
inline constexpr const char* picture_curve = "2 curve";
inline constexpr const char* picture_compensated = "3 compensated";

// Some thousand points of each at most. The level of the compensated ones is that at which nothing is compensated.
[[nodiscard]] ScatterMap picture_of(const CompensationChoice& choice);

} // namespace tickervantage
