#include "chrony/truth/remedies.h"

#include "base/translatable.h"

#include <algorithm>
#include <array>

namespace tickervantage {
namespace {

Sentence say(const char* words) {
    return {.context = "explanations", .words = words};
}

struct Remedy {
    SelectionRule rule;
    const char* sentence;
};

constexpr auto remedies = std::to_array<Remedy>({
    {SelectionRule::noselect, TV_TEXT("explanations", "Take noselect from its line to let chronyd use it.")},
    {SelectionRule::unresolved,
     TV_TEXT("explanations", "Look for a misspelling on its line (server, pool), and whether this machine's name "
                             "server answers; chronyd asks again by itself, and at once after \"chronyc refresh\".")},
    {SelectionRule::unanswered,
     TV_TEXT("explanations", "See whether the host is up and whether a firewall lets UDP port 123 through; \"tickerctl "
                             "probe\" tries it. If it stays silent, replace its line (server, pool).")},
    {SelectionRule::unsynchronised,
     TV_TEXT("explanations",
             "Its keeper has to look after it; until then, another server line brings a source with a time.")},
    {SelectionRule::few_measurements,
     TV_TEXT("explanations", "Wait for some more polls; iburst on its line makes the first four at once.")},
    {SelectionRule::unreachable,
     TV_TEXT("explanations", "See whether this machine's network is up and the host still answers; \"chronyc burst "
                             "2/4\" asks at once. A second server line makes one silence harmless.")},
    {SelectionRule::distant, TV_TEXT("explanations", "Choose a nearer server, or allow more by maxdistance.")},
    {SelectionRule::jittery,
     TV_TEXT("explanations", "Choose a server over a steadier network, or allow more by maxjitter.")},
    {SelectionRule::waiting,
     TV_TEXT("explanations", "Wait for some more polls; iburst on the other sources' lines shortens it.")},
    {SelectionRule::falseticker, TV_TEXT("explanations", "Do not use it: take its line (server, pool, refclock) out, "
                                                         "or give a reference clock its offset by the option offset.")},
    {SelectionRule::no_majority,
     TV_TEXT("explanations", "Add server lines: four sources let chronyd tell one wrong clock from three right ones. "
                             "If you know which is right, give its line the option trust.")},
    {SelectionRule::required,
     TV_TEXT("explanations",
             "Bring the missing sources back, or lower minsources (or take require from the other's line).")},
    {SelectionRule::not_preferred,
     TV_TEXT("explanations", "Take prefer from the other's line, or give it to this one too.")},
    {SelectionRule::not_combined,
     TV_TEXT("explanations", "Nothing has to be done; combinelimit says how much further a source may be.")},
    {SelectionRule::stale,
     TV_TEXT("explanations", "A smaller maxpoll on its line keeps its measurements as fresh as those of the others.")},
    {SelectionRule::orphan,
     TV_TEXT("explanations", "Use a server of a lower stratum, or raise the stratum of the directive local.")},
    {SelectionRule::untrusted,
     TV_TEXT("explanations",
             "Give its line the option trust if it deserves it, or look why the trusted sources differ.")},
});

} // namespace

std::vector<Sentence> remedies_for(const JudgedSource& source) {
    if (is_told_to_root_only(source))
        return {say(TV_TEXT("explanations", "Ask again with an administrator's rights, for the report selectdata."))};
    const auto* const plain = std::ranges::find(remedies, source.rule, &Remedy::rule);
    return plain == remedies.end() ? std::vector<Sentence>() : std::vector{say(plain->sentence)};
}

} // namespace tickervantage
