#include "cli/laboratory/laboratory_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {
namespace {

CLI::Validator probability() {
    return CLI::Range(0.01, 0.9999).description("give a share, from 0.01 to 0.9999");
}

} // namespace

void add_stability_options(CLI::App& stability, LaboratoryArguments& arguments) {
    stability.add_option("LOG", arguments.log, "a tracking log, the folder it is in, or a file of numbers")->required();
    auto* phase = stability.add_flag("--phase", arguments.is_phase, "the file has one phase a line, in seconds");
    stability.add_flag("--frequency", arguments.is_frequency, "the file has one fractional frequency a line")
        ->excludes(phase);
    stability.add_option("--tau0", arguments.tau0, "seconds between two numbers of such a file")
        ->capture_default_str()
        ->check(CLI::Range(1e-9, 1e9).description("give seconds, more than 0"));
    stability.add_option("--measure", arguments.measures, "adev, oadev, mdev, tdev, hdev, mtie; several with commas")
        ->capture_default_str();
    stability.add_option("--tau", arguments.taus, "averaging times: octave, decade, all, or seconds with commas")
        ->capture_default_str();
    stability.add_option("--confidence", arguments.confidence, "of the limits")
        ->capture_default_str()
        ->check(probability());
}

void add_holdover_options(CLI::App& holdover, LaboratoryArguments& arguments) {
    holdover.add_option("LOG", arguments.log, "a tracking log, or the folder it is in")->required();
    holdover.add_option("--limit", arguments.limit, "tell after what time the error passes this: 1ms, 20us, 0.5");
    holdover.add_option("--quantile", arguments.quantile, "share of the past that stayed within the forecast")
        ->capture_default_str()
        ->check(probability());
}

void add_tempcomp_options(CLI::App& tempcomp, LaboratoryArguments& arguments) {
    auto* file = tempcomp.add_option("FILE", arguments.points, "a scatter map, or a .csv: temperature,frequency,time");
    auto* verify =
        tempcomp.add_option("--verify", arguments.verify, "only tell whether chronyd takes this file of points");
    verify->excludes(file);
    tempcomp.add_option("--sensor", arguments.sensor, "of the sensors in the file this one");
    auto* points =
        tempcomp.add_flag("--points", arguments.as_points, "a temperature and a compensation a line (the default)");
    tempcomp
        .add_flag("--coefficients", arguments.as_coefficients, "T0 k0 k1 k2 on one line, for a curve of degree 1 or 2")
        ->excludes(points);
    tempcomp.add_option("--unit", arguments.unit, "of the sensor's file")
        ->capture_default_str()
        ->check(CLI::IsMember({"celsius", "millidegrees"}));
    tempcomp.add_option("--applied", arguments.applied,
                        "the file of points that was in use while the readings were made");
}

} // namespace tickervantage
