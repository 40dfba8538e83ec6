#include "studies/freqtemp/scatter_csv.h"

#include "base/number_text.h"
#include "base/text_lines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t PIECE = 1U << 16U; // bytes handed over together

// Takes what lies before the separator off the text; all of it when there is none.
std::string_view take(std::string_view& text, char separator) {
    const auto end = std::min(text.find(separator), text.size());
    const auto part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

// What is left of a line is the name, in quotes where it has a comma or a quote in it.
std::string unquoted(std::string_view field) {
    if (field.size() < 2 || field.front() != '"' || field.back() != '"')
        return std::string(field);
    std::string name;
    for (std::size_t i = 1; i + 1 < field.size(); ++i) {
        name += field[i];
        if (field[i] == '"' && field[i + 1] == '"')
            ++i; // a quote is written twice
    }
    return name;
}

std::string quoted(const std::string& name) {
    if (name.find_first_of(",\"") == std::string::npos)
        return name;
    std::string field = "\"";
    for (const char one : name)
        field += one == '"' ? std::string("\"\"") : std::string(1, one);
    return field + '"';
}

std::optional<freqPoint> take_point(std::string_view& line) {
    const auto temperature = number_from_text<double>(trimmed(take(line, ',')));
    const auto frequency = number_from_text<double>(trimmed(take(line, ',')));
    if (!temperature || !frequency)
        return std::nullopt;
    return freqPoint{*temperature, *frequency};
}

void append(std::string& text, double value) {
    std::array<char, 32> digits;
    text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

} // namespace

int read_scatter_csv(std::string_view text, const std::string& sensor, ScatterMap& map, CsvDamage& damage) {
    ScatterMap found;
    bool has_times = false;
    for (std::size_t number = 1; !text.empty(); ++number) {
        std::string_view line = trimmed(take(text, '\n'));
        if (line.empty())
            continue;
        if (const auto point = take_point(line)) {
            if (has_times)
                take(line, ',');
            const auto name = trimmed(line);
            found[name.empty() ? sensor : unquoted(name)].points.append(*point);
        } else if (number == 1) { // it may name the columns, of which two are taken
            has_times = trimmed(take(line, ',')) == "time";
        } else {
            damage.first = damage.lines++ == 0 ? number : damage.first;
        }
    }
    if (found.empty())
        return -1;
    map = std::move(found);
    return 0;
}

int write_scatter_csv(const ScatterMap& map, const TextSink& sink) {
    std::string text = "temperature,frequency,sensor\n";
    for (const auto& [name, entry] : map)
        for (const auto& part : entry.points.spans())
            for (std::size_t i = 0; i < part.x.size(); ++i) {
                append(text, part.x[i]);
                text += ',';
                append(text, part.y[i]);
                text += ',' + quoted(name) + '\n';
                if (text.size() < PIECE)
                    continue;
                if (sink(text) != 0)
                    return -1;
                text.clear();
            }
    return sink(text);
}

} // namespace tickervantage
