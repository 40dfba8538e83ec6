#include "app/options.h"

#include <CLI/CLI.hpp>

namespace tickervantage {

std::optional<ProgramOptions> read_options(int argc, char** argv, int& exit_status) {
    ProgramOptions options;
    CLI::App app{"Tickervantage installs, configures, controls and monitors chrony on this workstation."};
    app.set_version_flag("--version", "tickervantage " TICKERVANTAGE_VERSION);
    app.add_flag("--demo", options.demo, "show a demonstration: chronyds on loopback that leave the clock alone");
    app.add_option("--screenshots", options.screenshots, "write pictures of the windows into this folder, then end");
    app.add_option("FILE", options.files,
                   "tracking logs to open, also rotated and compressed ones, and configurations to edit");
    app.allow_extras(false);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        constexpr int usage_error = 2;
        exit_status = app.exit(end) == 0 ? 0 : usage_error;
        return std::nullopt;
    }
    return options;
}

} // namespace tickervantage
