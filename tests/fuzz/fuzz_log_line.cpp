// Any bytes as a sentence of the log: one line of whole characters comes out, whatever came in, and never a long one.
#include "base/utf8.h"
#include "fuzz/require.h"
#include "linux/file_logger.h"

#include <algorithm>

FUZZED(text) {
    const auto line = log_line(std::chrono::system_clock::time_point{}, LogLevel::info, text);
    require(line.starts_with("1970-01-01T00:00:00Z info "));
    require(std::ranges::none_of(line, [](char one) { return static_cast<unsigned char>(one) < 0x20 || one == 0x7f; }));
    require(is_plain_utf8(line));
    constexpr std::size_t longest = 4 * 4096 + 100; // every byte as \xNN
    require(line.size() <= longest);
}
