#include "roothelper/jobs/sensor_place.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "linux/small_file.h"

#include <filesystem>
#include <system_error>

namespace tickervantage {

Result<SensorPlace> place_of_sensor(const std::string& file, const std::string& name, const std::string& root) {
    namespace fs = std::filesystem;
    constexpr std::size_t largest_name = 4096; // bytes; the kernel gives no more than a page
    const auto none = failed(FailureCode::sensor_without_file, {name});
    std::error_code error;
    const fs::path chip = fs::canonical(fs::path(root + file).parent_path(), error);
    if (error || !chip.string().starts_with(root + "/sys/") || !chip.filename().string().starts_with("hwmon"))
        return none;
    const SensorPlace place{.device = chip.parent_path().string().substr(root.size()),
                            .chip = std::string(trimmed(read_small_file(chip / "name", largest_name).bytes)),
                            .input = fs::path(file).filename().string()};
    return fs::exists(chip / place.input, error) && is_plain_sensor(place) ? Result<SensorPlace>(place) : none;
}

} // namespace tickervantage
