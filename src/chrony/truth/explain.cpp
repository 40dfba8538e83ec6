#include "chrony/truth/explain.h"

#include "base/translatable.h"
#include "chrony/truth/remedies.h"
#include "chrony/truth/source_interval.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace tickervantage {
namespace {

using quantity::count;
using quantity::duration;
using quantity::seconds;
using quantity::signed_seconds;
using Values = std::vector<SentenceValue>;

/* TRANSLATOR explanations
   Why chrony uses a time source or does not, and what would change that. %1, %2, … stand for addresses, numbers with
   their units and words of chrony. Directives of chrony's configuration (maxdistance, iburst) stay as they are. */
constexpr const char* context = "explanations";

// The ends of an interval, precise enough to be told apart.
Quantity end_of(double value, double low, double high) {
    return {.value = value, .kind = QuantityKind::signed_seconds, .resolution = std::abs(high - low)};
}

Sentence say(const char* words, Values values = {}) {
    return {.context = context, .words = words, .values = std::move(values)};
}

std::string host_of(const JudgedSource& source) {
    return source.name.value_or(source.data.source);
}

// What those that agree have in common.
struct SharedInterval {
    double low = 0;
    double high = 0;
    int sharing = 0;
};

// What is known of all sources together, for the sentences of one.
struct Selection {
    const ConfigurationLines& lines;
    std::optional<SharedInterval> shared; // none where none of those that agree has an interval
    int with_interval = 0;                // sources
    int disagreeing = 0;                  // without a majority
    int selectable = 0;                   // that wait for others
};

void add_interval(const JudgedSource& source, Selection& selection) {
    if (!source.selection || !source.selection->low)
        return;
    ++selection.with_interval;
    if (!is_believed(source.rule))
        return;
    const SharedInterval before =
        selection.shared.value_or(SharedInterval{*source.selection->low, *source.selection->high});
    selection.shared = {.low = std::max(*source.selection->low, before.low),
                        .high = std::min(*source.selection->high, before.high),
                        .sharing = before.sharing + 1};
}

Selection selection_of(const std::vector<JudgedSource>& sources, const ConfigurationLines& lines) {
    Selection selection{.lines = lines, .shared = {}};
    for (const JudgedSource& source : sources) {
        add_interval(source, selection);
        selection.disagreeing += source.rule == SelectionRule::no_majority ? 1 : 0;
        selection.selectable += source.rule == SelectionRule::required ? 1 : 0;
    }
    return selection;
}

// Sentences: what decided -----------------------------------------------------------------------------------------

void add_offset(const JudgedSource& source, std::vector<Sentence>& sentences) {
    if (source.data.offset && source.data.error)
        sentences.push_back(say(TV_TEXT("explanations", "By its last measurement our clock is off by %1, ± %2."),
                                {signed_seconds(*source.data.offset), seconds(*source.data.error)}));
}

Sentence say_unanswered(const JudgedSource& source) {
    if (source.ntp)
        return say(TV_TEXT("explanations", "It has never answered: %1 requests were sent, and no packet came back."),
                   {count(static_cast<double>(source.ntp->sent))});
    return say(TV_TEXT("explanations", "No measurement of it has succeeded since chronyd was started."));
}

Sentence say_unsynchronised(const JudgedSource& source) {
    if (source.ntp && source.ntp->received > 0)
        return say(
            TV_TEXT("explanations", "It answers (%1 packets so far), but says itself that it has no time: stratum %2."),
            {count(static_cast<double>(source.ntp->received)), count(source.ntp->stratum)});
    return say(TV_TEXT("explanations", "It answers, but says itself that it is not synchronised."));
}

Sentence say_few(const JudgedSource& source) {
    const int samples = source.statistics ? source.statistics->samples : 0;
    return say(TV_TEXT("explanations", "chronyd has %1 usable measurements of it, too few to judge it by."),
               {count(samples)});
}

Sentence say_unreachable(const JudgedSource& source) {
    return say(
        TV_TEXT("explanations", "None of the last eight requests was answered; it was heard %1 ago for the last time."),
        {duration(source.data.last_rx.value_or(0))});
}

Sentence say_distant(const JudgedSource& source, const Selection& selection) {
    constexpr double default_distance = 3; // s, chrony.conf(5)
    const double limit = selection.lines.number("maxdistance").value_or(default_distance);
    if (source.ntp)
        return say(TV_TEXT("explanations", "Its time may be off by more than maxdistance (%1) allows: the path to its "
                                           "reference alone has a delay of %2 and a dispersion of %3."),
                   {seconds(limit), seconds(source.ntp->root_delay), seconds(source.ntp->root_dispersion)});
    return say(TV_TEXT("explanations", "Its time may be off by more than maxdistance (%1) allows."), {seconds(limit)});
}

Sentence say_jittery(const JudgedSource& source, const Selection& selection) {
    constexpr double default_jitter = 1; // s, chrony.conf(5)
    const double limit = selection.lines.number("maxjitter").value_or(default_jitter);
    if (source.statistics && source.statistics->std_dev)
        return say(TV_TEXT("explanations", "Its measurements scatter too much: their standard deviation is %1, and "
                                           "maxjitter allows %2."),
                   {seconds(*source.statistics->std_dev), seconds(limit)});
    return say(TV_TEXT("explanations", "Its measurements scatter by more than maxjitter (%1) allows."),
               {seconds(limit)});
}

Sentence say_falseticker(const JudgedSource& source, const Selection& selection) {
    const auto& shared = selection.shared;
    if (!shared || !source.selection || !source.selection->low)
        return say(TV_TEXT("explanations", "Its time cannot be true if that of the majority is."));
    const double low = *source.selection->low;
    const double high = *source.selection->high;
    return say(
        TV_TEXT("explanations", "Its interval, %1 to %2, does not touch the one that %3 of %4 others share, %5 to %6."),
        {end_of(low, low, high), end_of(high, low, high), count(shared->sharing), count(selection.with_interval - 1),
         end_of(shared->low, shared->low, shared->high), end_of(shared->high, shared->low, shared->high)});
}

Sentence say_no_majority(const JudgedSource& source, const Selection& selection) {
    if (source.selection && source.selection->low)
        return say(TV_TEXT("explanations",
                           "%1 sources contradict each other, and no majority tells which are right; this "
                           "one says %2 to %3."),
                   {count(selection.disagreeing),
                    end_of(*source.selection->low, *source.selection->low, *source.selection->high),
                    end_of(*source.selection->high, *source.selection->low, *source.selection->high)});
    return say(TV_TEXT("explanations", "%1 sources contradict each other, and no majority tells which are right."),
               {count(selection.disagreeing)});
}

Sentence say_required(const Selection& selection) {
    const double needed = selection.lines.number("minsources").value_or(1);
    if (needed > selection.selectable)
        return say(
            TV_TEXT("explanations", "It could be used, but minsources asks for %1 sources at once, and there are %2."),
            {count(needed), count(selection.selectable)});
    return say(TV_TEXT("explanations", "It could be used, but a source with the option require cannot be used yet."));
}

Sentence say_orphan(const JudgedSource& source) {
    return say(TV_TEXT("explanations", "Its stratum, %1, is not below the stratum that this machine takes for itself "
                                       "(local stratum … orphan)."),
               {count(source.data.stratum)});
}

Sentence say_unknown(const JudgedSource& source) {
    if (is_told_to_root_only(source))
        return say(TV_TEXT("explanations", "chronyd does not use it, and tells only root why."));
    return say(TV_TEXT("explanations", "chrony gives it the state \"%1\", which this program does not know."),
               {std::string(1, source.letter)});
}

struct PlainWords {
    SelectionRule rule;
    const char* sentence;
};

// What needs no numbers.
constexpr auto plain_sentences = std::to_array<PlainWords>({
    {SelectionRule::best,
     TV_TEXT("explanations", "chronyd follows it: of all that agree it is the closest to true time.")},
    {SelectionRule::combined, TV_TEXT("explanations", "chronyd uses it together with the best source.")},
    {SelectionRule::noselect,
     TV_TEXT("explanations", "It is measured only: its line in the configuration has noselect.")},
    {SelectionRule::waiting,
     TV_TEXT("explanations", "It waits until the other sources have been measured often enough.")},
    {SelectionRule::not_preferred, TV_TEXT("explanations", "Another source that can be used has the option prefer.")},
    {SelectionRule::new_measurement,
     TV_TEXT("explanations", "Another source became the best one; this one waits for its next measurement.")},
    {SelectionRule::not_combined,
     TV_TEXT("explanations", "It is, or was a moment ago, much further from true time than the best source, so that "
                             "combining the two would not help.")},
    {SelectionRule::outlier,
     TV_TEXT("explanations", "Its time lies at the edge of those that agree, and it is left out for that.")},
    {SelectionRule::stratum, TV_TEXT("explanations", "Another source of a lower stratum is preferred.")},
    {SelectionRule::stale, TV_TEXT("explanations", "Its measurements are older than those of the other sources.")},
    {SelectionRule::untrusted,
     TV_TEXT("explanations", "It does not fully agree with the sources that have the option trust.")},
});

Sentence main_sentence(const JudgedSource& source, const Selection& selection) {
    switch (source.rule) {
    case SelectionRule::unresolved:
        return say(TV_TEXT("explanations", "No address is known for %1."), {host_of(source)});
    case SelectionRule::unanswered:
        return say_unanswered(source);
    case SelectionRule::unsynchronised:
        return say_unsynchronised(source);
    case SelectionRule::few_measurements:
        return say_few(source);
    case SelectionRule::unreachable:
        return say_unreachable(source);
    case SelectionRule::distant:
        return say_distant(source, selection);
    case SelectionRule::jittery:
        return say_jittery(source, selection);
    case SelectionRule::falseticker:
        return say_falseticker(source, selection);
    case SelectionRule::no_majority:
        return say_no_majority(source, selection);
    case SelectionRule::required:
        return say_required(selection);
    case SelectionRule::orphan:
        return say_orphan(source);
    case SelectionRule::not_combined:
        if (!source.selection)
            return say(TV_TEXT("explanations", "chronyd could use it, but leaves it out of those that it combines."));
        break;
    default:
        break;
    }
    const auto* const plain = std::ranges::find(plain_sentences, source.rule, &PlainWords::rule);
    return plain == plain_sentences.end() ? say_unknown(source) : say(plain->sentence);
}

Explanation explanation_of(const JudgedSource& source, const Selection& selection) {
    Explanation explanation{.source = source.data.source,
                            .name = source.name,
                            .letter = source.letter,
                            .rule = source.rule,
                            .sentences = {main_sentence(source, selection)},
                            .remedies = remedies_for(source),
                            .line = selection.lines.line_of(source.data.source, source.name.value_or(std::string()))};
    add_offset(source, explanation.sentences);
    return explanation;
}

} // namespace

std::vector<Explanation> explain(const ChronyReports& reports, const std::vector<CapturedFile>& configuration) {
    return explain(judged_sources(reports), configuration);
}

std::vector<Explanation> explain(const std::vector<JudgedSource>& sources,
                                 const std::vector<CapturedFile>& configuration) {
    const ConfigurationLines lines(configuration);
    const Selection selection = selection_of(sources, lines);
    std::vector<Explanation> explanations;
    explanations.reserve(sources.size());
    for (const JudgedSource& source : sources)
        explanations.push_back(explanation_of(source, selection));
    return explanations;
}

std::vector<Explanation> explanations_of(std::vector<Explanation> explanations, std::string_view source) {
    std::erase_if(explanations, [source](const Explanation& one) {
        return one.source != source && one.name.value_or(std::string()) != source;
    });
    return explanations;
}

} // namespace tickervantage
