// What came of an administrative job.
#pragma once

#include "base/failure.h"

#include <string>

namespace tickervantage {

struct JobResult {
    Result<> outcome = {};   // what was stopped for a job that failed runs again
    std::string output = {}; // of the one command that the job is about, where it is about one
};

// Whether people must still hear of it: a refusal of the rights was told when it came up.
[[nodiscard]] bool is_untold_failure(const Result<>& outcome);

} // namespace tickervantage
