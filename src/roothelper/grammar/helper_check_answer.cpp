#include "roothelper/grammar/helper_content.h"

#include "roothelper/grammar/helper_words.h"

namespace tickervantage {
namespace {

// Whether each path that the message names is one that the caller wrote: others come from files that the caller may not
// be able to read.
bool names_own_paths_only(std::string_view message, std::string_view text) {
    while (!message.empty()) {
        const auto word = message.substr(0, message.find(' '));
        message.remove_prefix(std::min(word.size() + 1, message.size()));
        if (word.find('/') != std::string_view::npos && text.find(word) == std::string_view::npos)
            return false;
    }
    return true;
}

} // namespace

std::string chronyd_refusal(std::string_view errors, std::string_view path, std::string_view text) {
    constexpr std::string_view mark = "Fatal error : ";
    constexpr std::string_view place = " in file ";
    const std::string start = "chronyd does not accept this configuration";
    const auto from = errors.find(mark);
    if (from == std::string_view::npos)
        return start + ".";
    auto message = errors.substr(from);
    message = message.substr(0, message.find('\n'));
    const auto at = message.rfind(place);
    const bool is_elsewhere = at != std::string_view::npos && message.substr(at + place.size()) != path;
    if (at != std::string_view::npos)
        message = message.substr(0, at); // the name of the file on its way says nothing
    if (!is_printable(message) || !names_own_paths_only(message, text))
        return start + ": a file that it includes is missing or cannot be read.";
    return (is_elsewhere ? "chronyd does not accept a file that this configuration includes" : start) + ": " +
           std::string(message) + ".";
}

} // namespace tickervantage
