// A chrony.conf as a document: from bytes to text and back, and saving it without losing anybody's work.
//
// The text has "\n" at the end of its lines. A file in which most lines end with "\r\n" gets them back when it is
// saved. Reading and saving wait for the disk: not on the main thread.
#pragma once

#include "base/user_files.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

inline constexpr std::size_t largest_document = 64U << 20U; // bytes

enum class LineEnds : unsigned char { unix_style, dos_style };

struct DocumentText {
    std::string text = {};
    LineEnds line_ends = LineEnds::unix_style;
    std::size_t stamp = 0; // tells these bytes of the file from others
};

[[nodiscard]] Result<DocumentText> decode_document(std::string bytes);
[[nodiscard]] Result<DocumentText> load_document(Files& files, const std::string& path);

struct SaveRequest {
    std::string path;
    std::string text;
    LineEnds line_ends = LineEnds::unix_style;
    std::optional<std::size_t> known; // the stamp of the file as last read or saved; none: overwrite whatever is there
};

struct SaveAnswer {
    enum class Outcome : unsigned char { saved, changed_meanwhile, failed };
    Outcome outcome = Outcome::failed;
    std::size_t stamp = 0; // with `saved`
    Failure failure = {};  // with `failed`
};

// A file that is a link is replaced where it lies; the link stays. With `changed_meanwhile` nothing was written: the
// file holds other bytes than those known, or has gone.
[[nodiscard]] SaveAnswer save_document(Files& files, const SaveRequest& request);

} // namespace tickervantage
