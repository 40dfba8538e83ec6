// What the windows that set the clock by hand ask for, and what they say beforehand. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct Synchronisation {
    std::string server; // a name or an address
    int timeout_seconds = 30;
    bool restart_chronyd = true; // afterwards
};

// Whether the text can stand as the server of a directive: words such as the root helper takes, one blank between them.
[[nodiscard]] bool is_server_name(std::string_view text);

// The offset that is sent for one that was typed: six figures, as the command has them. None for what is no number, or
// farther than any clock is off.
[[nodiscard]] std::optional<double> step_offset(double typed_seconds);

// A length of time in whole units and a rest of seconds: "1.5 s", "2 min 3 s", "1 d 2 h". The sign is not told.
struct StepLength {
    long long days = 0;
    int hours = 0;
    int minutes = 0;
    double seconds = 0;
};
[[nodiscard]] StepLength length_of_step(double seconds);

} // namespace tickervantage
