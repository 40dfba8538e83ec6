// What can go wrong, by name. The words lie beside the names in failure_table.h.
#pragma once

#include "base/failure.h"

namespace tickervantage {

enum class FailureCode : unsigned short {
#define TV_FAILURE(code, words) code,
#include "base/failure_table.h" // IWYU pragma: keep
#undef TV_FAILURE
};

// An errno, for records that are kept before anybody returns them.
[[nodiscard]] Failure system_failure(int error);

} // namespace tickervantage
