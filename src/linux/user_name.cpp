#include "linux/user_name.h"

#include <pwd.h>

#include <array>

namespace tickervantage {

std::string user_name(std::uint32_t user) {
    std::array<char, 16384> texts{};
    passwd entry{};
    passwd* found = nullptr;
    (void)::getpwuid_r(user, &entry, texts.data(), texts.size(), &found); // an error finds nobody
    return found == nullptr ? std::to_string(user) : found->pw_name;
}

} // namespace tickervantage
