// How a source stood, as the selection log tells it. Pure function, any thread.
#pragma once

#include "chrony/truth/judged_source.h"

namespace tickervantage {

// `letter` and `reach` as the log has them: less is known than of a source that is there now.
[[nodiscard]] SelectionRule rule_of_logged(char letter, unsigned reach);

} // namespace tickervantage
