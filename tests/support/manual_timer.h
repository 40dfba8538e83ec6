// Timers that fire when the test says that time has passed.
#pragma once

#include "base/repeater.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tickervantage::testing {

class ManualMasterTimer : public MasterTimer {
public:
    class ManualRepeater : public Repeater {
    public:
        ManualRepeater(ManualMasterTimer& owner, std::string name) : m_owner(owner), m_name(std::move(name)) {
            m_owner.m_repeaters.push_back(this);
        }
        ~ManualRepeater() override { std::erase(m_owner.m_repeaters, this); }
        ManualRepeater(const ManualRepeater&) = delete;
        ManualRepeater& operator=(const ManualRepeater&) = delete;

        void start(double interval_seconds, std::function<void()> tick) override {
            m_interval = interval_seconds;
            m_tick = std::move(tick);
            m_due = m_owner.m_now + interval_seconds;
        }
        void stop() override { m_tick = nullptr; }
        [[nodiscard]] bool is_running() const override { return m_tick != nullptr; }
        [[nodiscard]] double interval() const { return m_interval; }

    private:
        friend class ManualMasterTimer;
        ManualMasterTimer& m_owner;
        std::string m_name;
        double m_interval = 0;
        double m_due = 0;
        std::function<void()> m_tick;
    };

    void start() override { m_running = true; }
    void stop() override { m_running = false; }
    [[nodiscard]] bool is_running() const { return m_running; }
    std::unique_ptr<Repeater> make_repeater(std::string_view name, Pace) override {
        return std::make_unique<ManualRepeater>(*this, std::string(name));
    }

    // The repeater of that name, or null.
    [[nodiscard]] ManualRepeater* find(std::string_view name) const {
        const auto found = std::ranges::find_if(m_repeaters, [&](const auto* one) { return one->m_name == name; });
        return found == m_repeaters.end() ? nullptr : *found;
    }

    void advance(double seconds) {
        const double end = m_now + seconds;
        while (ManualRepeater* next = earliest(end)) {
            m_now = next->m_due;
            next->m_due += next->m_interval;
            const auto tick = next->m_tick; // a copy: the handler may stop or start its own repeater
            tick();
        }
        m_now = end;
    }

private:
    [[nodiscard]] ManualRepeater* earliest(double end) const {
        ManualRepeater* best = nullptr;
        for (auto* one : m_repeaters)
            if (m_running && one->m_tick && one->m_due <= end && (!best || one->m_due < best->m_due))
                best = one;
        return best;
    }

    std::vector<ManualRepeater*> m_repeaters;
    double m_now = 0;
    bool m_running = true;
};

} // namespace tickervantage::testing
