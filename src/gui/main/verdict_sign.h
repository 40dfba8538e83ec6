// The verdicts on the clock as signs and in a word or two. Main thread.
#pragma once

#include "chrony/truth/verdict.h"
#include "gui/main/sign_image.h"

namespace tickervantage {

[[nodiscard]] DiscSign sign_of(Verdict verdict);

// Without what the largest letters of the window add to it, such as since when.
[[nodiscard]] QString short_words(Verdict verdict);

} // namespace tickervantage
