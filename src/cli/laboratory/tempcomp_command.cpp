#include "cli/laboratory/tempcomp_command.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/text_lines.h"
#include "chrony/data/reports.h"
#include "cli/json_text.h"
#include "studies/freqtemp/scatter_json.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <ostream>

namespace tickervantage {
namespace {

constexpr std::size_t largest_file = std::size_t{4} << 30U; // bytes

std::vector<std::string_view> columns_of(std::string_view line) {
    std::vector<std::string_view> columns;
    while (true) {
        const auto comma = line.find(',');
        columns.push_back(trimmed(line.substr(0, comma)));
        if (comma == std::string_view::npos)
            return columns;
        line.remove_prefix(comma + 1);
    }
}

std::string_view next_line(std::string_view& text) {
    const auto length = std::min(text.find('\n'), text.size());
    const auto line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return line;
}

std::optional<std::int64_t> seconds_of(std::string_view moment) {
    const auto seconds = moment_in(moment);
    return seconds ? std::optional(static_cast<std::int64_t>(std::floor(*seconds))) : std::nullopt;
}

// Where the columns of a .csv stand; npos: there is none.
struct Columns {
    std::size_t temperature = std::string_view::npos;
    std::size_t frequency = std::string_view::npos;
    std::size_t time = std::string_view::npos;
    std::size_t sensor = std::string_view::npos;

    explicit Columns(std::string_view heading) {
        const auto names = columns_of(heading);
        const auto place = [&names](std::string_view name) {
            const auto found = std::ranges::find(names, name);
            return found != names.end() ? static_cast<std::size_t>(found - names.begin()) : std::string_view::npos;
        };
        temperature = place("temperature");
        frequency = place("frequency");
        time = place("time");
        sensor = place("sensor");
    }
};

void add_line(std::string_view line, const Columns& columns, const std::string& only_sensor, TimedSamples& samples) {
    const auto cells = columns_of(line);
    const auto cell = [&cells](std::size_t place) {
        return place < cells.size() ? cells[place] : std::string_view();
    };
    const auto temperature = number_from_text<double>(cell(columns.temperature));
    const auto frequency = number_from_text<double>(cell(columns.frequency));
    const auto time = seconds_of(cell(columns.time));
    if (!temperature || !frequency || !time)
        return;
    const auto sensor = cell(columns.sensor);
    samples[sensor.empty() ? only_sensor : std::string(sensor)].push_back({*time, *temperature, *frequency});
}

TimedSamples samples_in_csv(std::string_view text, const std::string& sensor) {
    TimedSamples samples;
    const Columns columns(next_line(text));
    while (!text.empty())
        add_line(next_line(text), columns, sensor, samples);
    return samples;
}

std::string rounded(double value) {
    return fmt::format("{:.3g}", value);
}

} // namespace

Result<TimedSamples> read_timed_samples(UserFiles& files, const std::string& path) {
    const FileReading file = files.read(path, largest_file);
    if (file.outcome == FileReading::Outcome::missing)
        return failed(FailureCode::no_such_file, {path});
    if (file.outcome != FileReading::Outcome::read)
        return failed(FailureCode::cannot_read, {path}, file.reason);
    TimedSamples samples;
    if (path.ends_with(".csv")) {
        samples = samples_in_csv(file.bytes, std::filesystem::path(path).stem().string());
    } else {
        const auto map = read_scatter_json(file.bytes);
        if (!map)
            return failed(FailureCode::cannot_read, {path}, map.error());
        samples = samples_in_map(*map);
    }
    return samples.empty() ? failed(FailureCode::compensation_without_times, {path}) : Result<TimedSamples>(samples);
}

Result<std::vector<TemperatureSample>> samples_of(const TimedSamples& all, const std::string& sensor) {
    if (sensor.empty() && all.size() == 1)
        return all.begin()->second;
    const auto found = all.find(sensor);
    if (found != all.end())
        return found->second;
    std::string names;
    for (const auto& [name, samples] : all)
        names += (names.empty() ? "" : ", ") + name;
    return sensor.empty() ? failed(FailureCode::which_sensor, {names})
                          : failed(FailureCode::no_such_sensor, {sensor, names});
}

std::string table_text(const Compensation& compensation, const CompensationTable& table) {
    std::string text;
    if (const auto values = table.as_coefficients ? coefficients_of(compensation, table.unit) : std::nullopt) {
        for (const double value : *values)
            text += (text.empty() ? "" : " ") + fmt::format("{:.9g}", value);
        return text + '\n';
    }
    return points_text(points_of(compensation, table.unit));
}

void print_compensation_json(const CompensationStudy& study, const CompensationTable& table, std::ostream& out) {
    const auto value = [&](auto member) {
        return study.compensation ? Json((*study.compensation).*member) : Json(nullptr);
    };
    Json points = Json::array();
    if (study.compensation && !study.refused)
        for (const TempcompPoint& point : points_of(*study.compensation, table.unit))
            points.push_back({point.temperature, point.compensation});
    out << json_text({{"sensor", table.sensor},
                      {"unit", table.unit == 1 ? "celsius" : "millidegrees"},
                      {"degree", study.compensation ? Json(study.compensation->degree()) : Json(nullptr)},
                      {"f_ref", value(&Compensation::f_ref)},
                      {"points", points},
                      {"before", value(&Compensation::before)},
                      {"after", value(&Compensation::after)},
                      {"gain", value(&Compensation::gain)},
                      {"gain_low", value(&Compensation::gain_low)},
                      {"gain_high", value(&Compensation::gain_high)},
                      {"refused", study.refused ? Json(english(*study.refused)) : Json(nullptr)}});
}

std::string gain_text(const Compensation& compensation) {
    return fmt::format(
        "Within a day the frequency goes {} ppm up and down; on days that the curve of degree {} was not "
        "made of, {} ppm of it are left. Left to itself, the clock would wander {:.1f} times less ({:.1f} "
        "to {:.1f}).",
        rounded(compensation.before), compensation.degree(), rounded(compensation.after), compensation.gain,
        compensation.gain_low, compensation.gain_high);
}

} // namespace tickervantage
