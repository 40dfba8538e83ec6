#include "linux/draft.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace tickervantage {

std::string beside(const std::string& path, const std::string& ending) {
    const std::filesystem::path whole(path);
    return (whole.parent_path() / ("." + whole.filename().string() + ending)).string();
}

Draft::Draft(int folder, std::string path)
    : m_folder(folder), m_path(std::move(path)), m_name(beside(m_path, ".new")) {}

Draft::~Draft() {
    if (m_file.valid())
        ::unlinkat(m_folder, m_name.c_str(), 0);
}

int Draft::open(mode_t mode) {
    ::unlinkat(m_folder, m_name.c_str(), 0);
    m_file.reset(::openat(m_folder, m_name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    return m_file.valid() ? 0 : -1;
}

int Draft::put_in_place() {
    if (::renameat(m_folder, m_name.c_str(), m_folder, m_path.c_str()) != 0)
        return -1;
    m_file.reset();
    return 0;
}

int flush_folder(int folder) {
    const FileDescriptor readable(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return readable.valid() && (::fsync(readable.get()) == 0 || errno == EINVAL) ? 0 : -1; // EINVAL: no such thing here
}

} // namespace tickervantage
