// The requests that are waiting or under way: those of one user that act on the machine go one after the other, reports
// go beside them, and no user waits for another one.
#pragma once

#include "roothelper/service/job.h"

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace tickervantage {

class JobLines {
public:
    explicit JobLines(JobParts parts) : m_parts(std::move(parts)) {}

    // A failure when too much is waiting already; `order.done` is then not called.
    [[nodiscard]] Result<> add(JobOrder order);

    [[nodiscard]] bool empty() const { return m_lines.empty(); }

private:
    enum class Lane : unsigned char { report, change };
    using Key = std::pair<std::uint32_t, Lane>;
    using Line = std::deque<std::unique_ptr<Job>>;

    static Lane lane_of(HelperVerb verb);
    void finish(Key key);

    JobParts m_parts;
    std::map<Key, Line> m_lines; // the front of each is under way
};

} // namespace tickervantage
