// JSON as every command prints it.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace tickervantage {

using Json = nlohmann::ordered_json;

// With a line feed behind it; all in one line with an indent of -1. Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] inline std::string json_text(const Json& json, int indent = 2) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace tickervantage
