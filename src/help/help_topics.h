// The pages of the help: chrony's manual pages, as the installed chrony brings them, and pages of our own.
//
// Plain data; any thread.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tickervantage {

struct HelpTopic {
    std::string_view name;  // what links, menus and the command line call it
    std::string_view title; // English, for people
    int manual_section = 0; // 0: a page of our own

    [[nodiscard]] bool is_manual() const { return manual_section != 0; }
};

// In the order in which they are listed.
[[nodiscard]] std::span<const HelpTopic> help_topics();

// Null: there is no such topic.
[[nodiscard]] const HelpTopic* find_help_topic(std::string_view name);

// Where a link leads: a page of the help, with or without a place in it, or anything else. Topics are written
// "help:faq", "help:faq#stratum", "faq.md" or "faq.md#stratum"; a place in the same page is "#stratum".
struct HelpTarget {
    const HelpTopic* topic = nullptr; // null: not in the help, or a place in the page that holds the link
    std::string place;                // empty: the page's beginning
    bool is_in_help = false;
};

[[nodiscard]] HelpTarget help_target(std::string_view link);

// The name by which links call a heading: letters and digits in lower case, hyphens between words.
[[nodiscard]] std::string heading_name(std::string_view heading);

} // namespace tickervantage
