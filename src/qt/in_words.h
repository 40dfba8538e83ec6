// Failures and sentences of the logic in the language of the windows.
#pragma once

#include "base/failure.h"
#include "base/sentence.h"

#include <QString>

namespace tickervantage {

// One or more sentences in the application's language; English where a translation is missing.
[[nodiscard]] QString in_words(const Failure& failure);

// Likewise, with numbers as the language writes them.
[[nodiscard]] QString in_words(const Sentence& sentence);
[[nodiscard]] QString in_words(const Quantity& quantity);

} // namespace tickervantage
