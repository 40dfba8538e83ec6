// How much of the root helper one user, or one connection, may have in a minute. Whoever keeps these starts a new
// minute; keep on one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage {

// Which refusals get a line of their own in the journal.
class RefusalCounts {
public:
    static constexpr std::size_t most_senders = 64; // with lines of their own; the others are counted together

    // True for the first one of a sender in this minute; the following ones are counted.
    [[nodiscard]] bool add(const std::string& sender);

    // The senders with more refusals than the first one, and how many more; the sender is empty for those that came
    // when there were too many. Starts a new minute.
    [[nodiscard]] std::vector<std::pair<std::string, std::uint64_t>> take();

private:
    std::map<std::string, std::uint64_t> m_counts; // of those without a line
    std::uint64_t m_others = 0;
};

// How often polkit is asked in a user's name in vain: each question costs polkit, which all programs of the machine
// need, more than it costs who asks. No connection counts for itself, since a user may have many.
class AskQuota {
public:
    static constexpr unsigned most_refusals = 10; // nobody mistypes a password more often

    [[nodiscard]] bool may_ask(std::uint32_t user) const;
    void note_refusal(std::uint32_t user) { ++m_refusals[user]; }
    void new_minute() { m_refusals.clear(); }

private:
    std::map<std::uint32_t, unsigned> m_refusals;
};

} // namespace tickervantage
