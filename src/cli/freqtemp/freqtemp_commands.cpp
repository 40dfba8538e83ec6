#include "cli/freqtemp/freqtemp_commands.h"

#include "base/failure_codes.h"
#include "base/user_files.h"
#include "cli/json_text.h"
#include "cli/terminal.h"
#include "studies/freqtemp/scatter_csv.h"
#include "studies/freqtemp/scatter_json.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::size_t LARGEST_FILE = std::size_t{4} << 30U;

Json json_of(const QuadRegression& fit) {
    return {{"result", fit.valid ? 0 : -1},
            {"r", fit.r},
            {"y_stddev", fit.y_stddev},
            {"x_min", fit.x_min},
            {"x_max", fit.x_max},
            {"coefficients", fit.coefficients},
            {"valid", fit.valid}};
}

Result<ScatterMap> read_csv(const std::string& path, const std::string& text) {
    CsvDamage damage;
    ScatterMap map;
    if (read_scatter_csv(text, std::filesystem::path(path).stem().string(), map, damage) != 0)
        return failed(FailureCode::no_point_in, {path});
    if (damage.lines > 0)
        complain(
            fmt::format("{} lines of {} are no points, the first of them line {}.", damage.lines, path, damage.first));
    std::vector<tempSensor> sensors;
    for (const auto& [name, entry] : map)
        sensors.push_back({name, name});
    return merged(fresh_map(sensors), std::move(map));
}

Json json_of(const SensorReading& reading) {
    Json object{{"name", reading.name}, {"description", reading.description}, {"temperature", nullptr}};
    if (reading.temperature > 0)
        object["temperature"] = reading.temperature;
    return object;
}

} // namespace

Result<ScatterMap> read_points(UserFiles& files, const std::string& path) {
    const FileReading file = files.read(path, LARGEST_FILE);
    if (file.outcome != FileReading::Outcome::read)
        return failed(FailureCode::cannot_read, {path}, file.reason);
    if (path.ends_with(".csv"))
        return read_csv(path, file.bytes);
    return read_scatter_json(file.bytes).or_else([&path](const Failure& cause) -> Result<ScatterMap> {
        return failed(FailureCode::file_is_no_scatter_map, {path}, cause);
    });
}

bool fit_all(ScatterMap& map, int order) {
    bool all_fit = !map.empty();
    for (auto& [name, entry] : map)
        all_fit = entry.quadRegression->fit(entry.points.spans(), order) == 0 && all_fit;
    return all_fit;
}

void print_fits(const ScatterMap& map, int order, OutputForm form, std::ostream& out) {
    if (form == OutputForm::json) {
        Json document = Json::object();
        for (const auto& [name, entry] : map)
            document[name] = json_of(*entry.quadRegression);
        out << json_text(document);
        return;
    }
    for (const auto& [name, entry] : map) {
        const auto& fit = *entry.quadRegression;
        out << fmt::format("{}: {} points from {:.1f} to {:.1f} °C, order {}\n", one_line(name), entry.points.size(),
                           fit.x_min, fit.x_max, order);
        if (!fit.valid) {
            out << "  no fit\n";
            continue;
        }
        out << fmt::format("  r {:g}, residual standard deviation {:g} ppm\n", fit.r, fit.y_stddev);
        out << fmt::format("  coefficients {}\n", fmt::join(fit.coefficients, " "));
    }
}

void print_sensors(const std::vector<SensorReading>& readings, OutputForm form, std::ostream& out) {
    if (form == OutputForm::json) {
        Json document = Json::array();
        for (const auto& reading : readings)
            document.push_back(json_of(reading));
        out << json_text(document);
        return;
    }
    if (readings.empty())
        out << "This machine has no temperature sensors.\n";
    std::size_t width = 0;
    for (const auto& reading : readings)
        width = std::max(width, reading.name.size());
    for (const auto& reading : readings)
        out << fmt::format("{:<{}}  {:>8}  {}\n", reading.name, width,
                           reading.temperature > 0 ? fmt::format("{:.1f} °C", reading.temperature) : "-",
                           reading.description);
}

} // namespace tickervantage
