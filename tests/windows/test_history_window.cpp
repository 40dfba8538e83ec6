#include "gui/history/histogram_view.h"
#include "gui/history/history_plot.h"
#include "gui/history/history_window.h"
#include "history/history_writer.h"
#include "support/fake_followed_files.h"
#include "support/kept_plots.h"
#include "support/manual_timer.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

constexpr std::int64_t begin = 1'795'262'400; // 2026-11-21 12:00:00 UTC

struct HistoryWindowTest : testing::WindowTest<HistoryWindow> {
    testing::ManualMasterTimer timer;
    testing::FakeFollowedFiles files;
    testing::KeptPlots plots;
    QTemporaryDir folder;
    std::string store;

    void SetUp() override {
        store = folder.filePath(QStringLiteral("history.sqlite")).toStdString();
        timer.start();
        files.create("/tracking.log", log(0, 1e-6));
        window = std::make_unique<HistoryWindow>(
            HistoryWindowParts{.main_thread = main_thread,
                               .timer = timer,
                               .files = files,
                               .queue = {std::shared_ptr<void>(), &queue},
                               .exports = {.queue = queue, .main_thread = main_thread, .writer = plots}});
        window->resize(1000, 700);
        window->show();
    }

    static std::string log(int minute, double offset) {
        std::string text;
        for (int at = 0; at < 60; ++at)
            text +=
                QString::asprintf("2026-11-21 %02d:%02d:00 192.0.2.1 2 -5.1 0.02 %.3e N 1 1e-6 2e-6 1e-3 2e-4 3e-4\n",
                                  10 + minute / 60, at, offset)
                    .toStdString();
        return text;
    }

    void add_reading(std::int64_t time) {
        auto writer = HistoryWriter::open(store);
        ASSERT_TRUE(writer) << english(writer.error());
        HistoryReading reading{.row = {.time = time, .reference = "192.0.2.1"}};
        reading.row.values[static_cast<std::size_t>(HistoryQuantity::last_offset)] = Extent{2e-6, 2e-6, 2e-6};
        reading.sources = {
            {.time = time, .source = "192.0.2.1", .rule = SelectionRule::best, .letter = '*', .reach = 255}};
        ASSERT_TRUE(writer->add(reading, {{time, HistoryEventKind::verdict, "synchronised", "holdover"}}));
    }

    void show(const std::vector<std::string>& logs = {"/tracking.log"}) {
        window->show_history({.store = store, .logs = logs});
        settle();
    }

    HistoryPlot* plot() { return find<HistoryPlot>("plot"); }
    TimeRange range() { return plot()->path().now(); }
    void move_pointer(double x, double y, QEvent::Type type = QEvent::MouseMove, Qt::MouseButton button = Qt::NoButton,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QMouseEvent event(type, QPointF(x, y), plot()->mapToGlobal(QPointF(x, y)), button, button, modifiers);
        QApplication::sendEvent(plot(), &event);
    }
    void click(double x, double y, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        move_pointer(x, y, QEvent::MouseButtonPress, Qt::LeftButton, modifiers);
        move_pointer(x, y, QEvent::MouseButtonRelease, Qt::LeftButton, modifiers);
    }
    std::string cell(const char* table, int row, int column) {
        auto* item = find<QTreeWidget>(table)->topLevelItem(row);
        return item == nullptr ? "" : item->text(column).toStdString();
    }
};

TEST_F(HistoryWindowTest, WithNothingToShowItSaysWhatToDo) {
    show({"/missing.log"});
    EXPECT_TRUE(plot()->empty_text().contains(QStringLiteral("leave its main window open")));
    EXPECT_TRUE(plot()->empty_text().contains(QStringLiteral("/missing.log")));
    EXPECT_FALSE(window->findChild<QAction*>(QStringLiteral("export_action"))->isEnabled());
    add_reading(begin);
    timer.advance(10);
    settle();
    EXPECT_TRUE(plot()->view().data().extent().has_value()) << "the newest reading appears";
}

TEST_F(HistoryWindowTest, TheNewestReadingAppearsAndStaysInSight) {
    add_reading(begin);
    show();
    EXPECT_TRUE(find<QToolButton>("follow")->isChecked());
    const double end = range().to;
    add_reading(begin + 4000);
    timer.advance(10);
    settle();
    EXPECT_EQ(plot()->view().data().newest_stored(), begin + 4000);
    EXPECT_GT(range().to, end + 3000);
    EXPECT_TRUE(words("origins").find("chrony's log") != std::string::npos) << words("origins");
}

TEST_F(HistoryWindowTest, HandsMoveAndTheWayBackIsKept) {
    show();
    const TimeRange all = range();
    const Rect area = plot()->view().plot_area({0, 0, plot()->width() + 0.0, plot()->height() + 0.0});
    const double middle = area.x + area.width / 2;
    move_pointer(middle, 100, QEvent::MouseButtonPress, Qt::LeftButton, Qt::ShiftModifier);
    move_pointer(middle + 200, 100, QEvent::MouseMove, Qt::LeftButton, Qt::ShiftModifier);
    move_pointer(middle + 200, 100, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::ShiftModifier);
    const TimeRange pulled = range();
    EXPECT_NEAR(pulled.length(), all.length() * 200 / area.width, 1);
    testing::press_key(plot(), Qt::Key_Right);
    EXPECT_GT(range().from, pulled.from);
    testing::press_key(plot(), Qt::Key_Plus);
    EXPECT_LT(range().length(), pulled.length());
    EXPECT_TRUE(find<QToolButton>("back")->isEnabled());
    testing::press_key(plot(), Qt::Key_Backspace);
    testing::press_key(plot(), Qt::Key_Backspace);
    EXPECT_EQ(range(), all);
    find<QToolButton>("forward")->click();
    EXPECT_EQ(range(), pulled);
}

