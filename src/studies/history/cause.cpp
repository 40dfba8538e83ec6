#include "studies/history/cause.h"

#include "chrony/truth/source_standing.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tickervantage {
namespace {

constexpr double about = 60; // s: readings and selections beside an event
constexpr double hour = 3600;
constexpr double much = 1; // degree in an hour

struct Witness {
    const HistoryLane* lane;
    bool was_best = false;   // before
    bool is_silent = false;  // about then
    bool is_refused = false; // likewise
};

std::vector<Witness> witnesses_of(const HistoryData& data, double time) {
    std::vector<Witness> found;
    for (const HistoryLane& lane : data.lanes()) {
        Witness one{.lane = &lane};
        bool is_known = false;
        for (const double moment : {time - about, time, time + about})
            if (const LaneStretch* stretch = lane.at(moment)) {
                const SourceStanding standing = standing_of(stretch->rule);
                is_known = true;
                // chronyd calls a source unreachable only after eight polls without an answer.
                one.is_silent |= standing == SourceStanding::silent || (stretch->reach & 7U) == 0;
                one.is_refused |= standing == SourceStanding::refused;
                one.was_best |= moment < time && standing == SourceStanding::best;
            }
        if (is_known)
            found.push_back(one);
    }
    return found;
}

Cause of_one(const Witness& one, std::size_t known) {
    const Culprit culprit = one.is_silent ? Culprit::silent : one.is_refused ? Culprit::refused : Culprit::choice;
    return {.culprit = culprit, .source = one.lane->source, .sources = known};
}

Cause cause_of_switch(const std::vector<Witness>& known, const std::string& to) {
    const auto former =
        std::ranges::find_if(known, [&to](const Witness& one) { return one.was_best && one.lane->source != to; });
    return former == known.end() ? Cause{} : of_one(*former, known.size());
}

Cause cause_of_loss(const std::vector<Witness>& known) {
    if (known.empty())
        return {};
    if (std::ranges::all_of(known, &Witness::is_silent))
        return {.culprit = known.size() > 1 ? Culprit::way : Culprit::silent,
                .source = known.front().lane->source,
                .sources = known.size()};
    if (std::ranges::all_of(known, &Witness::is_refused))
        return {.culprit = Culprit::dissent, .sources = known.size()};
    const auto former = std::ranges::find_if(known, &Witness::was_best);
    const bool tells = former != known.end() && (former->is_silent || former->is_refused);
    return tells ? of_one(*former, known.size()) : Cause{};
}

Cause cause_of_jump(const HistoryData& data, double time) {
    for (const HistoryTemperature& one : data.temperatures()) {
        const auto now = one.values.nearest(time);
        const auto before = one.values.nearest(time - hour);
        if (!now || !before || std::abs(one.values.time(*now) - time) > hour / 4)
            continue;
        const double risen = one.values.mean(*now) - one.values.mean(*before);
        if (std::abs(risen) >= much)
            return {.culprit = Culprit::temperature, .source = one.sensor, .degrees = risen};
    }
    return {};
}

} // namespace

Cause cause_of(const HistoryData& data, const HistoryMark& mark) {
    using enum EventKind;
    static constexpr std::array own{start, stop, reboot, suspend, backwards};
    if (mark.kind == MarkKind::job || mark.to == "unavailable" ||
        std::ranges::find(own, mark.kind, mark_kind) != own.end())
        return {.culprit = Culprit::machine};
    if (mark.kind == mark_kind(falseticker))
        return {.culprit = Culprit::refused, .source = mark.source};
    if (mark.kind == mark_kind(no_majority))
        return {.culprit = Culprit::dissent};
    if (mark.kind == mark_kind(frequency))
        return cause_of_jump(data, mark.time);
    const auto known = witnesses_of(data, mark.time);
    if (mark.kind == MarkKind::source)
        return cause_of_switch(known, mark.source);
    const bool is_loss = mark.kind == MarkKind::lost || mark.kind == mark_kind(gap) ||
                         (mark.kind == MarkKind::verdict && (mark.to == "holdover" || mark.to == "unsynchronised"));
    return is_loss ? cause_of_loss(known) : Cause{};
}

} // namespace tickervantage
