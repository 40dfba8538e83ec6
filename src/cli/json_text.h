// JSON as every command prints it.
#pragma once

#include <nlohmann/json.hpp>

#include <initializer_list>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

namespace tickervantage {

using Json = nlohmann::ordered_json;

enum class DocumentForm : unsigned char { text, json, json_line };

// In the place of a value that there is none of, in texts.
inline const std::string not_known = "–";

template <typename Value>
[[nodiscard]] Json or_null(const std::optional<Value>& value) {
    return value ? Json(*value) : Json(nullptr);
}

// An object of a list's many: the library's own lists cost several times as much.
[[nodiscard]] inline Json object_of(std::initializer_list<std::pair<const char*, Json>> members) {
    Json::object_t object;
    object.reserve(members.size());
    for (const auto& [key, value] : members)
        object.push_back({key, value});
    return object;
}

// With a line feed behind it; all in one line with an indent of -1. Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] inline std::string json_text(const Json& json, int indent = 2) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace) + '\n';
}

inline void print_json(const Json& json, DocumentForm form, std::ostream& out) {
    out << json_text(json, form == DocumentForm::json_line ? -1 : 2);
}

} // namespace tickervantage
