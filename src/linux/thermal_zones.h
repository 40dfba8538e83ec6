// The kernel's thermal zones: for machines whose sensors have no driver that libsensors knows.
//
// A name is the zone's type ("x86_pkg_temp"), with a number from 2 on behind it where several zones are of one type.
// Source: the kernel's Documentation/driver-api/thermal/sysfs-api.rst.
#pragma once

#include "base/sensors.h"

#include <vector>

namespace tickervantage {

class ThermalZones : public TemperatureSensors {
public:
    [[nodiscard]] std::vector<SensorReading> read() override;
    void close() override {}
};

} // namespace tickervantage
