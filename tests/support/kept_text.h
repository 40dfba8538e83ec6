// Texts that somebody looked at once, and that stay as they were until somebody looks again: tests/logic/kept.
//
// Where a text is to change, run the tests with TICKERVANTAGE_APPROVE=1 in the environment, which writes it anew, and
// look at what changed.
#pragma once

#include "support/test.h"

namespace tickervantage::testing {

// Whether two texts are the same, but that numbers may differ by so much.
[[nodiscard]] inline bool are_alike(const std::string& one, const std::string& other, double rounding) {
    const auto begins_number = [](const char* at) {
        return std::isdigit(static_cast<unsigned char>(at[*at == '-' ? 1 : 0])) != 0;
    };
    const char* a = one.c_str();
    const char* b = other.c_str();
    while (*a != '\0' && *b != '\0') {
        if (begins_number(a) && begins_number(b)) {
            char* after_a = nullptr;
            char* after_b = nullptr;
            if (std::abs(std::strtod(a, &after_a) - std::strtod(b, &after_b)) > rounding)
                return false;
            a = after_a;
            b = after_b;
        } else if (*a++ != *b++) {
            return false;
        }
    }
    return *a == *b;
}

inline void expect_as_kept(const std::string& told, const std::string& name, double rounding = 0) {
    const std::string path = std::string(KEPT_TEXTS) + "/" + name + ".txt";
    if (std::getenv("TICKERVANTAGE_APPROVE") != nullptr) // NOLINT(concurrency-mt-unsafe): nobody changes it
        std::ofstream(path) << told;
    std::ifstream file(path);
    const std::string kept{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(are_alike(told, kept, rounding)) << path << " is not what it is now:\n" << told;
}

// A kept text of questions, each in a line of its own with its answers below it, indented: all are answered anew.
template <class Answer>
void expect_answers_as_kept(const std::string& name, Answer answer) {
    std::ifstream file(std::string(KEPT_TEXTS) + "/" + name + ".txt");
    std::string told;
    for (std::string line; std::getline(file, line);)
        if (!line.starts_with("  "))
            told += line + "\n" + answer(line);
    EXPECT_NE(told, "") << "no question in " << name;
    expect_as_kept(told, name);
}

} // namespace tickervantage::testing
