// Failures in the language of the windows.
#pragma once

#include "base/failure.h"

#include <QString>

namespace tickervantage {

// One or more sentences in the application's language; English where a translation is missing.
[[nodiscard]] QString in_words(const Failure& failure);

} // namespace tickervantage
