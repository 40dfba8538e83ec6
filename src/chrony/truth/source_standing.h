// How a source stands to the clock, in few enough kinds to be told apart at a glance. Pure functions.
#pragma once

#include "chrony/truth/judged_source.h"

#include <cstddef>

namespace tickervantage {

enum class SourceStanding : unsigned char {
    best,
    combined,
    spare,   // could be used
    waiting, // cannot be judged yet
    refused, // is not believed, or not good enough
    silent,  // has no address, does not answer, or has no time
};

inline constexpr std::size_t source_standings = 6;

[[nodiscard]] SourceStanding standing_of(SelectionRule rule);

} // namespace tickervantage
