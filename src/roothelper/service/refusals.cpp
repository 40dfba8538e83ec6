#include "roothelper/service/refusals.h"

#include "roothelper/service/journal.h"

namespace tickervantage {
namespace {

HelperCaller nobody_known(const std::string& name) {
    return {.name = name, .user = unknown_user, .process = 0, .process_start = 0};
}

} // namespace

void Refusals::add(const std::string& sender, std::string_view verb, const Failure& why) {
    if (!m_counts.add(sender))
        return;
    m_callers.find(
        sender, [sender, name = std::string(verb), sentence = english(why)](const std::optional<HelperCaller>& caller) {
            journal_decision(Decision::refused, caller.value_or(nobody_known(sender)), name, sentence);
        });
}

void Refusals::tell() {
    for (const auto& [sender, count] : m_counts.take())
        journal_more_refusals(m_callers.known(sender).value_or(nobody_known(sender)), count);
}

} // namespace tickervantage
