// A file's digest. Waits for the disk; any thread.
#pragma once

#include "base/failure.h"

#include <string>

namespace tickervantage {

// SHA-256 in hexadecimal, as sha256sum prints it.
[[nodiscard]] Result<std::string> sha256_of_file(const std::string& path);

} // namespace tickervantage
