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

// Asks a program of ours to print, when it fails, its failure behind its words, as a line that begins with a mark.
inline constexpr const char* failure_option = "--failure-line";

// That line, with its end.
[[nodiscard]] std::string marked_line(const Failure& failure);

// Takes that line away from the end of what a program printed. None where there is no such line.
std::optional<Failure> take_failure(std::string& output);

} // namespace tickervantage
