// The menu of sensors with check marks: a title, an item for no sensor, a separator, then the sensors.
//
// Checking a sensor clears the mark of the item for no sensor, and checking that one clears the sensors' marks.
// Clearing a mark does nothing else. Plain values.
#pragma once

#include "base/color.h"
#include "studies/freqtemp/quad_regression.h"
#include "studies/freqtemp/scatter_map.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

class SensorMenu {
public:
    // Items by index; 0 is the menu's title.
    static constexpr std::size_t NO_SENSOR = 1;
    static constexpr std::size_t FIRST_SENSOR = 3; // after a separator

    // The marks of sensors with an entry follow its flag; the item for no sensor is checked when none of them is.
    void set_sensors(std::vector<tempSensor> sensors, const ScatterMap& map);

    [[nodiscard]] const std::vector<tempSensor>& sensors() const { return m_sensors; }
    [[nodiscard]] std::size_t items() const { return FIRST_SENSOR + m_sensors.size(); }
    [[nodiscard]] bool is_checked(std::size_t item) const;

    // Changes the item's mark, and those of others that follow from it. Title and separator have none.
    void toggle(std::size_t item);

    // Copies the marks to the entries. Entries of sensors that the menu does not have keep theirs.
    void apply(ScatterMap& map) const;

private:
    std::vector<tempSensor> m_sensors;
    std::vector<bool> m_checked;
    bool m_no_sensor = false;
};

// What the frequency-temperature window tells about its sensors after every frequency: newest point and fit.
inline constexpr const char* sensor_inspector_key = "sensor.inspector.update";

struct InspectorSensor {
    std::string name;       // shown in the sensor column: the sensor's description, or its key where there is none
    std::string key;        // the sensor's name in the scatter map
    double temperature = 0; // degrees Celsius, of the newest point
    double frequency = 0;   // ppm, of the newest point
    Color color;
    std::shared_ptr<const QuadRegression> regression; // never null; main thread only
};

// The notice's object, posted as std::shared_ptr<const Sensors>.
struct Sensors {
    std::vector<InspectorSensor> sensors; // those with a point at least, in the order of the menu
};

} // namespace tickervantage
