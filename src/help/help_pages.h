// Reads the pages of the help, for a window or for a terminal.
//
// Manual pages are rendered by mandoc from the files of the installed chrony; our own are files of the bundle. Calls
// wait for the disk and for mandoc: any thread but the main one.
#pragma once

#include "base/execute.h"
#include "help/help_topics.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// Where chrony's manuals can be read when they are not installed.
inline constexpr std::string_view manuals_address = "https://chrony-project.org/documentation.html";

struct HelpSources {
    Execute& execute;          // outlives the pages
    std::string own_pages;     // the folder with the pages of our own
    std::string language = {}; // such as "de": of NAME.md and NAME_de.md the latter, where there is one
    std::vector<std::string> manual_roots{"/usr/local/share/man", "/usr/share/man"}; // folders with man1, man5, man8
    std::string mandoc = "/usr/bin/mandoc";
};

enum class HelpAbsence : unsigned char {
    none,
    not_installed, // the manual page is not on this machine
    no_renderer,   // mandoc is not
    unreadable,    // anything else; the reason says what
};

struct HelpPage {
    std::string text; // HTML for manuals and Markdown for our own, or a terminal's text
    // The names that links use for the headings of a page in another language, each with the heading_name of the
    // heading that bears it: in the file it ends in {#name}.
    std::map<std::string, std::string> places = {};
    HelpAbsence absence = HelpAbsence::none; // otherwise the text is empty
    std::string reason;                      // one sentence
};

class HelpPages {
public:
    explicit HelpPages(HelpSources sources) : m_sources(std::move(sources)) {}

    [[nodiscard]] HelpPage for_window(const HelpTopic& topic) const;
    [[nodiscard]] HelpPage for_terminal(const HelpTopic& topic, std::size_t width) const;

    [[nodiscard]] const std::string& own_pages() const { return m_sources.own_pages; }

private:
    [[nodiscard]] HelpPage own_page(const HelpTopic& topic) const;
    [[nodiscard]] HelpPage render(const HelpTopic& topic, const std::vector<std::string>& options) const;

    HelpSources m_sources;
};

// Finds words in the text form of a page. Any thread.

// One hit for every paragraph that holds all words of the query, in any order and, for ASCII, in any case; at most
// `limit`. A hit is one line out of the paragraph around the first of the words; where it leaves something out stands
// "…".
[[nodiscard]] std::vector<std::string> search_page(std::string_view text, std::string_view query, std::size_t limit);

} // namespace tickervantage
