#include "roothelper/jobs/job_environment.h"

#include "roothelper/grammar/wake_arguments.h"

namespace tickervantage {
namespace {

std::vector<std::string> wake_options(const PreferencesGeneral& general) {
    return wake_service_arguments({.make_thresh = general.make_thresh,
                                   .make_limit = static_cast<int>(general.make_limit),
                                   .burst_good = static_cast<int>(general.burst_good),
                                   .burst_max = static_cast<int>(general.burst_max),
                                   .burst_netmask = general.burst_netmask,
                                   .chronyc = general.chronyc,
                                   .socket = {}});
}

} // namespace

JobSetting make_job_setting(const PreferencesGeneral& general, const PreferencesAdvanced& advanced, const Paths& paths,
                            ServiceForm form) {
    return {.config = general.config,
            .chronyc = general.chronyc,
            .chronyd = general.chronyd,
            .chronywake = general.chronywake,
            .install_wake = general.install_wake,
            .adj_system = general.adj_system,
            .restart_gpsd = advanced.restart_gpsd,
            .wake_options = wake_options(general),
            .bundle = paths.bundle,
            .temporary = paths.temporary,
            .form = form};
}

} // namespace tickervantage
