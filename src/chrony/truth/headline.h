// The answer in a few words, for every front alike: "Holdover since 02:14: none of 3 sources answers. Certainly within
// ±18.0 ms, growing 3.9 ms an hour." Pure functions, any thread.
#pragma once

#include "base/local_clock.h"
#include "base/sentence.h"
#include "chrony/truth/verdict.h"

#include <optional>

namespace tickervantage {

struct Headline {
    Verdict verdict = Verdict::unavailable;
    Sentence name;                  // the verdict on screen: "Holdover since 02:14"
    std::optional<Sentence> reason; // to stand behind the name and a colon: "none of 3 sources answers."
    Sentence error;                 // "Certainly within ±1.21 ms, probably within ±4.00 µs."
    std::optional<Sentence> caution;
};

// Where the bound is smaller than what is expected, past measurements tell nothing of now, and only the bound is said;
// likewise in holdover, where no measurement follows, and while the measured offset is still being corrected. Times of
// day are those of the zone. For `unavailable` there is no reason: the front has that of the failure.
[[nodiscard]] Headline headline(const ChronyReports& reports, const std::optional<ErrorBudget>& budget,
                                const std::optional<double>& expected, const ZoneOffset& zone = machine_zone_offset);

} // namespace tickervantage
