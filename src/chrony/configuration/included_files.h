// The files that a chrony.conf takes in: by include, confdir and sourcedir. What they include in turn is not looked at.
// Waits for the disk: not on the main thread. Source: chrony.conf(5) of chrony 4.3.
#pragma once

#include "chrony/configuration/configuration_warnings.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct IncludedFile {
    std::string path;
    bool is_read_only = false; // for the user of this program
};

inline constexpr std::size_t most_included_files = 200;

// In the order in which chronyd reads them, each once. Of files of one name in several folders of a line chronyd takes
// the first. Paths that are not absolute count from the root folder, where chronyd works.
[[nodiscard]] std::vector<IncludedFile> included_files(std::string_view configuration);

// Whether the configuration takes in the file of that path, whatever links lie between.
[[nodiscard]] bool is_included(std::string_view configuration, const std::string& path);

// Files of a sourcedir hold sources only; other lines are passed over without a word.
[[nodiscard]] bool is_source_file(std::string_view path);
[[nodiscard]] std::vector<ConfigurationWarning> source_file_warnings(std::string_view text);

} // namespace tickervantage
