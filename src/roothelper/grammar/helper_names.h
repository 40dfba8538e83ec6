// What the root helper and its callers have agreed on: names on the bus, keys of a message, action ids, limits.
//
// A message is a dictionary (a{sv}). The request carries "request", one line of text, and, once the administrator has
// agreed, "auth", the 32 bytes that Authorise gave to this connection. The reply carries "reply", a text: what the
// command printed, or one sentence that says why nothing was run; "status", 0 when the command did its work; and
// "failure", where there is one to tell by name, as a line of base/failure_line.h.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tickervantage::helper {

inline constexpr const char* bus_name = "net.brisklane.chronyhelper";
inline constexpr const char* object_path = "/net/brisklane/chronyhelper";
inline constexpr const char* interface_name = "net.brisklane.chronyhelper";

inline constexpr const char* request_method = "Request";     // a{sv} in, a{sv} out
inline constexpr const char* authorise_method = "Authorise"; // nothing in, ay out: the token
inline constexpr const char* withdraw_method = "Withdraw";   // nothing in or out: the caller's dialogs close
inline constexpr const char* version_property = "Version";   // s
inline constexpr const char* protocol_property = "Protocol"; // u
inline constexpr const char* refused_error = "net.brisklane.chronyhelper.Error.Refused";

// Goes up when a message or the list of requests changes: only then a helper and a program do not fit together.
inline constexpr std::uint32_t protocol = 3;

// The bundle that packages install. They bring the helper's files along, and nobody else changes those.
inline constexpr const char* package_bundle = "/usr/lib/tickervantage/Tickervantage.app";

inline constexpr const char* request_key = "request";
inline constexpr const char* auth_key = "auth";
inline constexpr const char* reply_key = "reply";
inline constexpr const char* status_key = "status";   // i: 0 done, 1 refused or failed
inline constexpr const char* failure_key = "failure"; // s: not where it was done, nor of a helper that knows of none

inline constexpr const char* administer_action = "net.brisklane.tickervantage";
inline constexpr const char* unsafe_config_action = "net.brisklane.tickervantage.unsafe-config";

// What stands behind chronyc's path when all reports that need root are asked for as data: one run for all of them,
// these words and no others.
inline constexpr std::string_view data_reports = R"( -n -c -m "selectdata -a" "authdata -a" ntpdata serverstats)";

inline constexpr std::size_t token_size = 32;
using Token = std::array<unsigned char, token_size>;

inline constexpr std::size_t request_limit = 4096;
inline constexpr std::size_t reply_limit = std::size_t{8} << 20U;
inline constexpr std::chrono::minutes dialog_limit{5};        // for a person to type a password
inline constexpr std::chrono::minutes request_limit_time{12}; // the longest job, with a dialog in it

} // namespace tickervantage::helper
