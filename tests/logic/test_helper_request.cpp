#include "roothelper/grammar/helper_quota.h"
#include "roothelper/grammar/helper_request.h"
#include "roothelper/grammar/helper_tokens.h"
#include "roothelper/grammar/helper_words.h"
#include "support/hostile_requests.h"
#include "support/kept_text.h"
#include "support/test.h"

namespace tickervantage {
namespace {

const std::string spelled = "/home/me/Tickervantage.app/Contents/MacOS/chronysupport";
const std::string own = "/usr/lib/tickervantage/Tickervantage.app/Contents/MacOS/chronysupport";

HelperRules rules() {
    HelperRules result;
    result.tools = {spelled};
    return result;
}

// TOOL is the support tool where the application has it, in quotes; OWN where the helper has it.
TEST(HelperRequest, EveryLineOfTheApplicationBecomesItsArguments) {
    testing::expect_answers_as_kept("requests", [](std::string line) {
        if (line.starts_with("TOOL"))
            line.replace(0, 4, "\"" + spelled + "\"");
        if (line.starts_with("\"OWN"))
            line.replace(1, 3, own);
        const auto request = parse_helper_request("EXECUTE " + line, rules());
        if (!request)
            return "  " + english(request.error()) + "\n";
        std::string told = "  " + std::string(helper_verb_name(request->verb));
        for (const auto& argument : request->argv)
            told += "|" + argument;
        return told + "\n";
    });
    const auto quit = parse_helper_request("QUIT", rules());
    EXPECT_TRUE(quit && quit->verb == HelperVerb::quit);
}

TEST(HelperRequest, HostileLinesAreRefusedInOneSentence) {
    testing::expect_answers_as_kept("refusals", [](const std::string& line) {
        const auto request = parse_helper_request(testing::request_in(line, spelled), rules());
        const auto sentence = request ? "It is admitted" : english(request.error());
        EXPECT_TRUE(sentence.ends_with('.') && std::ranges::count(sentence, '.') == 1) << line << ": " << sentence;
        return "  " + sentence + "\n";
    });
}

TEST(HelperRules, AreTakenAsAWholeOrNotAtAll) {
    auto extended = rules();
    ASSERT_TRUE(add_rules("# ours\n\nchronyd /opt/chrony/chronyd\n idle-seconds\t5 \ntool //x/y/\n", extended));
    EXPECT_EQ(extended.chronyd.back(), "/opt/chrony/chronyd");
    EXPECT_EQ(extended.tools.back(), "/x/y");
    EXPECT_EQ(extended.idle, std::chrono::seconds(5));
    for (const char* text : {"chronyd relative", "chronyd /a/../b", "chronyd", "shell /bin/sh", "idle-seconds 0",
                             "idle-seconds 1x", "chronyc /a\nuser root", "tool /"}) {
        const auto before = extended.chronyc.size();
        EXPECT_FALSE(add_rules(text, extended)) << text;
        EXPECT_EQ(extended.chronyc.size(), before) << text;
    }
}

TEST(HelperWords, BytesBecomeWhatTheBusCanCarry) {
    EXPECT_EQ(as_valid_text("a\xff"
                            "b\xc3",
                            100),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
    EXPECT_EQ(as_valid_text(std::string_view("a\0b", 3), 100), "a\xEF\xBF\xBD"
                                                               "b");
    EXPECT_EQ(as_valid_text("\xed\xa0\x80", 100).size(), 9U) << "half a surrogate is no character";
    EXPECT_EQ(as_valid_text("aü", 2), "a") << "a character is never cut";
}

TEST(HelperTokens, HoldForOneConnectionOfOneProcessOnly) {
    const HelperCaller caller{.name = ":1.7", .user = 1000, .process = 42, .process_start = 99};
    helper::Token token{};
    token.back() = 7;
    const std::string bytes(token.begin(), token.end());
    HelperTokens written;
    written.put(caller, token, 0);
    HelperTokens tokens;
    tokens.read("damaged line\n:1.9 1 1 1 1 abc\n" + written.written());
    ASSERT_EQ(tokens.callers(), std::vector{caller});

    const auto other = [&caller](auto change) {
        auto result = caller;
        change(result);
        return result;
    };
    for (const auto& thief : {other([](auto& c) { c.name = ":1.8"; }), other([](auto& c) { c.user = 0; }),
                              other([](auto& c) { c.process = 43; }), other([](auto& c) { c.process_start = 100; }),
                              other([](auto& c) { c.process_start = 0; })})
        EXPECT_FALSE(tokens.accepts(thief, bytes, 1)) << thief.name << ' ' << thief.process_start;
    auto wrong = bytes;
    wrong.front() = 1;
    for (const auto& guess : {wrong, bytes.substr(1), bytes + '\0', std::string()})
        EXPECT_FALSE(tokens.accepts(caller, guess, 1));

    const auto life = HelperTokens::lifetime_seconds;
    EXPECT_TRUE(tokens.accepts(caller, bytes, life - 1));
    EXPECT_TRUE(tokens.accepts(caller, bytes, 2 * life - 2)) << "use lengthens its life";
    EXPECT_FALSE(tokens.accepts(caller, bytes, 3 * life - 2));
    EXPECT_TRUE(tokens.drop(caller.name));
    EXPECT_FALSE(tokens.accepts(caller, bytes, 0));

    const auto nobody = other([](auto& c) { c.process_start = 0; });
    tokens.put(nobody, token, 0);
    EXPECT_FALSE(tokens.accepts(nobody, bytes, 1)) << "any process may have this number by now";
    EXPECT_FALSE(tokens.token_of(nobody, 1));
}

TEST(HelperQuota, RefusalsAreToldOncePerConnectionAndThenCounted) {
    RefusalCounts counts;
    unsigned lines = 0;
    for (int round = 0; round < 1000; ++round)
        for (int sender = 0; sender < 200; ++sender)
            lines += counts.add(":1." + std::to_string(sender)) ? 1U : 0U;
    EXPECT_EQ(lines, RefusalCounts::most_senders);
    std::uint64_t counted = 0;
    for (const auto& [sender, count] : counts.take())
        counted += count;
    EXPECT_EQ(lines + counted, 200'000U) << "none is forgotten";
    EXPECT_TRUE(counts.take().empty());
    EXPECT_TRUE(counts.add(":1.1")) << "a new minute";
}

TEST(HelperQuota, PolkitIsAskedInVainTenTimesAMinuteForEachUser) {
    AskQuota quota;
    for (unsigned refusal = 0; refusal < AskQuota::most_refusals; ++refusal) {
        EXPECT_TRUE(quota.may_ask(1000));
        quota.note_refusal(1000);
    }
    EXPECT_FALSE(quota.may_ask(1000));
    EXPECT_TRUE(quota.may_ask(1001));
    quota.new_minute();
    EXPECT_TRUE(quota.may_ask(1000));
}

} // namespace
} // namespace tickervantage
