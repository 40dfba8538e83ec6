// A configuration with the temperature compensation that this program installs, and without it. Pure functions, any
// thread. Source: chrony.conf(5), directives tempcomp and log.
#pragma once

#include <string>
#include <string_view>

namespace tickervantage {

inline constexpr int compensation_interval = 10; // seconds between two looks at the temperature

// With one line tempcomp, in place of what there was, and with the logs that show what it gains.
[[nodiscard]] std::string with_compensation(std::string_view text);

// Without those lines. A compensation that somebody else wrote stays.
[[nodiscard]] std::string without_compensation(std::string_view text);

[[nodiscard]] bool has_compensation(std::string_view text);     // that was installed here
[[nodiscard]] bool has_any_compensation(std::string_view text); // whoever wrote it

} // namespace tickervantage
