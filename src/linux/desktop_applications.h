// Other applications of the desktop, found by the id of their desktop file, and started.
//
// Source: the desktop entry rules, version 1.5 (freedesktop.org).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct DesktopApplication {
    std::string desktop_file;
    std::string name;              // as written, not translated
    std::string icon;              // a name of the icon theme, or a path; may be empty
    std::vector<std::string> argv; // never empty; field codes for files are gone
};

// Looks for `<id>.desktop` in the folders (joined by ":", the first that has the file decides). None when it is absent,
// hidden, no application, damaged, larger than 256 KiB, or its TryExec program is missing. Reads a small file or two:
// fit for the main thread.
[[nodiscard]] std::optional<DesktopApplication> find_application(const std::string& folders, const std::string& id);

// The same for the text of a desktop file.
[[nodiscard]] std::optional<DesktopApplication> parse_desktop_file(std::string_view text, const std::string& path);

// Starts the program in a session of its own: it outlives us, leaves no zombie, and holds none of our files open. The
// private temporary folder is not passed on, since it goes when we do. argv[0] may be a name on the search path.
// -1 with one sentence when it cannot be started. From any thread.
[[nodiscard]] int launch(const std::vector<std::string>& argv, std::string& sentence);

} // namespace tickervantage
