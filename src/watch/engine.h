// Which rules are raised, from one observation to the next. Plain data: the time is given from outside, in seconds of a
// monotonic clock that also counts while the machine sleeps, since the clock that is watched may jump. One thread.
#pragma once

#include "watch/observation.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

// What has to outlive the program: the names of the rules that are raised, and of those that the user wants to hear no
// more of until they are over.
struct WatchMemory {
    std::vector<std::string> raised;
    std::vector<std::string> quiet;
    friend bool operator==(const WatchMemory&, const WatchMemory&) = default;
};

class WatchEngine {
public:
    // Right after the start and after the machine has slept, chronyd has not had the time to find its sources again.
    static constexpr double usual_grace = 300; // s

    WatchEngine(const std::vector<WatchRule>& rules, double now, double grace = usual_grace,
                const WatchMemory& memory = {});

    // What was raised stays; what is under way begins anew once the grace is over.
    void resumed(double now);

    // Other thresholds: what is raised stays so until it ends by the new ones.
    void change(const std::vector<WatchRule>& rules);

    // Whether a rule was raised or has ended.
    bool observe(const WatchObservation& seen, double now);

    // Of those raised now; one that is raised later is told.
    void be_quiet();

    [[nodiscard]] std::vector<WatchRule> raised() const; // the most severe first, else in the order of the rules
    [[nodiscard]] std::vector<WatchRule> told() const;   // the same without the quiet ones
    [[nodiscard]] WatchMemory memory() const;

private:
    struct Watched {
        WatchRule rule;
        bool raised = false;
        bool quiet = false;
        std::optional<double> begun; // s: beyond the limit that would change it, since then
    };

    static bool follow(Watched& watched, std::optional<double> value, double now);
    [[nodiscard]] std::vector<WatchRule> those(bool with_quiet) const;

    std::vector<Watched> m_watched;
    double m_grace;
    double m_grace_end;
};

} // namespace tickervantage
