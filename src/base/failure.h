// Why something was not done: a record made where it went wrong, put into words by whoever shows it.
//
// The words of each code, with %1, %2, … for its arguments and %c for its cause, stand in failure_table.h. English, for
// logs, JSON and the command line, are made here; qt/in_words.h makes those of the user's language.
#pragma once

#include <tl/expected.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// Listed in failure_codes.h, which only those need who make or look at a certain failure.
enum class FailureCode : unsigned short;

struct Failure {
    FailureCode code{};
    std::vector<std::string> arguments = {};   // paths, numbers, and words of others that have no translation
    std::shared_ptr<const Failure> cause = {}; // none: it began here

    // By content, with all that it was caused by.
    friend bool operator==(const Failure& one, const Failure& other);
};

// What a function returns that may fail: its value, or why there is none. Threads: a value as any other.
template <typename Value = void>
using Result = tl::expected<Value, Failure>;

// For `return failed(…)` in a function that returns a Result.
[[nodiscard]] tl::unexpected<Failure> failed(FailureCode code, std::vector<std::string> arguments = {});
[[nodiscard]] tl::unexpected<Failure> failed(FailureCode code, std::vector<std::string> arguments, Failure cause);

// Because of the kernel: `error` is an errno.
[[nodiscard]] tl::unexpected<Failure> failed(FailureCode code, std::vector<std::string> arguments, int error);

// The words of another program, of chronyd or of systemd, which are shown as they are.
[[nodiscard]] Failure said_by_others(std::string words);

// One or more English sentences.
[[nodiscard]] std::string english(const Failure& failure);

// The words of a code, as translators see them: "Cannot read %1: %c.".
[[nodiscard]] const char* words_of(FailureCode code);

// A failure's parts put into its words. `words` gives the words of a code, `system_words` those of an errno; both
// fronts share what is done with a cause: it stands in the place of %c without its full stop, else behind the sentence;
// without a cause ": %c" goes.
struct FailureLanguage {
    std::string (*words)(FailureCode code);
    std::string (*system_words)(int error);
};
[[nodiscard]] std::string put_into_words(const Failure& failure, const FailureLanguage& language);

} // namespace tickervantage
