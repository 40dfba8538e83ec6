// The sentences of events. Pure functions, any thread.
#pragma once

#include "base/sentence.h"
#include "base/translatable.h"

#include <utility>

namespace tickervantage::event_words {

/* TRANSLATOR clock_events
   What happened to the clock, beside its time: one sentence each. %1, %2 stand for addresses, numbers with their units,
   or the words of chronyd. */
inline constexpr const char* context = "clock_events";

using Values = std::vector<SentenceValue>;

[[nodiscard]] inline Sentence say(const char* words, Values values = {}) {
    return {.context = context, .words = words, .values = std::move(values)};
}

} // namespace tickervantage::event_words
