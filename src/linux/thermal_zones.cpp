#include "linux/thermal_zones.h"

#include "base/number_text.h"
#include "base/text_lines.h"
#include "linux/small_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <system_error>

namespace tickervantage {
namespace {

constexpr const char* FOLDER = "/sys/class/thermal";
constexpr std::string_view ZONE = "thermal_zone";
constexpr std::size_t LARGEST_VALUE = 4096; // bytes; the kernel gives no more than a page

// The zones' numbers, in order.
std::vector<int> zones() {
    std::vector<int> numbers;
    std::error_code error;
    for (auto entry = std::filesystem::directory_iterator(FOLDER, error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (int number = 0; name.starts_with(ZONE) && read_number(std::string_view(name).substr(ZONE.size()), number))
            numbers.push_back(number);
    }
    std::ranges::sort(numbers);
    return numbers;
}

std::string value(int zone, std::string_view name) {
    const auto file = read_small_file(fmt::format("{}/{}{}/{}", FOLDER, ZONE, zone, name), LARGEST_VALUE);
    return std::string(trimmed(file.bytes));
}

} // namespace

std::vector<SensorReading> ThermalZones::read() {
    std::vector<SensorReading> readings;
    std::map<std::string, int> seen;
    for (const int zone : zones()) {
        const std::string type = value(zone, "type");
        if (type.empty())
            continue;
        const int number = ++seen[type];
        const std::string name = number == 1 ? type : fmt::format("{} {}", type, number);
        const auto thousandths = number_from_text<std::int64_t>(value(zone, "temp")); // none while the zone is off
        readings.push_back({.name = name,
                            .description = fmt::format("{} (thermal zone)", name),
                            .temperature = static_cast<double>(thousandths.value_or(0)) / 1000});
    }
    return readings;
}

} // namespace tickervantage
