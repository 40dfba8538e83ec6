#include "draw/plots/view_path.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::size_t longest_path = 100;

} // namespace

TimeRange zoomed(const TimeRange& range, double about, double factor, double shortest) {
    constexpr double longest = 200 * 365.25 * 86400;
    const double length = std::clamp(range.length() * factor, shortest, longest);
    const double share = range.length() > 0 ? (about - range.from) / range.length() : 0.5;
    return {about - share * length, about + (1 - share) * length};
}

TimeRange kept_within(TimeRange range, const TimeRange& limits) {
    const double length = range.length();
    double from = std::clamp(range.from, limits.from, std::max(limits.from, limits.to - length));
    if (length > limits.length())
        from = (limits.from + limits.to - length) / 2;
    return {from, from + length};
}

void ViewPath::go(const TimeRange& range) {
    m_is_sliding = false;
    if (range == m_now)
        return;
    if (m_before.size() == longest_path)
        m_before.erase(m_before.begin());
    m_before.push_back(m_now);
    m_after.clear();
    m_now = range;
}

void ViewPath::slide(const TimeRange& range) {
    if (range == m_now)
        return;
    if (!m_is_sliding)
        go(range);
    m_now = range;
    m_is_sliding = true;
}

void ViewPath::extend(const TimeRange& was, const TimeRange& is) {
    std::ranges::replace(m_before, was, is);
    std::ranges::replace(m_after, was, is);
    m_now = m_now == was ? is : m_now;
}

void ViewPath::back() {
    if (m_before.empty())
        return;
    m_is_sliding = false;
    m_after.push_back(m_now);
    m_now = m_before.back();
    m_before.pop_back();
}

void ViewPath::forward() {
    if (m_after.empty())
        return;
    m_is_sliding = false;
    m_before.push_back(m_now);
    m_now = m_after.back();
    m_after.pop_back();
}

} // namespace tickervantage
