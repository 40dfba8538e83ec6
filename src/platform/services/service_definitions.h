// Services of the system's service manager, as files and command lines in either of two forms.
//
// A service is known by its label; both forms name the definition file after it. Plain text work: nothing here touches
// the machine. Sources: launchctl(1), systemctl(1), systemd.unit(5).
#pragma once

#include <string>

namespace tickervantage {

enum class ServiceForm : unsigned char { launchd, systemd };

// The form that this machine's service manager reads.
inline constexpr ServiceForm native_service_form = ServiceForm::systemd;

// Where the service's definition lies: its existence says that the service is installed.
[[nodiscard]] std::string definition_path(ServiceForm form, const std::string& label);

// The command line that stops the service and keeps it from starting again.
[[nodiscard]] std::string stop_line(ServiceForm form, const std::string& label);

// The command line that removes the definition.
[[nodiscard]] std::string remove_line(ServiceForm form, const std::string& label);

} // namespace tickervantage
