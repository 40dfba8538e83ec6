#include "roothelper/jobs/mending.h"

#include "chrony/configuration/configuration.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/jobs/distribution_chrony.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <sstream>
#include <string_view>

namespace tickervantage {
namespace {

Mending what_brings_an_answer(const MendingFacts& facts) {
    if (facts.distribution && (!facts.is_installed || (facts.distribution_runs && !facts.is_running)))
        return Mending::use_distribution;
    if (!facts.is_installed)
        return Mending::install;
    if (facts.is_running)
        return Mending::none; // it is asked, and does not answer: the failure says why
    return facts.has_service ? Mending::start : Mending::install;
}

bool is_number(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char one) { return one >= '0' && one <= '9'; });
}

// A container's process has a number of its own there beside the one that is seen from here: "NSpid:\t4711\t1". What a
// container runs keeps no time for this system, as far as anybody here could start or stop it.
bool is_in_container(const JobMachine& machine, const std::string& process) {
    constexpr std::string_view key = "\nNSpid:";
    const std::string status = machine.read_file("/proc/" + process + "/status").value_or("");
    const auto at = status.find(key);
    if (at == std::string::npos)
        return false;
    const auto from = at + key.size();
    std::istringstream numbers(status.substr(from, status.find('\n', from) - from));
    return std::distance(std::istream_iterator<std::string>(numbers), {}) > 1;
}

struct ClockKeepers {
    std::vector<std::string> daemons; // those that run as chronyd, as their command lines name them
    std::string other = {};           // the name of one that is no chronyd
};

std::string_view name_of(std::string_view program) {
    return program.substr(program.rfind('/') + 1);
}

ClockKeepers running_keepers(const JobMachine& machine) {
    static constexpr std::array<std::string_view, 5> others{"systemd-timesyncd", "ntpd", "ntp-daemon", "htpdate",
                                                            "phc2sys"};
    ClockKeepers keepers;
    for (const std::string& process : machine.file_names("/proc")) {
        if (!is_number(process))
            continue;
        const std::string line = machine.read_file("/proc/" + process + "/cmdline").value_or("");
        std::string program = line.substr(0, line.find('\0'));
        const std::string_view name = name_of(program);
        const auto* const other = std::ranges::find(others, name);
        if ((name != "chronyd" && other == others.end()) || is_in_container(machine, process))
            continue;
        if (other == others.end())
            keepers.daemons.push_back(std::move(program));
        else
            keepers.other = *other;
    }
    return keepers;
}

// A daemon that was started by its bare name may be any.
bool runs(const std::string& chronyd, const std::vector<std::string>& daemons) {
    return std::ranges::any_of(daemons, [&](const auto& one) { return one == chronyd || one == "chronyd"; });
}

bool is_forbidden(const std::string& path) {
    return ::access(path.c_str(), R_OK) != 0 && errno == EACCES;
}

bool is_log_closed(const std::string& configuration) {
    const std::string folder = directive_in(configuration, "logdir");
    return !folder.empty() && (is_forbidden(folder) || is_forbidden(folder + "/tracking.log"));
}

} // namespace

Mending what_mends(Verdict verdict, const MendingFacts& facts) {
    const bool is_unavailable = verdict == Verdict::unavailable;
    if (!is_unavailable && (!follows_time(verdict) || verdict == Verdict::correcting))
        return Mending::explain;
    if (!facts.is_known || facts.is_demonstration)
        return Mending::none;
    if (is_unavailable)
        return what_brings_an_answer(facts);
    if (facts.distribution && facts.distribution_runs && !facts.is_running)
        return Mending::use_distribution;
    if (facts.log == TrackingLogSetting::not_asked_for || facts.log == TrackingLogSetting::no_folder)
        return Mending::turn_on_logging;
    return facts.log == TrackingLogSetting::written && facts.log_is_closed ? Mending::open_logs : Mending::none;
}

MendingFacts look_for_mending(const InstalledPaths& paths, bool is_demonstration, const JobMachine& machine,
                              ServiceForm form) {
    const FileExists file_exists = machine.looks_for_files();
    const auto [daemons, other] = running_keepers(machine);
    MendingFacts facts{.is_known = true, .is_demonstration = is_demonstration};
    facts.is_installed = file_exists(paths.chronyd) && file_exists(paths.chronyc);
    facts.has_service =
        file_exists(definition_path(form, daemon_label)) || !distribution_unit(paths.chronyd, file_exists).empty();
    facts.is_running = runs(paths.chronyd, daemons);
    facts.distribution = find_distribution_chrony(file_exists);
    if (facts.distribution && !is_demonstration && facts.distribution->chronyd == paths.chronyd &&
        facts.distribution->chronyc == paths.chronyc && facts.distribution->config == paths.config)
        facts.distribution.reset();
    facts.other_program = other;
    facts.distribution_runs = facts.distribution && runs(facts.distribution->chronyd, daemons);
    facts.log = tracking_log_setting(paths.config);
    facts.log_is_closed = is_log_closed(machine.read_file(paths.config).value_or(""));
    return facts;
}

} // namespace tickervantage
