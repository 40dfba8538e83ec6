// A new file beside the one whose place it takes: whoever looks sees the old one or the new one, whole.
//
// Results are 0, or -1 with errno. The draft is taken away again unless it got into place.
#pragma once

#include "linux/file_descriptor.h"

#include <sys/types.h>

#include <string>

namespace tickervantage {

// ".NAMEENDING" in the folder of the path, which may be a mere name.
[[nodiscard]] std::string beside(const std::string& path, const std::string& ending);

inline constexpr mode_t PRIVATE_FILE = 0600;
inline constexpr mode_t ORDINARY_FILE = 0666; // as any program makes one

class Draft {
public:
    // `folder` is an open one, or AT_FDCWD; `path` is meant from there. The folder outlives the draft.
    Draft(int folder, std::string path);
    ~Draft();
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    // An empty file for reading and writing, of that mode less what the umask takes; usually only its owner may read
    // it. What a killed run left there goes.
    [[nodiscard]] int open(mode_t mode = PRIVATE_FILE);
    [[nodiscard]] int get() const { return m_file.get(); }
    [[nodiscard]] int put_in_place();

private:
    int m_folder;
    std::string m_path;
    std::string m_name;
    FileDescriptor m_file;
};

// Makes what happened in a folder last through a power cut.
[[nodiscard]] int flush_folder(int folder);

} // namespace tickervantage
