#include "roothelper/grammar/helper_content.h"

#include "base/failure_codes.h"
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

Failure because(FailureCode code, Failure cause) {
    return {.code = code, .cause = std::make_shared<const Failure>(std::move(cause))};
}

} // namespace

Failure chronyd_refusal(std::string_view errors, std::string_view path, std::string_view text) {
    constexpr std::string_view mark = "Fatal error : ";
    constexpr std::string_view place = " in file ";
    const auto from = errors.find(mark);
    if (from == std::string_view::npos)
        return {.code = FailureCode::chronyd_rejects};
    auto message = errors.substr(from);
    message = message.substr(0, message.find('\n'));
    const auto at = message.rfind(place);
    const bool is_elsewhere = at != std::string_view::npos && message.substr(at + place.size()) != path;
    if (at != std::string_view::npos)
        message = message.substr(0, at); // the name of the file on its way says nothing
    if (!is_printable(message) || !names_own_paths_only(message, text))
        return because(FailureCode::chronyd_rejects, {.code = FailureCode::included_file_unreadable});
    return because(is_elsewhere ? FailureCode::chronyd_rejects_included : FailureCode::chronyd_rejects,
                   said_by_others(std::string(message)));
}

} // namespace tickervantage
