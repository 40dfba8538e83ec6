#include "linux/lm_sensors.h"

#include <sensors/error.h>
#include <sensors/sensors.h>
#include <sys/stat.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* FOLDER = "/sys/class/hwmon";

// Tells one set of chips from another: names and identities of what the folder lists.
std::string listing() {
    std::vector<std::string> lines;
    std::error_code error;
    for (auto entry = std::filesystem::directory_iterator(FOLDER, error);
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
                m_sources.push_back({chip,
                                     input->number,
                                     {.name = fmt::format("{}/{}", chip_name(*chip), feature->name),
                                      .description = description_of(*chip, *feature)}});
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
