// Work that comes home: in order, once, on the main thread, and only to an owner that is still there.
#include "base/background.h"
#include "linux/serial_queue.h"
#include "support/manual_dispatch.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using testing::ManualMainThread;
using testing::ManualQueue;

struct BackgroundWork : ::testing::Test {
    ManualQueue queue;
    ManualMainThread main_thread;
    std::optional<Background> owner{std::in_place, main_thread};
    std::vector<int> made, came;

    auto make(int number) {
        return [this, number] {
            made.push_back(number);
            return number;
        };
    }
    auto take() {
        return [this](int number) {
            came.push_back(number);
        };
    }
};

TEST_F(BackgroundWork, IsDoneOnTheQueueAndComesHomeOnTheMainThread) {
    owner->start(queue, make(1), take());
    owner->start(queue, make(2), take());
    EXPECT_TRUE(made.empty());
    queue.turn();
    EXPECT_EQ(made, (std::vector{1, 2}));
    EXPECT_TRUE(came.empty());
    main_thread.turn();
    EXPECT_EQ(came, (std::vector{1, 2}));
}

TEST_F(BackgroundWork, MayGiveNothingBackOrWhatCannotBeCopied) {
    owner->start(
        queue, [this] { made.push_back(1); }, [this] { came.push_back(1); });
    owner->start(
        queue, [kept = std::make_unique<int>(2)]() mutable { return std::move(kept); },
        [this](std::unique_ptr<int> number) { came.push_back(*number); });
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(came, (std::vector{1, 2}));
}

TEST_F(BackgroundWork, IsDoneButDoesNotComeHomeToAnOwnerThatHasGone) {
    owner->start(queue, make(1), take());
    queue.turn();
    owner->start(queue, make(2), take());
    owner->start_newest(queue, make(3), take());
    const std::function<void(int)> answer = owner->if_alive(take());
    answer(7);
    owner.reset();
    queue.turn();
    main_thread.turn();
    answer(4);
    EXPECT_EQ(made, (std::vector{1, 2, 3}));
    EXPECT_EQ(came, std::vector{7});
}

TEST_F(BackgroundWork, OfWhichOnlyTheNewestIsWantedDropsTheOlder) {
    owner->start_newest(queue, make(1), take());
    queue.turn();
    owner->start_newest(queue, make(2), take()); // the first is on its way home
    owner->start(queue, make(3), take());        // makes nothing stale
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(came, (std::vector{2, 3}));
    owner->start_newest(queue, make(4), take());
    owner->forget_newest();
    owner->start(queue, make(5), take());
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(came, (std::vector{2, 3, 5}));
    EXPECT_EQ(made, (std::vector{1, 2, 3, 5})) << "the fourth was not wanted any more before it began";
}

TEST_F(BackgroundWork, MayEndTheOwnerWhenItComesHome) {
    owner->start(queue, make(1), [this](int number) {
        owner.reset();
        came.push_back(number);
    });
    owner->start(queue, make(2), take());
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(came, std::vector{1});
}

// The test's own thread as the main thread of a real queue.
class WaitingMainThread : public MainThread {
public:
    void main_async(Work work) override {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(work));
        m_news.notify_one();
    }
    void run_one() {
        std::unique_lock lock(m_mutex);
        m_news.wait(lock, [this] { return !m_waiting.empty(); });
        const Work work = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        work();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_news;
    std::deque<Work> m_waiting;
};

// Belongs to one thread: says whether it was let go there.
struct Homebody {
    std::thread::id home = std::this_thread::get_id();
    std::shared_ptr<int> abroad;
    ~Homebody() {
        if (abroad && std::this_thread::get_id() != home)
            ++*abroad;
    }
};

TEST(BackgroundOnARealQueue, ComesHomeAThousandTimesAndIsLetGoThere) {
    constexpr int starts = 1000;
    WaitingMainThread main_thread;
    SerialQueue queue("background");
    const auto abroad = std::make_shared<int>(0);
    int sum = 0;
    int owners = 0;
    for (int number = 0; number < starts; ++number) {
        auto owner = std::make_unique<Background>(main_thread);
        auto held = std::make_shared<Homebody>();
        held->abroad = abroad;
        const auto self = std::this_thread::get_id();
        owner->start(
            queue, [self] { return std::this_thread::get_id() != self; },
            [held = std::move(held), &sum](bool elsewhere) { sum += elsewhere ? 1 : 0; });
        if (number % 2 == 0)
            owner.reset(); // while the work is under way
        else
            ++owners;
        main_thread.run_one();
    }
    EXPECT_EQ(sum, owners);
    EXPECT_EQ(*abroad, 0);
}

} // namespace
} // namespace tickervantage
