#include "help/help_topics.h"

#include <algorithm>
#include <array>

namespace tickervantage {
namespace {

constexpr std::array<HelpTopic, 8> topics{{{"first-use", "First steps"},
                                           {"windows", "The windows"},
                                           {"laboratory", "The clock laboratory"},
                                           {"faq", "Questions and answers"},
                                           {"chronywake", "chronywake"},
                                           {"chrony.conf", "chrony.conf(5)", 5},
                                           {"chronyc", "chronyc(1)", 1},
                                           {"chronyd", "chronyd(8)", 8}}};

constexpr std::string_view scheme = "help:";
constexpr std::string_view own_suffix = ".md";

bool is_plain(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') ||
           static_cast<unsigned char>(letter) >= 0x80U;
}

} // namespace

std::span<const HelpTopic> help_topics() {
    return topics;
}

const HelpTopic* find_help_topic(std::string_view name) {
    const auto* const found = std::ranges::find(topics, name, &HelpTopic::name);
    return found == topics.end() ? nullptr : found;
}

HelpTarget help_target(std::string_view link) {
    const auto hash = link.find('#');
    HelpTarget target;
    if (hash != std::string_view::npos)
        target.place = link.substr(hash + 1);
    std::string_view page = link.substr(0, hash);
    if (page.empty()) {
        target.is_in_help = !target.place.empty();
        return target;
    }
    if (page.starts_with(scheme))
        page.remove_prefix(scheme.size());
    else if (page.ends_with(own_suffix))
        page.remove_suffix(own_suffix.size());
    else
        return {};
    target.topic = find_help_topic(page);
    target.is_in_help = target.topic != nullptr;
    return target.is_in_help ? target : HelpTarget{};
}

std::string heading_name(std::string_view heading) {
    std::string name;
    for (const char letter : heading) {
        const char lower = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        if (is_plain(lower))
            name += lower;
        else if ((letter == ' ' || letter == '-' || letter == '_') && !name.empty())
            name += '-';
    }
    return name;
}

} // namespace tickervantage
