// The machine's temperature sensors.
#pragma once

#include "base/sensors.h"

#include <string>
#include <vector>

namespace tickervantage {

// Temperature sensors as libsensors knows them: chips under /sys/class/hwmon, labels from its configuration files.
//
// Names are a chip's and a feature's ("coretemp-isa-0000/temp1"), descriptions a label with the chip's name ("Core 0
// (coretemp-isa-0000)"). Chips that came or went are found by what /sys/class/hwmon lists. The library is one for the
// whole process: one object at a time, see base/sensors.h for the threads.
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

// The kernel's thermal zones: for machines whose sensors have no driver that libsensors knows.
//
// A name is the zone's type ("x86_pkg_temp"), with a number from 2 on behind it where several zones are of one type.
// Source: the kernel's Documentation/driver-api/thermal/sysfs-api.rst.
class ThermalZones : public TemperatureSensors {
public:
    [[nodiscard]] std::vector<SensorReading> read() override;
    void close() override {}
};

// The machine's sensors: those of libsensors, or the thermal zones where it finds none.
class MachineSensors : public TemperatureSensors {
public:
    [[nodiscard]] std::vector<SensorReading> read() override {
        auto readings = m_chips.read();
        return readings.empty() ? m_zones.read() : readings;
    }
    void close() override { m_chips.close(); }

private:
    LmSensors m_chips;
    ThermalZones m_zones;
};

} // namespace tickervantage
