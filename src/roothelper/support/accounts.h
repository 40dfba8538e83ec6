// Users and groups of this machine, by name.
#pragma once

#include "base/execute.h"
#include "base/failure.h"

#include <sys/types.h>

#include <optional>
#include <string>

namespace tickervantage {

struct Account {
    uid_t uid = 0;
    gid_t gid = 0;
};

// The user of that name with the primary group; none when there is none.
[[nodiscard]] std::optional<Account> find_account(const std::string& name);

// Reads "user:group". Where there is no group "wheel", which holds the administrators on other systems, the user's
// primary group takes its place.
[[nodiscard]] Result<Account> find_owner(const std::string& text);

// Adds a system user without shell and home, with a group of the same name; one that is there already stays as it is.
// Blocks while useradd(8) runs. One sentence.
[[nodiscard]] Result<std::string> add_system_user(Execute& execute, const std::string& name);

} // namespace tickervantage
