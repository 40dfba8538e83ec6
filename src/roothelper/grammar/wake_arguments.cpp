#include "roothelper/grammar/wake_arguments.h"

#include "base/failure_codes.h"
#include "base/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr double largest_threshold = 1e6;
constexpr int largest_limit = 1'000'000;
constexpr int largest_burst = 1000;

template <class Number>
bool read_within(std::string_view text, Number low, Number high, Number& result) {
    const auto number = number_from_text<Number>(text);
    if (!number || *number < low || *number > high)
        return false;
    result = *number;
    return true;
}

// A word that chronyc cannot take for anything but one address, with or without a mask.
bool read_netmask(std::string_view text, std::string& result) {
    const auto plain = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F') || c == '.' || c == ':' ||
               c == '/';
    };
    if (text.size() > 100 || !std::ranges::all_of(text, plain))
        return false;
    result = text;
    return true;
}

bool read_path(std::string_view text, std::string& result) {
    if (!text.starts_with('/') || text.find('\0') != std::string_view::npos)
        return false;
    result = text;
    return true;
}

struct Option {
    std::string_view name;
    bool stays;
    bool (*read)(std::string_view text, WakeArguments& arguments);
};

const std::array options{
    Option{"--make-thresh", true,
           [](auto text, auto& to) {
               return read_within(text, 0.0, largest_threshold, to.make_thresh);
           }},
    Option{"--make-limit", true,
           [](auto text, auto& to) {
               return read_within(text, -1, largest_limit, to.make_limit);
           }},
    Option{"--burst-good", true,
           [](auto text, auto& to) {
               return read_within(text, 1, largest_burst, to.burst_good);
           }},
    Option{"--burst-max", true,
           [](auto text, auto& to) {
               return read_within(text, 1, largest_burst, to.burst_max);
           }},
    Option{"--burst-netmask", true,
           [](auto text, auto& to) {
               return read_netmask(text, to.burst_netmask);
           }},
    Option{"--chronyc", false,
           [](auto text, auto& to) {
               return read_path(text, to.chronyc);
           }},
    Option{"--socket", false,
           [](auto text, auto& to) {
               return read_path(text, to.socket);
           }},
};

} // namespace

std::vector<std::string> wake_service_arguments(const WakeArguments& arguments) {
    std::vector<std::string> words{"--make-thresh", fmt::format("{}", arguments.make_thresh),
                                   "--make-limit",  fmt::format("{}", arguments.make_limit),
                                   "--burst-good",  fmt::format("{}", arguments.burst_good),
                                   "--burst-max",   fmt::format("{}", arguments.burst_max)};
    const auto add = [&](const char* name, const std::string& value) {
        if (!value.empty())
            words.insert(words.end(), {name, value});
    };
    add("--burst-netmask", arguments.burst_netmask);
    add("--chronyc", arguments.chronyc);
    add("--socket", arguments.socket);
    return words;
}

Result<WakeArguments> parse_wake_arguments(const std::vector<std::string>& words) {
    WakeArguments read;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        const auto* const option = std::ranges::find(options, words[i], &Option::name);
        if (option == options.end())
            return failed(FailureCode::no_wake_option, {words[i]});
        if (i + 1 == words.size())
            return failed(FailureCode::wake_option_without_value, {words[i]});
        if (!option->read(words[i + 1], read))
            return failed(FailureCode::wake_option_with_bad_value, {words[i], words[i + 1]});
        read.stays = read.stays || option->stays;
    }
    return read;
}

} // namespace tickervantage
