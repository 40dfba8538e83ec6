#include "roothelper/service/commands.h"

#include "base/failure_line.h"
#include "chrony/services/compensation_sensor.h"
#include "roothelper/grammar/helper_content.h"
#include "roothelper/service/trusted_files.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <optional>

namespace tickervantage {
namespace {

using std::chrono::seconds;

constexpr std::size_t configuration_limit = std::size_t{1} << 20U;

std::optional<ChildIdentity> identity_of(const passwd* entry) {
    if (entry == nullptr)
        return std::nullopt;
    return ChildIdentity{entry->pw_uid, entry->pw_gid, entry->pw_name};
}

std::optional<ChildIdentity> identity_named(const std::string& name) {
    return identity_of(::getpwnam(name.c_str())); // NOLINT(concurrency-mt-unsafe): the helper has one thread
}

std::optional<ChildIdentity> configured_user(const HelperRules& rules) {
    for (const auto& path : rules.configurations) {
        const auto text = read_roots_file(path, configuration_limit);
        if (text && !*text)
            continue;
        const auto user = text ? configured_daemon_user(**text) : ""; // a file that others can change has no say
        return user.empty() ? std::nullopt : identity_named(user);
    }
    return std::nullopt;
}

bool runs_as_daemon(HelperVerb verb) {
    return verb == HelperVerb::chronyc_report || verb == HelperVerb::list_daemons ||
           verb == HelperVerb::run_chronywake || verb == HelperVerb::make_readable;
}

// Whether the folder, or the nearest one above it that is there, can be written to from inside the helper's sandbox.
bool can_write_below(std::string folder) {
    while (!file_exists(folder) && folder != "/")
        folder = parent_folder(folder);
    return ::access(folder.c_str(), W_OK) == 0;
}

// The folder that a command changes something in; empty: it changes no files.
std::string changed_folder(const HelperRequest& request) {
    switch (request.verb) {
    case HelperVerb::install_item:
        return parent_folder(request.destination);
    case HelperVerb::restore_former:
    case HelperVerb::remove_item:
    case HelperVerb::remove_definition:
    case HelperVerb::create_directory:
    case HelperVerb::make_readable:
        return parent_folder(without_spare_slashes(request.argv.back()));
    case HelperVerb::rotate_logs:
        return request.argv.back();
    case HelperVerb::use_sensor:
    case HelperVerb::drop_sensor:
        return parent_folder(compensation_temperature_path);
    default:
        return {};
    }
}

bool runs_in_own_unit(const HelperRequest& request) {
    switch (request.verb) {
    case HelperVerb::synchronise:
    case HelperVerb::add_user:
    case HelperVerb::displace_services: // systemctl keeps the links of old start scripts in step
    case HelperVerb::restore_services:
        return true;
    default:
        break;
    }
    const auto folder = changed_folder(request);
    return !folder.empty() && !can_write_below(folder);
}

seconds time_limit_of(const HelperRequest& request) {
    switch (request.verb) {
    case HelperVerb::chronyc_report:
    case HelperVerb::list_daemons:
        return seconds(30);
    case HelperVerb::synchronise:
        return seconds(30 + std::stoi(request.argv[2])); // the grammar has read it as a number
    default:
        return seconds(120);
    }
}

void move_to_own_unit(ChildTask& task) {
    std::vector<std::string> words{"/usr/bin/systemd-run",
                                   "--quiet",
                                   "--wait",
                                   "--pipe",
                                   "--collect",
                                   "--property=RuntimeMaxSec=" + std::to_string(task.time_limit.count())};
    if (task.identity) {
        words.push_back("--uid=" + std::to_string(task.identity->user));
        words.push_back("--gid=" + std::to_string(task.identity->group));
        task.identity.reset(); // only root may ask for a unit
    }
    words.emplace_back("--");
    task.argv.insert(task.argv.begin(), words.begin(), words.end());
}

} // namespace

ChildIdentity daemon_identity(const HelperRules& rules) {
    if (const auto user = configured_user(rules))
        return *user;
    for (const char* name : {"_chrony", "chrony"})
        if (const auto user = identity_named(name))
            return *user;
    return {.user = 65534, .group = 65534, .name = {}};
}

ChildIdentity user_identity(uid_t user) {
    const auto found = identity_of(::getpwuid(user)); // NOLINT(concurrency-mt-unsafe): the helper has one thread
    return found.value_or(ChildIdentity{user, 65534, {}});
}

bool speaks_of_failures(const HelperRequest& request, const HelperRules& rules) {
    return !request.argv.empty() && request.argv.front() == rules.tool();
}

ChildTask task_for(const HelperRequest& request, const HelperRules& rules) {
    ChildTask task;
    task.time_limit = time_limit_of(request);
    task.argv = request.argv;
    if (runs_as_daemon(request.verb))
        task.identity = daemon_identity(rules);
    if (speaks_of_failures(request, rules))
        task.argv.insert(task.argv.begin() + 1, failure_option);
    if (runs_in_own_unit(request))
        move_to_own_unit(task);
    return task;
}

ChildTask syntax_check_task(const std::string& configuration, const HelperRules& rules) {
    ChildTask task;
    auto chronyds = rules.chronyd;
    chronyds.insert(chronyds.begin(), rules.bundle_program("chronyd"));
    for (const auto& chronyd : chronyds)
        if (task.argv.empty() && is_roots_own(chronyd))
            task.argv = {chronyd, "-p", "-f", configuration};
    task.identity = daemon_identity(rules);
    task.errors_only = true; // what it prints else are lines of the files that the configuration includes
    return task;
}

} // namespace tickervantage
