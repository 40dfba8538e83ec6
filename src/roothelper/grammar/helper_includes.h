// Whether a configuration has chronyd read that very configuration again: chronyd then ends with "Maximum include level
// reached", and only when it is started, since a check before the installation still finds the former file.
// Source: chrony.conf(5), "confdir", "include", "sourcedir".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class IncludedFiles {
public:
    virtual ~IncludedFiles() = default;

    // The files that match a pattern of chronyd's, links resolved; none where nobody but root should look for them.
    [[nodiscard]] virtual std::vector<std::string> matching(const std::string& pattern) const = 0;
    // Empty where it cannot be read.
    [[nodiscard]] virtual std::string read(const std::string& path) const = 0;
};

// The number of the line, counted from 1, through which `text`, installed at `destination`, would include itself:
// by its name, by a pattern, or by way of other files. 0: it does not.
[[nodiscard]] int line_that_includes_itself(std::string_view text, const std::string& destination,
                                            const IncludedFiles& files);

} // namespace tickervantage
