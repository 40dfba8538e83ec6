#include "roothelper/grammar/helper_interruptions.h"

#include <algorithm>

namespace tickervantage {
namespace {

bool manages(const HelperRequest& request, std::string_view action) {
    return request.verb == HelperVerb::service_manager && request.argv.size() == 3 && request.argv[1] == action;
}

// The support tool names what it stopped.
HelperInterruptions::Units units_in(std::string_view reply) {
    constexpr std::string_view service = ".service";
    HelperInterruptions::Units units;
    while (!reply.empty()) {
        auto word = reply.substr(0, reply.find_first_of(" \n"));
        reply.remove_prefix(std::min(word.size() + 1, reply.size()));
        if (const auto end = word.rfind(service); end != std::string_view::npos && end > 0)
            units.emplace_back(word.substr(0, end + service.size()));
    }
    return units;
}

HelperInterruptions::Units stopped_by(const HelperRequest& request, std::string_view reply) {
    if (manages(request, "stop"))
        return {request.argv[2]};
    return request.verb == HelperVerb::stop_chrony && reply.starts_with("Stopped ") ? units_in(reply)
                                                                                    : HelperInterruptions::Units{};
}

} // namespace

void HelperInterruptions::begin(const std::string& sender) {
    ++m_under_way[sender];
}

void HelperInterruptions::note_end(const std::string& sender) {
    if (const auto found = m_under_way.find(sender); found != m_under_way.end() && --found->second == 0)
        m_under_way.erase(found);
}

HelperInterruptions::Units HelperInterruptions::end(const std::string& sender, const HelperRequest& request,
                                                    bool is_done, std::string_view reply) {
    note_end(sender);
    const auto found = m_callers.find(sender);
    if (found == m_callers.end())
        return {};
    auto& caller = found->second;
    if (request.verb == HelperVerb::start_chrony || manages(request, "start")) {
        m_callers.erase(found); // whether it came up is for the caller, who hears of it
        return {};
    }
    if (is_done)
        std::ranges::copy(stopped_by(request, reply), std::back_inserter(caller.stopped));
    return caller.is_gone && !m_under_way.contains(sender) ? take(sender) : Units{};
}

HelperInterruptions::Units HelperInterruptions::gone(const std::string& sender) {
    const auto found = m_callers.find(sender);
    if (found == m_callers.end())
        return {};
    found->second.is_gone = true;
    return !m_under_way.contains(sender) ? take(sender) : Units{};
}

HelperInterruptions::Units HelperInterruptions::resume(const std::string& sender) {
    return take(sender);
}

HelperInterruptions::Units HelperInterruptions::take(const std::string& sender) {
    const auto found = m_callers.find(sender);
    if (found == m_callers.end())
        return {};
    auto units = std::move(found->second.stopped);
    m_callers.erase(found);
    return units;
}

} // namespace tickervantage
