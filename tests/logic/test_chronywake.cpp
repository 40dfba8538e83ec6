// chronywake's command line, what it asks chronyc, and how it keeps at it.
#include "roothelper/grammar/wake_arguments.h"
#include "roothelper/wake/wake_correction.h"
#include "roothelper/wake/wake_keeper.h"
#include "support/memory_stores.h"
#include "support/scripted_execute.h"
#include "support/test.h"

namespace tickervantage::testing {
namespace {

using namespace std::chrono_literals;
using News = SleepSignals::News;

TEST(ChronywakeTest, ArgumentsOfTheServiceReadBack) {
    WakeArguments wanted{.make_thresh = 0.25,
                         .make_limit = -1,
                         .burst_good = 2,
                         .burst_max = 9,
                         .burst_netmask = "255.255.0.0/1.2.0.0",
                         .chronyc = "/usr/bin/chronyc",
                         .socket = "/run/x y.sock"};
    const auto read = parse_wake_arguments(wake_service_arguments(wanted));
    ASSERT_TRUE(read) << english(read.error());
    EXPECT_TRUE(read->stays);
    for (const auto* option : {"--make-thresh", "--make-limit", "--burst-good", "--burst-max", "--burst-netmask"})
        EXPECT_TRUE(parse_wake_arguments({option, "1"}).value().stays) << option;
    EXPECT_EQ(wake_service_arguments(*read), wake_service_arguments(wanted));
    for (const auto* option : {"--chronyc", "--socket"})
        EXPECT_FALSE(parse_wake_arguments({option, "/s"}).value().stays) << option;
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--make-thresh"},
                                                  {"--make-thresh", "-1"},
                                                  {"--make-thresh", "nan"},
                                                  {"--make-limit", "-2"},
                                                  {"--burst-good", "0"},
                                                  {"--burst-good", "4x"},
                                                  {"--burst-netmask", "1.2.3.4 quit"},
                                                  {"--chronyc", "chronyc"},
                                                  {"4"},
                                                  {"--make-limits", "4"}})
        EXPECT_FALSE(parse_wake_arguments(words)) << words.front();
}

TEST(ChronywakeTest, AsksForAStepThenForABurstAndTellsTheFirstComplaint) {
    struct Case {
        const char* output;
        int status;
        const char* answer;
    };
    ScriptedExecute execute;
    const WakeCorrection correction(execute, "/x/chronyc",
                                    {.burst_netmask = "1.2.3.0/24", .chronyc = {}, .socket = {}});
    for (const Case& one :
         {Case{"200 OK\n200 OK\n", 0, "200 OK"}, Case{"200 OK\n503 No such source\n", 1, "503 No such source"},
          Case{"506 Cannot talk to daemon\n506 Cannot talk to daemon\n", 1, "506 Cannot talk to daemon"},
          Case{"", 1, "chronyc ended with status 1 and said nothing."}}) {
        execute.answer("chronyc", one.output, one.status);
        const auto done = correction.correct();
        EXPECT_EQ(done ? "200 OK" : english(done.error()), one.answer);
    }
    EXPECT_EQ(execute.calls.front(), "chronyc|-n|-m|makestep 0.1 3|burst 4/4 1.2.3.0/24");
}

// Plays a script: each turn takes the next answer.
class ScriptedSignals : public SleepSignals {
public:
    std::vector<bool> connections;
    std::vector<News> news;
    std::vector<std::optional<std::chrono::milliseconds>> limits;

    [[nodiscard]] Result<> connect() override {
        return take(connections) ? Result<>() : tl::unexpected(said_by_others("no bus"));
    }
    [[nodiscard]] News wait(std::optional<std::chrono::milliseconds> limit) override {
        limits.push_back(limit);
        return take(news);
    }

private:
    template <class Value>
    static Value take(std::vector<Value>& values) {
        const Value first = values.at(0);
        values.erase(values.begin());
        return first;
    }
};

TEST(ChronywakeTest, KeepsAtItThroughABusThatGoesAndADaemonThatIsDown) {
    ScriptedSignals signals;
    signals.connections = {false, false, true, false, true};
    signals.news = {News::woke,    News::nothing, News::nothing, News::nothing, News::nothing,
                    News::nothing, News::lost,    News::woke,    News::nothing, News::woke};
    // chronyc is asked nine times, and answers the last two.
    class AnswersAtLast : public Execute {
    public:
        [[nodiscard]] ExecuteResult run(const ExecuteRequest&) override {
            const bool answers = ++m_count > 7;
            return {.outcome = ExecuteOutcome::exited,
                    .exit_status = answers ? 0 : 1,
                    .output = answers ? "200 OK\n" : "down\n",
                    .failure = {}};
        }

    private:
        int m_count = 0;
    } execute;
    const WakeCorrection correction(execute, "/x/chronyc", {});
    struct Pauses : Pause {
        std::vector<std::chrono::milliseconds> all;
        void pause(std::chrono::milliseconds time) override { all.push_back(time); }
    } pauses;
    MemoryLogger log;
    WakeKeeper keeper({.signals = signals, .correction = correction, .pause = pauses, .log = log});
    for (int turn = 0; turn < 15; ++turn)
        keeper.turn();
    EXPECT_EQ(pauses.all, (std::vector<std::chrono::milliseconds>{1s, 2s, 1s}));
    const std::vector<std::optional<std::chrono::milliseconds>> limits{{}, 1s, 2s, 4s, 8s, 16s, {}, {}, 1s, {}};
    EXPECT_EQ(signals.limits, limits); // asked again while nobody answered, but not for ever
    std::string lines;
    for (const auto& line : log.sentences)
        lines += line.substr(line.rfind(' ') + 1) + ' ';
    EXPECT_EQ(lines, "bus up. down down down down down down it. bus up. down OK OK ");
}

} // namespace
} // namespace tickervantage::testing
