#include "roothelper/grammar/helper_tokens.h"

#include "base/hexadecimal.h"
#include "base/number_text.h"

#include <algorithm>

namespace tickervantage {
namespace {

// The first word, taken off the line together with its blank.
std::string_view take_word(std::string_view& line) {
    const auto word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    return word;
}

} // namespace

void HelperTokens::put(const HelperCaller& caller, const helper::Token& token, std::int64_t now) {
    m_entries.insert_or_assign(caller.name, Entry{caller, token, now + lifetime_seconds});
}

const HelperTokens::Entry* HelperTokens::find(const HelperCaller& caller, std::int64_t now) const {
    const auto entry = m_entries.find(caller.name);
    const bool holds = entry != m_entries.end() && caller.process_start != 0 && entry->second.caller == caller &&
                       now < entry->second.end;
    return holds ? &entry->second : nullptr;
}

bool HelperTokens::accepts(const HelperCaller& caller, std::string_view bytes, std::int64_t now) {
    const auto* entry = find(caller, now);
    if (entry == nullptr || bytes.size() != entry->token.size())
        return false;
    unsigned differs = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at)
        differs |= static_cast<unsigned>(static_cast<unsigned char>(bytes[at]) ^ entry->token[at]);
    if (differs != 0)
        return false;
    m_entries.find(caller.name)->second.end = now + lifetime_seconds;
    return true;
}

std::optional<helper::Token> HelperTokens::token_of(const HelperCaller& caller, std::int64_t now) const {
    const auto* entry = find(caller, now);
    return entry == nullptr ? std::nullopt : std::optional(entry->token);
}

std::optional<HelperCaller> HelperTokens::caller_named(const std::string& name) const {
    const auto entry = m_entries.find(name);
    return entry == m_entries.end() ? std::nullopt : std::optional(entry->second.caller);
}

bool HelperTokens::drop(const std::string& name) {
    return m_entries.erase(name) > 0;
}

std::string HelperTokens::written() const {
    std::string text;
    for (const auto& [name, entry] : m_entries) {
        const auto& caller = entry.caller;
        text += name + ' ' + std::to_string(caller.user) + ' ' + std::to_string(caller.process) + ' ' +
                std::to_string(caller.process_start) + ' ' + std::to_string(entry.end) + ' ' +
                hexadecimal(entry.token) + '\n';
    }
    return text;
}

void HelperTokens::read(std::string_view text) {
    while (!text.empty()) {
        auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        Entry entry;
        auto& caller = entry.caller;
        caller.name = take_word(line);
        const bool is_whole = read_number(take_word(line), caller.user) &&
                              read_number(take_word(line), caller.process) &&
                              read_number(take_word(line), caller.process_start) &&
                              read_number(take_word(line), entry.end) && read_hexadecimal(line, entry.token);
        if (is_whole)
            m_entries.insert_or_assign(caller.name, entry);
    }
}

std::vector<HelperCaller> HelperTokens::callers() const {
    std::vector<HelperCaller> result;
    for (const auto& [name, entry] : m_entries)
        result.push_back(entry.caller);
    return result;
}

} // namespace tickervantage
