// What the command line says of `tickerctl admin`.
#pragma once

#include "roothelper/jobs/job_catalogue.h"

#include <cstdint>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace tickervantage {

struct AdminArguments {
    AdminJob job = AdminJob::install;
    std::string file;   // of install-config and install-tempcomp
    std::string sensor; // of install-tempcomp; empty: the only one
    std::string server; // of sync
    std::optional<int> timeout_seconds;
    bool no_restart = false;
    double offset_seconds = 0;           // of step
    std::optional<std::uint64_t> number; // of restore-config
    bool list = false;
    bool difference = false;
    bool dry_run = false;
    ServiceForm form = native_service_form;
};

// Adds a command for each job below `admin`. Both arguments outlive the reading of the command line.
void add_admin_jobs(CLI::App& admin, AdminArguments& arguments, bool& json);

} // namespace tickervantage
