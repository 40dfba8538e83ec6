#include "roothelper/support/time_services.h"

#include "base/text_lines.h"
#include "chrony/services/chrony_services.h"
#include "linux/small_file.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/install_file.h"
#include "roothelper/support/one_line.h"
#include "roothelper/support/unit_status.h"

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

int fail(std::string& sentence, const std::string& what, const ExecuteResult& result) {
    sentence = fmt::format("{}: {}", what, last_words(result));
    return -1;
}

// What was displaced before, which counts however the machine looks now.
std::optional<Services> read_displaced(const Machine& machine) {
    const SmallFile file = read_small_file(machine.root + displaced_file, largest_note);
    if (file.outcome != SmallFile::Outcome::read)
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

int write_displaced(const Machine& machine, const Services& services, std::string& sentence) {
    std::string text;
    for (const auto& service : services)
        text += service.unit + (service.enabled ? " enabled" : "") + (service.active ? " active" : "") + '\n';
    return install_text(machine.root + displaced_file, text, machine.rules, sentence);
}

// Those that are installed, each by its first name.
int installed_services(const Machine& machine, Services& services, std::string& sentence) {
    for (const auto& unit : other_time_services()) {
        UnitStatus status;
        if (look_at_unit(machine.execute, unit, status, sentence) != 0)
            return -1;
        const auto name = status["Id"];
        if (status.is_there() && is_time_service(name) && find(services, name) == nullptr)
            services.push_back({name, status.is_enabled(), status.is_up()});
    }
    return 0;
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
int remove_ntp_units(const Machine& machine, std::string& sentence) {
    const auto path = machine.root + ntp_units_file;
    if (remove_item(path, machine.rules, sentence) != 0)
        return -1;
    (void)::rmdir(path.substr(0, path.rfind('/')).c_str());
    return 0;
}

int enable_again(const Machine& machine, const Services& noted, const Services& present, std::string& sentence) {
    for (const auto& service : noted) {
        const auto now = std::ranges::find(present, service.unit, &TimeService::unit);
        if (!service.enabled || now == present.end() || now->enabled)
            continue;
        const auto result = systemctl(machine.execute, {"enable", service.unit});
        if (!succeeded(result))
            return fail(sentence, fmt::format("Cannot enable {}", service.unit), result);
    }
    return 0;
}

int start_one(const Machine& machine, const Services& noted, const Services& present, std::string& sentence) {
    Services candidates;
    for (const auto& service : noted)
        if (std::ranges::find(present, service.unit, &TimeService::unit) != present.end())
            candidates.push_back(service);
    std::ranges::stable_sort(candidates, std::ranges::greater(), &TimeService::active);
    sentence = "No other time service was in use before.";
    for (const auto& service : candidates) {
        const auto result = systemctl(machine.execute, {"start", service.unit});
        if (!succeeded(result)) {
            (void)fail(sentence, fmt::format("Cannot start {}", service.unit), result);
            continue;
        }
        sentence = fmt::format("{} runs again.", service.unit);
        return 0;
    }
    return candidates.empty() ? 0 : -1;
}

} // namespace

int displace_services(const Machine& machine, std::string& sentence) {
    Services present;
    if (installed_services(machine, present, sentence) != 0)
        return -1;
    Services displaced = read_displaced(machine).value_or(Services());
    add_to(displaced, present);
    const auto own = fmt::format("{}.service\n", daemon_label);
    if (write_displaced(machine, displaced, sentence) != 0 ||
        install_text(machine.root + ntp_units_file, own, machine.rules, sentence) != 0)
        return -1;
    std::vector<std::string> names;
    for (const auto& service : present) {
        if (!service.enabled)
            continue;
        const auto result = systemctl(machine.execute, {"disable", service.unit});
        if (!succeeded(result))
            return fail(sentence, fmt::format("Cannot disable {}", service.unit), result);
        names.push_back(service.unit);
    }
    sentence =
        names.empty() ? "No other time service is enabled." : fmt::format("Disabled {}.", fmt::join(names, " and "));
    return 0;
}

int restore_services(const Machine& machine, std::string& sentence) {
    Services present;
    if (remove_ntp_units(machine, sentence) != 0 || installed_services(machine, present, sentence) != 0)
        return -1;
    Services noted = read_displaced(machine).value_or(present);
    std::erase_if(noted, [](const TimeService& service) { return !service.enabled && !service.active; });
    if (enable_again(machine, noted, present, sentence) != 0)
        return -1;
    const auto running = std::ranges::find_if(present, &TimeService::active);
    if (running != present.end())
        sentence = fmt::format("{} is running.", running->unit);
    else if (start_one(machine, noted, present, sentence) != 0)
        return -1;
    std::string ignored; // noted once more than needed does no harm
    (void)remove_item(machine.root + displaced_file, machine.rules, ignored);
    return 0;
}

} // namespace tickervantage
