#include "roothelper/support/time_services.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/services/chrony_services.h"
#include "linux/small_file.h"
#include "roothelper/support/daemon_units.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/install_file.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <unistd.h>

#include <algorithm>
#include <optional>

namespace tickervantage {
namespace {

constexpr std::size_t largest_note = 65536;

struct TimeService {
    std::string unit;
    bool enabled = false;
    bool active = false;
};

using Services = std::vector<TimeService>;

TimeService* find(Services& services, const std::string& unit) {
    const auto found = std::ranges::find(services, unit, &TimeService::unit);
    return found == services.end() ? nullptr : &*found;
}

bool is_time_service(std::string_view unit) {
    return std::ranges::find(other_time_services(), unit) != other_time_services().end();
}

// What was displaced before, which counts however the machine looks now.
std::optional<Services> read_displaced(const Machine& machine) {
    const FileReading file = read_small_file(machine.root + displaced_file, largest_note);
    if (file.outcome != FileReading::Outcome::read)
        return std::nullopt;
    Services noted;
    for (const auto line : non_empty_lines(file.bytes)) {
        const auto parts = words(line);
        if (!parts.empty() && is_time_service(parts[0]))
            noted.push_back({std::string(parts[0]), std::ranges::count(parts, "enabled") > 0,
                             std::ranges::count(parts, "active") > 0});
    }
    return noted;
}

Result<> write_displaced(const Machine& machine, const Services& services) {
    std::string text;
    for (const auto& service : services)
        text += service.unit + (service.enabled ? " enabled" : "") + (service.active ? " active" : "") + '\n';
    return install_text(machine.root + displaced_file, text, machine.rules);
}

// Those that are installed, each by its first name.
Result<Services> installed_services(const Machine& machine) {
    Services services;
    for (const auto& unit : other_time_services()) {
        const auto status = look_at_unit(machine.execute, unit);
        if (!status)
            return tl::unexpected(status.error());
        const auto name = (*status)["Id"];
        if (status->is_there() && is_time_service(name) && find(services, name) == nullptr)
            services.push_back({name, status->is_enabled(), status->is_up()});
    }
    return services;
}

void add_to(Services& displaced, const Services& present) {
    for (const auto& service : present) {
        if (auto* known = find(displaced, service.unit)) {
            known->enabled = known->enabled || service.enabled;
            known->active = known->active || service.active;
        } else if (service.enabled || service.active) {
            displaced.push_back(service);
        }
    }
}

// With its folder, unless somebody else keeps something there.
Result<> remove_ntp_units(const Machine& machine) {
    const auto path = machine.root + ntp_units_file;
    return remove_item(path, machine.rules).map([&] { (void)::rmdir(path.substr(0, path.rfind('/')).c_str()); });
}

Result<> enable_again(const Machine& machine, const Services& noted, const Services& present) {
    Result<> done;
    for (const auto& service : noted) {
        const auto now = std::ranges::find(present, service.unit, &TimeService::unit);
        if (done && service.enabled && now != present.end() && !now->enabled)
            done = manage_unit(machine.execute, {"enable", service.unit}, FailureCode::cannot_enable_unit);
    }
    return done;
}

// Of those that cannot be started, the last is told.
Result<std::string> start_one(const Machine& machine, const Services& noted, const Services& present) {
    Services candidates;
    for (const auto& service : noted)
        if (std::ranges::find(present, service.unit, &TimeService::unit) != present.end())
            candidates.push_back(service);
    std::ranges::stable_sort(candidates, std::ranges::greater(), &TimeService::active);
    Result<std::string> said = "No other time service was in use before.";
    for (const auto& service : candidates) {
        said = manage_unit(machine.execute, {"start", service.unit}, FailureCode::cannot_start_unit).map([&] {
            return fmt::format("{} runs again.", service.unit);
        });
        if (said)
            break;
    }
    return said;
}

Result<std::string> disable(const Machine& machine, const Services& present) {
    std::vector<std::string> names;
    for (const auto& service : present) {
        if (!service.enabled)
            continue;
        const auto done = manage_unit(machine.execute, {"disable", service.unit}, FailureCode::cannot_disable_unit);
        if (!done)
            return tl::unexpected(done.error());
        names.push_back(service.unit);
    }
    return names.empty() ? "No other time service is enabled." : fmt::format("Disabled {}.", fmt::join(names, " and "));
}

Result<std::string> run_one_again(const Machine& machine, const Services& noted, const Services& present) {
    const auto running = std::ranges::find_if(present, &TimeService::active);
    return running != present.end() ? Result<std::string>(fmt::format("{} is running.", running->unit))
                                    : start_one(machine, noted, present);
}

} // namespace

Result<std::string> displace_services(const Machine& machine) {
    return installed_services(machine).and_then([&](const Services& present) {
        Services displaced = read_displaced(machine).value_or(Services());
        add_to(displaced, present);
        const auto own = fmt::format("{}.service\n", daemon_label);
        return write_displaced(machine, displaced)
            .and_then([&] { return install_text(machine.root + ntp_units_file, own, machine.rules); })
            .and_then([&] { return disable(machine, present); });
    });
}

Result<std::string> restore_services(const Machine& machine) {
    const auto present = remove_ntp_units(machine).and_then([&] { return installed_services(machine); });
    if (!present)
        return tl::unexpected(present.error());
    Services noted = read_displaced(machine).value_or(*present);
    std::erase_if(noted, [](const TimeService& service) { return !service.enabled && !service.active; });
    auto said =
        enable_again(machine, noted, *present).and_then([&] { return run_one_again(machine, noted, *present); });
    if (said)
        (void)remove_item(machine.root + displaced_file, machine.rules); // noted once more than needed does no harm
    return said;
}

} // namespace tickervantage
