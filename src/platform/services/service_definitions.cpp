#include "platform/services/service_definitions.h"

namespace tickervantage {

std::string definition_path(ServiceForm form, const std::string& label) {
    return form == ServiceForm::launchd ? "/Library/LaunchDaemons/" + label + ".plist"
                                        : "/etc/systemd/system/" + label + ".service";
}

std::string stop_line(ServiceForm form, const std::string& label) {
    return form == ServiceForm::launchd ? "/bin/launchctl bootout system " + definition_path(form, label)
                                        : "/bin/systemctl disable --now " + label + ".service";
}

std::string remove_line(ServiceForm form, const std::string& label) {
    return "rm -f " + definition_path(form, label);
}

} // namespace tickervantage
