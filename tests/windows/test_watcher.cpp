// The watch of the desktop: what the user is told, how often, and what outlives the program.
#include "app/watcher.h"
#include "gui/main/tickervantage_window.h"
#include "settings/settings_catalogue.h"
#include "support/fake_main_window_parts.h"
#include "support/window_test.h"
#include "watch/watch_settings.h"

namespace tickervantage {
namespace {

class FakeNotifier : public Notifier {
public:
    void show(const Notification& notification) override {
        shown = notification;
        ++count;
    }
    void withdraw() override { shown.reset(); }

    std::optional<Notification> shown;
    int count = 0;
};

struct WatcherTest : ::testing::Test {
    testing::FakeMainWindowParts fakes;
    TickervantageWindow window{fakes.parts(), fakes.options()};
    WarningRegister warnings{fakes.settings};
    FakeNotifier notifier;
    BootTime time{.now = 1000};
    std::unique_ptr<Watcher> watcher;

    void start() {
        watcher = std::make_unique<Watcher>(WatcherParts{.settings = fakes.settings,
                                                         .broadcast = fakes.broadcast,
                                                         .warnings = warnings,
                                                         .window = window,
                                                         .notifier = &notifier,
                                                         .clock = [this] {
                                                             return time;
                                                         }});
    }

    // Beside what is told in the window.
    QPushButton* bar() { return window.findChild<QPushButton*>(QStringLiteral("quiet")); }

    // A reading a minute, each with the same truth.
    void let_pass(int minutes, const ClockTruth& truth) {
        for (int minute = 0; minute < minutes; ++minute) {
            time.now += 60;
            window.show_truth(std::make_shared<const ClockTruth>(truth));
        }
    }
};

ClockTruth right() {
    ClockTruth truth;
    truth.reports.tracking.emplace();
    truth.reports.tracking->reference_id = 1;
    truth.reports.tracking->last_offset = 0;
    truth.reports.tracking->leap_status = "Normal";
    truth.verdict = Verdict::synchronised;
    return truth;
}

TEST_F(WatcherTest, TellsOnceWithdrawsAndIsSilentAtFirst) {
    start();
    let_pass(4, ClockTruth());
    EXPECT_EQ(notifier.count, 0) << "the program has just been started";
    let_pass(60, ClockTruth());
    EXPECT_EQ(notifier.count, 1);
    ASSERT_TRUE(notifier.shown);
    EXPECT_TRUE(notifier.shown->is_critical);
    EXPECT_TRUE(bar()->isVisibleTo(&window));
    let_pass(2, right());
    EXPECT_FALSE(notifier.shown);
    EXPECT_FALSE(bar()->isVisibleTo(&window));
}

TEST_F(WatcherTest, QuietLastsUntilItIsOverAndOutlivesTheProgram) {
    start();
    let_pass(10, ClockTruth());
    bar()->click();
    EXPECT_FALSE(notifier.shown);
    EXPECT_EQ(load_memory(fakes.settings).quiet, std::vector<std::string>{"unavailable"});
    watcher.reset();
    start();
    let_pass(20, ClockTruth());
    EXPECT_EQ(notifier.count, 1) << "what was told before is not told again";
    let_pass(3, right());
    let_pass(5, ClockTruth());
    EXPECT_EQ(notifier.count, 2) << "it happened once more";
}

TEST_F(WatcherTest, AfterSleepThereIsGrace) {
    start();
    let_pass(6, right());
    time.now += 3600;
    time.asleep = 3600;
    let_pass(5, ClockTruth());
    EXPECT_EQ(notifier.count, 0);
    let_pass(3, ClockTruth());
    EXPECT_EQ(notifier.count, 1);
}

TEST_F(WatcherTest, FollowsTheSettings) {
    save(fakes.settings, settings::watch_notify, false);
    start();
    let_pass(10, ClockTruth());
    EXPECT_EQ(notifier.count, 0);
    EXPECT_TRUE(bar()->isVisibleTo(&window)) << "the window tells it nevertheless";
    EXPECT_FALSE(watcher->keeps_running()) << "there is no tray here";
}

} // namespace
} // namespace tickervantage
