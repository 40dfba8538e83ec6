#include "chrony/configuration/directive_options.h"

#include "base/text_lines.h"
#include "chrony/configuration/directives.h"

#include <algorithm>
#include <array>

namespace tickervantage {
namespace {

constexpr auto server_options = std::to_array<DirectiveOption>({
    {"asymmetry", "ratio", "0.5"},
    {"auto_offline", ""},
    {"burst", ""},
    {"certset", "number", "1"},
    {"copy", ""},
    {"extfield", "type", "F323"},
    {"filter", "polls", "3"},
    {"iburst", ""},
    {"key", "id", "1"},
    {"maxdelay", "seconds", "0.3"},
    {"maxdelaydevratio", "ratio", "10"},
    {"maxdelayquant", "quantile", "0.5"},
    {"maxdelayratio", "ratio", "2"},
    {"maxpoll", "power of 2 in seconds", "10"},
    {"maxsamples", "number", "10"},
    {"mindelay", "seconds", "0.001"},
    {"minpoll", "power of 2 in seconds", "6"},
    {"minsamples", "number", "6"},
    {"minstratum", "stratum", "2"},
    {"noselect", ""},
    {"nts", ""},
    {"ntsport", "port", "4460"},
    {"offline", ""},
    {"offset", "seconds", "0.01"},
    {"polltarget", "number", "8"},
    {"port", "port", "123"},
    {"prefer", ""},
    {"presend", "power of 2 in seconds", "9"},
    {"require", ""},
    {"trust", ""},
    {"version", "3 or 4", "4"},
    {"xleave", ""},
});

// What a source of several servers adds.
constexpr auto pool_options = [] {
    std::array<DirectiveOption, server_options.size() + 1> all;
    std::ranges::copy(server_options, all.begin());
    all.back() = {"maxsources", "number", "3"};
    std::ranges::sort(all, {}, &DirectiveOption::name);
    return all;
}();

constexpr bool suits_peer(const DirectiveOption& option) {
    constexpr auto others = std::to_array<std::string_view>(
        {"burst", "certset", "copy", "iburst", "nts", "ntsport", "presend"}); // of clients alone
    return std::ranges::find(others, option.name) == others.end();
}

constexpr auto peer_options = [] {
    std::array<DirectiveOption, static_cast<std::size_t>(std::ranges::count_if(server_options, suits_peer))> some;
    std::ranges::copy_if(server_options, some.begin(), suits_peer);
    return some;
}();

constexpr auto refclock_options = std::to_array<DirectiveOption>({
    {"delay", "seconds", "0.2"},
    {"dpoll", "power of 2 in seconds", "3"},
    {"filter", "samples", "16"},
    {"local", ""},
    {"lock", "refid", "GPS"},
    {"maxdispersion", "seconds", "0.1"},
    {"maxlockage", "pulses", "2"},
    {"maxsamples", "number", "10"},
    {"minsamples", "number", "6"},
    {"noselect", ""},
    {"offset", "seconds", "0.1"},
    {"poll", "power of 2 in seconds", "4"},
    {"pps", ""},
    {"precision", "seconds", "1e-6"},
    {"prefer", ""},
    {"rate", "hertz", "1"},
    {"refid", "refid", "PPS"},
    {"require", ""},
    {"stratum", "stratum", "0"},
    {"tai", ""},
    {"trust", ""},
    {"width", "seconds", "0.1"},
});

constexpr auto hwtimestamp_options = std::to_array<DirectiveOption>({
    {"maxsamples", "number", "16"},
    {"minpoll", "power of 2 in seconds", "0"},
    {"minsamples", "number", "2"},
    {"nocrossts", ""},
    {"precision", "seconds", "100e-9"},
    {"rxcomp", "seconds", "100e-9"},
    {"rxfilter", "all, ntp, ptp or none", "all"},
    {"txcomp", "seconds", "100e-9"},
});

constexpr auto local_options = std::to_array<DirectiveOption>({
    {"distance", "seconds", "1"},
    {"orphan", ""},
    {"stratum", "stratum", "10"},
});

constexpr auto log_kinds = std::to_array<DirectiveOption>({
    {"measurements", ""},
    {"rawmeasurements", ""},
    {"refclocks", ""},
    {"rtc", ""},
    {"selection", ""},
    {"statistics", ""},
    {"tempcomp", ""},
    {"tracking", ""},
});

constexpr auto rate_limits = std::to_array<DirectiveOption>({
    {"burst", "number", "8"},
    {"interval", "power of 2 in seconds", "3"},
    {"leak", "power of 2", "2"},
});

constexpr auto access = std::to_array<DirectiveOption>({{"all", ""}});
constexpr auto authselect_modes =
    std::to_array<DirectiveOption>({{"ignore", ""}, {"mix", ""}, {"prefer", ""}, {"require", ""}});
constexpr auto leap_modes =
    std::to_array<DirectiveOption>({{"ignore", ""}, {"slew", ""}, {"step", ""}, {"system", ""}});
constexpr auto refclock_drivers = std::to_array<DirectiveOption>({{"PHC", "path", "/dev/ptp0"},
                                                                  {"PPS", "path", "/dev/pps0"},
                                                                  {"SHM", "number", "0"},
                                                                  {"SOCK", "path", "/run/chrony.sock"}});
constexpr auto smoothing = std::to_array<DirectiveOption>({{"leaponly", ""}});

// Of a directive with two rows the first one is meant while its words are awaited.
constexpr auto all = std::to_array<DirectiveOptions>({
    {"allow", "", true, access},
    {"authselectmode", "", true, authselect_modes},
    {"cmdallow", "", true, access},
    {"cmddeny", "", true, access},
    {"cmdratelimit", "", false, rate_limits},
    {"deny", "", true, access},
    {"hwtimestamp", "lo", false, hwtimestamp_options},
    {"leapsecmode", "", true, leap_modes},
    {"local", "", false, local_options},
    {"log", "", false, log_kinds},
    {"ntsratelimit", "", false, rate_limits},
    {"peer", "192.0.2.1", false, peer_options},
    {"pool", "a.example", false, pool_options},
    {"ratelimit", "", false, rate_limits},
    {"refclock", "", true, refclock_drivers},
    {"refclock", "SHM 0", false, refclock_options},
    {"server", "192.0.2.1", false, server_options},
    {"smoothtime", "400 0.01", true, smoothing},
});

bool is_same(std::string_view name, std::string_view word) {
    const auto lower = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return std::ranges::equal(name, word, {}, lower, lower);
}

// The options that are left behind these words; none where the last one awaits its value.
std::vector<DirectiveOption> left_of(const DirectiveOptions& known, std::span<const std::string_view> given) {
    std::vector<DirectiveOption> left(known.options.begin(), known.options.end());
    if (known.is_single && !given.empty())
        return {};
    for (std::size_t at = 0; at < given.size(); ++at) {
        const auto found =
            std::ranges::find_if(left, [&](const auto& option) { return is_same(option.name, given[at]); });
        if (found == left.end())
            continue;
        if (!found->value.empty())
            ++at;
        if (at >= given.size())
            return {};
        left.erase(found);
    }
    return left;
}

} // namespace

std::span<const DirectiveOptions> all_directive_options() {
    return all;
}

std::vector<DirectiveOption> options_after(std::string_view before) {
    const auto given = words(before);
    if (given.empty() || opens_comment(given.front().front()))
        return {};
    for (const auto& known : all) {
        const std::size_t first = 1 + words(known.before).size();
        if (is_same(known.directive, given.front()) && given.size() >= first)
            if (auto left = left_of(known, std::span(given).subspan(first)); !left.empty())
                return left;
    }
    return {};
}

} // namespace tickervantage
