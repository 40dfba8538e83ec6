#include "base/failure_codes.h"
#include "linux/posix_execute.h"
#include "linux/serial_queue.h"
#include "support/child_program.h"
#include "support/test.h"

#include <future>
namespace tickervantage {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

ExecuteRequest shell(const std::string& script) {
    return {.program = "/bin/sh", .arguments = {"-c", script}};
}

TEST(PosixExecute, ReturnsBothStreamsAndTheExitStatusInTheCLocale) {
    ASSERT_EQ(setenv("LC_NUMERIC", "de_DE.UTF-8", 1), 0);
    ASSERT_EQ(setenv("LANGUAGE", "de", 1), 0);
    PosixExecute execute;
    const auto result = execute.run(shell("echo out; echo err >&2; echo \"$LC_ALL$LC_NUMERIC$LANGUAGE\"; exit 3"));
    EXPECT_EQ(result.outcome, ExecuteOutcome::exited);
    EXPECT_EQ(result.exit_status, 3);
    EXPECT_EQ(result.output, "out\nerr\nC\n");
    EXPECT_FALSE(result.failure);
}

TEST(PosixExecute, ArgumentsArriveAsTheyAreAndInputIsEmpty) {
    PosixExecute execute;
    const auto result = execute.run(
        {.program = "/bin/sh", .arguments = {"-c", "cat; printf '[%s]' \"$@\"", "sh", "two words", "", "$(id)"}});
    EXPECT_EQ(result.output, "[two words][][$(id)]");
}

TEST(PosixExecute, ProgramThatCannotBeStartedSaysWhy) {
    const auto file = std::filesystem::path(::testing::TempDir()) / "not_executable";
    std::ofstream(file) << "text";
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    PosixExecute execute;
    for (const auto& program : {std::string("/no/such/program"), std::string("/tmp"), file.string(), std::string()}) {
        const auto result = execute.run({.program = program, .arguments = {}});
        EXPECT_EQ(result.outcome, ExecuteOutcome::not_started) << program;
        EXPECT_EQ(result.failure.value_or(Failure()).code, FailureCode::cannot_be_started);
    }
    std::filesystem::remove(file);
}

TEST(PosixExecute, KilledProgramIsReported) {
    PosixExecute execute;
    const auto result = execute.run(shell("echo before; kill -SEGV $$"));
    EXPECT_EQ(result.outcome, ExecuteOutcome::signalled);
    EXPECT_EQ(result.output, "before\n");
    EXPECT_NE(english(result.failure.value()).find("signal 11"), std::string::npos);
}

TEST(PosixExecute, HangingProgramIsEndedWithItsChildren) {
    PosixExecute execute;
    auto request = shell("sleep 1000 & echo $!; wait");
    request.time_limit = 200ms;
    const auto start = Clock::now();
    const auto result = execute.run(request);
    EXPECT_EQ(result.outcome, ExecuteOutcome::timed_out);
    EXPECT_LT(Clock::now() - start, 5s);
    const testing::Watched child(std::stoi(result.output));
    EXPECT_TRUE(!child.runs() || child.ends_within(10s));
}

TEST(PosixExecute, EndlessOutputIsCutAtTheLimit) {
    PosixExecute execute;
    auto request = ExecuteRequest{.program = "/usr/bin/yes", .arguments = {"0123456789"}};
    request.output_limit = 100'000;
    const auto result = execute.run(request);
    EXPECT_EQ(result.outcome, ExecuteOutcome::too_long);
    EXPECT_EQ(result.output.size(), 100'000U);
    EXPECT_TRUE(result.failure);
}

TEST(PosixExecute, ChildThatKeepsThePipeOpenIsNotWaitedFor) {
    PosixExecute execute;
    const auto start = Clock::now();
    const auto result = execute.run(shell("(sleep 20; :) & echo done"));
    EXPECT_EQ(result.output, "done\n");
    EXPECT_LT(Clock::now() - start, 5s);
}

TEST(PosixExecute, CancellingEndsWhatRunsAndWhatComes) {
    PosixExecute execute;
    auto running = std::async(std::launch::async, [&] { return execute.run(shell("sleep 1000")); });
    execute.cancel();
    EXPECT_EQ(running.get().outcome, ExecuteOutcome::cancelled);
    EXPECT_EQ(execute.run(shell("sleep 1000")).outcome, ExecuteOutcome::cancelled);
}

TEST(SerialQueue, WorkRunsInOrderOffTheCallersThread) {
    std::vector<int> order;
    std::promise<std::thread::id> last;
    SerialQueue queue("net.brisklane.test");
    for (int i = 0; i < 100; ++i)
        queue.async([&order, i] { order.push_back(i); });
    queue.async([&] { last.set_value(std::this_thread::get_id()); });
    EXPECT_NE(last.get_future().get(), std::this_thread::get_id());
    ASSERT_EQ(order.size(), 100U);
    EXPECT_TRUE(std::ranges::is_sorted(order));
}

} // namespace
} // namespace tickervantage
