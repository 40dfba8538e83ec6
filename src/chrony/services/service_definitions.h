// Services of the system's service manager, as files and command lines in either of two forms.
//
// A description says what a service is; what follows from it is plain text, nothing here touches the machine. Whoever
// checks such texts as root makes them again from their parts and compares. Sources: launchd.plist(5), launchctl(1),
// systemd.service(5), systemd.timer(5), systemctl(1).
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

enum class ServiceForm : unsigned char { launchd, systemd };

// The form that this machine's service manager reads.
inline constexpr ServiceForm native_service_form = ServiceForm::systemd;

struct DailyTime {
    int hour = 0;
    int minute = 0;
};

struct ServiceDescription {
    std::string label;
    std::string property_list; // file name without suffix, where it is not the label
    std::string temporary;     // file name without suffix, while it is on its way
    std::string words;         // what it is, in a few words
    std::string program;       // empty: the first argument says it
    std::vector<std::string> arguments;
    bool keep_alive = false; // started at boot and again whenever it ends
    int nice = 0;
    std::optional<DailyTime> daily;
    std::vector<std::string> conflicts;       // units that must not run beside it; it starts when they have ended
    std::vector<std::string> unit_arguments;  // behind the arguments, where the service is a unit
    std::vector<std::string> unit_lines;      // further lines of the unit's first section
    std::vector<std::string> sandbox;         // further lines of its service section
    std::vector<std::string> written_folders; // where it writes in spite of them
};

struct DefinitionFile {
    std::string temporary; // name under which it is written before it is installed
    std::string path;      // where it belongs
    std::string text;
};

// A command line, and how long the service manager wants to be left alone after it.
struct ServiceLine {
    std::string command;
    int pause_seconds = 0;
};

// The files that make the service known: one, and a timer with a daily time where services and timers are two things.
[[nodiscard]] std::vector<DefinitionFile> definition_files(ServiceForm form, const ServiceDescription& service);

// Where the service's definition lies: its existence says that the service is installed.
[[nodiscard]] std::string definition_path(ServiceForm form, const std::string& label);

// What makes an installed definition come alive at the next boot, and a daily one at once.
[[nodiscard]] std::vector<ServiceLine> enable_lines(ServiceForm form, const ServiceDescription& service);

// What undoes that, while the definition is still there. A kept-alive service is stopped as well.
[[nodiscard]] std::vector<ServiceLine> disable_lines(ServiceForm form, const ServiceDescription& service);

// What lets the service manager forget definitions that were removed.
[[nodiscard]] std::vector<ServiceLine> reload_lines(ServiceForm form);

// What restarts a service that runs, after its definition was replaced.
[[nodiscard]] std::vector<ServiceLine> renewal_lines(ServiceForm form, const std::string& label);

// What restarts a service, and what stops it and removes its definition.
[[nodiscard]] std::vector<ServiceLine> restart_lines(ServiceForm form, const std::string& label);
[[nodiscard]] std::vector<ServiceLine> removal_lines(ServiceForm form, const std::string& label);

// A unit of the distribution, such as "chrony.service".
[[nodiscard]] std::string start_unit_line(const std::string& unit);
[[nodiscard]] std::string stop_unit_line(const std::string& unit);

// What the service manager and the service itself said last.
[[nodiscard]] std::string status_line(ServiceForm form, const std::string& label);

} // namespace tickervantage
