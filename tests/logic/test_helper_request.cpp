#include "roothelper/grammar/helper_quota.h"
#include "roothelper/grammar/helper_request.h"
#include "roothelper/grammar/helper_tokens.h"
#include "roothelper/grammar/helper_words.h"
#include "support/hostile_requests.h"
#include "support/kept_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

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
constexpr const char* LINES = R"(TOOL stopchrony
"OWN" startchrony
TOOL stopwake
TOOL guardchrony
TOOL resumechrony
TOOL checkitem "/b/c" "/etc/chrony.d/chrony.conf" "root:wheel" "0644"
TOOL startwake
TOOL installitem "/run/user/1/t v/ü.conf" "/etc/chrony.d/chrony.conf" "root:wheel" "0644"
TOOL installitem "/b/chronyd" "/usr/local/sbin/chronyd" "root:wheel" "0755"
TOOL removeitem "/usr/local/bin/chronylogrotate.sh"
TOOL removeitem "/run/chrony/chronyd.sock"
TOOL restoreformer "/etc/chrony.d/chrony.conf"
TOOL createdirectory "" "/etc/chrony.d"
TOOL createdirectory /var/log/chrony/
TOOL adduser _chrony
TOOL steptime -1.5
TOOL steptime 1e-05
TOOL rotatelogs "/usr/local/bin/chronylogrotate.sh" "/var/log/chrony"
/bin/sh -c '/usr/local/bin/chronyc -n  ntpdata 192.0.2.1' 2>&1
/bin/sh -c '/usr/bin/chronyc serverstats' 2>&1
/bin/sh -c '/usr/bin/chronyc -n  -N authdata -a' 2>&1
/bin/sh -c '/usr/bin/chronyc -N selectdata' 2>&1
/bin/sh -c '/usr/bin/chronyc clients' 2>&1
/bin/sh -c '/usr/bin/chronyc -n -c -m "selectdata -a" "authdata -a" ntpdata serverstats' 2>&1
/bin/sh -c '/usr/local/sbin/chronyd -t 120 -q "server fe80::1%eth0 iburst"' 2>&1
/bin/sh -c '/usr/sbin/chronyd -t 1 -q "server a.example nts iburst"' 2>&1
/usr/local/bin/chronywake
/usr/bin/pgrep -l -f chronyd
/bin/launchctl bootout system /Library/LaunchDaemons/org.tuxfamily.chronyd.plist
/bin/systemctl enable --now org.chrony-project.logrotate.timer
/bin/systemctl status --no-pager --lines=20 chrony.service
/bin/systemctl daemon-reload
rm -f /etc/systemd/system/org.tuxfamily.chronyc.service
chmod 0755 /var/log/chrony//tracking.log
)";

TEST(HelperRequest, EveryLineOfTheApplicationBecomesItsArguments) {
    std::istringstream lines(LINES);
    std::string told;
    for (std::string line; std::getline(lines, line);) {
        told += line + "\n  ";
        if (line.starts_with("TOOL"))
            line.replace(0, 4, "\"" + spelled + "\"");
        if (line.starts_with("\"OWN"))
            line.replace(1, 3, own);
        const auto request = parse_helper_request("EXECUTE " + line, rules());
        ASSERT_TRUE(request) << line << ": " << english(request.error());
        told += std::string(helper_verb_name(request->verb));
        for (const auto& argument : request->argv)
            told += "|" + argument;
        told += "\n";
    }
    testing::expect_as_kept(told, "requests");
    const auto quit = parse_helper_request("QUIT", rules());
    EXPECT_TRUE(quit && quit->verb == HelperVerb::quit);
}

TEST(HelperRequest, HostileLinesAreRefusedInOneSentence) {
    std::string told;
    for (const auto& line : testing::hostile_requests(spelled)) {
        const auto request = parse_helper_request(line, rules());
        ASSERT_FALSE(request) << line;
        const auto sentence = english(request.error());
        told += sentence + "\n";
        EXPECT_TRUE(sentence.ends_with('.') && std::ranges::count(sentence, '.') == 1) << line << ": " << sentence;
    }
    testing::expect_as_kept(told, "refusals");
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
