#include "help/markdown_text.h"

#include "help/help_topics.h"

#include <algorithm>

namespace tickervantage {
namespace {

std::size_t letters_in(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

// "[words](target)" at the beginning of the text: what is shown for it, and how long it was.
struct Link {
    std::string shown;
    std::size_t length = 0; // 0: there is no link here
};

Link link_at(std::string_view text) {
    const auto middle = text.find("](");
    const auto end = middle == std::string_view::npos ? middle : text.find(')', middle);
    if (!text.starts_with('[') || end == std::string_view::npos)
        return {};
    // A manual's name ends with a bracket of its own, "chronyc(1)", but a target never holds one.
    const std::string words(text.substr(1, middle - 1));
    const std::string target(text.substr(middle + 2, end - middle - 2));
    const bool is_own_address = words == target || help_target(target).is_in_help;
    return {is_own_address ? words : words + " (" + target + ")", end + 1};
}

std::string plain_words(std::string_view text) {
    std::string plain;
    bool in_code = false;
    while (!text.empty()) {
        const Link link = in_code ? Link{} : link_at(text);
        if (link.length != 0) {
            plain += plain_words(link.shown);
            text.remove_prefix(link.length);
            continue;
        }
        const char letter = text.front();
        in_code = in_code != (letter == '`');
        if (letter != '`' && (letter != '*' || in_code))
            plain += letter;
        text.remove_prefix(1);
    }
    return plain;
}

// The length of a list item's marker with the blank behind it; 0: no list item.
std::size_t marker_length(std::string_view line) {
    if (line.starts_with("- "))
        return 2;
    const auto digits = std::min(line.find_first_not_of("0123456789"), line.size());
    return digits > 0 && line.substr(digits).starts_with(". ") ? digits + 2 : 0;
}

class TextWriter {
public:
    explicit TextWriter(std::size_t width) : m_width(width) {}

    void add(std::string_view line) {
        if (line.starts_with("```")) {
            flush();
            m_fenced = !m_fenced;
        } else if (m_fenced || (m_words.empty() && line.starts_with("    "))) {
            flush();
            m_text.append(m_fenced ? "    " : "").append(line) += '\n';
        } else {
            add_flowing(line);
        }
    }

    std::string finish() {
        flush();
        return std::move(m_text);
    }

private:
    void add_flowing(std::string_view line) {
        const auto start = std::min(line.find_first_not_of(' '), line.size());
        const std::string_view words = line.substr(start);
        const std::size_t marker = marker_length(words);
        if (words.empty()) {
            flush();
            add_gap();
        } else if (words.starts_with('#')) {
            add_heading(words);
        } else if (words.starts_with("![")) {
            flush(); // pictures have no place in a terminal
        } else if (words.starts_with('|')) {
            add_row(words);
        } else {
            if (marker != 0)
                begin_item(words.substr(0, marker), start);
            m_words.append(m_words.empty() ? "" : " ").append(words.substr(marker));
        }
    }

    void begin_item(std::string_view marker, std::size_t start) {
        flush();
        m_lead = std::string(start + 2, ' ') + std::string(marker);
        m_indent = m_lead.size();
    }

    void add_heading(std::string_view line) {
        flush();
        const auto level = std::min(line.find_first_not_of('#'), line.size());
        const std::string title = plain_words(line.substr(std::min(level + 1, line.size())));
        m_text += title + '\n';
        m_text += std::string(letters_in(title), level == 1 ? '=' : '-') + '\n';
    }

    // A row is written as it stands, without the line that parts the table's head from the rest.
    void add_row(std::string_view line) {
        flush();
        if (line.find_first_not_of("|-: ") == std::string_view::npos)
            return;
        m_words = line.substr(1);
        std::ranges::replace(m_words, '|', ':');
        while (!m_words.empty() && (m_words.back() == ':' || m_words.back() == ' '))
            m_words.pop_back();
        m_words.erase(0, std::min(m_words.find_first_not_of(' '), m_words.size()));
        if (const auto end = m_words.find(" :"); end != std::string::npos)
            m_words.erase(end, 1);
        m_lead = "  ";
        m_indent = 4;
        flush();
    }

    void add_gap() {
        if (!m_text.empty() && !m_text.ends_with("\n\n"))
            m_text += '\n';
    }

    // Writes the words that were gathered, folded at the width.
    void flush() {
        const std::string words = plain_words(m_words);
        std::string line = m_lead;
        bool has_words = false;
        for (std::size_t at = 0; at < words.size();) {
            const auto end = std::min(words.find(' ', at), words.size());
            const std::string word = words.substr(at, end - at);
            at = end + 1;
            if (word.empty())
                continue;
            if (has_words && letters_in(line) + 1 + letters_in(word) > m_width) {
                m_text += line + '\n';
                line = std::string(m_indent, ' ');
                has_words = false;
            }
            line.append(has_words ? " " : "").append(word);
            has_words = true;
        }
        if (has_words)
            m_text += line + '\n';
        m_words.clear();
        m_lead.clear();
        m_indent = 0;
    }

    std::size_t m_width;
    std::string m_text;
    std::string m_words; // of the paragraph, item or row under way
    std::string m_lead;  // what stands in front of its first line
    std::size_t m_indent = 0;
    bool m_fenced = false;
};

} // namespace

std::string markdown_as_text(std::string_view markdown, std::size_t width) {
    TextWriter writer(width);
    while (!markdown.empty()) {
        const auto end = std::min(markdown.find('\n'), markdown.size());
        writer.add(markdown.substr(0, end));
        markdown.remove_prefix(std::min(end + 1, markdown.size()));
    }
    return writer.finish();
}

} // namespace tickervantage
