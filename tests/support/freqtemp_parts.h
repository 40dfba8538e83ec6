// Everything a session of frequency against temperature needs, with cranks for the test to turn.
#pragma once

#include "base/broadcast.h"
#include "base/failure_codes.h"
#include "base/sensors.h"
#include "base/user_files.h"
#include "chrony/reports/current_frequency.h"
#include "studies/freqtemp/freqtemp_session.h"
#include "support/manual_dispatch.h"
#include "support/manual_timer.h"
#include "support/memory_stores.h"

#include <cerrno>
#include <map>
#include <string>
#include <vector>

namespace tickervantage::testing {

class FakeSensors : public TemperatureSensors {
public:
    std::vector<SensorReading> readings;
    bool is_closed = false;
    [[nodiscard]] std::vector<SensorReading> read() override { return readings; }
    void close() override { is_closed = true; }
};

class MemoryFiles : public UserFiles {
public:
    std::map<std::string, std::string> texts;
    int writes = 0;
    bool is_full = false;
    bool holds_fast = false; // nothing can be renamed

    [[nodiscard]] FileReading read(const std::string& path, std::size_t) override {
        const auto found = texts.find(path);
        if (found == texts.end())
            return {};
        return {.outcome = FileReading::Outcome::read, .bytes = found->second};
    }
    [[nodiscard]] Result<> replace(const std::string& path, const WriteText& write) override {
        std::string text;
        ++writes;
        if (is_full || write([&text](std::string_view piece) {
                           text += piece;
                           return 0;
                       }) != 0)
            return failed(FailureCode::cannot_write, {path}, ENOSPC);
        texts[path] = text;
        return {};
    }
    [[nodiscard]] Result<std::string> set_aside(const std::string& path) override {
        if (holds_fast)
            return failed(FailureCode::cannot_rename, {path}, EACCES);
        auto kept_as = path + ".damaged";
        texts[kept_as] = texts[path];
        texts.erase(path);
        return kept_as;
    }
    void remove(const std::string& path) override { texts.erase(path); }
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
