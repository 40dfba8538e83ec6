// What is watched: a rule for each quantity of a reading, with the value that raises an alarm and the one that ends it.
// The same rules stand behind the desktop's alarms and behind `tickerctl rules`. Pure functions, any thread.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class WatchQuantity : unsigned char {
    available,   // 1: chronyd answers, 0: it does not
    holdover,    // s since the last update, while the clock runs on by itself; else 0
    bound,       // s: how far off the clock can be at the most
    no_majority, // sources that contradict each other so that none can be trusted
    usable,      // sources that chronyd considers selectable
    step,        // s: what the clock was set by at its last update
};
inline constexpr std::array watch_quantities{WatchQuantity::available,   WatchQuantity::holdover, WatchQuantity::bound,
                                             WatchQuantity::no_majority, WatchQuantity::usable,   WatchQuantity::step};

// "no_majority": for files and command lines, never translated. One rule a quantity, so it is the rule's name too,
// but for `available`, whose rule is "unavailable".
[[nodiscard]] std::string_view name_of(WatchQuantity quantity);
[[nodiscard]] std::optional<WatchQuantity> quantity_of_rule(std::string_view name);

enum class WatchSense : unsigned char { above, below };
enum class WatchSeverity : unsigned char { warning, critical };

// An alarm is raised when the value has been beyond `raise` without a break for `hold` seconds. It ends when the value
// has been on the other side of `clear` for `clear_hold` seconds; at `clear` itself it stays, and between the two
// nothing changes. An absent value is beyond neither: nothing begins, and what was raised ends.
struct WatchRule {
    WatchQuantity quantity{};
    WatchSense sense = WatchSense::above;
    double raise = 0;
    double clear = 0;
    double hold = 0;       // s
    double clear_hold = 0; // s
    WatchSeverity severity = WatchSeverity::warning;
};

[[nodiscard]] bool begins(const WatchRule& rule, std::optional<double> value);
[[nodiscard]] bool lasts(const WatchRule& rule, std::optional<double> value); // once it was raised

// Whether a value between `raise` and `clear` is possible: of whole numbers next to each other it is not.
[[nodiscard]] bool has_hysteresis(const WatchRule& rule);

// The thresholds that a user may choose.
struct WatchThresholds {
    double holdover = 3600; // s
    double bound = 0.05;    // s
    double usable = 2;      // sources
    double step = 0.1;      // s
    friend bool operator==(const WatchThresholds&, const WatchThresholds&) = default;
};

// Where a value may swing about its threshold, the alarm ends at four fifths of it: a swing of a fifth to both sides
// raises it once.
[[nodiscard]] std::vector<WatchRule> watch_rules(const WatchThresholds& thresholds = {});

} // namespace tickervantage
