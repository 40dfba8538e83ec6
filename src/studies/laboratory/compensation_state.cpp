#include "studies/laboratory/compensation_state.h"

#include "base/failure_codes.h"
#include "studies/freqtemp/scatter_json.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::size_t largest_map = std::size_t{4} << 30U; // bytes
constexpr std::size_t most_shown = 4000;                   // points; more would hide each other
constexpr int curve_points = 1000;

Result<ScatterMap> read_map(UserFiles& files, const std::string& path) {
    const FileReading file = files.read(path, largest_map);
    if (file.outcome == FileReading::Outcome::missing)
        return ScatterMap();
    if (file.outcome != FileReading::Outcome::read)
        return failed(FailureCode::cannot_read, {path}, file.reason);
    auto map = read_scatter_json(file.bytes);
    if (!map)
        return failed(FailureCode::cannot_read, {path}, map.error());
    return *std::move(map);
}

// What there is of it decides, where it does not fail for want of something that more days bring.
bool lacks_points(const CompensationState& state) {
    if (!state.choice)
        return true;
    const auto& refused = state.choice->study.refused;
    return refused && (refused->code == FailureCode::compensation_without_history ||
                       refused->code == FailureCode::compensation_without_days ||
                       refused->code == FailureCode::compensation_without_range);
}

scatterEntry entry_in(Color color) {
    scatterEntry entry;
    entry.color = {color.red, color.green, color.blue, 1};
    return entry;
}

} // namespace

CompensationState read_compensation(const CompensationPlaces& places, UserFiles& files, FollowedFiles& logs) {
    CompensationState state;
    state.installed = installed_compensation(places.configuration);
    if (auto map = places.map.empty() ? Result<ScatterMap>() : read_map(files, places.map))
        state.map = *std::move(map);
    else
        state.unread = std::move(map).error();
    state.choice = choose_compensation(samples_in_map(state.map), state.installed);
    if (!state.installed || state.installed->log_folder.empty())
        return state;
    auto noted = read_noted_compensation(logs, state.installed->log_folder);
    if (noted)
        state.gain = gain_since(*std::move(noted), state.installed->since);
    else
        state.unread = std::move(noted).error();
    return state;
}

CompensationAdvice advice_of(const CompensationState& state) {
    if (state.installed) {
        if (!state.gain || !state.gain->day)
            return CompensationAdvice::wait;
        return state.gain->is_worse() ? CompensationAdvice::take_back : CompensationAdvice::keep;
    }
    if (lacks_points(state))
        return CompensationAdvice::gather;
    return state.choice->study.refused ? CompensationAdvice::leave : CompensationAdvice::install;
}

ScatterMap picture_of(const CompensationChoice& choice) {
    ScatterMap picture;
    auto& measured = picture[picture_measured] = entry_in({0.12, 0.45, 0.85});
    const std::size_t step = choice.samples.size() / most_shown + 1;
    for (std::size_t at = 0; at < choice.samples.size(); at += step)
        measured.points.append({choice.samples[at].temperature, choice.samples[at].frequency});
    if (!choice.study.compensation)
        return picture;
    const Compensation& found = *choice.study.compensation;
    auto& compensated = picture[picture_compensated] = entry_in({0.1, 0.6, 0.25});
    for (std::size_t at = 0; at < choice.samples.size(); at += step) {
        const auto& [time, temperature, frequency] = choice.samples[at];
        compensated.points.append({temperature, frequency + found.compensation_at(temperature)});
    }
    auto& curve = picture[picture_curve] = entry_in({0.85, 0.2, 0.15});
    for (int at = 0; at <= curve_points; ++at) {
        const double temperature = found.coldest + (found.warmest - found.coldest) * at / curve_points;
        curve.points.append({temperature, found.curve.at(temperature)});
    }
    return picture;
}

} // namespace tickervantage
