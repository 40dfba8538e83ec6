#include "base/failure_codes.h"
#include "base/failure_line.h"
#include "base/sentence.h"
#include "support/test.h"

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

TEST(Sentence, ValuesHaveThreeDigitsAndOneUnit) {
    using namespace quantity;
    for (const auto& [value, text] :
         std::vector<std::pair<Quantity, const char*>>{{seconds(2.8149e-6), "2.81 µs"},
                                                       {seconds(9.994e-9), "9.99 ns"},
                                                       {seconds(9.996e-9), "10.0 ns"},
                                                       {seconds(0.09994), "99.9 ms"},
                                                       {seconds(0.09996), "100 ms"},
                                                       {seconds(999.4e-9), "999 ns"},
                                                       {seconds(999.6e-9), "1.00 µs"},
                                                       {seconds(0.9996), "1.00 s"},
                                                       {seconds(-12.5), "-12.5 s"},
                                                       {signed_seconds(2e-3), "+2.00 ms"},
                                                       {signed_seconds(-2e-3), "−2.00 ms"},
                                                       {signed_seconds(0), "+0 s"},
                                                       {{0.5003, QuantityKind::seconds, 5e-4}, "500.3 ms"},
                                                       {{2, QuantityKind::seconds, 0.5}, "2.00 s"},
                                                       {duration(59.4), "59 s"},
                                                       {duration(59.6), "1 min"},
                                                       {duration(61), "1 min 1 s"},
                                                       {duration(3599), "59 min 59 s"},
                                                       {duration(3600), "1 h"},
                                                       {duration(7260), "2 h 1 min"},
                                                       {duration(86399), "23 h 59 min"},
                                                       {duration(86400), "1 d"},
                                                       {duration(93600), "1 d 2 h"},
                                                       {duration(-5), "0 s"},
                                                       {{12.345, QuantityKind::parts_per_million}, "12.3 ppm"},
                                                       {count(7.4), "7"}})
        EXPECT_EQ(text_of(value), text);
    EXPECT_EQ(text_of(seconds(2.8149e-6), ","), "2,81 µs");
}

TEST(Sentence, IsFilledWithHarmlessValues) {
    const auto said = [](const char* words, const std::string& one) {
        return english(Sentence{.words = words, .values = {one, quantity::count(3)}});
    };
    EXPECT_EQ(said("%1 of %2: %3 %0 100%", "a\x1b%2\x7f"), "a.%2. of 3: %3 %0 100%");
    const std::string full(99, 'n');
    EXPECT_EQ(said("%1", full + "o"), full + "o");
    EXPECT_EQ(said("%1", full + "op"), full + "o…");
    EXPECT_EQ(said("%1", full + "öp"), full + "…") << "no half letter";
}

} // namespace
} // namespace tickervantage
