// What chrony and this program know at one moment, in one text file: so that a server without a screen can be explained
// elsewhere, and so that a live reading and a saved one are judged by the same code.
//
//   # tickervantage capture 1
//   @ time 2026-11-22T01:30:00Z        facts: time, chronyc, chronyd, steers (yes, no, unknown), host
//   > tracking                         a report, named as the chronyc command; its lines as "chronyc -n -c" prints them
//   ! 501 Not authorised               instead of lines: chrony's refusal
//   > sources -N                       the rows of "sources" with the configuration's names
//   > configuration /etc/chrony/chrony.conf
//   | server ntp1.example.net iburst   each line of that file
//
// Facts and reports that a reader does not know are passed over. No key or password gets into a capture: the files that
// a configuration names are not read. Pure functions, any thread.
#pragma once

#include "base/failure.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

inline constexpr std::string_view capture_heading = "# tickervantage capture 1";
inline constexpr std::size_t largest_capture = std::size_t{16} << 20U; // bytes

struct CapturedReport {
    std::string text;    // lines, each with its line feed
    std::string refusal; // chronyc's words where there are no lines
};

struct CapturedFile {
    std::string path;
    std::string text;
};

struct Capture {
    std::map<std::string, std::string> facts;
    std::map<std::string, CapturedReport> reports; // by command, "sources -N" among them
    std::vector<CapturedFile> configuration;       // the file that chronyd reads, then those it takes in
};

[[nodiscard]] bool is_capture(std::string_view text);

// Fails for a text that is no capture, for one too large, and at a line that is none of its kinds, by number.
[[nodiscard]] Result<Capture> parse_capture(std::string_view text);

[[nodiscard]] std::string to_text(const Capture& capture);

} // namespace tickervantage
