#include "roothelper/grammar/helper_includes.h"

#include "roothelper/grammar/helper_content.h"

#include <fnmatch.h>

#include <algorithm>
#include <set>

namespace tickervantage {
namespace {

constexpr int deepest = 10;             // chronyd's own limit
constexpr std::size_t most_files = 512; // more are nobody's configuration

struct Pattern {
    std::string text;
    bool has_directives = true; // otherwise sources only, which include nothing
};

std::vector<Pattern> patterns_in(const DirectiveWords& words) {
    std::vector<Pattern> patterns;
    if (words.empty() || (words[0] != "include" && words[0] != "confdir" && words[0] != "sourcedir"))
        return patterns;
    const bool is_sources = words[0] == "sourcedir";
    const std::string_view rest = words[0] == "include" ? "" : is_sources ? "/*.sources" : "/*.conf";
    for (auto word = words.begin() + 1; word != words.end(); ++word)
        patterns.push_back({without_spare_slashes(*word + std::string(rest)), !is_sources});
    return patterns;
}

// A pattern from an ordinary user must not lead a search by root out of the configurations, through all of the machine.
// ".." need not be written out: ".*" matches it.
bool leads_away(const std::string& pattern) {
    return pattern.find_first_of("*?[") != std::string::npos &&
           (pattern.find("/.") != std::string::npos || pattern.find('\\') != std::string::npos);
}

class Walk {
public:
    Walk(const std::string& destination, const IncludedFiles& files) : m_files(files), m_targets{destination} {
        for (auto& path : files.matching(destination))
            m_targets.insert(std::move(path));
    }

    int line_in(std::string_view text, int depth = 0) {
        for (const auto& [number, words] : directives_in(text))
            for (const auto& pattern : patterns_in(words))
                if (leads_back(pattern, depth))
                    return number;
        return 0;
    }

private:
    bool leads_back(const Pattern& pattern, int depth) {
        const auto names = [&pattern](const std::string& target) {
            return ::fnmatch(pattern.text.c_str(), target.c_str(), FNM_PATHNAME | FNM_PERIOD) == 0;
        };
        if (std::ranges::any_of(m_targets, names))
            return true;
        if (leads_away(pattern.text))
            return false; // a line that needs an authorisation of its own
        const auto paths = m_files.matching(pattern.text);
        return std::ranges::any_of(paths, [&](const std::string& path) {
            return m_targets.contains(path) || (pattern.has_directives && reads_back(path, depth + 1));
        });
    }

    bool reads_back(const std::string& path, int depth) {
        return depth <= deepest && m_seen.size() < most_files && m_seen.insert(path).second &&
               line_in(m_files.read(path), depth) > 0;
    }

    const IncludedFiles& m_files;
    std::set<std::string> m_targets; // the destination under its names
    std::set<std::string> m_seen;
};

} // namespace

int line_that_includes_itself(std::string_view text, const std::string& destination, const IncludedFiles& files) {
    return Walk(destination, files).line_in(text);
}

} // namespace tickervantage
