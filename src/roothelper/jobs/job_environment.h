// What the administrative jobs are told of the preferences.
#pragma once

#include "base/paths.h"
#include "roothelper/jobs/chrony_jobs.h"
#include "settings/preferences.h"

namespace tickervantage {

[[nodiscard]] JobSetting make_job_setting(const PreferencesGeneral& general, const PreferencesAdvanced& advanced,
                                          const Paths& paths, ServiceForm form = native_service_form);

} // namespace tickervantage
