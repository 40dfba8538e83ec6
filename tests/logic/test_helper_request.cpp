#include "roothelper/grammar/helper_quota.h"
#include "roothelper/grammar/helper_request.h"
#include "roothelper/grammar/helper_tokens.h"
#include "roothelper/grammar/helper_words.h"
#include "support/hostile_requests.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tickervantage {
namespace {

using Argv = std::vector<std::string>;

const std::string spelled = "/home/me/Tickervantage.app/Contents/MacOS/chronysupport";
const std::string own = "/usr/lib/tickervantage/Tickervantage.app/Contents/MacOS/chronysupport";

HelperRules rules() {
    HelperRules result;
    result.tools = {spelled};
    return result;
}

TEST(HelperRequest, EveryLineOfTheApplicationBecomesItsArguments) {
    const std::string run = "\"" + spelled + "\" ";
    const std::string conf = "/etc/chrony.d/chrony.conf";
    const std::string log = "/var/log/chrony";
    const struct {
        std::string line;
        HelperVerb verb;
        Argv argv;
    } cases[] = {
        {run + "stopchrony", HelperVerb::stop_chrony, {own, "stopchrony"}},
        {"\"" + own + "\" startchrony", HelperVerb::start_chrony, {own, "startchrony"}},
        {run + "stopwake", HelperVerb::stop_wake, {own, "stopwake"}},
        {run + "guardchrony", HelperVerb::guard_chrony, {own, "guardchrony"}},
        {run + "resumechrony", HelperVerb::resume_chrony, {own, "resumechrony"}},
        {run + "checkitem \"/b/c\" \"" + conf + "\" \"root:wheel\" \"0644\"",
         HelperVerb::check_item,
         {own, "checkitem", "/b/c", conf, "root:wheel", "0644"}},
        {run + "startwake", HelperVerb::start_wake, {own, "startwake"}},
        {run + "installitem \"/run/user/1/t v/ü.conf\" \"" + conf + "\" \"root:wheel\" \"0644\"",
         HelperVerb::install_item,
         {own, "installitem", "/run/user/1/t v/ü.conf", conf, "root:wheel", "0644"}},
        {run + "installitem \"/b/chronyd\" \"/usr/local/sbin/chronyd\" \"root:wheel\" \"0755\"",
         HelperVerb::install_item,
         {own, "installitem", "/b/chronyd", "/usr/local/sbin/chronyd", "root:wheel", "0755"}},
        {run + "removeitem \"/usr/local/bin/chronylogrotate.sh\"",
         HelperVerb::remove_item,
         {own, "removeitem", "/usr/local/bin/chronylogrotate.sh"}},
        {run + "removeitem \"/run/chrony/chronyd.sock\"",
         HelperVerb::remove_item,
         {own, "removeitem", "/run/chrony/chronyd.sock"}},
        {run + "restoreformer \"" + conf + "\"", HelperVerb::restore_former, {own, "restoreformer", conf}},
        {run + "createdirectory \"\" \"/etc/chrony.d\"",
         HelperVerb::create_directory,
         {own, "createdirectory", "", "/etc/chrony.d"}},
        {run + "createdirectory /var/log/chrony/",
         HelperVerb::create_directory,
         {own, "createdirectory", "/var/log/chrony/"}},
        {run + "adduser _chrony", HelperVerb::add_user, {own, "adduser", "_chrony"}},
        {run + "steptime -1.5", HelperVerb::step_time, {own, "steptime", "-1.5"}},
        {run + "steptime 1e-05", HelperVerb::step_time, {own, "steptime", "1e-05"}},
        {run + "rotatelogs \"/usr/local/bin/chronylogrotate.sh\" \"" + log + "\"",
         HelperVerb::rotate_logs,
         {own, "rotatelogs", "/usr/local/bin/chronylogrotate.sh", log}},
        {"/bin/sh -c '/usr/local/bin/chronyc -n  ntpdata 192.0.2.1' 2>&1",
         HelperVerb::chronyc_report,
         {"/usr/local/bin/chronyc", "-n", "ntpdata", "192.0.2.1"}},
        {"/bin/sh -c '/usr/bin/chronyc serverstats' 2>&1",
         HelperVerb::chronyc_report,
         {"/usr/bin/chronyc", "serverstats"}},
        {"/bin/sh -c '/usr/bin/chronyc -n  -N authdata -a' 2>&1",
         HelperVerb::chronyc_report,
         {"/usr/bin/chronyc", "-n", "-N", "authdata", "-a"}},
        {"/bin/sh -c '/usr/bin/chronyc -N selectdata' 2>&1",
         HelperVerb::chronyc_report,
         {"/usr/bin/chronyc", "-N", "selectdata"}},
        {"/bin/sh -c '/usr/bin/chronyc serverstats' 2>&1",
         HelperVerb::chronyc_report,
         {"/usr/bin/chronyc", "serverstats"}},
        {"/bin/sh -c '/usr/bin/chronyc clients' 2>&1", HelperVerb::chronyc_report, {"/usr/bin/chronyc", "clients"}},
        {"/bin/sh -c '/usr/local/sbin/chronyd -t 120 -q \"server fe80::1%eth0 iburst\"' 2>&1",
         HelperVerb::synchronise,
         {"/usr/local/sbin/chronyd", "-t", "120", "-q", "server fe80::1%eth0 iburst"}},
        {"/bin/sh -c '/usr/sbin/chronyd -t 1 -q \"server a.example nts iburst\"' 2>&1",
         HelperVerb::synchronise,
         {"/usr/sbin/chronyd", "-t", "1", "-q", "server a.example nts iburst"}},
        {"/usr/local/bin/chronywake", HelperVerb::run_chronywake, {"/usr/local/bin/chronywake"}},
        {"/usr/bin/pgrep -l -f chronyd", HelperVerb::list_daemons, {"/usr/bin/pgrep", "-a", "-x", "chronyd"}},
        {"/bin/launchctl bootout system /Library/LaunchDaemons/org.tuxfamily.chronyd.plist",
         HelperVerb::service_manager,
         {"/bin/launchctl", "bootout", "system", "/Library/LaunchDaemons/org.tuxfamily.chronyd.plist"}},
        {"/bin/systemctl enable --now org.chrony-project.logrotate.timer",
         HelperVerb::service_manager,
         {"/bin/systemctl", "enable", "--now", "org.chrony-project.logrotate.timer"}},
        {"/bin/systemctl status --no-pager --lines=20 chrony.service",
         HelperVerb::service_manager,
         {"/bin/systemctl", "status", "--no-pager", "--lines=20", "chrony.service"}},
        {"/bin/systemctl daemon-reload", HelperVerb::service_manager, {"/bin/systemctl", "daemon-reload"}},
        {"rm -f /etc/systemd/system/org.tuxfamily.chronyc.service",
         HelperVerb::remove_definition,
         {"/bin/rm", "-f", "/etc/systemd/system/org.tuxfamily.chronyc.service"}},
        {"chmod 0755 /var/log/chrony//tracking.log",
         HelperVerb::make_readable,
         {"/bin/chmod", "0755", "/var/log/chrony//tracking.log"}},
    };
    for (const auto& [line, verb, argv] : cases) {
        HelperRequest request;
        std::string sentence;
        EXPECT_EQ(parse_helper_request("EXECUTE " + line, rules(), request, sentence), 0) << line << ": " << sentence;
        EXPECT_EQ(helper_verb_name(request.verb), helper_verb_name(verb)) << line;
        EXPECT_EQ(request.argv, argv) << line;
    }
    HelperRequest quit{.verb = HelperVerb::stop_chrony, .argv = {}, .item = {}, .source = {}, .destination = {}};
    std::string sentence;
    ASSERT_EQ(parse_helper_request("QUIT", rules(), quit, sentence), 0);
    EXPECT_EQ(quit.verb, HelperVerb::quit);
}

TEST(HelperRequest, HostileLinesAreRefusedInOneSentence) {
    const auto requests = testing::hostile_requests(spelled);
    ASSERT_GE(requests.size(), 150U);
    for (const auto& line : requests) {
        HelperRequest request;
        std::string sentence;
        EXPECT_EQ(parse_helper_request(line, rules(), request, sentence), -1) << line;
        EXPECT_TRUE(sentence.ends_with('.') && std::ranges::count(sentence, '.') == 1) << line << ": " << sentence;
        EXPECT_TRUE(request.argv.empty()) << line;
    }
}

TEST(HelperRules, AreTakenAsAWholeOrNotAtAll) {
    auto extended = rules();
    std::string sentence;
    ASSERT_EQ(add_rules("# ours\n\nchronyd /opt/chrony/chronyd\n idle-seconds\t5 \ntool //x/y/\n", extended, sentence),
              0);
    EXPECT_EQ(extended.chronyd.back(), "/opt/chrony/chronyd");
    EXPECT_EQ(extended.tools.back(), "/x/y");
    EXPECT_EQ(extended.idle, std::chrono::seconds(5));
    for (const char* text : {"chronyd relative", "chronyd /a/../b", "chronyd", "shell /bin/sh", "idle-seconds 0",
                             "idle-seconds 1x", "chronyc /a\nuser root", "tool /"}) {
        const auto before = extended.chronyc.size();
        EXPECT_EQ(add_rules(text, extended, sentence), -1) << text;
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
