// A number of the logic, written as the windows' locale writes it. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tickervantage {

// "-12.5 ms" becomes "-12,5 ms", ".2" ",2", where a comma goes before the decimals; a text that is not one number with
// at most a unit behind it stays as it is.
[[nodiscard]] std::string with_local_point(std::string_view text);

} // namespace tickervantage
