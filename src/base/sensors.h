// The machine's temperature sensors. A machine without any is an ordinary machine.
//
// Temperatures in degrees Celsius. The calls wait for the kernel, which asks slow chips for every reading: never on the
// main thread, and one call at a time.
#pragma once

#include <string>
#include <vector>

namespace tickervantage {

struct SensorReading {
    std::string name;        // the same after a restart of the program or the machine
    std::string description; // for people; the name where there is nothing better
    double temperature = 0;  // 0: present, but gives no reading now
    std::string file = {};   // of the kernel's, with thousandths of a degree; empty: there is none of its own
    friend bool operator==(const SensorReading&, const SensorReading&) = default;
};

class TemperatureSensors {
public:
    virtual ~TemperatureSensors() = default;

    // All sensors that are there now, in an order that stays the same. Sensors that were plugged in or out since the
    // last call are noticed.
    [[nodiscard]] virtual std::vector<SensorReading> read() = 0;

    // Gives back what reading needed; read() may be called again afterwards.
    virtual void close() = 0;
};

} // namespace tickervantage
