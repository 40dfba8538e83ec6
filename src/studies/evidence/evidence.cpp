#include "studies/evidence/evidence.h"

#include <algorithm>
#include <utility>

namespace tickervantage {

std::string_view words_of(NoEvidence reason) {
    switch (reason) {
    case NoEvidence::before_first:
        return "before the first record";
    case NoEvidence::no_reference:
        return "no reference";
    case NoEvidence::no_bound:
        return "no bound of the error in the log";
    case NoEvidence::too_long:
        return "no record for too long";
    case NoEvidence::backwards:
        return "the time of the records went back";
    case NoEvidence::after_last:
        break;
    }
    return "after the last record";
}

void EvidenceSum::add(const TrackingLine& line) {
    const std::int64_t time = line.timestamp;
    const auto before = std::exchange(m_time, time);
    if (!before) {
        m_first = m_latest = time;
        return;
    }
    if (time < *before)
        go_back(time);
    else if (time > m_latest) {
        Stretch stretch = judged(line, *before);
        stretch.from = std::max(*before, m_latest); // what time went back over is settled
        append(stretch);
        m_latest = time;
    }
}

void EvidenceSum::go_back(std::int64_t time) {
    while (!m_stretches.empty() && m_stretches.back().from >= time)
        m_stretches.pop_back();
    if (!m_stretches.empty())
        m_stretches.back().to = std::min(m_stretches.back().to, time);
    append({.from = time, .to = m_latest, .reason = NoEvidence::backwards});
    m_first = std::min(m_first, time);
}

EvidenceSum::Stretch EvidenceSum::judged(const TrackingLine& line, std::int64_t from) const {
    Stretch stretch{.to = line.timestamp, .bound = line.max_error.value};
    if (line.timestamp - from > m_question.gap)
        stretch.reason = NoEvidence::too_long;
    else if (!has_reference(line))
        stretch.reason = NoEvidence::no_reference;
    else if (line.max_error.value != line.max_error.value)
        stretch.reason = NoEvidence::no_bound;
    else
        stretch.state = line.max_error.value <= m_question.limit ? State::within : State::outside;
    return stretch;
}

void EvidenceSum::append(const Stretch& stretch) {
    if (stretch.to > m_question.from && stretch.from < m_question.to && stretch.from < stretch.to)
        m_stretches.push_back(stretch);
}

void EvidenceSum::count(const Stretch& stretch, Evidence& evidence) {
    const std::int64_t from = std::max(stretch.from, evidence.question.from);
    const std::int64_t to = std::min(stretch.to, evidence.question.to);
    if (from >= to)
        return;
    if (stretch.state == State::without) {
        evidence.without += to - from;
        auto& gaps = evidence.gaps;
        if (!gaps.empty() && gaps.back().to == from && gaps.back().reason == stretch.reason)
            gaps.back().to = to;
        else
            gaps.push_back({from, to, stretch.reason});
        return;
    }
    evidence.largest = std::max(evidence.largest.value_or(stretch.bound), stretch.bound);
    if (stretch.state == State::within) {
        evidence.within += to - from;
        return;
    }
    evidence.outside += to - from;
    auto& excursions = evidence.excursions;
    if (excursions.empty() || excursions.back().to != from)
        excursions.push_back({from, to, stretch.bound});
    excursions.back().to = to;
    excursions.back().largest = std::max(excursions.back().largest, stretch.bound);
}

Evidence EvidenceSum::result() const {
    Evidence evidence;
    evidence.question = m_question;
    const auto [from, to, limit, gap] = m_question;
    if (!m_time) {
        count({.from = from, .to = to, .reason = NoEvidence::before_first}, evidence);
        return evidence;
    }
    count({.from = from, .to = m_first, .reason = NoEvidence::before_first}, evidence);
    for (const Stretch& stretch : m_stretches)
        count(stretch, evidence);
    count({.from = m_latest, .to = to, .reason = NoEvidence::after_last}, evidence);
    return evidence;
}

} // namespace tickervantage
