#include "watch/engine.h"

#include <algorithm>

namespace tickervantage {
namespace {

bool names(const std::vector<std::string>& list, const WatchRule& rule) {
    return std::ranges::find(list, name_of(rule.quantity)) != list.end();
}

} // namespace

WatchEngine::WatchEngine(const std::vector<WatchRule>& rules, double now, double grace, const WatchMemory& memory)
    : m_grace(grace), m_grace_end(now + grace) {
    for (const WatchRule& rule : rules)
        m_watched.push_back({.rule = rule,
                             .raised = names(memory.raised, rule),
                             .quiet = names(memory.raised, rule) && names(memory.quiet, rule),
                             .begun = {}});
}

void WatchEngine::resumed(double now) {
    m_grace_end = now + m_grace;
    for (Watched& watched : m_watched)
        watched.begun.reset();
}

void WatchEngine::change(const std::vector<WatchRule>& rules) {
    for (const WatchRule& rule : rules)
        for (Watched& watched : m_watched)
            if (watched.rule.quantity == rule.quantity)
                watched.rule = rule;
}

bool WatchEngine::observe(const WatchObservation& seen, double now) {
    if (now < m_grace_end)
        return false;
    bool changed = false;
    for (Watched& watched : m_watched)
        changed |= follow(watched, seen[watched.rule.quantity], now);
    return changed;
}

bool WatchEngine::follow(Watched& watched, std::optional<double> value, double now) {
    const WatchRule& rule = watched.rule;
    const bool turns = watched.raised ? !lasts(rule, value) && !begins(rule, value) : begins(rule, value);
    if (!turns) {
        watched.begun.reset();
        return false;
    }
    watched.begun = watched.begun.value_or(now);
    if (now - *watched.begun < (watched.raised ? rule.clear_hold : rule.hold))
        return false;
    watched = {.rule = rule, .raised = !watched.raised, .quiet = false, .begun = {}};
    return true;
}

void WatchEngine::be_quiet() {
    for (Watched& watched : m_watched)
        watched.quiet = watched.raised;
}

std::vector<WatchRule> WatchEngine::those(bool with_quiet) const {
    std::vector<WatchRule> found;
    for (const Watched& watched : m_watched)
        if (watched.raised && (with_quiet || !watched.quiet))
            found.push_back(watched.rule);
    std::ranges::stable_sort(found, std::ranges::greater(), &WatchRule::severity);
    return found;
}

std::vector<WatchRule> WatchEngine::raised() const {
    return those(true);
}

std::vector<WatchRule> WatchEngine::told() const {
    return those(false);
}

WatchMemory WatchEngine::memory() const {
    WatchMemory memory;
    for (const Watched& watched : m_watched) {
        const std::string name(name_of(watched.rule.quantity));
        if (watched.raised)
            memory.raised.push_back(name);
        if (watched.quiet)
            memory.quiet.push_back(name);
    }
    return memory;
}

} // namespace tickervantage
