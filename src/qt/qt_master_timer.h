// Repeaters over Qt timers.
#pragma once

#include "base/repeater.h"

#include <set>

namespace tickervantage {

class QtRepeater;

class QtMasterTimer : public MasterTimer {
public:
    void start() override;
    void stop() override;
    [[nodiscard]] bool is_running() const { return m_running; }
    std::unique_ptr<Repeater> make_repeater(std::string_view name, Pace pace) override;

private:
    friend class QtRepeater;
    std::set<QtRepeater*> m_repeaters;
    bool m_running = false;
};

} // namespace tickervantage
