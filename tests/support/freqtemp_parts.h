// Everything a session of frequency against temperature needs, with cranks for the test to turn.
#pragma once

#include "base/broadcast.h"
#include "base/sensors.h"
#include "chrony/reports/current_frequency.h"
#include "studies/freqtemp/freqtemp_session.h"
#include "support/manual_dispatch.h"
#include "support/manual_timer.h"
#include "support/memory_files.h"
#include "support/memory_stores.h"
#include "support/test.h"

namespace tickervantage::testing {

class FakeSensors : public TemperatureSensors {
public:
    std::vector<SensorReading> readings;
    bool is_closed = false;
    [[nodiscard]] std::vector<SensorReading> read() override { return readings; }
    void close() override { is_closed = true; }
};

struct FreqTempFakes {
    FakeSensors sensors;
    MemoryFiles files;
    ManualQueue queue;
    ManualMainThread main_thread;
    ManualMasterTimer timer;
    Broadcast broadcast{main_thread};
    MemoryLogger logger;

    [[nodiscard]] FreqTempParts parts() {
        return {sensors,     files, queue,     queue,  queue,
                main_thread, timer, broadcast, logger, scatter_map_path("/data/Tickervantage")};
    }
    // Until nothing waits any more.
    void settle() {
        while (queue.turn() || main_thread.turn()) {
        }
    }
    void sample(double frequency) {
        broadcast.post(current_frequency_key, current_frequency{frequency}, Delivery::now);
        settle();
    }
    void tick() {
        timer.advance(1);
        settle();
    }
};

} // namespace tickervantage::testing
