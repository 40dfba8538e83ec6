// Temperature sensors as libsensors knows them: chips under /sys/class/hwmon, labels from its configuration files.
//
// Names are a chip's and a feature's ("coretemp-isa-0000/temp1"), descriptions a label with the chip's name ("Core 0
// (coretemp-isa-0000)"). Chips that came or went are found by what /sys/class/hwmon lists. The library is one for the
// whole process: one object at a time, see platform/sensors.h for the threads.
#pragma once

#include "base/sensors.h"

#include <string>
#include <vector>

namespace tickervantage {

class LmSensors : public TemperatureSensors {
public:
    LmSensors();
    ~LmSensors() override;
    LmSensors(const LmSensors&) = delete;
    LmSensors& operator=(const LmSensors&) = delete;

    [[nodiscard]] std::vector<SensorReading> read() override;
    void close() override;

private:
    struct Source;

    void open();

    std::string m_listed; // what /sys/class/hwmon held when the library was opened
    bool m_is_open = false;
    std::vector<Source> m_sources;
};

} // namespace tickervantage
