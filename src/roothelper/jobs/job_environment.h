// What the administrative jobs are told of the preferences and of the machine.
#pragma once

#include "base/execute.h"
#include "base/paths.h"
#include "roothelper/jobs/chrony_jobs.h"
#include "settings/preferences.h"

#include <functional>
#include <optional>
#include <string>

namespace tickervantage {

[[nodiscard]] JobSetting make_job_setting(const PreferencesGeneral& general, const PreferencesAdvanced& advanced,
                                          const Paths& paths, ServiceForm form = native_service_form);

// With what the probes look at this machine; what is borrowed outlives them.
struct JobMachine {
    Execute& execute;
    Paths paths;
    std::string search_path; // folders of programs, "a:b"
    std::function<std::optional<std::string>(const std::string& path)> read_file;
    std::function<int(const std::string& path, std::string_view bytes, std::string& sentence)> replace_file;
    std::function<void(int seconds)> pause;
    ServiceForm form = native_service_form;
};

[[nodiscard]] JobProbes make_job_probes(const JobMachine& machine);

} // namespace tickervantage
