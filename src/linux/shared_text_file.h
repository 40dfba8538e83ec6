// A shared text in a small file, replaced in one step under a lock.
//
// What somebody else saved is copied to "<path>.other-YYYYMMDD-HHMMSS" (local time) before it is replaced, so that at
// every moment both versions are on the disk. What is no text of ours at all is renamed as set_file_aside does.
#pragma once

#include "base/shared_text.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tickervantage {

class SharedTextFile : public SharedText {
public:
    // The folder is made before the first write.
    explicit SharedTextFile(std::string path, std::size_t limit = 4U << 20U);

    [[nodiscard]] FileReading read() override;
    [[nodiscard]] Result<std::string> replace(std::string_view text,
                                              const std::optional<std::string>& made_from) override;

private:
    [[nodiscard]] Result<std::string> keep_other(std::string_view text,
                                                 const std::optional<std::string>& made_from) const;

    std::string m_path;
    std::size_t m_limit;
    std::optional<std::string> m_written; // last, by this object
};

} // namespace tickervantage
