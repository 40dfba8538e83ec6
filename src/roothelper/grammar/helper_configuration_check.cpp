#include "roothelper/grammar/helper_content.h"

#include "base/failure_codes.h"
#include "chrony/services/compensation_sensor.h"
#include "roothelper/grammar/helper_question.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <set>
#include <utility>

namespace tickervantage {
namespace {

// chronyd reads into 2048 bytes and takes what is left of a longer line for a line of its own, so that a comment could
// hide a directive.
constexpr std::size_t longest_line = 2046;
constexpr std::string_view white_space = " \t\r\v\f";
constexpr std::string_view comment_starts = "!;#%";

// Directives that touch no file and run no program.
constexpr std::array<std::string_view, 66> harmless{"acquisitionport",
                                                    "allow",
                                                    "authselectmode",
                                                    "bindacqaddress",
                                                    "bindacqdevice",
                                                    "bindaddress",
                                                    "bindcmddevice",
                                                    "binddevice",
                                                    "broadcast",
                                                    "clientloglimit",
                                                    "clockprecision",
                                                    "cmdallow",
                                                    "cmddeny",
                                                    "cmdport",
                                                    "cmdratelimit",
                                                    "combinelimit",
                                                    "corrtimeratio",
                                                    "deny",
                                                    "dscp",
                                                    "dumponexit",
                                                    "fallbackdrift",
                                                    "hwtimestamp",
                                                    "initstepslew",
                                                    "leapsecmode",
                                                    "linux_freq_scale",
                                                    "linux_hz",
                                                    "local",
                                                    "lock_all",
                                                    "log",
                                                    "logbanner",
                                                    "logchange",
                                                    "makestep",
                                                    "manual",
                                                    "maxchange",
                                                    "maxclockerror",
                                                    "maxdistance",
                                                    "maxdrift",
                                                    "maxjitter",
                                                    "maxntsconnections",
                                                    "maxsamples",
                                                    "maxslewrate",
                                                    "maxupdateskew",
                                                    "minsamples",
                                                    "minsources",
                                                    "nocerttimecheck",
                                                    "noclientlog",
                                                    "nosystemcert",
                                                    "ntpport",
                                                    "ntsport",
                                                    "ntsprocesses",
                                                    "ntsratelimit",
                                                    "ntsrefresh",
                                                    "ntsrotate",
                                                    "peer",
                                                    "pool",
                                                    "port",
                                                    "ptpport",
                                                    "ratelimit",
                                                    "reselectdist",
                                                    "rtcautotrim",
                                                    "rtconutc",
                                                    "rtcsync",
                                                    "sched_priority",
                                                    "server",
                                                    "smoothtime",
                                                    "stratumweight"};

// Directives whose words are paths: of further directives, which must come from root; of what chronyd writes, some of
// it as root, which must not be among the configurations; and of what it only reads.
constexpr std::array<std::string_view, 2> of_directives{"confdir", "include"};
constexpr std::array<std::string_view, 7> of_written{"bindcmdaddress", "driftfile", "dumpdir", "logdir",
                                                     "ntsdumpdir",     "pidfile",   "rtcfile"};
constexpr std::array<std::string_view, 6> of_read{"hwclockfile",   "keyfile",      "ntpsigndsocket",
                                                  "ntsservercert", "ntsserverkey", "sourcedir"};

constexpr std::array<std::string_view, 2> roots_folders{"/etc/chrony/", "/etc/chrony.d/"};
constexpr std::array<std::string_view, 5> daemon_folders{"/run/chrony/", "/run/chrony-dhcp/", "/var/run/chrony/",
                                                         "/var/lib/chrony/", "/var/log/chrony/"};

template <std::size_t count>
bool holds(const std::array<std::string_view, count>& list, std::string_view word) {
    return std::ranges::find(list, word) != list.end();
}

using Words = DirectiveWords;

Words words_of(std::string_view line) {
    Words words;
    while (true) {
        const auto from = line.find_first_not_of(white_space);
        if (from == std::string_view::npos)
            return words;
        line.remove_prefix(from);
        const auto end = std::min(line.find_first_of(white_space), line.size());
        words.emplace_back(line.substr(0, end));
        line.remove_prefix(end);
    }
}

// chronyd takes some of the paths for patterns. One that begins with a point may match "..", and a backslash hides what
// is written: a pattern is for the last name alone.
bool may_climb(const std::string& path) {
    const auto last = path.rfind('/') + 1;
    const auto pattern = path.find_first_of("*?[");
    return path.find('\\') != std::string::npos || pattern < last ||
           (pattern != std::string::npos && path.compare(last, 1, ".") == 0);
}

bool is_inside(const std::string& path, std::string_view folder) {
    return is_plain_path(path) && !may_climb(path) && (without_spare_slashes(path) + '/').starts_with(folder);
}

bool is_in_roots_folder(const std::string& path) {
    return std::ranges::any_of(roots_folders, [&path](std::string_view folder) { return is_inside(path, folder); });
}

bool is_in_daemon_folder(const std::string& path, const HelperRules& rules) {
    return std::ranges::any_of(daemon_folders, [&](std::string_view folder) { return is_inside(path, folder); }) ||
           std::ranges::any_of(rules.log_folders, [&](const auto& folder) { return is_inside(path, folder + '/'); });
}

bool is_in_chrony_folder(const std::string& path, const HelperRules& rules) {
    return is_in_roots_folder(path) || is_in_daemon_folder(path, rules);
}

// Opening is all it takes with some devices, such as a watchdog.
bool is_clock_device(std::string_view path) {
    return (path.starts_with("/dev/ptp") || path.starts_with("/dev/pps")) && path.rfind('/') == 4;
}

// A socket is made by root at its path; the other kinds open a device, or shared memory, which has no path.
bool is_safe_clock(const Words& words, const HelperRules& rules) {
    if (words.size() < 3)
        return false;
    const auto path = words[2].substr(0, words[2].find(':'));
    if (words[1] == "SOCK")
        return is_plain_path(path) && (path.starts_with("/run/chrony.") || path.starts_with("/var/run/chrony.") ||
                                       is_in_daemon_folder(path, rules));
    return words[1] == "SHM" || is_clock_device(path);
}

// The system's own tables of time zones; any other path would be read as well.
bool is_zone(std::string_view name) {
    return name.front() != '/' && name.front() != ':' && name.find("..") == std::string_view::npos;
}

// A sensor of the kernel's, and points of root's: chronyd opens the one at each look, and opening is all it takes with
// some devices.
bool is_safe_compensation(const Words& words) {
    if (words.size() != 4 && words.size() != 7)
        return false;
    const bool is_sensor = words[1] == compensation_temperature_path || is_inside(words[1], "/sys/class/hwmon/");
    return is_sensor && (words.size() == 7 || is_in_roots_folder(words[3]));
}

bool is_safe(const Words& words, const HelperRules& rules) {
    const auto& name = words[0];
    if (holds(harmless, name))
        return true;
    if (name == "user")
        return words.size() == 2 && holds(daemon_users, words[1]);
    if (name == "bindcmdaddress" && words.size() == 2 && words[1].front() != '/')
        return true;
    if (name == "rtcdevice")
        return words.size() == 2 && words[1].starts_with("/dev/rtc") && is_plain_path(words[1]);
    if (name == "refclock")
        return is_safe_clock(words, rules);
    if (name == "tempcomp")
        return is_safe_compensation(words);
    if (name == "leapsectz")
        return words.size() == 2 && is_zone(words[1]);
    return words.size() > 1 && std::all_of(words.begin() + 1, words.end(), [&](const auto& path) {
               return (holds(of_directives, name) && is_in_roots_folder(path)) ||
                      (holds(of_written, name) && is_in_daemon_folder(path, rules)) ||
                      (holds(of_read, name) && is_in_chrony_folder(path, rules));
           });
}

std::string joined(const Words& words) {
    std::string text;
    for (const auto& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

// A directive's words, its name in lower case; none for a blank line or a comment.
Words directive(std::string_view line) {
    auto words = words_of(line);
    if (words.empty() || comment_starts.find(words[0].front()) != std::string_view::npos)
        return {};
    std::ranges::transform(words[0], words[0].begin(),
                           [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return words;
}

template <class Visit>
void each_line(std::string_view text, Visit visit) {
    for (int number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find('\n'), text.size());
        visit(number, text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::set<std::string> directives_of(std::string_view text) {
    std::set<std::string> found;
    for (const auto& one : directives_in(text))
        found.insert(joined(one.words));
    return found;
}

} // namespace

Result<std::vector<ConfigurationLine>> find_unsafe_lines(std::string_view text, std::string_view installed,
                                                         const HelperRules& rules) {
    if (text.find('\0') != std::string_view::npos)
        return failed(FailureCode::configuration_is_no_text);
    const auto known = directives_of(installed);
    Result<std::vector<ConfigurationLine>> found;
    each_line(text, [&](int number, std::string_view line) {
        const auto words = directive(line);
        const auto whole = joined(words);
        const bool is_unsafe = !words.empty() && !is_safe(words, rules) && !known.contains(whole);
        if (line.size() > longest_line)
            found = failed(FailureCode::line_too_long, {std::to_string(number)});
        else if (is_unsafe && !is_plain_line(whole)) // nobody can agree to what cannot be shown
            found = failed(FailureCode::line_unshowable, {std::to_string(number)});
        else if (is_unsafe && found)
            found->push_back({number, whole});
    });
    return found;
}

std::vector<Directive> directives_in(std::string_view text) {
    std::vector<Directive> found;
    each_line(text, [&found](int number, std::string_view line) {
        if (auto words = directive(line); !words.empty())
            found.push_back({number, std::move(words)});
    });
    return found;
}

std::string configured_daemon_user(std::string_view text) {
    std::string user;
    for (const auto& [number, words] : directives_in(text))
        if (words.size() == 2 && words[0] == "user")
            user = words[1];
    return user;
}

} // namespace tickervantage
