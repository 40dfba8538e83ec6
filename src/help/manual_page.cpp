#include "help/manual_page.h"

#include <cctype>

namespace tickervantage {
namespace {

constexpr char tag_end = '>';

std::string reference_to(const HelpTopic& topic) {
    return std::string(topic.name) + "(" + std::to_string(topic.manual_section) + ")";
}

// "<table class="head">" to its end; the name and section are in the window's list already.
void remove_head_table(std::string& html) {
    const auto start = html.find("<table class=\"head\"");
    const auto end = html.find("</table>", start == std::string::npos ? 0 : start);
    if (start != std::string::npos && end != std::string::npos)
        html.erase(start, end + std::string_view("</table>").size() - start);
}

// A heading is a link to itself for browsers; here it would only look like one.
std::string without_permalinks(std::string_view html) {
    constexpr std::string_view opening = "<a class=\"permalink\"";
    constexpr std::string_view closing = "</a>";
    std::string plain;
    while (true) {
        const auto start = html.find(opening);
        const auto text = start == std::string_view::npos ? start : html.find(tag_end, start);
        const auto end = text == std::string_view::npos ? text : html.find(closing, text);
        if (end == std::string_view::npos)
            return plain.append(html);
        plain.append(html.substr(0, start)).append(html.substr(text + 1, end - text - 1));
        html.remove_prefix(end + closing.size());
    }
}

// h1 becomes h2 and so on: the page's title is the one heading of the first level.
void lower_headings(std::string& html) {
    for (std::size_t at = html.find('h'); at != std::string::npos; at = html.find('h', at + 1)) {
        const bool opens = at >= 1 && html[at - 1] == '<';
        const bool closes = at >= 2 && html[at - 1] == '/' && html[at - 2] == '<';
        const char level = at + 2 < html.size() ? html[at + 1] : '\0';
        const bool ends = level != '\0' && (html[at + 2] == ' ' || html[at + 2] == '>');
        if ((opens || closes) && ends && level >= '1' && level <= '5')
            ++html[at + 1];
    }
}

bool continues_name(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '.' || letter == '-' || letter == '_';
}

// Never inside a tag: names stand in attributes as well.
bool is_inside_tag(std::string_view html, std::size_t at) {
    const auto opened = html.rfind('<', at);
    const auto closed = html.rfind('>', at);
    return opened != std::string_view::npos && (closed == std::string_view::npos || closed < opened);
}

std::string with_links_to(const HelpTopic& topic, std::string_view html) {
    const std::string name = reference_to(topic);
    const std::string link = "<a href=\"help:" + std::string(topic.name) + "\">" + name + "</a>";
    std::string linked;
    std::size_t from = 0;
    for (auto at = html.find(name); at != std::string_view::npos; at = html.find(name, from)) {
        const bool whole = at == 0 || !continues_name(html[at - 1]);
        linked.append(html.substr(from, at - from));
        linked += whole && !is_inside_tag(html, at) ? link : name;
        from = at + name.size();
    }
    return linked.append(html.substr(from));
}

// The bytes of the letter in front of `end`, which are taken back.
void remove_last_letter(std::string& text) {
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U)
        text.pop_back();
    if (!text.empty())
        text.pop_back();
}

} // namespace

std::vector<std::string> manual_files(const std::vector<std::string>& roots, const HelpTopic& topic) {
    const std::string section = std::to_string(topic.manual_section);
    std::vector<std::string> files;
    for (const auto& root : roots)
        for (const char* ending : {"", ".gz"})
            files.push_back(root + "/man" + section + "/" + std::string(topic.name) + "." + section + ending);
    return files;
}

std::string adapted_manual(std::string_view html, const HelpTopic& self) {
    std::string page = without_permalinks(html);
    remove_head_table(page);
    lower_headings(page);
    for (const auto& topic : help_topics())
        if (topic.is_manual() && topic.name != self.name)
            page = with_links_to(topic, page);
    return page;
}

std::string without_overstrikes(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (const char letter : text) {
        if (letter == '\b')
            remove_last_letter(plain);
        else
            plain += letter;
    }
    return plain;
}

} // namespace tickervantage
