#include "chrony/truth/source_standing.h"

namespace tickervantage {

SourceStanding standing_of(SelectionRule rule) {
    using enum SelectionRule;
    switch (rule) {
    case best:
        return SourceStanding::best;
    case combined:
        return SourceStanding::combined;
    case noselect:
    case not_preferred:
    case new_measurement:
    case not_combined:
    case outlier:
    case stratum:
        return SourceStanding::spare;
    case few_measurements:
    case waiting:
    case required:
        return SourceStanding::waiting;
    case distant:
    case jittery:
    case falseticker:
    case no_majority:
    case stale:
    case orphan:
    case untrusted:
        return SourceStanding::refused;
    case unresolved:
    case unanswered:
    case unsynchronised:
    case unreachable:
    case unknown:
        break;
    }
    return SourceStanding::silent;
}

} // namespace tickervantage
