// Between which poll intervals chronyd may choose, by its configuration. Source: chrony.conf(5) of chrony 4.3.
#pragma once

#include <string>
#include <string_view>

namespace tickervantage {

// Powers of two, in seconds: the smallest minpoll and the largest maxpoll of all servers, pools and peers. A line that
// does not say has chronyd's own.
struct PollLimits {
    int minpoll = 6;
    int maxpoll = 10;
    friend bool operator==(const PollLimits&, const PollLimits&) = default;
};

[[nodiscard]] PollLimits poll_limits_in(std::string_view configuration);

// Of a file with those that it takes in; chronyd's own where nothing can be read. Waits for the disk.
[[nodiscard]] PollLimits read_poll_limits(const std::string& path);

} // namespace tickervantage
