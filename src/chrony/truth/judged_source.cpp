#include "chrony/truth/judged_source.h"

#include "chrony/truth/logged_rule.h"

#include "chrony/truth/verdict.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace tickervantage {
namespace {

// Sources in numbers of thousands are joined, so each report is sorted once.
template <typename Row>
std::map<std::string_view, const Row*> by_source(const std::optional<std::vector<Row>>& rows) {
    std::map<std::string_view, const Row*> found;
    if (rows)
        for (const Row& row : *rows)
            found.try_emplace(row.source, &row);
    return found;
}

template <typename Row>
std::optional<Row> row_of(const std::map<std::string_view, const Row*>& rows, const std::string& source) {
    const auto found = rows.find(source);
    return found == rows.end() ? std::nullopt : std::optional(*found->second);
}

struct LetterRule {
    char letter;
    SelectionRule rule;
};

// Letters that say by themselves what is meant.
constexpr auto plain_letters = std::to_array<LetterRule>({
    {'d', SelectionRule::distant},
    {'~', SelectionRule::jittery},
    {'w', SelectionRule::waiting},
    {'x', SelectionRule::falseticker},
    {'W', SelectionRule::required},
    {'P', SelectionRule::not_preferred},
    {'U', SelectionRule::new_measurement},
    {'D', SelectionRule::not_combined},
    {'-', SelectionRule::not_combined},
    {'L', SelectionRule::outlier},
    {'r', SelectionRule::stratum},
    {'S', SelectionRule::stale},
    {'O', SelectionRule::orphan},
    {'T', SelectionRule::untrusted},
});

SelectionRule rule_of_letter(char letter) {
    const auto* const found = std::ranges::find(plain_letters, letter, &LetterRule::letter);
    return found == plain_letters.end() ? SelectionRule::unknown : found->rule;
}

// Letters of a source that chronyd cannot judge yet: one each in two versions of chrony for three causes, and "?" of
// the report that everybody may read.
bool is_not_judged(char letter) {
    return letter == 's' || letter == 'M' || letter == '?';
}

// Of one that never gave a measurement: only the packets received tell silence from an answer without a time.
SelectionRule rule_of_unheard(const JudgedSource& source) {
    return source.ntp && source.ntp->received > 0 ? SelectionRule::unsynchronised : SelectionRule::unanswered;
}

SelectionRule rule_of_unjudged(const JudgedSource& source) {
    if (!source.data.last_rx)
        return rule_of_unheard(source);
    const bool leap_unknown = source.selection && source.selection->leap == "Not synchronised";
    if (source.letter == 's' || leap_unknown)
        return SelectionRule::unsynchronised;
    return source.letter == 'M' ? SelectionRule::few_measurements : SelectionRule::unknown;
}

bool has_no_address(const JudgedSource& source) {
    return source.data.source.starts_with("ID#");
}

SelectionRule rule_of(const JudgedSource& source) {
    if (source.letter == '*')
        return SelectionRule::best;
    if (source.letter == '+')
        return SelectionRule::combined;
    if (source.letter == 'N')
        return SelectionRule::noselect;
    if (is_not_judged(source.letter) && has_no_address(source))
        return SelectionRule::unresolved;
    if (source.data.last_rx && source.data.reach == 0)
        return SelectionRule::unreachable;
    return is_not_judged(source.letter) ? rule_of_unjudged(source) : rule_of_letter(source.letter);
}

// Those whose times chronyd has compared with each other.
bool was_compared(SelectionRule rule) {
    using enum SelectionRule;
    static constexpr std::array compared{best,          combined,        falseticker,  required, untrusted,
                                         not_preferred, new_measurement, not_combined, outlier,  stratum};
    return std::ranges::find(compared, rule) != compared.end();
}

void name_missing_majority(std::vector<JudgedSource>& sources) {
    const auto agrees = [](const JudgedSource& source) {
        return was_compared(source.rule) && source.rule != SelectionRule::falseticker;
    };
    if (std::ranges::any_of(sources, agrees))
        return;
    for (JudgedSource& source : sources)
        if (source.rule == SelectionRule::falseticker)
            source.rule = SelectionRule::no_majority;
}

} // namespace

SelectionRule rule_of_logged(char letter, unsigned reach) {
    const bool was_heard = reach != 0;
    switch (letter) {
    case '*':
        return SelectionRule::best;
    case '+':
        return SelectionRule::combined;
    case 'N':
        return SelectionRule::noselect;
    case 's':
        return was_heard ? SelectionRule::unsynchronised : SelectionRule::unanswered;
    case 'M':
        return was_heard ? SelectionRule::few_measurements : SelectionRule::unanswered;
    default:
        return was_heard ? rule_of_letter(letter) : SelectionRule::unreachable;
    }
}

std::string_view name_of(SelectionRule rule) {
    static constexpr auto names =
        std::to_array<std::string_view>({"best",         "combined",       "noselect",         "unresolved",
                                         "unanswered",   "unsynchronised", "few_measurements", "unreachable",
                                         "distant",      "jittery",        "waiting",          "falseticker",
                                         "no_majority",  "required",       "not_preferred",    "new_measurement",
                                         "not_combined", "outlier",        "stratum",          "stale",
                                         "orphan",       "untrusted",      "unknown"});
    return names.at(static_cast<std::size_t>(rule));
}

bool is_told_to_root_only(const JudgedSource& source) {
    return source.rule == SelectionRule::unknown && source.letter == '?' && !source.selection;
}

std::vector<JudgedSource> judged_sources(const ChronyReports& reports) {
    const auto statistics = by_source(reports.statistics);
    const auto selection = by_source(reports.selection);
    const auto authentication = by_source(reports.authentication);
    const auto ntp = by_source(reports.ntp);
    std::vector<JudgedSource> sources;
    if (!reports.sources)
        return sources;
    sources.reserve(reports.sources->size());
    for (const SourceData& data : *reports.sources) {
        JudgedSource& source = sources.emplace_back(JudgedSource{.data = data, .letter = data.letter});
        if (const auto name = reports.names.find(data.source); name != reports.names.end())
            source.name = name->second;
        source.statistics = row_of(statistics, data.source);
        source.selection = row_of(selection, data.source);
        source.authentication = row_of(authentication, data.source);
        source.ntp = row_of(ntp, data.source);
        if (source.selection)
            source.letter = source.selection->letter;
        source.rule = rule_of(source);
    }
    name_missing_majority(sources);
    return sources;
}

} // namespace tickervantage
