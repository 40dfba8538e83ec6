#include "chrony/services/compensation_sensor.h"

#include "base/text_lines.h"
#include "chrony/services/chrony_services.h"

#include <fmt/format.h>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::string_view devices = "/sys/devices/";
constexpr std::string_view mark = "# Sensor:";
constexpr std::size_t longest_device = 400;
constexpr std::size_t longest_chip = 64;

bool is_letter_or_digit(char one) {
    return (one >= 'a' && one <= 'z') || (one >= 'A' && one <= 'Z') || (one >= '0' && one <= '9');
}

// None of these means anything to a shell or to systemd.
bool is_made_of(std::string_view text, std::string_view signs) {
    return !text.empty() && std::ranges::all_of(text, [signs](char one) {
        return is_letter_or_digit(one) || signs.find(one) != std::string_view::npos;
    });
}

bool is_input(std::string_view text) {
    constexpr std::string_view start = "temp";
    constexpr std::string_view end = "_input";
    if (!text.starts_with(start) || !text.ends_with(end) || text.size() <= start.size() + end.size())
        return false;
    const auto number = text.substr(start.size(), text.size() - start.size() - end.size());
    return number.size() <= 3 && number.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

std::vector<std::string> sensor_drop_in_paths() {
    std::vector<std::string> paths;
    for (const char* unit : {daemon_label, "chrony", "chronyd"})
        paths.push_back(fmt::format("/etc/systemd/system/{}.service.d/{}", unit, sensor_drop_in_name));
    return paths;
}

bool is_plain_sensor(const SensorPlace& sensor) {
    return sensor.device.starts_with(devices) && sensor.device.size() > devices.size() &&
           sensor.device.size() <= longest_device && is_made_of(sensor.device, "/._:+,@-") &&
           sensor.device.find("/.") == std::string::npos && sensor.device.find("//") == std::string::npos &&
           sensor.chip.size() <= longest_chip && is_made_of(sensor.chip, "_.") && is_input(sensor.input);
}

// A driver may be loaded after the unit was started: it gets ten seconds.
std::string sensor_drop_in(const SensorPlace& sensor) {
    constexpr const char* text = R"unit(# Written by Tickervantage for chronyd's temperature compensation.
{mark} {device} {chip} {input}
[Service]
ExecStartPre=-+/bin/sh -c 'rm -f {link}; for try in 0 1 2 3 4 5 6 7 8 9; do for one in {device}/hwmon*; do if [ "$(cat $one/name)" = {chip} ] && [ -e $one/{input} ]; then ln -s $one/{input} {link}; exit; fi; done; sleep 1; done'
BindReadOnlyPaths=-{link}:{shown}
)unit";
    return fmt::format(fmt::runtime(text), fmt::arg("mark", mark), fmt::arg("device", sensor.device),
                       fmt::arg("chip", sensor.chip), fmt::arg("input", sensor.input),
                       fmt::arg("link", "/run/tickervantage-temperature"),
                       fmt::arg("shown", compensation_temperature_path));
}

std::optional<SensorPlace> sensor_in_drop_in(std::string_view text) {
    for (const auto line : non_empty_lines(text)) {
        if (!line.starts_with(mark))
            continue;
        const auto said = words(line.substr(mark.size()));
        if (said.size() != 3)
            return std::nullopt;
        SensorPlace sensor{std::string(said[0]), std::string(said[1]), std::string(said[2])};
        return is_plain_sensor(sensor) ? std::optional(std::move(sensor)) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace tickervantage
