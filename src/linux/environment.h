// Looking up environment variables, in a form that a test can steer.
#pragma once

#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

namespace tickervantage {

// The value of a variable; none when it is not set.
using EnvironmentLookup = std::function<std::optional<std::string>(const std::string& name)>;

// The process's own environment. Any thread, as long as nobody changes the environment meanwhile.
[[nodiscard]] inline std::optional<std::string> process_environment(const std::string& name) {
    const char* value = std::getenv(name.c_str()); // NOLINT(concurrency-mt-unsafe): see above
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

} // namespace tickervantage
