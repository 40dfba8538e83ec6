#include "roothelper/support/compensation_sensor_unit.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/text_lines.h"
#include "chrony/services/chrony_services.h"
#include "linux/small_file.h"
#include "roothelper/support/daemon_units.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/install_file.h"
#include "roothelper/support/one_line.h"

#include <fmt/format.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

const std::string former = ".former";       // of the points: see install_file.h
constexpr std::size_t largest_value = 4096; // bytes; the kernel gives no more than a page

std::string value_of(const fs::path& path) {
    return std::string(trimmed(read_small_file(path.string(), largest_value).bytes));
}

bool gives_temperature(const Machine& machine, const SensorPlace& sensor) {
    std::error_code error;
    for (fs::directory_iterator chip(machine.root + sensor.device, error), end; !error && chip != end;
         chip.increment(error))
        if (chip->path().filename().string().starts_with("hwmon") && value_of(chip->path() / "name") == sensor.chip &&
            number_from_text<long>(value_of(chip->path() / sensor.input)))
            return true;
    return false;
}

// Each once: one unit may have two names.
Result<std::vector<std::string>> chronyd_units(const Machine& machine) {
    std::vector<std::string> units;
    for (const auto& unit :
         {std::string(daemon_label) + ".service", std::string("chrony.service"), std::string("chronyd.service")}) {
        const auto status = look_at_unit(machine.execute, unit);
        if (!status)
            return tl::unexpected(status.error());
        if (status->is_there() && std::ranges::find(units, (*status)["Id"]) == units.end())
            units.push_back((*status)["Id"]);
    }
    if (units.empty())
        return failed(FailureCode::no_chronyd_service);
    return units;
}

std::string folder_of(const Machine& machine, const std::string& unit) {
    return fmt::format("{}/etc/systemd/system/{}.d", machine.root, unit);
}

Result<> read_units_again(const Machine& machine) {
    const auto result = systemctl(machine.execute, {"daemon-reload"});
    return succeeded(result) ? Result<>() : failed(FailureCode::units_not_read_again, {}, last_words(result));
}

} // namespace

Result<std::string> use_sensor(const Machine& machine, const SensorPlace& sensor) {
    if (!is_plain_sensor(sensor))
        return failed(FailureCode::no_plain_sensor);
    if (!gives_temperature(machine, sensor))
        return failed(FailureCode::sensor_not_found, {sensor.chip, sensor.input});
    const auto units = chronyd_units(machine);
    if (!units)
        return tl::unexpected(units.error());
    auto done = install_text(machine.root + compensation_temperature_path, {}, machine.rules);
    for (const auto& unit : *units)
        done = done.and_then([&] {
            return install_text(folder_of(machine, unit) + '/' + sensor_drop_in_name, sensor_drop_in(sensor),
                                machine.rules);
        });
    return done.and_then([&] { return read_units_again(machine); }).map([&] {
        return fmt::format("chronyd reads {} of {}.", sensor.input, sensor.chip);
    });
}

Result<std::string> check_sensor(const Machine& machine) {
    const auto journal = [&machine](std::vector<std::string> arguments) {
        return machine.execute.run({.program = "/bin/journalctl", .arguments = std::move(arguments)});
    };
    (void)journal({"--sync"}); // its words may still be on their way
    const auto units = chronyd_units(machine);
    if (!units)
        return tl::unexpected(units.error());
    for (const auto& unit : *units) {
        const auto status = look_at_unit(machine.execute, unit);
        if (!status || !status->is_up())
            continue;
        const auto said = journal({"--quiet", "--no-pager", "--output=cat", "--lines=200",
                                   "_SYSTEMD_INVOCATION_ID=" + (*status)["InvocationID"]});
        if (said.output.find("Could not read temperature from ") != std::string::npos)
            return failed(FailureCode::compensation_without_temperature);
    }
    return std::string();
}

// The daemon goes on as it was started, and finds no drop-in the next time.
Result<std::string> drop_sensor(const Machine& machine) {
    Result<> done;
    for (const std::string& path : sensor_drop_in_paths()) {
        done = done.and_then([&] { return remove_item(machine.root + path, machine.rules); });
        (void)::rmdir(fs::path(machine.root + path).parent_path().c_str()); // stays where there is more in it
    }
    for (const std::string& path : {std::string(compensation_temperature_path), compensation_points_path + former})
        done = done.and_then([&] { return remove_item(machine.root + path, machine.rules); });
    return done.and_then([&] { return read_units_again(machine); }).map([] {
        return std::string("chronyd reads no temperature.");
    });
}

} // namespace tickervantage
