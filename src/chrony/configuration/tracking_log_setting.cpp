#include "chrony/configuration/tracking_log_setting.h"

#include "base/text_lines.h"
#include "chrony/configuration/directives.h"

#include <glob.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string_view>
#include <vector>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

constexpr int deepest = 10; // files that include each other; chronyd itself stops there
constexpr std::uintmax_t largest = 16U << 20U;

std::vector<std::string> matches(const std::string& pattern) {
    glob_t found{};
    std::vector<std::string> paths;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only where a tilde stands for somebody's home
    if (::glob(pattern.c_str(), GLOB_ERR | GLOB_NOMAGIC, nullptr, &found) == 0)
        paths.assign(found.gl_pathv, found.gl_pathv + found.gl_pathc);
    ::globfree(&found);
    return paths;
}

// Of files with the same name in several folders only the first counts.
int files_of(const std::vector<std::string_view>& folders, std::map<std::string, std::string>& files) {
    for (const auto folder : folders) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
            if (entry->path().extension() == ".conf")
                files.emplace(entry->path().filename().string(), entry->path().string());
        if (error && error != std::errc::no_such_file_or_directory)
            return -1;
    }
    return 0;
}

class Reader {
public:
    void read(const std::string& path, int depth) {
        std::error_code error;
        const bool readable =
            depth <= deepest && fs::is_regular_file(path, error) && fs::file_size(path, error) <= largest && !error;
        std::ifstream file;
        if (readable)
            file.open(path, std::ios::binary);
        if (!file.is_open()) {
            is_whole = false;
            return;
        }
        const std::string text(std::istreambuf_iterator<char>(file), {});
        for (const auto line : non_empty_lines(text))
            take(line, depth);
    }

    bool logs_tracking = false;
    bool has_folder = false;
    bool is_whole = true; // everything could be read

private:
    void take(std::string_view line, int depth) {
        const LineParts parts = parts_of_line(line);
        if (parts.kind != LineKind::directive)
            return;
        auto arguments = words(line);
        arguments.erase(arguments.begin());
        const auto name = parts.directive->name;
        if (name == "log")
            logs_tracking = logs_tracking || std::ranges::find(arguments, "tracking") != arguments.end();
        else if (name == "logdir")
            has_folder = has_folder || !arguments.empty();
        else if (name == "include" && !arguments.empty())
            for (const auto& path : matches(std::string(arguments.front())))
                read(path, depth + 1);
        else if (name == "confdir")
            read_folders(arguments, depth);
    }

    void read_folders(const std::vector<std::string_view>& folders, int depth) {
        std::map<std::string, std::string> files;
        is_whole = files_of(folders, files) == 0 && is_whole;
        for (const auto& [name, path] : files)
            read(path, depth + 1);
    }
};

} // namespace

TrackingLogSetting tracking_log_setting(const std::string& configuration) {
    Reader reader;
    reader.read(configuration, 0);
    if (reader.logs_tracking && reader.has_folder)
        return TrackingLogSetting::written;
    if (!reader.is_whole)
        return TrackingLogSetting::unknown;
    return reader.logs_tracking ? TrackingLogSetting::no_folder : TrackingLogSetting::not_asked_for;
}

} // namespace tickervantage
