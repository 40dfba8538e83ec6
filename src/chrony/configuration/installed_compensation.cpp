#include "chrony/configuration/installed_compensation.h"

#include "chrony/configuration/compensation_text.h"
#include "chrony/configuration/configuration.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tickervantage {
namespace {

// Files of root's, which nobody else makes long; what cannot be read is empty.
std::string text_of(const std::string& path) {
    constexpr std::uintmax_t largest = std::uintmax_t{1} << 20U;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > largest)
        return {};
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

std::optional<SensorPlace> installed_sensor(const std::string& root) {
    for (const std::string& path : sensor_drop_in_paths())
        if (auto sensor = sensor_in_drop_in(text_of(root + path)))
            return sensor;
    return std::nullopt;
}

std::optional<InstalledCompensation> installed_compensation(const std::string& configuration, const std::string& root) {
    const std::string text = text_of(configuration);
    if (!has_compensation(text))
        return std::nullopt;
    const std::string path = root + compensation_points_path;
    InstalledCompensation found{.points =
                                    read_tempcomp_points(text_of(path), path).value_or(std::vector<TempcompPoint>()),
                                .sensor = installed_sensor(root),
                                .log_folder = directive_in(text, "logdir")};
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0)
        found.since = static_cast<double>(status.st_mtim.tv_sec);
    return found;
}

} // namespace tickervantage
