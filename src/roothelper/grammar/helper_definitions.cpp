#include "roothelper/grammar/helper_definitions.h"

#include <algorithm>
#include <array>

namespace tickervantage {
namespace {

// The rotation of logs is known by another name as a property list than as a unit.
constexpr std::array<std::string_view, 4> installed_labels{"org.chrony-project.chronyd", "org.chrony-project.chronyc",
                                                           "org.chrony-project.logrotate", "net.brisklane.chronywake"};
constexpr std::array<std::string_view, 2> old_labels{"org.tuxfamily.chronyd", "org.tuxfamily.chronyc"};
constexpr std::string_view gps_label = "net.brisklane.gpsdstart";

constexpr std::string_view property_lists = "/Library/LaunchDaemons/";
constexpr std::string_view units = "/etc/systemd/system/";

// The path without its folder and ending; empty where it has not just these.
std::string_view label_in(std::string_view path, std::string_view folder, std::string_view ending) {
    if (path.size() <= folder.size() + ending.size() || !path.starts_with(folder) || !path.ends_with(ending))
        return {};
    return path.substr(folder.size(), path.size() - folder.size() - ending.size());
}

bool is_installed(std::string_view label) {
    return std::ranges::find(installed_labels, label) != installed_labels.end();
}

bool is_old(std::string_view label) {
    return std::ranges::find(old_labels, label) != old_labels.end();
}

std::vector<std::string> all_installable_definitions() {
    std::vector<std::string> files;
    for (const auto label : installed_labels) {
        files.push_back(std::string(property_lists) + std::string(label) + ".plist");
        files.push_back(std::string(units) + std::string(label) + ".service");
        files.push_back(std::string(units) + std::string(label) + ".timer");
    }
    return files;
}

} // namespace

const std::vector<std::string>& installable_definitions() {
    static const std::vector<std::string> files = all_installable_definitions();
    return files;
}

bool is_known_label(std::string_view label) {
    return is_installed(label) || is_old(label) || label == gps_label;
}

bool is_removable_definition(std::string_view path) {
    for (const auto label :
         {label_in(path, property_lists, ".plist"), label_in(path, units, ".service"), label_in(path, units, ".timer")})
        if (is_installed(label) || is_old(label))
            return true;
    return false;
}

bool is_known_property_list(std::string_view path) {
    return is_known_label(label_in(path, property_lists, ".plist"));
}

bool is_known_unit(std::string_view unit) {
    return is_known_label(label_in(unit, "", ".service")) || is_known_label(label_in(unit, "", ".timer"));
}

bool is_distribution_unit(std::string_view unit) {
    return unit == "chrony.service" || unit == "chronyd.service";
}

} // namespace tickervantage
