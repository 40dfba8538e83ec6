// What the status cycle shows, as the window it is shown in provides it. Main thread only.
#pragma once

#include "chrony/reports/versions.h"
#include "chrony/status/status_values.h"

#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

struct ClockTruth;

// What stands in the way of a full reading. The window finds the words; the detail is what chrony said.
struct StatusNotice {
    enum class Kind : unsigned char {
        none,
        chronyc_failed,    // could not be run, hung, or was ended
        daemon_silent,     // chronyc ran, but got no report from chronyd
        unusual_leap,      // chronyd answered, with a leap status that is none of those the state is made of
        asking,            // another machine; the detail is its name, empty: this one again
        not_from_afar,     // the report is for root on chronyd's own machine, and another machine's is shown
        needs_helper,      // the report wants administrator rights and the helper is not ready
        report_incomplete, // the shown report failed or was cut; the status is good
    };
    Kind kind = Kind::none;
    std::string detail = {};
    std::optional<Failure> failure = {}; // with chronyc_failed and report_incomplete
    friend bool operator==(const StatusNotice&, const StatusNotice&) = default;
};

class StatusDisplay {
public:
    virtual ~StatusDisplay() = default;

    virtual void redraw_clock() = 0;
    virtual void redraw_meter() = 0;
    virtual void show_meter_value(const std::string& text) = 0; // no_value: there is none, nor a needle
    virtual void show_status(chronydStatus status) = 0;
    virtual void show_truth(std::shared_ptr<const ClockTruth> truth) = 0;
    // That of this machine, while another one's is shown.
    virtual void watch_truth(std::shared_ptr<const ClockTruth> truth) = 0;
    virtual void show_clock_not_adjusted(bool shown) = 0; // the notice and the preferences button beside it
    virtual void show_versions(const ProgramVersion& chronyc, const ProgramVersion& chronyd) = 0;
    virtual void show_original_name_choice(bool offered) = 0; // false: switched off, disabled and hidden
    virtual void show_server_field(bool shown) = 0;
    virtual void show_servers(const std::vector<std::string>& names, const std::string& current) = 0;
    virtual void show_output(const std::string& text) = 0;    // raw bytes; may hold anything
    virtual void show_notice(const StatusNotice& notice) = 0; // the last of what each reading shows
    virtual void enable_gpsd_item(bool enabled) = 0;

    // A report was chosen that needs administrator rights, which are not there.
    virtual void ask_for_rights() = 0;
    // A fault of the program's own, which it cannot go on with.
    virtual void stop_program(const std::string& programming_error) = 0;
    // A program is not what its path says. Versions that are shown afterwards are those of programs that are.
    virtual void stop_for_version(const std::string& program, const std::string& answer) = 0;
};

} // namespace tickervantage
