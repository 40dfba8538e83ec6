#include "base/broadcast.h"
#include "support/manual_dispatch.h"
#include "support/test.h"

namespace tickervantage {
namespace {

struct BroadcastTest : ::testing::Test {
    testing::ManualMainThread main_thread;
    Broadcast broadcast{main_thread};
    std::vector<double> heard;

    void listen(const std::string& name) {
        broadcast.AddListener("frequency", name, [this](std::string_view, const std::any& object) {
            if (const auto* value = std::any_cast<double>(&object))
                heard.push_back(*value);
        });
    }
};

TEST_F(BroadcastTest, NoticeForNowArrivesBeforePostReturns) {
    listen("one");
    broadcast.post("frequency", 1.5, Delivery::now);
    broadcast.post("other key", 9.0, Delivery::now);
    broadcast.post("frequency", std::string("another type"), Delivery::now);
    EXPECT_EQ(heard, std::vector{1.5});
}

TEST_F(BroadcastTest, LaterNoticeWaitsForTheEventLoop) {
    listen("one");
    broadcast.post("frequency", 2.5, Delivery::later);
    EXPECT_TRUE(heard.empty());
    main_thread.turn();
    EXPECT_EQ(heard, std::vector{2.5});
}

TEST_F(BroadcastTest, RemovedListenerHearsNothingOfWhatWasPostedBefore) {
    listen("one");
    broadcast.post("frequency", 1.0, Delivery::later);
    broadcast.RemoveListener("frequency", "one");
    main_thread.turn();
    EXPECT_TRUE(heard.empty());
    EXPECT_FALSE(broadcast.has_listeners("frequency"));
}

TEST_F(BroadcastTest, SameNameReplacesAndListenerMayLeaveWhileCalled) {
    listen("one");
    listen("one");
    broadcast.AddListener("frequency", "two", [this](std::string_view key, const std::any&) {
        broadcast.RemoveListener(std::string(key), "two");
        heard.push_back(-1);
    });
    broadcast.post("frequency", 3.0, Delivery::now);
    broadcast.post("frequency", 4.0, Delivery::now);
    EXPECT_EQ(heard, (std::vector{3.0, -1.0, 4.0}));
}

TEST(Broadcast, NoticeOutlivingTheBroadcastIsDropped) {
    testing::ManualMainThread main_thread;
    int calls = 0;
    {
        Broadcast broadcast(main_thread);
        broadcast.AddListener("key", "name", [&](std::string_view, const std::any&) { ++calls; });
        broadcast.post("key", 1, Delivery::later);
    }
    main_thread.turn();
    EXPECT_EQ(calls, 0);
}

} // namespace
} // namespace tickervantage
