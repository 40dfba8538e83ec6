#include "base/failure_codes.h"
#include "chrony/data/reports.h"
#include "studies/freqtemp/json_value_builder.h"
#include "studies/freqtemp/scatter_json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <utility>

namespace tickervantage {
namespace {

using Json = nlohmann::ordered_json;

// What the parser is in, from the outside inwards.
enum class Level : unsigned char { document, map, entry, color, fit, point, coefficients, points };

constexpr std::size_t UNKNOWN = 99;

enum EntryMember : std::size_t { selected, color, quadRegression, points };
enum FitMember : std::size_t { r, y_stddev, x_min, x_max, coefficients, valid };

constexpr std::array<std::string_view, 4> ENTRY_MEMBERS{"selected", "color", "quadRegression", "points"};
constexpr std::array<std::string_view, 4> COLOR_MEMBERS{"r", "g", "b", "a"};
constexpr std::array<std::string_view, 6> FIT_MEMBERS{"r", "y_stddev", "x_min", "x_max", "coefficients", "valid"};
constexpr std::array<std::string_view, 3> POINT_MEMBERS{"temperature", "frequency", "time"};
constexpr std::size_t POINT_TIME = 2; // which earlier versions did not write

std::span<const std::string_view> members_of(Level level) {
    switch (level) {
    case Level::entry:
        return ENTRY_MEMBERS;
    case Level::color:
        return COLOR_MEMBERS;
    case Level::fit:
        return FIT_MEMBERS;
    case Level::point:
        return POINT_MEMBERS;
    default:
        return {};
    }
}

// Takes the parser's events as they come, so that a million points become no tree of values first.
class MapReader final : public nlohmann::json_sax<Json> {
public:
    ScatterMap map;
    Failure failure; // why an event was refused

    bool null() override { return m_is_unknown ? finish(m_builder.value(nullptr)) : refuse(); }
    bool boolean(bool value) override;
    bool number_integer(number_integer_t value) override {
        return m_is_unknown ? finish(m_builder.value(value)) : number(static_cast<double>(value));
    }
    bool number_unsigned(number_unsigned_t value) override {
        return m_is_unknown ? finish(m_builder.value(value)) : number(static_cast<double>(value));
    }
    bool number_float(number_float_t value, const string_t&) override {
        return m_is_unknown ? finish(m_builder.value(value)) : number(value);
    }
    bool string(string_t& value) override { return m_is_unknown ? finish(m_builder.value(value)) : moment(value); }
    bool binary(binary_t&) override { return refuse(); }
    bool start_object(std::size_t) override;
    bool end_object() override;
    bool key(string_t& name) override;
    bool start_array(std::size_t) override;
    bool end_array() override;
    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override {
        failure = {.code = FailureCode::no_json_at, .arguments = {std::to_string(position)}};
        return false;
    }

private:
    bool number(double value);
    bool moment(std::string_view text);
    bool refuse();
    bool finish(bool is_complete);
    bool enter(Level level);
    bool leave(Level level);
    void keep_unknown(Level level);
    [[nodiscard]] Json& unknown() { return m_unknown[static_cast<std::size_t>(m_level)]; }
    [[nodiscard]] unsigned& seen() { return m_seen[static_cast<std::size_t>(m_level)]; }

    Level m_level = Level::document;
    std::size_t m_member = UNKNOWN; // of the object that the parser is in
    std::string m_name;             // of the member, where it is not known
    std::string m_sensor;
    scatterEntry* m_entry = nullptr;
    std::array<double, 2> m_point{};
    std::optional<std::int64_t> m_point_time;
    std::map<std::uint64_t, std::string> m_point_unknown;

    // By level: bits of the members that came, and those that are not known.
    std::array<unsigned, 8> m_seen{};
    std::array<Json, 8> m_unknown;

