// A chrony.conf as a map from directive to the rest of its line: for looking up folders and names, never for writing.
// Source: chrony.conf(5).
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

class Configuration {
public:
    // Reads the file. One that cannot be read, is no text in UTF-8, or is larger than 16 MiB leaves the map as it is.
    void load(const std::string& path);

    // Adds the directives of a text. A directive that comes again replaces its value; one without a value is passed
    // over, as are lines that start with "#". A comment behind a value is part of it.
    void read(std::string_view text);

    [[nodiscard]] std::optional<std::string> value(const std::string& directive) const;
    [[nodiscard]] const std::map<std::string, std::string>& all() const { return m_config; }

private:
    std::map<std::string, std::string> m_config;
};

// The value of one directive in a text; empty: none.
[[nodiscard]] std::string directive_in(std::string_view text, const std::string& directive);

} // namespace tickervantage
