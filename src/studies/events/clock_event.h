// What happened to the clock, as logs and messages tell it: one record an event, with a sentence for people.
//
// Plain values, any thread.
#pragma once

#include "base/sentence.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class EventKind : unsigned char {
    start, // of chronyd
    stop,
    step,        // the clock was stepped; s, as chrony signs it
    source,      // another reference is followed
    lost,        // no reference is followed any more; s until one was again, absent where none was
    falseticker, // a source disagrees with a majority of the others
    no_majority, // sources disagree, and none is followed
    frequency,   // a jump; ppm
    gap,         // no record for long; s
    backwards,   // time went back; s, below 0
    leap,        // a leap second is announced; +1 or -1 s
    reboot,      // of the machine
    suspend,     // of the machine, or time jumped forward
    other,       // a message that fits nowhere else, as it stands
};
inline constexpr std::size_t event_kinds = 14;

// "no_majority": for files and command lines, never translated.
[[nodiscard]] std::string_view name_of(EventKind kind);

// Where an event stands written. The file is empty for the journal, which has no lines.
struct EventPlace {
    std::string file = {};
    std::size_t line = 0; // from 1; 0: none
};

struct ClockEvent {
    double time = 0; // s since 1970, UTC
    EventKind kind{};
    std::string source = {};          // address, name or reference ID; empty: of none
    std::optional<double> value = {}; // see the kinds
    Sentence sentence = {};           // english() or in_words() puts it into a language
    EventPlace place = {};
};

} // namespace tickervantage
