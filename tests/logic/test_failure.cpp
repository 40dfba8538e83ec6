#include "base/failure_codes.h"
#include "base/failure_line.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace tickervantage {
namespace {

Failure made(tl::unexpected<Failure> failure) {
    return std::move(failure).value();
}

TEST(Failure, IsPutIntoEnglishWithItsCause) {
    const Failure denied = made(failed(FailureCode::cannot_write, {"/etc/a"}, EACCES));
    EXPECT_EQ(english(denied), "Cannot write /etc/a: Permission denied.");
    EXPECT_EQ(english(made(failed(FailureCode::cannot_read, {"b"}, denied))),
              "Cannot read b: Cannot write /etc/a: Permission denied.");
    EXPECT_EQ(english(made(failed(FailureCode::is_folder, {}, denied))),
              "it is a folder Cannot write /etc/a: Permission denied.");
    EXPECT_EQ(english(said_by_others("100% %1 %c")), "100% %1 %c");
    EXPECT_EQ(english(made(failed(FailureCode::cannot_read, {"%c %1 100%"}, said_by_others("no.")))),
              "Cannot read %c %1 100%: no.");
    EXPECT_EQ(english(made(failed(FailureCode::cannot_read))), "Cannot read .") << "nothing is read beyond the end";
}

TEST(Failure, TravelsAsALine) {
    const Failure inner = made(failed(FailureCode::cannot_write, {"", "b", ""}, ENOSPC));
    const Failure outer = made(failed(FailureCode::cannot_read, {}, inner));
    for (const Failure& failure : {inner, outer, made(failed(FailureCode::is_folder))}) {
        const auto back = failure_in(to_line(failure));
        ASSERT_TRUE(back) << to_line(failure);
        EXPECT_EQ(*back, failure) << to_line(failure);
    }
    EXPECT_EQ(failure_in(to_line(said_by_others("a\tb\nc\x1e"
                                                "d"))),
              said_by_others("a b c d"));
    for (const char* line : {"", "\t", "frobnicated", "cannot_read\ta\x1e",
                             "cannot_read\x1e"
                             "frobnicated",
                             " cannot_read"})
        EXPECT_FALSE(failure_in(line)) << line;
    EXPECT_FALSE(failure_in("cannot_read\t" + std::string(20000, 'a')));
}

TEST(Failure, IsTakenOutOfWhatAProgramPrinted) {
    const Failure failure = made(failed(FailureCode::cannot_write, {"/etc/a"}, ENOSPC));
    for (const std::string words : {"", "Cannot write /etc/a.\n", "two\nlines\n"}) {
        std::string output = words + marked_line(failure);
        EXPECT_EQ(take_failure(output), failure) << words;
        EXPECT_EQ(output, words);
    }
    const std::string line = marked_line(failure);
    for (const std::string& output : {std::string(), std::string("Cannot write.\n"), "in the middle " + line,
                                      line + "more", line.substr(0, line.size() - 1)}) {
        auto left = output;
        EXPECT_FALSE(take_failure(left)) << output;
        EXPECT_EQ(left, output);
    }
}

} // namespace
} // namespace tickervantage
