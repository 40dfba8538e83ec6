// The menu of sensors with check marks: a title, an item for no sensor, a separator, then the sensors.
//
// Checking a sensor clears the mark of the item for no sensor, and checking that one clears the sensors' marks.
// Clearing a mark does nothing else. Plain values.
#pragma once

#include "studies/freqtemp/scatter_map.h"

#include <cstddef>
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

} // namespace tickervantage
