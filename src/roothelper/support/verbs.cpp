#include "roothelper/support/verbs.h"

#include "roothelper/support/accounts.h"
#include "roothelper/support/distribution_options.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/install_file.h"
#include "roothelper/support/log_rotation.h"
#include "roothelper/support/one_line.h"
#include "roothelper/support/own_installation.h"
#include "roothelper/support/time_services.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tickervantage {
namespace {

using Arguments = std::vector<std::string>;

// The work of a verb: 0 or -1. What it leaves in `line` is its answer; nothing with 0 means "200 OK".
struct Verb {
    std::string_view name;
    std::size_t count; // of arguments
    int (*run)(const Arguments& arguments, const SupportParts& parts, std::string& line);
};

int create_inside(const Arguments& arguments, const SupportParts& parts, std::string& line) {
    if (arguments[0].empty())
        return make_folder(arguments[1], parts.rules, line);
    line = "The first argument of createdirectory stays empty when there are two.";
    return -1;
}

Machine machine_of(const SupportParts& parts) {
    return {parts.units.execute, parts.rules, parts.root, parts.bundle};
}

int set_clock_option(const Arguments& arguments, const SupportParts& parts, std::string& line) {
    if (arguments[0] == "on" || arguments[0] == "off")
        return adjust_clock(machine_of(parts), arguments[0] == "on", line);
    line = "adjustclock takes on or off.";
    return -1;
}

// A verb without arguments that works on the machine.
template <int (*work)(const Machine&, std::string&)>
int on_machine(const Arguments&, const SupportParts& parts, std::string& line) {
    return work(machine_of(parts), line);
}

constexpr std::array verbs{
    Verb{"installitem", 4,
         [](const Arguments& a, const SupportParts& parts, std::string& line) {
             return install_file({a[0], a[1], a[2], a[3]}, parts.rules, line);
         }},
    Verb{"restoreformer", 1,
         [](const Arguments& a, const SupportParts& parts, std::string& line) {
             return restore_former(a[0], parts.rules, line);
         }},
    Verb{"removeitem", 1,
         [](const Arguments& a, const SupportParts& parts, std::string& line) {
             return remove_item(a[0], parts.rules, line);
         }},
    Verb{"createdirectory", 2, create_inside},
    Verb{"createdirectory", 1,
         [](const Arguments& a, const SupportParts& parts, std::string& line) {
             return make_daemon_folder(a[0], parts.configurations(), parts.rules, line);
         }},
    Verb{"adduser", 1,
         [](const Arguments& a, const SupportParts& parts, std::string& line) {
             return add_system_user(parts.units.execute, a[0], line);
         }},
    Verb{"steptime", 1,
         [](const Arguments& a, const SupportParts& parts, std::string& line) {
             return step_clock(parts.clock, a[0], line);
         }},
    Verb{"rotatelogs", 2,
         [](const Arguments& a, const SupportParts& parts, std::string& line) {
             return rotate_logs(parts.units.execute, a[0], a[1], parts.rules, line);
         }},
    Verb{"adjustclock", 1, set_clock_option},
    Verb{"openlogs", 0, on_machine<open_log_folder>},
    Verb{"displaceservices", 0, on_machine<displace_services>},
    Verb{"restoreservices", 0, on_machine<restore_services>},
    Verb{"refreshprograms", 0, on_machine<refresh_programs>},
    Verb{"removeinstallation", 0, on_machine<remove_installation>},
    Verb{"startchrony", 0,
         [](const Arguments&, const SupportParts& parts, std::string& line) {
             return start_chrony(parts.units, line);
         }},
    Verb{"stopchrony", 0,
         [](const Arguments&, const SupportParts& parts, std::string& line) {
             return stop_chrony(parts.units, line);
         }},
    Verb{"startwake", 0,
         [](const Arguments&, const SupportParts& parts, std::string& line) {
             return start_wake(parts.units, line);
         }},
    Verb{"stopwake", 0,
         [](const Arguments&, const SupportParts& parts, std::string& line) {
             return stop_wake(parts.units, line);
         }},
};

} // namespace

VerbResult run_verb(const std::vector<std::string>& words, const SupportParts& parts, std::string& line) {
    const auto* const verb = std::ranges::find_if(verbs, [&](const Verb& one) {
        return !words.empty() && one.name == words.front() && one.count == words.size() - 1;
    });
    if (verb == verbs.end()) {
        line = "There is no such verb with so many arguments.";
        return VerbResult::usage;
    }
    std::string answer;
    const int result = verb->run({words.begin() + 1, words.end()}, parts, answer);
    line = answer.empty() ? "200 OK" : one_line(answer);
    return result == 0 ? VerbResult::done : VerbResult::failed;
}

} // namespace tickervantage
