#include "linux/xdg_paths.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string_view>

namespace tickervantage {
namespace {

constexpr std::string_view own_folder = "/Tickervantage";
constexpr std::string_view installed_bundle = "/usr/lib/tickervantage/Tickervantage.app";

bool is_absolute(std::string_view path) {
    return path.starts_with('/');
}

std::string without_slash(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

std::string with_slash(std::string path) {
    if (!path.ends_with('/'))
        path += '/';
    return path;
}

std::string folder_of(const EnvironmentLookup& environment, const std::string& name, const std::string& substitute) {
    const auto value = environment(name);
    return without_slash(value && is_absolute(*value) ? *value : substitute);
}

std::string temporary_folder(const EnvironmentLookup& environment) {
    const auto value = environment("TMPDIR");
    return with_slash(value && !value->empty() ? *value : "/tmp");
}

std::string home_folder(const PathsOrigin& origin) {
    const auto value = origin.environment("HOME");
    if (value && is_absolute(*value))
        return without_slash(*value);
    // A user without any home still gets a place to write that goes away with the session.
    return without_slash(is_absolute(origin.passwd_home) ? origin.passwd_home : temporary_folder(origin.environment));
}

std::string bundle_folder(const std::string& program) {
    const auto programs = std::filesystem::path(program).parent_path();
    const auto bundle = programs.parent_path().parent_path();
    const bool fits = programs.filename() == "MacOS" && programs.parent_path().filename() == "Contents" &&
                      bundle.filename() == "Tickervantage.app";
    return fits ? bundle.string() : std::string(installed_bundle);
}

std::string running_program() {
    std::error_code error;
    auto program = std::filesystem::read_symlink("/proc/self/exe", error).string();
    constexpr std::string_view replaced = " (deleted)"; // the kernel's note after an upgrade under a running program
    if (program.ends_with(replaced))
        program.resize(program.size() - replaced.size());
    return program;
}

std::string passwd_home() {
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 16384> texts{};
    if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) != 0 || found == nullptr)
        return {};
    return found->pw_dir == nullptr ? std::string() : std::string(found->pw_dir);
}

} // namespace

Paths work_out_paths(const PathsOrigin& origin) {
    const auto& environment = origin.environment;
    const auto home = with_slash(home_folder(origin));
    Paths paths;
    paths.bundle = bundle_folder(origin.program);
    paths.settings = folder_of(environment, "XDG_CONFIG_HOME", home + ".config");
    paths.settings.append(own_folder).append("/Tickervantage.ini");
    paths.data_home = folder_of(environment, "XDG_DATA_HOME", home + ".local/share");
    paths.state = folder_of(environment, "XDG_STATE_HOME", home + ".local/state");
    paths.state.append(own_folder);
    paths.temporary = temporary_folder(environment);
    return paths;
}

Paths process_paths() {
    return work_out_paths({process_environment, running_program(), passwd_home()});
}

} // namespace tickervantage
