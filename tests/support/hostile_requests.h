// Requests that the root helper must refuse whoever sends them, with whatever authorisation: the lines of
// tests/logic/kept/refusals.txt that are not indented.
#pragma once

#include <string>

namespace tickervantage::testing {

// Written TOOL is a spelling of the support tool that is admitted; HOST and LONG are as long as their names say,
// "\\x0a" is a byte and "\\x" none.
inline std::string request_in(std::string line, const std::string& tool) {
    for (const auto& [name, text] :
         {std::pair(std::string("TOOL"), tool), {"HOST", std::string(254, 'h')}, {"LONG", std::string(5000, 'a')}})
        for (auto at = line.find(name); at != std::string::npos; at = line.find(name, at + text.size()))
            line.replace(at, name.size(), text);
    for (auto at = line.find("\\x"); at != std::string::npos; at = line.find("\\x", at + 1)) {
        const std::string digits = line.substr(at + 2, 2);
        line.replace(at, 4, digits.empty() ? "" : std::string(1, static_cast<char>(std::stoi(digits, nullptr, 16))));
    }
    return line;
}

} // namespace tickervantage::testing
