#include "studies/events/selection_events.h"

#include "studies/events/event_words.h"

#include <algorithm>
#include <string_view>

namespace tickervantage {

using event_words::say;

namespace {

constexpr char falseticker = 'x';
constexpr std::string_view selectable = "*+WPUD";

} // namespace

void SelectionEvents::add(const LogLine& line, const EventPlace& place) {
    namespace column = selection_column;
    const auto source = line.texts[column::source];
    // A selection has each source once, all at the same moment.
    const bool is_next = std::ranges::find(m_round, source, &Judged::source) != m_round.end() ||
                         (!m_round.empty() && m_round.front().time != line.time());
    if (is_next)
        judge_round();
    m_round.push_back({std::string(source), line.texts[column::state].front(), line.time(), place});
}

void SelectionEvents::finish() {
    judge_round();
}

void SelectionEvents::judge_round() {
    const auto are = [this](std::string_view letters) {
        return std::ranges::count_if(
            m_round, [&](const Judged& one) { return letters.find(one.letter) != std::string_view::npos; });
    };
    const bool without_majority = are({&falseticker, 1}) > 1 && are(selectable) == 0;
    if (without_majority && !m_has_no_majority)
        m_events.push_back(
            {.time = m_round.front().time,
             .kind = EventKind::no_majority,
             .sentence = say(TV_TEXT("clock_events", "The sources disagreed without a majority: none was followed.")),
             .place = m_round.front().place});
    m_has_no_majority = without_majority;
    for (const Judged& one : m_round) {
        if (one.letter != falseticker)
            m_falsetickers.erase(one.source);
        else if (!without_majority && m_falsetickers.insert(one.source).second)
            m_events.push_back(
                {.time = one.time,
                 .kind = EventKind::falseticker,
                 .source = one.source,
                 .sentence = say(TV_TEXT("clock_events", "%1 disagreed with the other sources and was not believed."),
                                 {one.source}),
                 .place = one.place});
    }
    m_round.clear();
}

} // namespace tickervantage
