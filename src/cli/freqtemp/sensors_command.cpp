#include "cli/freqtemp/sensors_command.h"

#include "cli/json_text.h"
#include <fmt/format.h>

#include <algorithm>
#include <ostream>

namespace tickervantage {
namespace {

Json json_of(const SensorReading& reading) {
    Json object{{"name", reading.name}, {"description", reading.description}, {"temperature", nullptr}};
    if (reading.temperature > 0)
        object["temperature"] = reading.temperature;
    return object;
}

} // namespace

void print_sensors(const std::vector<SensorReading>& readings, OutputForm form, std::ostream& out) {
    if (form == OutputForm::json) {
        Json document = Json::array();
        for (const auto& reading : readings)
            document.push_back(json_of(reading));
        out << json_text(document);
        return;
    }
    if (readings.empty())
        out << "This machine has no temperature sensors.\n";
    std::size_t width = 0;
    for (const auto& reading : readings)
        width = std::max(width, reading.name.size());
    for (const auto& reading : readings)
        out << fmt::format("{:<{}}  {:>8}  {}\n", reading.name, width,
                           reading.temperature > 0 ? fmt::format("{:.1f} °C", reading.temperature) : "-",
                           reading.description);
}

} // namespace tickervantage