    JsonValueBuilder m_builder;
    bool m_is_unknown = false; // events belong to a value that is kept as it is
};

bool MapReader::refuse() {
    failure = m_level <= Level::map ? Failure{.code = FailureCode::is_no_scatter_map}
                                    : Failure{.code = FailureCode::scatter_entry_unfit, .arguments = {m_sensor}};
    return false;
}

bool MapReader::boolean(bool value) {
    if (m_is_unknown)
        return finish(m_builder.value(value));
    if (m_level == Level::entry && m_member == selected)
        m_entry->selected = value;
    else if (m_level == Level::fit && m_member == valid)
        m_entry->quadRegression->valid = value;
    else
        return refuse();
    return true;
}

bool MapReader::moment(std::string_view text) {
    const auto seconds = m_level == Level::point && m_member == POINT_TIME ? moment_in(text) : std::nullopt;
    if (!seconds)
        return refuse();
    m_point_time = static_cast<std::int64_t>(std::floor(*seconds));
    return true;
}

bool MapReader::number(double value) {
    if (m_level == Level::point && m_member < POINT_TIME) {
        m_point[m_member] = value;
        return true;
    }
    if (m_level == Level::coefficients) {
        m_entry->quadRegression->coefficients.push_back(value);
        return true;
    }
    if (m_level == Level::color) {
        auto& all = m_entry->color;
        *std::array{&all.r, &all.g, &all.b, &all.a}[m_member] = value;
        return true;
    }
    if (m_level != Level::fit || m_member > x_max)
        return refuse();
    auto& fit = *m_entry->quadRegression;
    *std::array{&fit.r, &fit.y_stddev, &fit.x_min, &fit.x_max}[m_member] = value;
    return true;
}

bool MapReader::enter(Level level) {
    m_level = level;
    seen() = 0;
    return true;
}

bool MapReader::start_object(std::size_t) {
    if (m_is_unknown)
        return m_builder.begin(Json::object()) || refuse();
    switch (m_level) {
    case Level::document:
        return enter(Level::map);
    case Level::map:
        m_entry = &(map[m_sensor] = scatterEntry());
        return enter(Level::entry);
    case Level::points:
        return enter(Level::point);
    case Level::entry:
        if (m_member == color || m_member == quadRegression)
            return enter(m_member == color ? Level::color : Level::fit);
        break;
    default:
        break;
    }
    return refuse();
}

bool MapReader::key(string_t& name) {
    if (m_is_unknown) {
        m_builder.key(name);
        return true;
    }
    if (m_level == Level::map) {
        m_sensor = name;
        return true;
    }
    const auto members = members_of(m_level);
    const auto found = std::ranges::find(members, std::string_view(name));
    if (found == members.end()) {
        m_is_unknown = true;
        m_name = name;
        return true;
    }
    m_member = static_cast<std::size_t>(found - members.begin());
    seen() |= 1U << m_member;
    return true;
}

// The value of an unknown member is there.
bool MapReader::finish(bool is_complete) {
    if (!is_complete)
        return true;
    m_is_unknown = false;
    unknown()[m_name] = m_builder.take();
    return true;
}

void MapReader::keep_unknown(Level level) {
    if (unknown().empty())
        return;
    std::string text = std::exchange(unknown(), Json()).dump();
    if (level == Level::entry)
        m_entry->unknown.entry = std::move(text);
    else if (level == Level::color)
        m_entry->unknown.color = std::move(text);
    else if (level == Level::fit)
        m_entry->unknown.quadRegression = std::move(text);
    else
        m_point_unknown[m_entry->points.size()] = std::move(text);
}

bool MapReader::leave(Level level) {
    m_level = level;
    return true;
}

bool MapReader::end_object() {
    if (m_is_unknown)
        return finish(m_builder.end());
    if (m_level == Level::map)
        return leave(Level::document);
    if (m_level == Level::point)
        seen() |= 1U << POINT_TIME;
    if (seen() != (1U << members_of(m_level).size()) - 1)
        return refuse();
    keep_unknown(m_level);
    if (m_level == Level::point) {
        m_entry->points.append({m_point[0], m_point[1]}, std::exchange(m_point_time, std::nullopt));
        return leave(Level::points);
    }
    return leave(m_level == Level::entry ? Level::map : Level::entry);
}

bool MapReader::start_array(std::size_t) {
    if (m_is_unknown)
        return m_builder.begin(Json::array()) || refuse();
    if (m_level == Level::entry && m_member == points) {
        m_entry->points.clear(); // a member that comes twice counts as it came last
        return enter(Level::points);
    }
    if (m_level != Level::fit || m_member != coefficients)
        return refuse();
    m_entry->quadRegression->coefficients.clear();
    return enter(Level::coefficients);
}

bool MapReader::end_array() {
    if (m_is_unknown)
        return finish(m_builder.end());
    if (m_level == Level::coefficients)
        return leave(Level::fit);
    m_entry->points.set_unknown(std::exchange(m_point_unknown, {}));
    return leave(Level::entry);
}

} // namespace

Result<ScatterMap> read_scatter_json(std::string_view text) {
    MapReader reader;
    try {
        if (Json::sax_parse(text, &reader))
            return std::move(reader.map);
        return tl::unexpected(std::move(reader.failure));
    } catch (const std::exception& error) { // memory, for one
        return failed(FailureCode::cannot_be_taken_in, {}, said_by_others(error.what()));
    }
}

} // namespace tickervantage
