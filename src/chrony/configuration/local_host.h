// Whose servers may be asked often: one's own. Those of others are shared by thousands.
// Sources: RFC 1918, 3927, 4193, 4291, 6762 (.local), 8375 (.home.arpa); chrony.conf(5), "minpoll". Any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace tickervantage {

// chrony's own smallest poll, 64 seconds, and the least that public servers put up with.
inline constexpr std::int64_t POLITE_POLL = 6;

// Whether the host lies in the local network, as far as its name or address tells: private, link-local and loopback
// addresses, names of the local network, and names without a dot. An address may have a zone ("fe80::1%eth0").
[[nodiscard]] bool is_local_host(std::string_view host);

// `minpoll` as a power of two, in seconds.
[[nodiscard]] inline bool asks_too_often(std::string_view host, std::int64_t minpoll) {
    return minpoll < POLITE_POLL && !is_local_host(host);
}

} // namespace tickervantage
