#include "roothelper/support/log_rotation.h"

#include "base/failure_codes.h"
#include "roothelper/support/one_line.h"

#include <fcntl.h>

#include <fmt/format.h>

#include <cerrno>
#include <vector>

namespace tickervantage {
namespace {

// `otherwise`: what is said where there is nothing at the path.
Result<Place> find(const std::string& path, const PathRules& rules, struct stat& status, FailureCode otherwise) {
    auto place = open_place(path, rules, Missing::refuse);
    if (!place)
        return place;
    if (!place->folder.valid() ||
        ::fstatat(place->folder.get(), place->name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return failed(otherwise, {path}, place->folder.valid() ? errno : ENOENT);
    return place;
}

Result<> check_script(const std::string& script, const PathRules& rules) {
    struct stat status {};
    return find(script, rules, status, FailureCode::cannot_find_script).and_then([&](const Place& place) -> Result<> {
        if (S_ISREG(status.st_mode) && rules.only_ours(place.folder_status) && rules.only_ours(status))
            return {};
        return failed(FailureCode::script_open_to_others, {script});
    });
}

Result<> check_log_folder(const std::string& folder, const PathRules& rules, struct stat& status) {
    return find(folder, rules, status, FailureCode::cannot_find_log_folder)
        .and_then([&](const Place& place) -> Result<> {
            if (!S_ISDIR(status.st_mode))
                return failed(FailureCode::cannot_find_log_folder, {folder}, ENOTDIR);
            const bool root_among_others = status.st_uid == 0 && !rules.only_ours(status);
            return root_among_others ? failed(FailureCode::log_folder_open_to_others, {folder})
                                     : require_own_folder(place, rules);
        });
}

} // namespace

Result<std::string> rotate_logs(Execute& execute, const std::string& script, const std::string& folder,
                                const PathRules& rules) {
    struct stat status {};
    const auto checked = check_script(script, rules).and_then([&] { return check_log_folder(folder, rules, status); });
    if (!checked)
        return tl::unexpected(checked.error());
    const auto chronyc = script.substr(0, script.rfind('/')) + "/chronyc";
    ExecuteRequest request{.program = "/usr/bin/env", .arguments = {"-C", folder, "/bin/sh", script, chronyc, folder}};
    if (status.st_uid != rules.self) {
        std::vector<std::string> words{"--reuid",
                                       std::to_string(status.st_uid),
                                       "--regid",
                                       std::to_string(status.st_gid),
                                       "--clear-groups",
                                       "--no-new-privs",
                                       "--",
                                       request.program};
        words.insert(words.end(), request.arguments.begin(), request.arguments.end());
        request.program = "/usr/bin/setpriv";
        request.arguments = std::move(words);
    }
    const auto result = execute.run(request);
    if (!succeeded(result))
        return failed(FailureCode::cannot_rotate_logs, {folder}, last_words(result));
    return fmt::format("Rotated the logs in {}.", folder);
}

} // namespace tickervantage
