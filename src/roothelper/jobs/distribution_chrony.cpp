#include "roothelper/jobs/distribution_chrony.h"

#include "chrony/services/chrony_services.h"

#include <algorithm>
#include <initializer_list>

namespace tickervantage {
namespace {

// Debian and its relatives, then Fedora, SUSE and Arch.
constexpr std::initializer_list<const char*> configurations{"/etc/chrony/chrony.conf", "/etc/chrony.conf"};
constexpr std::initializer_list<const char*> clients{"/usr/bin/chronyc"};
constexpr std::initializer_list<const char*> daemons{"/usr/sbin/chronyd", "/usr/bin/chronyd"};
constexpr std::initializer_list<const char*> units{"chrony.service", "chronyd.service"};

std::string first_of(std::initializer_list<const char*> paths, const FileExists& file_exists) {
    const auto* const found = std::ranges::find_if(paths, [&](const char* path) { return file_exists(path); });
    return found == paths.end() ? std::string() : *found;
}

std::string installed_unit(const FileExists& file_exists) {
    for (const char* unit : units)
        for (const std::string folder : {"/lib/systemd/system/", "/usr/lib/systemd/system/"})
            if (file_exists(folder + unit))
                return unit;
    return {};
}

} // namespace

std::optional<DistributionChrony> find_distribution_chrony(const FileExists& file_exists) {
    DistributionChrony found{.config = distribution_configuration(file_exists),
                             .chronyc = first_of(clients, file_exists),
                             .chronyd = first_of(daemons, file_exists),
                             .unit = installed_unit(file_exists)};
    if (found.config.empty() || found.chronyc.empty() || found.chronyd.empty() || found.unit.empty())
        return std::nullopt;
    return found;
}

std::string distribution_configuration(const FileExists& file_exists) {
    return first_of(configurations, file_exists);
}

ChronyPaths usual_chrony_paths(const FileExists& file_exists) {
    ChronyPaths paths = documented_paths();
    // A configuration that an installation of ours has left behind is none.
    const auto ours = {paths.chronyc, paths.chronyd, definition_path(native_service_form, daemon_label)};
    if (std::ranges::any_of(ours, file_exists))
        return paths;
    if (const auto found = find_distribution_chrony(file_exists)) {
        paths.config = found->config;
        paths.chronyc = found->chronyc;
        paths.chronyd = found->chronyd;
        paths.from_distribution = true;
    }
    return paths;
}

std::string distribution_unit(const std::string& chronyd, const FileExists& file_exists) {
    const bool is_theirs = std::ranges::find(daemons, chronyd) != daemons.end();
    return is_theirs ? installed_unit(file_exists) : std::string();
}

} // namespace tickervantage
