// A failure as one line of text, for programs that hand it on to each other: codes by name, so that both ends may be of
// different versions.
//
// Parts are divided by tabs, a failure from its cause by the record separator (0x1E). Control characters in arguments
// become blanks.
#pragma once

#include "base/failure.h"

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

[[nodiscard]] std::string to_line(const Failure& failure);

// None for a text that is no such line, or that is caused by something this program has no name for.
[[nodiscard]] std::optional<Failure> failure_in(std::string_view line);

} // namespace tickervantage