TEST_F(HistoryWindowTest, CrosshairAndCursorsTellValuesOfAllPanels) {
    show();
    move_pointer(400, 100);
    EXPECT_EQ(cell("legend", 0, 1), "300 µs");
    EXPECT_EQ(cell("legend", 1, 1), "1.00 µs");
    click(300, 100);
    click(600, 100, Qt::ShiftModifier);
    EXPECT_EQ(cell("cursors", 2, 0), "Offset");
    EXPECT_EQ(cell("cursors", 2, 1), "1.00 µs");
    EXPECT_EQ(cell("cursors", 2, 3), "0.00 s");
    testing::press_key(plot(), Qt::Key_Escape);
    EXPECT_FALSE(plot()->pointers().first.has_value());
}

TEST_F(HistoryWindowTest, TheLegendHidesAndIsolates) {
    show();
    auto* legend = find<QTreeWidget>("legend");
    legend->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(plot()->view().options.hidden.contains("offset"));
    Q_EMIT legend->itemActivated(legend->topLevelItem(1), 0);
    EXPECT_EQ(plot()->view().options.hidden, std::set<std::string>{"bound"});
    Q_EMIT legend->itemActivated(legend->topLevelItem(1), 0);
    EXPECT_TRUE(plot()->view().options.hidden.empty());
}

TEST_F(HistoryWindowTest, StatisticsAreOfWhatIsInSight) {
    show();
    find<QTimer>("movement_ended")->start(0);
    QCoreApplication::processEvents();
    settle();
    EXPECT_EQ(cell("statistics", 1, 0), "Offset");
    EXPECT_EQ(cell("statistics", 1, 1), "60");
    EXPECT_EQ(cell("statistics", 1, 2), "1.00 µs");
    EXPECT_EQ(find<HistogramView>("histogram")->histogram().counts.size(), 60U);
}

TEST_F(HistoryWindowTest, EventsAndLanesAreExplained) {
    add_reading(begin);
    add_reading(begin + 60);
    show();
    EXPECT_EQ(find<QTreeWidget>("events")->topLevelItemCount(), 2);
    EXPECT_EQ(cell("events", 0, 2), "From “synchronised” to “holdover”");
    Q_EMIT plot()->lane_chosen(QStringLiteral("192.0.2.1"), begin + 30.0);
    EXPECT_TRUE(find<QTextBrowser>("source")->toPlainText().contains(QStringLiteral("●●●●●●●●")));
    Q_EMIT plot()->lane_chosen(QStringLiteral("192.0.2.1"), begin + 3000.0);
    EXPECT_TRUE(find<QTextBrowser>("source")->toPlainText().contains(QStringLiteral("Nothing was kept")));
    for (auto* kind : window->controls().kinds)
        kind->setChecked(false);
    EXPECT_EQ(find<QTreeWidget>("events")->topLevelItemCount(), 0);
}

TEST_F(HistoryWindowTest, AnotherMachinesLogIsLaidOverAndAllOfItExported) {
    show();
    files.create("/other.log", log(0, 4e-6));
    window->compare_with(QStringLiteral("/other.log"));
    settle();
    EXPECT_TRUE(plot()->view().is_comparing());
    window->exports().export_to(QStringLiteral("/history.csv"));
    settle();
    EXPECT_NE(plots.table.find("2026-11-21T10:05:00Z,difference offset,-3"), std::string::npos);
    window->exports().export_to(folder.filePath(QStringLiteral("history.png")));
    settle();
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("history.png"))));
    window->end_comparison();
    EXPECT_FALSE(plot()->view().is_comparing());
    window->compare_with(QStringLiteral("/missing.log"));
    settle();
    EXPECT_FALSE(plot()->view().is_comparing());
}

TEST_F(HistoryWindowTest, EvidenceOfWhatIsInSightIsWritten) {
    const QString log = folder.filePath(QStringLiteral("tracking.log"));
    QFile file(log);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(HistoryWindowTest::log(0, 1e-6).c_str());
    file.close();
    files.create(log.toStdString(), HistoryWindowTest::log(0, 1e-6));
    show({log.toStdString()});
    find<QAction>("evidence")->trigger();
    auto* dialog = window->findChild<QDialog*>(QStringLiteral("evidence_dialog"));
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QDoubleSpinBox*>(QStringLiteral("limit"))->setValue(0.3);
    dialog->findChild<QPushButton*>(QStringLiteral("save"))->click();
    auto* asks_for_file = window->findChild<QFileDialog*>();
    ASSERT_NE(asks_for_file, nullptr);
    Q_EMIT asks_for_file->fileSelected(QStringLiteral("/evidence.html"));
    settle();
    EXPECT_EQ(plots.path, "/evidence.html");
    EXPECT_NE(plots.table.find("tickerctl evidence " + log.toStdString()), std::string::npos);
    EXPECT_TRUE(window->statusBar()->currentMessage().contains(QStringLiteral("Within the limit for 59 min")))
        << window->statusBar()->currentMessage().toStdString();
}

} // namespace
} // namespace tickervantage
