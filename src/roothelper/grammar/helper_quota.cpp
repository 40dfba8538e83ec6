#include "roothelper/grammar/helper_quota.h"

namespace tickervantage {

bool RefusalCounts::add(const std::string& sender) {
    if (const auto found = m_counts.find(sender); found != m_counts.end()) {
        ++found->second;
        return false;
    }
    if (m_counts.size() >= most_senders) {
        ++m_others;
        return false;
    }
    m_counts.emplace(sender, 0);
    return true;
}

std::vector<std::pair<std::string, std::uint64_t>> RefusalCounts::take() {
    std::vector<std::pair<std::string, std::uint64_t>> more;
    for (const auto& [sender, count] : m_counts)
        if (count > 0)
            more.emplace_back(sender, count);
    if (m_others > 0)
        more.emplace_back("", m_others);
    m_counts.clear();
    m_others = 0;
    return more;
}

bool AskQuota::may_ask(std::uint32_t user) const {
    const auto found = m_refusals.find(user);
    return found == m_refusals.end() || found->second < most_refusals;
}

} // namespace tickervantage
