// What callers have stopped for a while, so that it runs again when they go away in the middle.
//
// A caller that stops chronyd for the time of a job says so first. From then on the units that it stopped are noted,
// until it starts them again. A caller that leaves the bus before that, killed or crashed, leaves them to the helper;
// work that it had asked for meanwhile is waited for, because a stop may be part of it.
#pragma once

#include "roothelper/grammar/helper_request.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class HelperInterruptions {
public:
    using Units = std::vector<std::string>;

    void guard(const std::string& sender) { (void)m_callers[sender]; }

    // A request of this sender has been put in its line, and what came of it.
    void begin(const std::string& sender);
    // The units to be started now, when the sender has gone and this was the last of its requests; mostly none.
    [[nodiscard]] Units end(const std::string& sender, const HelperRequest& request, bool is_done,
                            std::string_view reply);

    // The sender has left: the units to be started now.
    [[nodiscard]] Units gone(const std::string& sender);

    // The sender wants them back: likewise. Nothing is guarded for it any more.
    [[nodiscard]] Units resume(const std::string& sender);

    // The sender has said farewell: what it stopped stays so.
    void forget(const std::string& sender) { m_callers.erase(sender); }

    [[nodiscard]] bool empty() const { return m_callers.empty(); }

private:
    struct Caller {
        Units stopped;
        bool is_gone = false;
    };
    [[nodiscard]] Units take(const std::string& sender);

    void note_end(const std::string& sender);

    std::map<std::string, Caller> m_callers;
    std::map<std::string, int> m_under_way; // requests of each sender, also those from before it was guarded
};

} // namespace tickervantage
