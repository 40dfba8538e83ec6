#include "roothelper/service/staged_files.h"

#include "roothelper/service/trusted_files.h"

#include <dirent.h>
#include <unistd.h>

#include <memory>

namespace tickervantage {
namespace {

constexpr std::string_view prefix = "item-";

} // namespace

std::string stage_file(const std::string& folder, std::string_view bytes) {
    static unsigned count = 0;
    auto path = folder + '/' + std::string(prefix) + std::to_string(++count);
    if (write_new_file(path, bytes, 0644) == 0)
        return path;
    ::unlink(path.c_str()); // half a file must not be installed
    return {};
}

void remove_staged_files(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.c_str()), ::closedir);
    if (!listing)
        return;
    while (const auto* entry = ::readdir(listing.get())) // NOLINT(concurrency-mt-unsafe): the helper has one thread
        if (std::string_view(entry->d_name).starts_with(prefix))
            ::unlinkat(::dirfd(listing.get()), entry->d_name, 0);
}

} // namespace tickervantage
