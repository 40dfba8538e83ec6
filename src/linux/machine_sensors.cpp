#include "linux/machine_sensors.h"

#include "base/number_text.h"
#include "base/text_lines.h"
#include "linux/small_file.h"

#include <sensors/error.h>
#include <sensors/sensors.h>
#include <sys/stat.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* ZONES = "/sys/class/thermal";
constexpr std::string_view ZONE = "thermal_zone";
constexpr std::size_t LARGEST_VALUE = 4096; // bytes; the kernel gives no more than a page

// The zones' numbers, in order.
std::vector<int> zones() {
    std::vector<int> numbers;
    std::error_code error;
    for (auto entry = std::filesystem::directory_iterator(ZONES, error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (int number = 0; name.starts_with(ZONE) && read_number(std::string_view(name).substr(ZONE.size()), number))
            numbers.push_back(number);
    }
    std::ranges::sort(numbers);
    return numbers;
}

std::string value(int zone, std::string_view name) {
    const auto file = read_small_file(fmt::format("{}/{}{}/{}", ZONES, ZONE, zone, name), LARGEST_VALUE);
    return std::string(trimmed(file.bytes));
}

constexpr const char* CHIPS = "/sys/class/hwmon";

// Tells one set of chips from another: names and identities of what the folder lists.
std::string listing() {
    std::vector<std::string> lines;
    std::error_code error;
    for (auto entry = std::filesystem::directory_iterator(CHIPS, error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        struct stat status {};
        const std::string path = entry->path().string();
        if (::stat(path.c_str(), &status) == 0)
            lines.push_back(fmt::format("{} {} {}\n", path, status.st_ino, status.st_ctim.tv_nsec));
    }
    std::ranges::sort(lines);
    return fmt::format("{}", fmt::join(lines, ""));
}

std::string chip_name(const sensors_chip_name& chip) {
    std::array<char, 256> name{};
    const int length = sensors_snprintf_chip_name(name.data(), name.size(), &chip);
    return length > 0 ? name.data() : "";
}

// The library gives a label in any case: the feature's own name where it has no better.
std::string description_of(const sensors_chip_name& chip, const sensors_feature& feature) {
    char* const label = sensors_get_label(&chip, &feature);
    std::string text = fmt::format("{} ({})", label == nullptr ? feature.name : label, chip_name(chip));
    std::free(label);
    return text;
}

void say_nothing(const char*, const char*, int) {} // faults of the configuration are another program's matter

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

struct LmSensors::Source {
    const sensors_chip_name* chip = nullptr; // the library's
    int number = 0;                          // of the temperature among the chip's values
    SensorReading reading;
};

LmSensors::LmSensors() = default;

LmSensors::~LmSensors() {
    close();
}

void LmSensors::close() {
    m_sources.clear();
    if (std::exchange(m_is_open, false))
        sensors_cleanup();
}

void LmSensors::open() {
    close();
    m_listed = listing();
    sensors_parse_error_wfn = say_nothing;
    if (sensors_init(nullptr) != 0)
        return;
    m_is_open = true;
    int next_chip = 0;
    while (const auto* chip = sensors_get_detected_chips(nullptr, &next_chip)) {
        int next_feature = 0;
        while (const auto* feature = sensors_get_features(chip, &next_feature)) {
            const auto* input = feature->type == SENSORS_FEATURE_TEMP
                                    ? sensors_get_subfeature(chip, feature, SENSORS_SUBFEATURE_TEMP_INPUT)
                                    : nullptr;
            if (input != nullptr)
                m_sources.push_back(
                    {chip,
                     input->number,
                     {.name = fmt::format("{}/{}", chip_name(*chip), feature->name),
                      .description = description_of(*chip, *feature),
                      .file = chip->path == nullptr ? "" : fmt::format("{}/{}", chip->path, input->name)}});
        }
    }
    std::ranges::sort(m_sources, {}, [](const Source& source) { return source.reading.name; });
}

std::vector<SensorReading> LmSensors::read() {
    if (!m_is_open || listing() != m_listed)
        open();
    std::vector<SensorReading> readings;
    for (auto& source : m_sources) {
        double& temperature = source.reading.temperature;
        if (sensors_get_value(source.chip, source.number, &temperature) != 0)
            temperature = 0; // a chip that sleeps, or that has just gone
        readings.push_back(source.reading);
    }
    return readings;
}

} // namespace tickervantage
