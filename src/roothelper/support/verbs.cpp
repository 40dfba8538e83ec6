#include "roothelper/support/verbs.h"

#include "base/failure_codes.h"
#include "roothelper/support/accounts.h"
#include "roothelper/support/compensation_sensor_unit.h"
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

// The work of a verb and what it answers; nothing means "200 OK".
struct Verb {
    std::string_view name;
    std::size_t count; // of arguments
    Result<std::string> (*run)(const Arguments& arguments, const SupportParts& parts);
};

Result<std::string> without_words(const Result<>& done) {
    return done.map([] { return std::string(); });
}

Result<std::string> create_inside(const Arguments& arguments, const SupportParts& parts) {
    if (!arguments[0].empty())
        return failed(FailureCode::first_argument_not_empty);
    return without_words(make_folder(arguments[1], parts.rules));
}

Machine machine_of(const SupportParts& parts) {
    return {parts.units.execute, parts.rules, parts.root, parts.bundle};
}

Result<std::string> set_clock_option(const Arguments& arguments, const SupportParts& parts) {
    if (arguments[0] != "on" && arguments[0] != "off")
        return failed(FailureCode::neither_on_nor_off);
    return adjust_clock(machine_of(parts), arguments[0] == "on");
}

// Verbs without arguments that work on the machine, and on the units of daemons.
template <Result<std::string> (*work)(const Machine&)>
Result<std::string> on_machine(const Arguments&, const SupportParts& parts) {
    return work(machine_of(parts));
}

template <Result<std::string> (*work)(const DaemonUnits&)>
Result<std::string> on_units(const Arguments&, const SupportParts& parts) {
    return work(parts.units);
}

constexpr std::array verbs{
    Verb{"installitem", 4,
         [](const Arguments& a, const SupportParts& parts) {
             return without_words(install_file({a[0], a[1], a[2], a[3]}, parts.rules));
         }},
    Verb{"restoreformer", 1,
         [](const Arguments& a, const SupportParts& parts) {
             return without_words(restore_former(a[0], parts.rules));
         }},
    Verb{"removeitem", 1,
         [](const Arguments& a, const SupportParts& parts) {
             return without_words(remove_item(a[0], parts.rules));
         }},
    Verb{"createdirectory", 2, create_inside},
    Verb{"createdirectory", 1,
         [](const Arguments& a, const SupportParts& parts) {
             return without_words(make_daemon_folder(a[0], parts.configurations, parts.rules));
         }},
    Verb{"adduser", 1,
         [](const Arguments& a, const SupportParts& parts) {
             return add_system_user(parts.units.execute, a[0]);
         }},
    Verb{"steptime", 1,
         [](const Arguments& a, const SupportParts& parts) {
             return step_clock(parts.clock, a[0]);
         }},
    Verb{"rotatelogs", 2,
         [](const Arguments& a, const SupportParts& parts) {
             return rotate_logs(parts.units.execute, a[0], a[1], parts.rules);
         }},
    Verb{"adjustclock", 1, set_clock_option},
    Verb{"usesensor", 3,
         [](const Arguments& a, const SupportParts& parts) {
             return use_sensor(machine_of(parts), {a[0], a[1], a[2]});
         }},
    Verb{"checksensor", 0, on_machine<check_sensor>},
    Verb{"dropsensor", 0, on_machine<drop_sensor>},
    Verb{"openlogs", 0, on_machine<open_log_folder>},
    Verb{"displaceservices", 0, on_machine<displace_services>},
    Verb{"restoreservices", 0, on_machine<restore_services>},
    Verb{"refreshprograms", 0, on_machine<refresh_programs>},
    Verb{"removeinstallation", 0, on_machine<remove_installation>},
    Verb{"startchrony", 0, on_units<start_chrony>},
    Verb{"stopchrony", 0, on_units<stop_chrony>},
    Verb{"startwake", 0, on_units<start_wake>},
    Verb{"stopwake", 0, on_units<stop_wake>},
};

} // namespace

Result<std::string> run_verb(const std::vector<std::string>& words, const SupportParts& parts) {
    const auto* const verb = std::ranges::find_if(verbs, [&](const Verb& one) {
        return !words.empty() && one.name == words.front() && one.count == words.size() - 1;
    });
    if (verb == verbs.end())
        return failed(FailureCode::no_such_verb);
    return verb->run({words.begin() + 1, words.end()}, parts);
}

std::string answer_line(const Result<std::string>& said) {
    if (!said)
        return one_line(english(said.error()));
    return said->empty() ? "200 OK" : one_line(*said);
}

} // namespace tickervantage
