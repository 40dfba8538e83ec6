// What an alarm says, for every front alike. Pure functions, any thread.
#pragma once

#include "base/sentence.h"
#include "watch/observation.h"

namespace tickervantage {

// What is wrong, in one sentence, with the value seen now where there is one.
[[nodiscard]] Sentence alarm_sentence(const WatchRule& rule, const WatchObservation& seen);

// What a rule is about, in a word or two, for a table.
[[nodiscard]] Sentence rule_title(WatchQuantity quantity);

} // namespace tickervantage
