// What logs and messages of chronyd tell of what happened, and that they tell nothing else.
#include "studies/events/events_in.h"
#include "studies/events/message_events.h"
#include "support/fake_followed_files.h"
#include "support/made_day.h"
#include "support/test.h"

#include <fmt/format.h>

namespace tickervantage {
namespace {

using testing::MadeDay;
using enum EventKind;

std::vector<ClockEvent> events_of(const testing::MadeLogs& logs) {
    testing::FakeFollowedFiles files;
    // Rotated in the middle of the day, which is no event.
    const auto middle = logs.tracking.find('\n', logs.tracking.size() / 2) + 1;
    files.create("logs/tracking.log.1", logs.tracking.substr(0, middle));
    files.create("logs/tracking.log", logs.tracking.substr(middle));
    files.create("logs/selection.log", logs.selection);
    files.create("messages", logs.messages);
    EventsRead read;
    const auto found = find_logs(files, {"logs"});
    EXPECT_TRUE(found && read_events(files, *found, read) && read_message_events(files, "messages", read));
    EXPECT_TRUE(read.remarks.empty());
    sort_by_time(read.events);
    return read.events;
}

TEST(ClockEvents, AreThoseOfAMadeDayAndNoOthers) {
    MadeDay day;
    const auto script = testing::scripted_day(day);
    const auto found = events_of(day.logs());
    ASSERT_EQ(found.size(), script.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(name_of(found[i].kind), name_of(script[i].kind)) << i;
        EXPECT_LE(std::abs(found[i].time - static_cast<double>(script[i].time)), MadeDay::poll) << i;
        EXPECT_TRUE(script[i].source.empty() || found[i].source == script[i].source) << i;
        EXPECT_NEAR(found[i].value.value_or(0), script[i].value.value_or(found[i].value.value_or(0)), 1e-9) << i;
        EXPECT_GT(found[i].place.line, 0U) << i;
        EXPECT_FALSE(english(found[i].sentence).empty()) << i;
    }
}

TEST(ClockEvents, AreNoneInAQuietFortnight) {
    MadeDay day;
    day.run_to(MadeDay::at(14 * 24));
    const auto found = events_of(day.logs());
    EXPECT_TRUE(found.empty()) << english(found.front().sentence);
}

TEST(ClockEvents, OfMessages) {
    struct Case {
        const char* line;
        const char* kind; // empty: none
        const char* source;
        std::optional<double> value;
        const char* sentence;
    };
    const Case cases[] = {
        {"2026-11-22T01:04:33Z chronyd version 4.3 starting (+NTP)", "start", "", {}, "chronyd was started."},
        {"2026-11-22T02:04:33+0100 box chronyd[812]: chronyd exiting", "stop", "", {}, "chronyd ended."},
        {"2026-11-22T02:04:33.25+01:00 box chronyd[812]: Selected source 192.0.2.7 (ntp.example.net)",
         "source",
         "192.0.2.7",
         {},
         "chronyd chose 192.0.2.7 to follow."},
        {"2026-11-22T01:04:33Z System clock was stepped by 0.734127 seconds", "step", "", 0.734127,
         "chronyd stepped the clock by +734 ms."},
        {"2026-11-22T01:04:33Z System's initial offset : 2.5 seconds fast of true (step)", "step", "", -2.5,
         "chronyd stepped the clock by −2.50 s."},
        {"2026-11-22T01:04:33Z System's initial offset : 0.1 seconds fast of true (slew)",
         "other",
         "",
         {},
         "System's initial offset : 0.1 seconds fast of true (slew)"},
        {"2026-11-22T01:04:33Z Can't synchronise: no majority",
         "no_majority",
         "",
         {},
         "The sources disagreed without a majority: none was followed."},
        {"2026-11-22T01:04:33Z Can't synchronise: no selectable sources",
         "lost",
         "",
         {},
         "Can't synchronise: no selectable sources"},
        {"2026-11-22T01:04:33Z Forward time jump detected!",
         "suspend",
         "",
         {},
         "Time jumped forward: the machine slept, or its clock was set."},
        {"2026-11-22T01:04:33Z Backward time jump detected!",
         "backwards",
         "",
         {},
         "Time jumped backward: the clock was set."},
        {"2026-11-22T01:04:33Z System clock status set to delete leap second", "leap", "", -1,
         "System clock status set to delete leap second"},
        {"2026-11-22T01:04:33Z Source 192.0.2.7 offline", "other", "", {}, "Source 192.0.2.7 offline"},
        {"2026-11-22T02:04:33+0100 box kernel: PM: suspend entry (deep)",
         "suspend",
         "",
         {},
         "The machine went to sleep."},
        {"2026-11-22T01:04:33Z Loaded seccomp filter (level 1)", "", "", {}, ""},
        {"2026-11-22T02:04:33+0100 box systemd[1]: Stopped chrony, an NTP client/server.", "", "", {}, ""},
    };
    for (const Case& one : cases) {
        MessageEvents messages;
        EXPECT_TRUE(messages.add_line(one.line, {"messages", 1})) << one.line;
        const auto& found = messages.events();
        ASSERT_EQ(found.size(), *one.kind == '\0' ? 0U : 1U) << one.line;
        if (found.empty())
            continue;
        EXPECT_EQ(name_of(found[0].kind), one.kind) << one.line;
        EXPECT_EQ(found[0].time, 1795309473) << one.line;
        EXPECT_EQ(found[0].source, one.source) << one.line;
        EXPECT_EQ(found[0].value, one.value) << one.line;
        EXPECT_EQ(english(found[0].sentence), one.sentence);
    }
}

TEST(ClockEvents, OfALineThatIsNoMessage) {
    MessageEvents messages;
    for (const char* line : {"", "chronyd exiting", "2026-13-22T01:04:33Z chronyd exiting",
                             "2026-11-22T01:04:33 chronyd exiting", "2026-11-22T01:04:33+9900 box chronyd[1]: x"})
        EXPECT_FALSE(messages.add_line(line, {})) << line;
    EXPECT_TRUE(messages.add_line("-- Boot 4aa9 --", {}));
    EXPECT_TRUE(messages.events().empty());
    EXPECT_TRUE(messages.add_line("2026-11-22T01:04:33+0000 box kernel: Linux version 6.1", {}));
    ASSERT_EQ(messages.events().size(), 1U);
    EXPECT_EQ(messages.events()[0].kind, reboot);
}

TEST(ClockEvents, TellOfNoMajorityOnceAndNotOfEachSource) {
    testing::FakeFollowedFiles files;
    std::string log;
    const auto select = [&](const char* time, const char* letters) {
        for (int source = 1; *letters != '\0'; ++letters, ++source)
            log += fmt::format("2026-11-21 {} 192.0.2.{} {} -----  377  1.00  1e+01 -1e-03 1e-03\n", time, source,
                               *letters);
    };
    select("01:00:00", "*+x");
    select("01:01:00", "xxx");
    select("01:01:00", "xxx"); // twice in the same second
    select("01:02:00", "*+x");
    select("01:03:00", "*++");
    select("01:04:00", "*+x");
    files.create("selection.log", log);
    EventsRead read;
    ASSERT_TRUE(read_events(files, *find_logs(files, {"selection.log"}), read));
    std::string told;
    for (const ClockEvent& event : read.events)
        told += fmt::format("{} {} {}\n", event.time - 1795222800, name_of(event.kind), event.source);
    EXPECT_EQ(told, "0 falseticker 192.0.2.3\n60 no_majority \n240 falseticker 192.0.2.3\n");
}

} // namespace
} // namespace tickervantage
