#include "app/trend_feed.h"
#include "base/failure_codes.h"
#include "chrony/demonstration/recorded_day.h"
#include "gui/main/tickervantage_window.h"
#include "gui/main/trend_panel.h"
#include "gui/main/trend_view.h"
#include "history/recording.h"
#include "qt/in_words.h"
#include "support/fake_main_window_parts.h"
#include "support/test.h"
#include "support/window_test.h"

#include <QLocale>

namespace tickervantage {
namespace {

struct TrendPanelTest : ::testing::Test {
    TrendPanel panel{nullptr};
    TrendView* view = panel.findChild<TrendView*>(QStringLiteral("trend"));
    int graphs = 0;

    TrendPanelTest() {
        QObject::connect(&panel, &TrendPanel::graph_wanted, &panel, [this] { ++graphs; });
        panel.resize(700, 180);
        panel.show();
    }
    [[nodiscard]] std::string words(const char* label) const {
        return panel.findChild<QLabel*>(QLatin1String(label))->text().toStdString();
    }
    static Trend hour() {
        Trend trend{.from = 1'000'000'000, .to = 1'000'003'600};
        for (std::int64_t time = trend.from; time < trend.to; time += 10)
            trend.readings.push_back({time, Verdict::synchronised, 2e-3, 1e-4, time > trend.from});
        for (std::size_t at = 300; at < 330; ++at)
            trend.readings[at] = {trend.readings[at].time, Verdict::unavailable, std::nullopt, std::nullopt, true};
        return trend;
    }
};

TEST_F(TrendPanelTest, AnEmptyHistorySaysWhatComesAndADamagedOneWhatIsWrong) {
    panel.wait_for_trend();
    EXPECT_EQ(view->words_instead().trimmed(), QString()) << "nothing is known yet";
    for (const Trend& trend : {Trend{}, Trend{0, 3600, {{3600, Verdict::synchronised}}}}) {
        panel.show_trend(trend);
        EXPECT_TRUE(view->words_instead().startsWith(QStringLiteral("No history yet"))) << trend.to;
    }
    panel.show_trend(failed(FailureCode::cannot_read, {"/h"}));
    EXPECT_TRUE(view->words_instead().contains(QStringLiteral("/h")));
    panel.show_trend(hour());
    EXPECT_TRUE(view->words_instead().isEmpty());
    EXPECT_EQ(words("trend_title"), "Error of the clock in the last hour, in ms");
    Trend minutes = hour();
    minutes.from = minutes.to - 300;
    panel.show_trend(minutes);
    EXPECT_EQ(words("trend_title"), "Error of the clock in the last 5 min, in ms");
}

TEST_F(TrendPanelTest, KeysAndPointerTellTheValuesAndOpenTheGraph) {
    panel.show_trend(hour());
    EXPECT_EQ(words("trend_readout"), "");
    testing::press_key(view, Qt::Key_Home);
    const auto at_first = words("trend_readout");
    EXPECT_NE(at_first.find("Synchronised  within ±2.00 ms  system time +100 µs"), std::string::npos) << at_first;
    testing::press_key(view, Qt::Key_Right);
    EXPECT_EQ(view->pointed_reading()->time, 1'000'000'010);
    testing::press_key(view, Qt::Key_PageDown);
    EXPECT_EQ(view->pointed_reading()->time, 1'000'000'310);
    const Rect field = trend_field(view->strip());
    const QPointF place(field.x + field.width * 315 / 360, 20); // where chronyd was away
    QMouseEvent move(QEvent::MouseMove, place, view->mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(view, &move);
    EXPECT_TRUE(words("trend_readout").ends_with("Not available")) << words("trend_readout");
    testing::press_key(view, Qt::Key_Escape);
    EXPECT_EQ(words("trend_readout"), "");
    for (const int key : {Qt::Key_Return, Qt::Key_Space})
        testing::press_key(view, key);
    QMouseEvent release(QEvent::MouseButtonRelease, place, view->mapToGlobal(place), Qt::LeftButton, {}, {});
    QApplication::sendEvent(view, &release);
    EXPECT_EQ(graphs, 3);
}

TEST(LocalTimeOfDay, FollowsTheLocalesClocksWithoutSeconds) {
    const QDateTime time(QDate(2026, 11, 21), QTime(15, 4, 5));
    for (const auto& [locale, expected] : {std::pair(QLocale(QLocale::English, QLocale::UnitedStates), "3:04 PM"),
                                           {QLocale(QLocale::German), "15:04"},
                                           {QLocale::c(), "15:04"}})
        EXPECT_EQ(local_time_of_day(time.toSecsSinceEpoch(), locale).toStdString(), expected);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const Sentence since{.context = "headline",
                         .words = "Holdover since %1",
                         .values = {Moment{time.toSecsSinceEpoch(), false, "15:04"}}};
    EXPECT_EQ(in_words(since).toStdString(), "Holdover since 3:04 PM");
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(english(since), "Holdover since 15:04");
}

struct TrendFeedTest : ::testing::Test {
    testing::FakeMainWindowParts fakes;
    testing::ManualQueue queue;
    QTemporaryDir folder;
    std::string file = folder.filePath(QStringLiteral("history.sqlite")).toStdString();
    TickervantageWindow window{fakes.parts(), fakes.options()};
    TrendFeed feed{file, queue, fakes.main_thread, window};

    [[nodiscard]] QString words_instead() const {
        return window.findChild<TrendView*>(QStringLiteral("trend"))->words_instead();
    }
    void settle() {
        while (queue.turn() || fakes.main_thread.turn()) {
        }
    }
};

TEST_F(TrendFeedTest, BringsTheLastHourOfTheStoreWithEachReading) {
    feed.read();
    settle();
    EXPECT_TRUE(words_instead().startsWith(QStringLiteral("No history yet")));
    ASSERT_TRUE(keep_recording(file, recorded_day(QDateTime::currentSecsSinceEpoch())));
    window.show_truth(std::make_shared<const ClockTruth>());
    EXPECT_FALSE(words_instead().isEmpty()) << "the store is read on the queue";
    settle();
    EXPECT_EQ(words_instead(), QString());
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("trend_title"))->text().left(34),
              QStringLiteral("Error of the clock in the last hour").left(34));
    std::ofstream(file) << "this is no history";
    for (const char* beside : {"-wal", "-shm"})
        (void)std::remove((file + beside).c_str());
    window.show_truth(std::make_shared<const ClockTruth>());
    settle();
    EXPECT_TRUE(words_instead().contains(QString::fromStdString(file))) << words_instead().toStdString();
}

} // namespace
} // namespace tickervantage
