// Who is behind a user's number.
#pragma once

#include <cstdint>
#include <string>

namespace tickervantage {

// The number itself where there is no such user. Blocks while the user database is asked.
[[nodiscard]] std::string user_name(std::uint32_t user);

} // namespace tickervantage
