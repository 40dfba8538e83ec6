#include "roothelper/support/accounts.h"

#include "base/failure_codes.h"
#include "roothelper/support/one_line.h"

#include <grp.h>
#include <pwd.h>

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::size_t largest_entry = 1U << 16U;

std::optional<gid_t> find_group(const std::string& name) {
    std::vector<char> buffer(largest_entry);
    group entry{};
    group* found = nullptr;
    (void)getgrnam_r(name.c_str(), &entry, buffer.data(), buffer.size(), &found); // an error finds nothing
    return found ? std::optional(found->gr_gid) : std::nullopt;
}

bool fits_a_system_user(const std::string& name) {
    constexpr std::size_t longest = 31;
    const auto allowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
    };
    return !name.empty() && name.size() <= longest && std::ranges::all_of(name, allowed) && name.front() != '-' &&
           !(name.front() >= '0' && name.front() <= '9');
}

} // namespace

std::optional<Account> find_account(const std::string& name) {
    std::vector<char> buffer(largest_entry);
    passwd entry{};
    passwd* found = nullptr;
    (void)getpwnam_r(name.c_str(), &entry, buffer.data(), buffer.size(), &found); // an error finds nothing
    return found ? std::optional(Account{found->pw_uid, found->pw_gid}) : std::nullopt;
}

Result<Account> find_owner(const std::string& text) {
    const auto colon = text.find(':');
    const auto user = find_account(text.substr(0, colon));
    const auto group_name = colon == std::string::npos ? std::string() : text.substr(colon + 1);
    auto group = find_group(group_name);
    if (user && !group && group_name == "wheel")
        group = user->gid;
    if (!user || !group)
        return failed(FailureCode::no_such_owner, {text});
    return Account{user->uid, *group};
}

Result<std::string> add_system_user(Execute& execute, const std::string& name) {
    if (!fits_a_system_user(name))
        return failed(FailureCode::no_name_of_user, {name});
    if (find_account(name))
        return fmt::format("The user {} is there already.", name);
    const auto result = execute.run({.program = "/usr/sbin/useradd",
                                     .arguments = {"--system", "--user-group", "--no-create-home", "--home-dir",
                                                   "/nonexistent", "--shell", "/usr/sbin/nologin", name}});
    if (!succeeded(result))
        return failed(FailureCode::cannot_add_user, {name}, last_words(result));
    return fmt::format("Added the user {}.", name);
}

} // namespace tickervantage
