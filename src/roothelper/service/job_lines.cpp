#include "roothelper/service/job_lines.h"

#include "base/failure_codes.h"

namespace tickervantage {
namespace {

constexpr std::size_t longest_line = 32;
constexpr std::size_t most_lines = 12; // under way at once

} // namespace

JobLines::Lane JobLines::lane_of(HelperVerb verb) {
    return verb == HelperVerb::chronyc_report || verb == HelperVerb::list_daemons ? Lane::report : Lane::change;
}

Result<> JobLines::add(JobOrder order) {
    const Key key{order.caller.user, lane_of(order.request.verb)};
    const auto found = m_lines.find(key);
    if (found == m_lines.end() ? m_lines.size() >= most_lines : found->second.size() >= longest_line)
        return failed(FailureCode::too_much_waiting);
    order.done = [this, key, done = std::move(order.done)](const JobEnd& end) {
        done(end);
        finish(key);
    };
    auto& line = m_lines[key];
    line.push_back(std::make_unique<Job>(m_parts, std::move(order)));
    if (line.size() == 1)
        line.front()->start();
    return {};
}

void JobLines::finish(Key key) {
    auto& line = m_lines.at(key);
    const auto finished = std::move(line.front()); // it is still on the stack below us
    line.pop_front();
    if (line.empty())
        m_lines.erase(key);
    else
        line.front()->start();
}

} // namespace tickervantage
