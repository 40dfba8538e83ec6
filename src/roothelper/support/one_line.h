// Output of other programs, made fit for the one line that each verb prints.
#pragma once

#include "base/execute.h"
#include "base/failure.h"

#include <string>
#include <string_view>

namespace tickervantage {

// The text without control characters and line ends, at most 500 bytes.
[[nodiscard]] std::string one_line(std::string_view text);

// The last line that a program printed, or what became of it when it printed nothing.
[[nodiscard]] Failure last_words(const ExecuteResult& result);

[[nodiscard]] bool succeeded(const ExecuteResult& result);

} // namespace tickervantage
