#include "help/help_pages.h"

#include "base/text_lines.h"
#include "help/manual_page.h"
#include "help/markdown_text.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t largest_page = 4U << 20U;
constexpr int least_hard_failure = 5; // mandoc(1): below are remarks on the page, which was rendered all the same

bool is_file(const std::string& path) {
    std::error_code ignored; // what we may not look at is not there for us
    return std::filesystem::is_regular_file(path, ignored);
}

HelpPage absent(HelpAbsence absence, std::string reason) {
    return {.text = {}, .absence = absence, .reason = std::move(reason)};
}

std::string text_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(largest_page, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return text;
}

// Takes the names off the headings that have one.
HelpPage with_named_headings(std::string_view text) {
    HelpPage page;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto name = line.starts_with('#') && line.ends_with('}') ? line.rfind(" {#") : std::string_view::npos;
        const std::string_view heading = line.substr(0, name);
        if (name != std::string_view::npos)
            page.places.emplace(line.substr(name + 3, line.size() - name - 4), heading_name(heading));
        page.text.append(heading) += '\n';
    }
    return page;
}

constexpr std::size_t excerpt_before = 30; // bytes
constexpr std::size_t excerpt_length = 90;

std::string lower_case(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(),
                           [](unsigned char c) { return static_cast<char>(c < 0x80U ? std::tolower(c) : c); });
    return lower;
}

bool is_underline(std::string_view word) {
    return word.size() > 2 && word.find_first_not_of("-=") == std::string_view::npos;
}

// Line ends and runs of blanks become one blank: a paragraph is searched as it is read, not as it is folded.
std::string joined(std::string_view paragraph) {
    std::string line;
    for (const auto word : words(paragraph))
        if (!is_underline(word)) // of a heading
            line.append(line.empty() ? "" : " ").append(word);
    return line;
}

bool begins_letter(std::string_view text, std::size_t at) {
    return at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U;
}

std::string excerpt_of(std::string_view paragraph, std::size_t at) {
    std::size_t from = 0;
    if (at > excerpt_before) { // a whole word, where one begins before the match
        const auto blank = paragraph.find(' ', at - excerpt_before);
        from = blank < at ? blank + 1 : at;
    }
    std::size_t to = std::min(from + excerpt_length, paragraph.size());
    while (!begins_letter(paragraph, to))
        --to;
    const std::string middle(paragraph.substr(from, to - from));
    return (from > 0 ? "…" : "") + middle + (to < paragraph.size() ? "…" : "");
}

} // namespace

HelpPage HelpPages::own_page(const HelpTopic& topic) const {
    const std::string path = m_sources.own_pages + "/" + std::string(topic.name);
    const std::string translated = path + "_" + m_sources.language + ".md";
    const std::string text = text_of(is_file(translated) ? translated : path + ".md");
    if (text.empty())
        return absent(HelpAbsence::unreadable, "The page " + path + ".md cannot be read.");
    return with_named_headings(text);
}

HelpPage HelpPages::render(const HelpTopic& topic, const std::vector<std::string>& options) const {
    const auto files = manual_files(m_sources.manual_roots, topic);
    const auto file = std::ranges::find_if(files, is_file);
    if (file == files.end())
        return absent(HelpAbsence::not_installed,
                      "The manual page " + std::string(topic.title) + " is not installed on this machine.");
    if (!is_file(m_sources.mandoc))
        return absent(HelpAbsence::no_renderer, "mandoc, which renders manual pages, is not installed.");
    ExecuteRequest request{.program = m_sources.mandoc, .arguments = options, .output_limit = largest_page};
    request.arguments.push_back(*file);
    ExecuteResult result = m_sources.execute.run(request);
    if (result.outcome != ExecuteOutcome::exited)
        return absent(HelpAbsence::unreadable, result.failure ? english(*result.failure) : std::string());
    if (result.exit_status >= least_hard_failure || result.output.empty())
        return absent(HelpAbsence::unreadable, "mandoc cannot render " + *file + ".");
    return {.text = std::move(result.output), .absence = HelpAbsence::none, .reason = {}};
}

HelpPage HelpPages::for_window(const HelpTopic& topic) const {
    if (!topic.is_manual())
        return own_page(topic);
    HelpPage page = render(topic, {"-T", "html", "-O", "fragment"});
    page.text = adapted_manual(page.text, topic);
    return page;
}

HelpPage HelpPages::for_terminal(const HelpTopic& topic, std::size_t width) const {
    if (!topic.is_manual()) {
        HelpPage page = own_page(topic);
        page.text = markdown_as_text(page.text, width);
        return page;
    }
    HelpPage page = render(topic, {"-T", "utf8", "-O", "width=" + std::to_string(width)});
    page.text = without_overstrikes(page.text);
    return page;
}

std::vector<std::string> search_page(std::string_view text, std::string_view query, std::size_t limit) {
    const std::string lower_query = lower_case(query);
    const auto wanted = words(lower_query);
    std::vector<std::string> hits;
    while (!wanted.empty() && !text.empty() && hits.size() < limit) {
        const auto end = std::min(text.find("\n\n"), text.size());
        const std::string paragraph = joined(text.substr(0, end));
        text.remove_prefix(std::min(end + 2, text.size()));
        const std::string lower = lower_case(paragraph);
        if (std::ranges::all_of(wanted, [&lower](const auto& word) { return lower.find(word) != std::string::npos; }))
            hits.push_back(excerpt_of(paragraph, lower.find(wanted.front())));
    }
    return hits;
}

} // namespace tickervantage
