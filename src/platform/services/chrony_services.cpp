#include "platform/services/chrony_services.h"

namespace tickervantage {

const std::vector<std::string>& other_time_services() {
    static const std::vector<std::string> units{"chrony.service", "chronyd.service",  "ntp.service",
                                                "ntpsec.service", "openntpd.service", "systemd-timesyncd.service"};
    return units;
}

ServiceDescription daemon_service(const std::string& chronyd, const std::string& configuration, bool adjusts_clock) {
    ServiceDescription service;
    service.label = daemon_label;
    service.temporary = "chronyd";
    service.words = "chrony, which keeps the clock right";
    service.program = chronyd;
    service.arguments = {chronyd, "-n", "-f", configuration};
    if (!adjusts_clock)
        service.arguments.emplace_back("-x");
    service.keep_alive = true;
    service.nice = -20;
    service.conflicts = other_time_services();
    return service;
}

ServiceDescription rotation_service(const std::string& script, const std::string& chronyc,
                                    const std::string& log_folder) {
    ServiceDescription service;
    service.label = rotation_label;
    service.property_list = "org.chrony-project.chronyc"; // where installations have always had it
    service.temporary = "chronylogrotate";
    service.words = "Daily rotation of chrony's logs";
    service.arguments = {"/bin/sh", script, chronyc, log_folder};
    service.daily = DailyTime{.hour = 4, .minute = 5};
    return service;
}

ServiceDescription wake_service(const std::string& chronywake, const std::vector<std::string>& options) {
    ServiceDescription service;
    service.label = wake_label;
    service.temporary = "chronywake";
    service.words = "Corrects the clock after a sleep";
    service.program = chronywake;
    service.arguments = {chronywake};
    service.arguments.insert(service.arguments.end(), options.begin(), options.end());
    service.keep_alive = true;
    return service;
}

} // namespace tickervantage
