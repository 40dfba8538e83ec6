// How long the clock was right within a limit, as chronyd's own tracking log proves it: sums of whole seconds over a
// period, with what speaks against it first.
//
// The 14th column of the log is chronyd's bound of the clock's error in the interval since the record before. Such an
// interval is within the limit when that bound is not above it, and outside when it is. It is without evidence when the
// record has no reference or no bound, when it comes more than a given time after the one before, and where time went
// back: all from the record's time to the latest time before it. So is what lies before the first and behind the last
// record. Without evidence wins, no second counts twice, and an interval counts as far as it lies in the period.
//
// Records in the order of the log; one thread. Source: chrony.conf(5), directive log, option tracking.
#pragma once

#include "chrony/log/tracking_line.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct EvidenceQuestion {
    std::int64_t from = 0;   // s since 1970, UTC
    std::int64_t to = 0;     // not included
    double limit = 0;        // s
    std::int64_t gap = 4096; // s: an interval longer than that proves nothing
};

enum class NoEvidence : unsigned char { before_first, no_reference, no_bound, too_long, backwards, after_last };

// "no reference": for files and command lines, never translated.
[[nodiscard]] std::string_view words_of(NoEvidence reason);

struct Excursion {
    std::int64_t from = 0;
    std::int64_t to = 0;
    double largest = 0; // s
};

struct EvidenceGap {
    std::int64_t from = 0;
    std::int64_t to = 0;
    NoEvidence reason{};
};

struct Evidence {
    EvidenceQuestion question;
    std::int64_t within = 0; // s; the three add up to the period
    std::int64_t outside = 0;
    std::int64_t without = 0;
    std::optional<double> largest; // s, of all intervals with evidence in the period
    std::vector<Excursion> excursions;
    std::vector<EvidenceGap> gaps;

    [[nodiscard]] bool holds() const { return outside == 0 && without == 0; }
};

class EvidenceSum {
public:
    explicit EvidenceSum(const EvidenceQuestion& question) : m_question(question) {}

    void add(const TrackingLine& line);
    [[nodiscard]] Evidence result() const;

private:
    enum class State : unsigned char { within, outside, without };
    struct Stretch {
        std::int64_t from = 0;
        std::int64_t to = 0;
        double bound = 0; // s
        State state = State::without;
        NoEvidence reason{};
    };
    void go_back(std::int64_t time);
    [[nodiscard]] Stretch judged(const TrackingLine& line, std::int64_t from) const;
    void append(const Stretch& stretch);
    static void count(const Stretch& stretch, Evidence& evidence);

    EvidenceQuestion m_question;
    std::vector<Stretch> m_stretches;   // by time, without overlap; of the period
    std::optional<std::int64_t> m_time; // of the record before
    std::int64_t m_first = 0;           // the earliest time of all
    std::int64_t m_latest = 0;
};

} // namespace tickervantage
