// Letting time pass between two tries.
#pragma once

#include <chrono>
#include <thread>

namespace tickervantage {

// Blocks for that long; a test turns the time itself. Never on the main thread.
class Pause {
public:
    virtual ~Pause() = default;
    virtual void pause(std::chrono::milliseconds time) = 0;
};

class SleepingPause : public Pause {
public:
    void pause(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
};

} // namespace tickervantage
