// Moments on the command line: 2026-11-22T01:30:00Z, or a day, which begins at midnight UTC.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tickervantage {

// Takes over the moment that was asked for, if any, in seconds since 1970 UTC. What is wrong is told; an exit status.
[[nodiscard]] int take_moment(const std::optional<std::string>& text, std::int64_t& moment);

} // namespace tickervantage
