// The sensor that chronyd's temperature compensation reads: where it lies, and the drop-in that brings chronyd to it.
//
// The kernel numbers its sensors anew at each boot, and AppArmor judges a sensor by where it really lies, which
// Debian's profile admits for thermal zones only. So before each start the unit looks for the sensor by its device and
// the name of its chip, and shows it to chronyd under one name in chrony's own folder, which the profile admits. A
// sensor that is not there leaves chronyd running without a compensation; it says so in its log. Sources:
// systemd.service(5), ExecStartPre; systemd.exec(5), BindReadOnlyPaths; the kernel's
// Documentation/hwmon/sysfs-interface.rst. Pure functions, any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// What chronyd reads, whichever configuration it has: its points, and the temperature.
inline constexpr const char* compensation_points_path = "/etc/chrony/tickervantage.tempcomp";
inline constexpr const char* compensation_temperature_path = "/etc/chrony/tickervantage.temperature";
inline constexpr const char* sensor_drop_in_name = "tickervantage-sensor.conf";

// Where a drop-in may lie: one for each name that a unit of chronyd has.
[[nodiscard]] std::vector<std::string> sensor_drop_in_paths();

struct SensorPlace {
    std::string device; // the folder under /sys/devices that holds hwmonN
    std::string chip;   // what hwmonN/name says
    std::string input;  // "temp1_input"

    friend bool operator==(const SensorPlace&, const SensorPlace&) = default;
};

// Whether it can stand in a command line that root runs: plain signs only, and nothing outside the kernel's devices.
[[nodiscard]] bool is_plain_sensor(const SensorPlace& sensor);

// Of a sensor that is plain.
[[nodiscard]] std::string sensor_drop_in(const SensorPlace& sensor);

// The sensor that a drop-in names; none in a text that is no such drop-in.
[[nodiscard]] std::optional<SensorPlace> sensor_in_drop_in(std::string_view text);

} // namespace tickervantage
