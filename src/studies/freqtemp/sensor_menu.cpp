#include "studies/freqtemp/sensor_menu.h"

#include <algorithm>
#include <utility>

namespace tickervantage {

void SensorMenu::set_sensors(std::vector<tempSensor> sensors, const ScatterMap& map) {
    m_sensors = std::move(sensors);
    m_checked.clear();
    for (const auto& sensor : m_sensors) {
        const auto entry = map.find(sensor.name);
        m_checked.push_back(entry != map.end() && entry->second.selected);
    }
    m_no_sensor = std::ranges::find(m_checked, true) == m_checked.end();
}

bool SensorMenu::is_checked(std::size_t item) const {
    if (item == NO_SENSOR)
        return m_no_sensor;
    return item >= FIRST_SENSOR && item < items() && m_checked[item - FIRST_SENSOR];
}

void SensorMenu::toggle(std::size_t item) {
    if (item == NO_SENSOR) {
        m_no_sensor = !m_no_sensor;
        if (m_no_sensor)
            m_checked.assign(m_checked.size(), false);
    } else if (item >= FIRST_SENSOR && item < items()) {
        m_checked[item - FIRST_SENSOR].flip();
        if (m_checked[item - FIRST_SENSOR])
            m_no_sensor = false;
    }
}

void SensorMenu::apply(ScatterMap& map) const {
    for (std::size_t i = 0; i < m_sensors.size(); ++i)
        if (const auto entry = map.find(m_sensors[i].name); entry != map.end())
            entry->second.selected = m_checked[i];
}

} // namespace tickervantage
