#include "studies/freqtemp/scatter_json.h"

#include "base/local_clock.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <cmath>

namespace tickervantage {
namespace {

constexpr std::size_t PIECE = 1U << 16U; // bytes handed over together
constexpr std::array<char, 16> BLANKS{' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};

// Writes objects and arrays with one member a line, two blanks for every level. Once the sink has refused a piece
// nothing more is handed over.
class JsonWriter {
public:
    explicit JsonWriter(const TextSink& sink) : m_sink(sink) { m_text.reserve(PIECE + 4096); }

    void begin(char bracket) {
        m_text += bracket;
        m_depth += 2;
        m_is_first = true;
    }
    void end(char bracket) {
        m_depth -= 2;
        if (!m_is_first)
            new_line();
        m_text += bracket;
        m_is_first = false;
    }
    // Before every member of an object and every element of an array.
    void next() {
        if (!m_is_first)
            m_text += ',';
        m_is_first = false;
        if (m_text.size() >= PIECE)
            hand_over();
        new_line();
    }
    void key(std::string_view quoted) {
        next();
        m_text += quoted;
        m_text += ": ";
    }
    void number(double value) {
        std::array<char, 32> digits;
        const double finite = std::isfinite(value) ? value : 0; // JSON has nothing else
        char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), finite).ptr;
        m_text.append(digits.data(), end);
    }
    void text(std::string_view quoted) { m_text += quoted; }
    void boolean(bool value) { m_text += value ? "true" : "false"; }
    void member(std::string_view quoted, double value) {
        key(quoted);
        number(value);
    }

    // The members in the text of an object.
    void members(const std::string& object) {
        if (object.size() <= 2)
            return;
        next();
        m_text.append(object, 1, object.size() - 2);
    }

    // 0 when every piece was taken.
    [[nodiscard]] int finish() {
        m_text += '\n';
        hand_over();
        return m_result;
    }

private:
    void new_line() {
        m_text += '\n';
        m_text.append(BLANKS.data(), m_depth);
    }
    void hand_over() {
        if (m_result == 0)
            m_result = m_sink(m_text);
        m_text.clear();
    }

    const TextSink& m_sink;
    std::string m_text;
    std::size_t m_depth = 0;
    bool m_is_first = true;
    int m_result = 0;
};

void write_color(JsonWriter& writer, const scatterEntry& entry) {
    writer.key("\"color\"");
    writer.begin('{');
    writer.member("\"r\"", entry.color.r);
    writer.member("\"g\"", entry.color.g);
    writer.member("\"b\"", entry.color.b);
    writer.member("\"a\"", entry.color.a);
    writer.members(entry.unknown.color);
    writer.end('}');
}

void write_fit(JsonWriter& writer, const scatterEntry& entry) {
    const auto& fit = *entry.quadRegression;
    writer.key("\"quadRegression\"");
    writer.begin('{');
    writer.member("\"r\"", fit.r);
    writer.member("\"y_stddev\"", fit.y_stddev);
    writer.member("\"x_min\"", fit.x_min);
    writer.member("\"x_max\"", fit.x_max);
    writer.key("\"coefficients\"");
    writer.begin('[');
    for (const double coefficient : fit.coefficients) {
        writer.next();
        writer.number(coefficient);
    }
    writer.end(']');
    writer.key("\"valid\"");
    writer.boolean(fit.valid);
    writer.members(entry.unknown.quadRegression);
    writer.end('}');
}

void write_points(JsonWriter& writer, const PointList& points) {
    std::size_t index = 0;
    writer.key("\"points\"");
    writer.begin('[');
    for (const auto& part : points.spans())
        for (std::size_t i = 0; i < part.x.size(); ++i, ++index) {
            writer.next();
            writer.begin('{');
            writer.member("\"temperature\"", part.x[i]);
            writer.member("\"frequency\"", part.y[i]);
            if (const auto time = points.time(index)) {
                writer.key("\"time\"");
                writer.text('"' + utc_stamp(*time) + '"');
            }
            if (const auto* unknown = points.unknown(index))
                writer.members(*unknown);
            writer.end('}');
        }
    writer.end(']');
}

void write_entry(JsonWriter& writer, const scatterEntry& entry) {
    writer.begin('{');
    writer.key("\"selected\"");
    writer.boolean(entry.selected);
    write_color(writer, entry);
    write_fit(writer, entry);
    write_points(writer, entry.points);
    writer.members(entry.unknown.entry);
    writer.end('}');
}

std::string quoted(const std::string& name) {
    using Json = nlohmann::json;
    return Json(name).dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace

int write_scatter_json(const ScatterMap& map, const TextSink& sink) {
    JsonWriter writer(sink);
    writer.begin('{');
    for (const auto& [name, entry] : map) {
        writer.key(quoted(name));
        write_entry(writer, entry);
    }
    writer.end('}');
    return writer.finish();
}

} // namespace tickervantage
