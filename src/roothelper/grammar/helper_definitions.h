// The service definitions that the root helper knows, by label: which it installs, which it only removes or restarts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

inline constexpr std::string_view rotation_script_name = "chronylogrotate.sh";

// Files that may be installed and removed, in both forms.
[[nodiscard]] const std::vector<std::string>& installable_definitions();

// Files that may be removed: those above and those of older installations.
[[nodiscard]] bool is_removable_definition(std::string_view path);

// Property lists and units that may be started and stopped: those above and the GPS daemon's.
[[nodiscard]] bool is_known_property_list(std::string_view path);
[[nodiscard]] bool is_known_unit(std::string_view unit);
[[nodiscard]] bool is_known_label(std::string_view label);

// The distribution's own chrony, which may be started and stopped, but is enabled and disabled by its administrator.
[[nodiscard]] bool is_distribution_unit(std::string_view unit);

} // namespace tickervantage
