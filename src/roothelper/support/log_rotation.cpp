#include "roothelper/support/log_rotation.h"

#include "roothelper/support/one_line.h"

#include <fcntl.h>

#include <fmt/format.h>

#include <cerrno>
#include <vector>

namespace tickervantage {
namespace {

int check_script(const std::string& script, const PathRules& rules, std::string& sentence) {
    Place place;
    if (open_place(script, rules, Missing::refuse, place, sentence) != 0)
        return -1;
    struct stat status {};
    if (!place.folder.valid() || ::fstatat(place.folder.get(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return fail_with(sentence, "Cannot find the script", script, place.folder.valid() ? errno : ENOENT);
    if (S_ISREG(status.st_mode) && rules.only_ours(place.folder_status) && rules.only_ours(status))
        return 0;
    sentence = fmt::format("{} is not run: others can change it.", script);
    return -1;
}

int find_log_folder(const std::string& folder, const PathRules& rules, struct stat& status, std::string& sentence) {
    Place place;
    if (open_place(folder, rules, Missing::refuse, place, sentence) != 0)
        return -1;
    if (!place.folder.valid() || ::fstatat(place.folder.get(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return fail_with(sentence, "Cannot find the log folder", folder, place.folder.valid() ? errno : ENOENT);
    if (!S_ISDIR(status.st_mode))
        return fail_with(sentence, "Cannot rotate logs in", folder, ENOTDIR);
    const bool root_among_others = status.st_uid == 0 && !rules.only_ours(status);
    return root_among_others ? fail_with(sentence, "Others can write to the log folder", folder, EPERM)
                             : require_own_folder(place, rules, sentence);
}

} // namespace

int rotate_logs(Execute& execute, const std::string& script, const std::string& folder, const PathRules& rules,
                std::string& sentence) {
    struct stat status {};
    if (check_script(script, rules, sentence) != 0 || find_log_folder(folder, rules, status, sentence) != 0)
        return -1;
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
    const bool rotated = result.outcome == ExecuteOutcome::exited && result.exit_status == 0;
    sentence = rotated ? fmt::format("Rotated the logs in {}.", folder)
                       : fmt::format("Cannot rotate the logs in {}: {}", folder, last_words(result));
    return rotated ? 0 : -1;
}

} // namespace tickervantage
