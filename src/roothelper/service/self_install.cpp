#include "roothelper/service/self_install.h"

#include "base/failure_codes.h"
#include "helper_files.h"
#include "roothelper/grammar/helper_names.h"
#include "roothelper/service/history.h"
#include "roothelper/service/trusted_files.h"

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <vector>

namespace tickervantage {
namespace {

constexpr const char* own_bundle = "/usr/local/lib/tickervantage/Tickervantage.app";
constexpr std::size_t largest_file = std::size_t{64} << 20U;
constexpr std::array<const char*, 6> bundle_files{
    "Contents/MacOS/chronyhelper", "Contents/MacOS/chronysupport", "Contents/MacOS/chronyc",
    "Contents/MacOS/chronyd",      "Contents/MacOS/chronywake",    "Contents/Resources/chronylogrotate.sh"};

struct SystemFile {
    const char* path;
    std::string_view text;
};

constexpr const char* packaged_actions = "/usr/share/polkit-1/actions/net.brisklane.tickervantage.policy";

// The bus reads its policies and polkit its actions from these folders only.
constexpr std::array<SystemFile, 4> system_files{
    {{"/etc/dbus-1/system.d/net.brisklane.chronyhelper.conf", helper_files::bus_policy},
     {packaged_actions, helper_files::polkit_actions},
     {"/etc/systemd/system/net.brisklane.chronyhelper.service", helper_files::unit},
     {"/usr/local/share/dbus-1/system-services/net.brisklane.chronyhelper.service", helper_files::activation}}};

constexpr const char* packaged_activation = "/usr/share/dbus-1/system-services/net.brisklane.chronyhelper.service";

// Files of a package's helper are the package's to change.
bool is_packaged() {
    return file_exists(packaged_activation);
}

std::string with_program(std::string_view text, const std::string& program) {
    constexpr std::string_view mark = "@CHRONYHELPER@";
    std::string result(text);
    for (auto at = result.find(mark); at != std::string::npos; at = result.find(mark, at + program.size()))
        result.replace(at, mark.size(), program);
    return result;
}

Result<> make_folder(const std::string& path) {
    if (file_exists(path))
        return {};
    return make_folder(parent_folder(path)).and_then([&]() -> Result<> {
        return ::mkdir(path.c_str(), 0755) == 0 ? Result<>() : failed(FailureCode::cannot_make_folder, {path}, errno);
    });
}

// Beside first, so that a program that runs meanwhile is the old one or the new one.
Result<> put(const std::string& path, std::string_view bytes, mode_t mode) {
    const auto draft = path + ".new";
    return make_folder(parent_folder(path)).and_then([&]() -> Result<> {
        if (write_new_file(draft, bytes, mode) == 0 && ::rename(draft.c_str(), path.c_str()) == 0)
            return {};
        return failed(FailureCode::cannot_write, {path}, errno);
    });
}

// A bundle need not carry chrony's own programs.
Result<> copy_bundle(const std::string& bundle) {
    Result<> done;
    for (const std::string name : bundle_files)
        done = done.and_then([&] { return read_file(bundle + '/' + name, largest_file); })
                   .and_then([&](const FileBytes& bytes) {
                       return bytes ? put(std::string(own_bundle) + '/' + name, *bytes, 0755) : Result<>();
                   });
    return done;
}

// The rule that lets requests name the bundle's support tool, beside what the administrator wrote.
Result<> note_tool(const std::string& bundle) {
    return read_roots_file(rules_file, largest_file).and_then([&](const FileBytes& bytes) {
        auto text = bytes.value_or("");
        const std::string rule = "tool " + bundle + "/Contents/MacOS/chronysupport\n";
        if (('\n' + text).find('\n' + rule) != std::string::npos)
            return Result<>();
        if (!text.empty() && text.back() != '\n')
            text += '\n';
        return put(rules_file, text + rule, 0644);
    });
}

Result<> put_system_files() {
    const auto program = std::string(own_bundle) + "/Contents/MacOS/chronyhelper";
    Result<> done;
    for (const auto& file : system_files)
        done = done.and_then([&] { return put(file.path, with_program(file.text, program), 0644); });
    return done;
}

void systemctl(std::vector<const char*> words) {
    words.insert(words.begin(), "systemctl");
    words.push_back(nullptr);
    pid_t child = -1;
    // posix_spawn's signature; it does not write to the words.
    if (::posix_spawn(&child, "/bin/systemctl", nullptr, nullptr, const_cast<char* const*>(words.data()), environ) == 0)
        ::waitpid(child, nullptr, 0); // a machine without systemd has none of what is made known here
}

void make_known() {
    systemctl({"daemon-reload"});
    systemctl({"reload", "dbus.service"});
}

// One that still runs, perhaps of another version, ends when it has done its work.
void stop_helper() {
    systemctl({"--quiet", "--no-block", "stop", "net.brisklane.chronyhelper.service"});
}

} // namespace

Result<> install_helper(const std::string& bundle) {
    if (bundle == helper::package_bundle || is_packaged())
        return failed(FailureCode::helper_of_package);
    ::umask(022);
    return copy_bundle(bundle).and_then([&] { return note_tool(bundle); }).and_then(put_system_files).map([] {
        make_known();
        stop_helper();
    });
}

Result<> uninstall_helper() {
    if (file_exists(system_files[2].path))
        stop_helper();
    const bool packaged = is_packaged();
    for (const auto& file : system_files)
        if (!packaged || std::string_view(file.path) != packaged_actions)
            ::unlink(file.path);
    for (const std::string name : bundle_files)
        ::unlink((std::string(own_bundle) + '/' + name).c_str());
    for (const char* folder : {"/Contents/MacOS", "/Contents/Resources", "/Contents", ""})
        ::rmdir((std::string(own_bundle) + folder).c_str());
    ::rmdir(parent_folder(own_bundle).c_str());
    const std::string activation = parent_folder(system_files[3].path);
    ::rmdir(activation.c_str());
    ::rmdir(parent_folder(activation).c_str()); // both were made for this one file, and stay where there is another
    if (!packaged) {
        History().remove(); // a package's helper goes on with it
        ::unlink(rules_file);
        ::rmdir(parent_folder(rules_file).c_str()); // stays where the administrator keeps more in it
    }
    make_known();
    return file_exists(own_bundle) ? failed(FailureCode::cannot_remove, {own_bundle}) : Result<>();
}

} // namespace tickervantage
