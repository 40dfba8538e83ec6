// The closed set of requests that the root helper admits, each parsed once into what is run.
//
// Nothing here is ever handed to a shell: the lines that look like a shell's are templates, and what they stand for
// becomes arguments of one program. Sources: chronyc(1),
// chronyd(8), launchctl(1), systemctl(1).
#pragma once

#include "roothelper/grammar/helper_rules.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class HelperVerb : std::uint8_t {
    quit,
    chronyc_report,
    synchronise,
    run_chronywake,
    list_daemons,
    install_item,
    remove_item,
    create_directory,
    add_user,
    step_time,
    stop_chrony,
    start_chrony,
    stop_wake,
    start_wake,
    rotate_logs,
    service_manager,
    remove_definition,
    make_readable,
    restore_former,
    displace_services,
    restore_services,
    adjust_clock,
    open_logs,
    check_item,    // judges what installing would judge, and installs nothing
    guard_chrony,  // what the caller stops from now on is started again should the caller go away
    resume_chrony, // what the caller has stopped is started again
    use_sensor,    // of the temperature, which chronyd reads from its next start on
    check_sensor,  // whether chronyd can read it
    drop_sensor,
};

// The verb's name in the journal.
[[nodiscard]] std::string_view helper_verb_name(HelperVerb verb);

struct HelperRequest {
    HelperVerb verb = HelperVerb::quit;
    std::vector<std::string> argv; // the program's path, then its arguments; empty where the helper does it itself
    // With `install_item` and `check_item`: what it is, and where it comes from and goes to. With `restore_former`:
    // where it goes to.
    Item item;
    std::string source;
    std::string destination;
};

// A failure for what is not in the set.
[[nodiscard]] Result<HelperRequest> parse_helper_request(std::string_view line, const HelperRules& rules);

} // namespace tickervantage
