#include "chrony/services/service_definitions.h"

#include "chrony/services/service_texts.h"

namespace tickervantage {
namespace {

constexpr int settling_seconds = 2; // between the end of a service and what is done to its definition
constexpr int removal_seconds = 1;

std::string systemctl(const std::string& words) {
    return "/bin/systemctl " + words;
}

std::string bootout_line(const std::string& label) {
    return "/bin/launchctl bootout system " + definition_path(ServiceForm::launchd, label);
}

// What is switched on and off: the timer where there is one.
std::string switched_unit(const ServiceDescription& service) {
    return service.label + (service.daily ? ".timer" : ".service");
}

} // namespace

std::string definition_path(ServiceForm form, const std::string& label) {
    return form == ServiceForm::launchd ? "/Library/LaunchDaemons/" + label + ".plist"
                                        : "/etc/systemd/system/" + label + ".service";
}

std::vector<DefinitionFile> definition_files(ServiceForm form, const ServiceDescription& service) {
    if (form == ServiceForm::launchd) {
        const auto& name = service.property_list.empty() ? service.label : service.property_list;
        return {{service.temporary + ".plist", definition_path(form, name), property_list(service)}};
    }
    std::vector<DefinitionFile> files{
        {service.temporary + ".service", definition_path(form, service.label), service_unit(service)}};
    if (service.daily)
        files.push_back(
            {service.temporary + ".timer", "/etc/systemd/system/" + service.label + ".timer", timer_unit(service)});
    return files;
}

std::vector<ServiceLine> enable_lines(ServiceForm form, const ServiceDescription& service) {
    if (form == ServiceForm::launchd)
        return {}; // what lies in the folder is loaded at boot
    return {{systemctl((service.daily ? "enable --now " : "enable ") + switched_unit(service))}};
}

std::vector<ServiceLine> disable_lines(ServiceForm form, const ServiceDescription& service) {
    if (form == ServiceForm::launchd)
        return {};
    return {{systemctl("disable --now " + switched_unit(service))}};
}

std::vector<ServiceLine> reload_lines(ServiceForm form) {
    if (form == ServiceForm::launchd)
        return {};
    return {{systemctl("daemon-reload")}};
}

std::vector<ServiceLine> restart_lines(ServiceForm form, const std::string& label) {
    if (form == ServiceForm::systemd)
        return {{systemctl("restart " + label + ".service")}};
    return {{bootout_line(label), settling_seconds},
            {"/bin/launchctl bootstrap system " + definition_path(form, label)}};
}

std::vector<ServiceLine> renewal_lines(ServiceForm form, const std::string& label) {
    if (form == ServiceForm::launchd)
        return restart_lines(form, label);
    return {{systemctl("daemon-reload")}, {systemctl("try-restart " + label + ".service")}};
}

std::vector<ServiceLine> removal_lines(ServiceForm form, const std::string& label) {
    const std::string stop =
        form == ServiceForm::launchd ? bootout_line(label) : systemctl("disable --now " + label + ".service");
    std::vector<ServiceLine> lines{{stop, settling_seconds},
                                   {"rm -f " + definition_path(form, label), removal_seconds}};
    for (auto& line : reload_lines(form))
        lines.push_back(std::move(line));
    return lines;
}

std::string start_unit_line(const std::string& unit) {
    return systemctl("start " + unit);
}

std::string stop_unit_line(const std::string& unit) {
    return systemctl("stop " + unit);
}

std::string status_line(ServiceForm form, const std::string& label) {
    return form == ServiceForm::launchd ? "/bin/launchctl print system/" + label
                                        : systemctl("status --no-pager --lines=20 " + label + ".service");
}

} // namespace tickervantage
