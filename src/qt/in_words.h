// Failures and sentences of the logic in the language of the windows.
#pragma once

#include "base/failure.h"
#include "base/sentence.h"

#include <QString>

#include <cstdint>

class QLocale;

namespace tickervantage {

// One or more sentences in the application's language; English where a translation is missing.
[[nodiscard]] QString in_words(const Failure& failure);

// Likewise, with numbers as the language writes them.
[[nodiscard]] QString in_words(const Sentence& sentence);
[[nodiscard]] QString in_words(const Quantity& quantity);

// Hours and minutes in the machine's zone, as the locale's clocks show them: "2:14 PM", "14:14".
[[nodiscard]] QString local_time_of_day(std::int64_t seconds, const QLocale& locale);

} // namespace tickervantage
