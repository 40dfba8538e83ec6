#include "chrony/configuration/included_files.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/configuration/directives.h"

#include <glob.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

std::string from_root(std::string_view path) {
    return path.starts_with('/') ? std::string(path) : "/" + std::string(path);
}

// Sorted, as chronyd reads them.
std::vector<std::string> matches(const std::string& pattern) {
    glob_t found{};
    std::vector<std::string> paths;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only where a tilde stands for somebody's home
    if (glob(pattern.c_str(), GLOB_ERR, nullptr, &found) == 0)
        for (std::size_t i = 0; i < found.gl_pathc && i < most_included_files; ++i)
            paths.emplace_back(found.gl_pathv[i]);
    globfree(&found);
    return paths;
}

std::vector<std::string> files_in(const std::vector<std::string_view>& folders, std::string_view suffix) {
    std::map<std::string, std::string> by_name;
    for (const auto folder : folders) {
        std::error_code error; // of a folder that is not there, or that we may not read
        for (fs::directory_iterator entry(from_root(folder), error), end; !error && entry != end;
             entry.increment(error))
            if (const auto name = entry->path().filename().string(); name.ends_with(suffix))
                by_name.emplace(name, entry->path().string());
    }
    std::vector<std::string> paths;
    paths.reserve(by_name.size());
    for (const auto& [name, path] : by_name)
        paths.push_back(path);
    return paths;
}

// A saved file takes the place of the one that is there.
bool is_read_only(const std::string& path) {
    return access(path.c_str(), W_OK) != 0 || access(fs::path(path).parent_path().c_str(), W_OK) != 0;
}

std::string_view name_in(std::string_view line) {
    const LineParts parts = parts_of_line(line);
    return parts.kind == LineKind::directive ? parts.directive->name : std::string_view();
}

std::vector<std::string> paths_in(std::string_view line) {
    const auto name = name_in(line);
    auto arguments = words(line);
    if (arguments.size() < 2)
        return {};
    arguments.erase(arguments.begin());
    if (name == "include")
        return matches(from_root(arguments.front()));
    if (name == "confdir" || name == "sourcedir")
        return files_in(arguments, name == "confdir" ? ".conf" : ".sources");
    return {};
}

} // namespace

std::vector<IncludedFile> included_files(std::string_view configuration) {
    std::vector<IncludedFile> files;
    for (const auto line : non_empty_lines(configuration))
        for (auto& path : paths_in(line))
            if (files.size() < most_included_files &&
                std::ranges::find(files, path, &IncludedFile::path) == files.end()) {
                const bool read_only = is_read_only(path);
                files.push_back({std::move(path), read_only});
            }
    return files;
}

bool is_included(std::string_view configuration, const std::string& path) {
    const auto files = included_files(configuration);
    return std::ranges::any_of(files, [&path](const auto& file) {
        std::error_code error;
        return file.path == path || (fs::equivalent(file.path, path, error) && !error);
    });
}

bool is_source_file(std::string_view path) {
    return path.ends_with(".sources");
}

std::vector<ConfigurationWarning> source_file_warnings(std::string_view text) {
    std::vector<ConfigurationWarning> warnings;
    std::size_t number = 0;
    for (std::size_t start = 0; start < text.size() && warnings.size() < most_warnings;) {
        const auto end = std::min(text.find('\n', start), text.size());
        const auto name = name_in(text.substr(start, end - start));
        ++number;
        if (!name.empty() && name != "server" && name != "pool" && name != "peer")
            warnings.push_back(
                {number, {.code = FailureCode::directive_out_of_place, .arguments = {std::string(name)}}});
        start = end + 1;
    }
    return warnings;
}

} // namespace tickervantage
