#include "chrony/configuration/local_host.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace tickervantage {
namespace {

bool is_local_ipv4(const std::array<unsigned char, 4>& bytes) {
    return bytes[0] == 0 || bytes[0] == 10 || bytes[0] == 127 || (bytes[0] == 172 && bytes[1] / 16 == 1) ||
           (bytes[0] == 192 && bytes[1] == 168) || (bytes[0] == 169 && bytes[1] == 254);
}

bool is_local_ipv6(const std::array<unsigned char, 16>& bytes) {
    const bool all_before_last_are_zero =
        std::all_of(bytes.begin(), bytes.end() - 1, [](auto byte) { return byte == 0; });
    const bool is_loopback = all_before_last_are_zero && bytes[15] <= 1;
    const bool is_private = (bytes[0] & 0xFEU) == 0xFC;
    const bool is_link_local = bytes[0] == 0xFE && (bytes[1] & 0xC0U) == 0x80;
    return is_loopback || is_private || is_link_local;
}

bool is_local_name(std::string name) {
    std::ranges::transform(name, name.begin(), [](unsigned char letter) { return std::tolower(letter); });
    if (name.ends_with('.'))
        name.pop_back();
    static constexpr std::array<std::string_view, 3> zones{".local", ".home.arpa", ".localhost"};
    return name.find('.') == std::string::npos ||
           std::ranges::any_of(zones, [&name](auto zone) { return name.ends_with(zone); });
}

} // namespace

bool is_local_host(std::string_view host) {
    const std::string address(host.substr(0, host.find('%')));
    std::array<unsigned char, 4> ipv4{};
    std::array<unsigned char, 16> ipv6{};
    if (inet_pton(AF_INET, address.c_str(), ipv4.data()) == 1)
        return is_local_ipv4(ipv4);
    if (inet_pton(AF_INET6, address.c_str(), ipv6.data()) == 1)
        return is_local_ipv6(ipv6);
    return is_local_name(std::string(host));
}

} // namespace tickervantage
