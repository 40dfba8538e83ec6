// The peer of a refresh: a program started, its output read, its end awaited, and nothing else.
#pragma once

#include <string>
#include <vector>

namespace tickervantage::bench {

// What the program printed. Ends the benchmark when the program cannot be started or fails.
[[nodiscard]] std::string bare_spawn(const std::vector<std::string>& words);

} // namespace tickervantage::bench
