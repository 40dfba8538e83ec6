// Which paths the root helper works on: built in, and added to by the administrator.
//
// A rules file has one rule a line, a word and an absolute path: "tool", "chronyc", "chronyd", "chronywake",
// "configuration", "log-folder" or "bundle"; "idle-seconds" takes a number. Blank lines and lines that start with "#"
// are passed over. Who reads the file makes sure that only root can have written it.
#pragma once

#include "base/failure.h"

#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// The users that chronyd may run as without further questions, and the only ones that the helper makes: whoever may
// have it run must not be able to fill the machine with accounts.
inline constexpr std::array<std::string_view, 3> daemon_users{"_chrony", "chrony", "ntp"};

struct HelperRules {
    // The application bundle that root holds: its programs are the ones that are run and installed.
    std::string bundle = "/usr/lib/tickervantage/Tickervantage.app";
    // Spellings of the support tool in a request; whatever the spelling, the bundle's own is run.
    std::vector<std::string> tools;
    std::vector<std::string> chronyc{"/usr/local/bin/chronyc", "/usr/bin/chronyc"};
    std::vector<std::string> chronyd{"/usr/local/sbin/chronyd", "/usr/sbin/chronyd", "/usr/bin/chronyd"};
    std::vector<std::string> chronywake{"/usr/local/bin/chronywake"};
    std::vector<std::string> configurations{"/etc/chrony.d/chrony.conf", "/etc/chrony/chrony.conf", "/etc/chrony.conf"};
    std::vector<std::string> log_folders{"/var/log/chrony", "/var/lib/chrony", "/run/chrony", "/var/run/chrony"};
    std::chrono::seconds idle{60};

    [[nodiscard]] std::string bundle_program(std::string_view name) const {
        return bundle + "/Contents/MacOS/" + std::string(name);
    }
    [[nodiscard]] std::string tool() const { return bundle_program("chronysupport"); }
};

// Adds a file's rules. At the first line that is none: a failure that names it; the rules are then untouched.
[[nodiscard]] Result<> add_rules(std::string_view text, HelperRules& rules);

// What may be installed where, and what its content is compared with.
enum class ItemKind : unsigned char { program, script, configuration, service_definition, compensation };

struct Item {
    ItemKind kind{};
    std::string name; // the program's or the script's name in the bundle, or the definition's file name
};

// False when nothing may be installed there.
[[nodiscard]] bool find_item(const HelperRules& rules, std::string_view destination, Item& item);

// An absolute path without empty, "." and ".." parts, except that a folder may end in a slash.
[[nodiscard]] bool is_plain_path(std::string_view path);

// The same path without repeated slashes and without one at its end.
[[nodiscard]] std::string without_spare_slashes(std::string_view path);

[[nodiscard]] bool holds_path(const std::vector<std::string>& paths, std::string_view path);

} // namespace tickervantage
