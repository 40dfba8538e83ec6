// What would change that a source is not used. Source: chrony.conf(5). Pure functions, any thread.
#pragma once

#include "base/sentence.h"
#include "chrony/truth/judged_source.h"

#include <vector>

namespace tickervantage {

// Each names its directive; none where nothing is to be done.
[[nodiscard]] std::vector<Sentence> remedies_for(const JudgedSource& source);

} // namespace tickervantage
