// The authorisations that the root helper has given out.
//
// A token is worth something on the connection that asked for it, for the same user and the same process, and until it
// has not been used for some hours. Times are seconds of a clock that also runs while the machine sleeps. The store can
// be written down and read again, so that a helper which ends for want of work does not make people type their password
// twice. Keep on one thread.
#pragma once

#include "roothelper/grammar/helper_names.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

inline constexpr std::uint32_t unknown_user = UINT32_MAX; // the kernel's own "nobody": no user has it

// Who sent a message, as the bus and the kernel tell.
struct HelperCaller {
    std::string name; // of the connection, ":1.42"; the bus never gives it out twice
    std::uint32_t user = 0;
    std::int32_t process = 0;
    std::uint64_t process_start = 0; // clock ticks since the machine started; 0: the process is not there

    friend bool operator==(const HelperCaller&, const HelperCaller&) = default;
};

class HelperTokens {
public:
    static constexpr std::int64_t lifetime_seconds = 12 * std::int64_t{3600};

    void put(const HelperCaller& caller, const helper::Token& token, std::int64_t now);

    // Whether these are the bytes given to this very caller; lengthens their life. Takes the same time wherever the
    // bytes differ.
    [[nodiscard]] bool accepts(const HelperCaller& caller, std::string_view bytes, std::int64_t now);

    // The token that the caller holds already.
    [[nodiscard]] std::optional<helper::Token> token_of(const HelperCaller& caller, std::int64_t now) const;

    // Whom the connection's token was given to, as it was then.
    [[nodiscard]] std::optional<HelperCaller> caller_named(const std::string& name) const;

    // Whether there was one.
    bool drop(const std::string& name);
    [[nodiscard]] bool empty() const { return m_entries.empty(); }

    // For a file that only root can read. Entries that cannot be understood are left out when they are read.
    [[nodiscard]] std::string written() const;
    void read(std::string_view text);
    [[nodiscard]] std::vector<HelperCaller> callers() const;

private:
    struct Entry {
        HelperCaller caller;
        helper::Token token{};
        std::int64_t end = 0;
    };
    [[nodiscard]] const Entry* find(const HelperCaller& caller, std::int64_t now) const;

    std::map<std::string, Entry, std::less<>> m_entries;
};

} // namespace tickervantage
