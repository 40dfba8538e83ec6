// Followed files of the file system. What begins like a gzip file is read as the text that it holds.
#pragma once

#include "base/followed_file.h"
#include "linux/file_descriptor.h"

#include <zlib.h>

namespace tickervantage {

// The text in a gzip file, read in pieces: memory stays small whatever the text's length.
//
// Reading goes forward; a place that lies behind is reached by starting over. Its end is kept, because a follower asks
// for the last line before the first. Source: zlib.h, gzread.
class GzFile : public FollowedFile {
public:
    explicit GzFile(FileDescriptor fd);
    ~GzFile() override;
    GzFile(const GzFile&) = delete;
    GzFile& operator=(const GzFile&) = delete;

    [[nodiscard]] int length(const GoOn& go_on, std::uint64_t& bytes, std::optional<Failure>& reason) override;
    [[nodiscard]] int read(std::uint64_t offset, std::span<char> buffer, std::size_t& count,
                           std::optional<Failure>& reason) override;

private:
    [[nodiscard]] int measure(const GoOn& go_on);
    [[nodiscard]] int start_over();
    void keep(std::span<const char> read);

    FileDescriptor m_fd;
    gzFile m_stream = nullptr;
    std::uint64_t m_at = 0;         // where the stream stands
    std::uint64_t m_compressed = 0; // the size of the file when it was measured; 0: it was not
    std::uint64_t m_length = 0;
    std::optional<Failure> m_damage; // of the file behind m_length
    std::string m_end;               // the last bytes of the text
};

class PosixFollowedFiles : public FollowedFiles {
public:
    [[nodiscard]] Found status(const std::string& name, FileStatus& status, std::optional<Failure>& reason) override;
    [[nodiscard]] int open(const std::string& name, std::unique_ptr<FollowedFile>& file, FileStatus& status,
                           std::optional<Failure>& reason) override;
    [[nodiscard]] std::optional<std::vector<std::string>> names_in(const std::string& folder) override;
};

} // namespace tickervantage
