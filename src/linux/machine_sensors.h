// The machine's sensors: those of libsensors, or the thermal zones where it finds none.
#pragma once

#include "linux/lm_sensors.h"
#include "linux/thermal_zones.h"

namespace tickervantage {

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
