#include "base/failure.h"

#include "base/failure_codes.h"
#include "base/translatable.h" // IWYU pragma: keep

#include <array>
#include <charconv>
#include <cstring>
#include <utility>

namespace tickervantage {
namespace {

constexpr auto english_words = std::to_array<const char*>({
#define TV_FAILURE(code, words) words,
#include "base/failure_table.h" // IWYU pragma: keep
#undef TV_FAILURE
});

std::string english_of_code(FailureCode code) {
    return words_of(code);
}

// Not strerror, which speaks the language of the process.
std::string english_of_errno(int error) {
    const char* words = ::strerrordesc_np(error);
    return words != nullptr ? words : "error " + std::to_string(error);
}

int number_in(const Failure& failure) {
    int number = 0;
    if (!failure.arguments.empty()) {
        const std::string& text = failure.arguments.front();
        std::from_chars(text.data(), text.data() + text.size(), number);
    }
    return number;
}

std::string without_full_stop(std::string sentence) {
    if (sentence.ends_with('.'))
        sentence.pop_back();
    return sentence;
}

// Once through the words, so that a percent sign in a value stays one.
std::string filled(std::string_view words, const std::vector<std::string>& arguments, const std::string& cause) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const char next = words[i] == '%' && i + 1 < words.size() ? words[i + 1] : '\0';
        if (next == 'c') {
            text += without_full_stop(cause);
            ++i;
        } else if (next >= '1' && next <= '9') {
            const auto number = static_cast<std::size_t>(next - '1');
            text += number < arguments.size() ? arguments[number] : std::string();
            ++i;
        } else {
            text += words[i];
        }
    }
    return text;
}

// What stands before a cause goes with it: "Cannot read a." in place of "Cannot read a: %c.".
std::string without_place_of_cause(std::string words) {
    constexpr std::string_view place = ": %c";
    if (const auto at = words.find(place); at != std::string::npos)
        words.erase(at, place.size());
    return words;
}

} // namespace

bool operator==(const Failure& one, const Failure& other) {
    const bool same_cause =
        one.cause == nullptr || other.cause == nullptr ? one.cause == other.cause : *one.cause == *other.cause;
    return one.code == other.code && one.arguments == other.arguments && same_cause;
}

tl::unexpected<Failure> failed(FailureCode code, std::vector<std::string> arguments) {
    return tl::unexpected(Failure{.code = code, .arguments = std::move(arguments)});
}

tl::unexpected<Failure> failed(FailureCode code, std::vector<std::string> arguments, Failure cause) {
    return tl::unexpected(Failure{
        .code = code, .arguments = std::move(arguments), .cause = std::make_shared<const Failure>(std::move(cause))});
}

tl::unexpected<Failure> failed(FailureCode code, std::vector<std::string> arguments, int error) {
    return failed(code, std::move(arguments), system_failure(error));
}

Failure system_failure(int error) {
    return {.code = FailureCode::system_error, .arguments = {std::to_string(error)}};
}

Failure said_by_others(std::string words) {
    return {.code = FailureCode::others_words, .arguments = {std::move(words)}};
}

const char* words_of(FailureCode code) {
    return english_words.at(static_cast<std::size_t>(code));
}

std::string put_into_words(const Failure& failure, const FailureLanguage& language) {
    if (failure.code == FailureCode::system_error)
        return language.system_words(number_in(failure));
    const std::string words = language.words(failure.code);
    const std::string cause = failure.cause == nullptr ? std::string() : put_into_words(*failure.cause, language);
    if (cause.empty())
        return filled(without_place_of_cause(words), failure.arguments, {});
    const std::string text = filled(words, failure.arguments, cause);
    return words.find("%c") != std::string::npos ? text : text + ' ' + cause;
}

std::string english(const Failure& failure) {
    return put_into_words(failure, {.words = english_of_code, .system_words = english_of_errno});
}

} // namespace tickervantage
