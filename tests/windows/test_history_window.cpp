#include "gui/history/histogram_view.h"
#include "gui/history/history_plot.h"
#include "gui/history/history_window.h"
#include "history/history_writer.h"
#include "support/fake_followed_files.h"
#include "support/kept_plots.h"
#include "support/made_day.h"
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
    EXPECT_EQ(plot()->view().options.hidden, (std::set<std::string>{"bound", "compensation"}));
    Q_EMIT legend->itemActivated(legend->topLevelItem(1), 0);
    EXPECT_FALSE(plot()->view().options.hidden.contains("bound"));
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
    EXPECT_EQ(cell("events", 0, 3), "From “synchronised” to “holdover”");
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
    EXPECT_NE(words("origins").find("Compared with it: /other.log."), std::string::npos) << words("origins");
    window->exports().export_to(QStringLiteral("/history.csv"));
    settle();
    EXPECT_NE(plots.table.find("2026-11-21T10:05:00Z,difference offset,-3"), std::string::npos);
    window->exports().export_to(folder.filePath(QStringLiteral("history.png")));
    settle();
    window->exports().export_to(folder.filePath(QStringLiteral("history.pdf")));
    settle();
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("history.png"))));
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("history.pdf"))));
    window->end_comparison();
    EXPECT_FALSE(plot()->view().is_comparing());
    window->compare_with(QStringLiteral("/missing.log"));
    settle();
    EXPECT_FALSE(plot()->view().is_comparing());
}

// Where a flag stands one can point, and it tells of itself.
TEST_F(HistoryWindowTest, AFolderOfAMadeDayShowsAFlagForEachEventAndNoOther) {
    testing::MadeDay day;
    const auto script = testing::scripted_day(day);
    files.create("/day/tracking.log", day.logs().tracking);
    files.create("/day/selection.log", day.logs().selection);
    files.create("/messages", day.logs().messages);
    HistoryPlaces places{.store = {}, .logs = {"/day"}};
    places.read_messages = [this](EventsRead& read) {
        return read_message_events(files, "/messages", read);
    };
    window->show_history(places);
    settle();
    window->controls().fit->trigger();
    const auto marks = plot()->view().marks_in_sight();
    ASSERT_EQ(marks.size(), script.size());
    ASSERT_EQ(find<QTreeWidget>("events")->topLevelItemCount(), static_cast<int>(script.size()));
    std::vector<HistoryMark> pointed_at;
    QObject::connect(plot(), &HistoryPlot::marks_pointed_at, window.get(),
                     [&](const QPoint&, const std::vector<HistoryMark>& found) { pointed_at = found; });
    for (std::size_t at = 0; at < script.size(); ++at) {
        EXPECT_EQ(marks[at].kind, mark_kind(script[at].kind)) << at;
        EXPECT_LE(std::abs(marks[at].time - static_cast<double>(script[at].time)), testing::MadeDay::poll) << at;
        move_pointer(plot()->view().place_of(marks[at].time, {0, 0, plot()->width() + 0.0, plot()->height() + 0.0}), 8);
        EXPECT_TRUE(std::ranges::any_of(pointed_at, [&](const HistoryMark& one) { return one.kind == marks[at].kind; }))
            << at;
    }
}

TEST_F(HistoryWindowTest, EventsSayWhoseDoingAndKeysGoFromOneToTheNext) {
    testing::MadeDay day;
    testing::scripted_day(day);
    files.create("/day/tracking.log", day.logs().tracking);
    files.create("/day/selection.log", day.logs().selection);
    window->show_history({.store = {}, .logs = {"/day"}});
    settle();
    window->controls().fit->trigger();
    const auto marks = plot()->view().marks_in_sight();
    const auto row_of = [&](EventKind kind) {
        return static_cast<int>(std::ranges::find(marks, mark_kind(kind), &HistoryMark::kind) - marks.begin());
    };
    EXPECT_EQ(cell("events", row_of(EventKind::falseticker), 2), "192.0.2.4: not believed");
    EXPECT_EQ(cell("events", row_of(EventKind::source), 2), "Nobody") << "the former one was still used";
    EXPECT_EQ(cell("events", row_of(EventKind::start), 2), "This machine");
    EXPECT_EQ(cell("events", row_of(EventKind::gap), 2), "–");
    auto* events = find<QTreeWidget>("events");
    auto* second = events->topLevelItem(1);
    events->setCurrentItem(second);
    EXPECT_EQ(plot()->pointers().first, marks[1].time) << "where it stands, to compare before and after";
    plot()->go({range().from, range().to + 60});
    EXPECT_EQ(events->currentItem(), second) << "who reads them keeps the place";
    testing::press_key(plot(), Qt::Key_Home);
    for (const std::size_t at : {0U, 1U}) {
        testing::press_key(plot(), Qt::Key_N);
        EXPECT_EQ(plot()->pointers().pointer, marks[at].time);
    }
    testing::press_key(plot(), Qt::Key_P);
    EXPECT_EQ(plot()->pointers().pointer, marks[0].time);
    plot()->go({marks[0].time - 100, marks[0].time + 100});
    testing::press_key(plot(), Qt::Key_N);
    EXPECT_NEAR((range().from + range().to) / 2, marks[1].time, 1) << "brought into sight";
}

TEST_F(HistoryWindowTest, WhatWasBeforeCursorAIsComparedWithWhatCameAfter) {
    files.create("/tracking.log", log(0, 1e-6) + log(60, 4e-6));
    window->show_history({.store = {}, .logs = {"/tracking.log"}});
    settle();
    const auto counted = [this] {
        find<QTimer>("movement_ended")->start(0);
        QCoreApplication::processEvents();
        settle();
    };
    counted();
    EXPECT_TRUE(cell("before_after", 0, 0).starts_with("A click in the plot")) << "says what to do";
    plot()->set_cursor_at(false, begin - 3600 - 30);
    counted();
    EXPECT_EQ(cell("before_after", 1, 0), "Offset");
    EXPECT_EQ(cell("before_after", 1, 1), "4.0 times larger");
    EXPECT_EQ(cell("before_after", 1, 2), "1.00 µs");
    EXPECT_EQ(cell("before_after", 1, 3), "4.00 µs");
    EXPECT_EQ(cell("before_after", 1, 4), "60");
    EXPECT_EQ(cell("before_after", 0, 1), "About the same");
    find<QTreeWidget>("before_after")->findChild<QAction*>(QStringLiteral("copy_rows"))->trigger();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QStringLiteral("\nOffset\t4.0 times larger\t1.00 µs")));
}

TEST_F(HistoryWindowTest, ALimitIsDrawnAndSaysHowMuchOfTheTimeItWasKept) {
    files.create("/tracking.log", log(0, 1e-6));
    window->show_history({.store = {}, .logs = {"/tracking.log"}}); // each with a largest error of 300 µs
    settle();
    const auto choose = [this](double seconds) {
        for (QAction* one : window->controls().limits->actions())
            if (one->data().toDouble() == seconds)
                one->trigger();
        find<QTimer>("movement_ended")->start(0);
        QCoreApplication::processEvents();
        settle();
    };
    choose(1e-3);
    EXPECT_TRUE(words("origins").starts_with("Certainly within ±1.00 ms all the time")) << words("origins");
    choose(1e-4);
    EXPECT_TRUE(words("origins").starts_with("Certainly within ±100 µs for 0.00 % of the time; beyond it 1 time"))
        << words("origins");
    EXPECT_NE(words("origins").find("59 min"), std::string::npos) << words("origins");
    window->controls().evidence->trigger();
    auto* dialog = window->findChild<QDialog*>(QStringLiteral("evidence_dialog"));
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->findChild<QDoubleSpinBox*>(QStringLiteral("limit"))->value(), 0.1) << "ms";
    dialog->reject();
    choose(0);
    EXPECT_TRUE(words("origins").starts_with("Blue bar")) << words("origins");
}

TEST_F(HistoryWindowTest, ANightADayOrATypedPeriodIsShown) {
    add_reading(begin + 10 * 3600);
    show();
    auto* menu = find<QToolButton>("when")->menu();
    Q_EMIT menu->aboutToShow();
    const auto seconds = [](QDate date, QTime time) {
        return static_cast<double>(QDateTime(date, time).toSecsSinceEpoch());
    };
    const QDate day = QDateTime::fromSecsSinceEpoch(begin - 7200).date();
    const QList<QAction*> entries = menu->actions();
    const auto named = [&](const QString& text) {
        return std::ranges::find_if(entries, [&](const QAction* one) { return one->text() == text; });
    };
    const QLocale locale;
    const auto chosen = named(
        QStringLiteral("%1, %2").arg(locale.dayName(day.dayOfWeek()), locale.toString(day, QLocale::ShortFormat)));
    ASSERT_NE(chosen, entries.end());
    (*chosen)->trigger();
    EXPECT_EQ(find<QTabWidget>("details")->currentWidget(), window->controls().events_page);
    EXPECT_EQ(range(), (TimeRange{seconds(day, QTime(0, 0)), seconds(day.addDays(1), QTime(0, 0))}));
    entries.front()->trigger();
    EXPECT_NEAR(range().length(), 14 * 3600, 1) << "a night";
    EXPECT_EQ(QDateTime::fromSecsSinceEpoch(static_cast<qint64>(range().from)).time(), QTime(18, 0));
    find<QAction>("from_to")->trigger();
    auto* dialog = window->findChild<QDialog*>(QStringLiteral("range_dialog"));
    ASSERT_NE(dialog, nullptr);
    auto* from = dialog->findChild<QDateTimeEdit*>(QStringLiteral("range_from"));
    auto* to = dialog->findChild<QDateTimeEdit*>(QStringLiteral("range_to"));
    auto* go = dialog->findChild<QPushButton*>(QStringLiteral("show_range"));
    from->setDateTime(QDateTime(day, QTime(10, 30)));
    to->setDateTime(QDateTime(day, QTime(10, 0)));
    EXPECT_FALSE(go->isEnabled()) << "it ends before it begins";
    to->setDateTime(QDateTime(day, QTime(11, 0)));
    go->click();
    EXPECT_EQ(range(), (TimeRange{seconds(day, QTime(10, 30)), seconds(day, QTime(11, 0))}));
}

TEST_F(HistoryWindowTest, ALaneOfTheSelectionLogTellsWhenClicked) {
    testing::MadeDay day;
    testing::scripted_day(day);
    files.create("/day/selection.log", day.logs().selection);
    find<QAction>("open_folder")->trigger();
    auto* dialog = window->findChild<QFileDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::Directory);
    Q_EMIT dialog->fileSelected(QStringLiteral("/day"));
    settle();
    window->controls().fit->trigger();
    ASSERT_EQ(plot()->view().data().lanes().size(), 4U);
    const Rect bounds{0, 0, plot()->width() + 0.0, plot()->height() + 0.0};
    const auto places = plot()->view().places(bounds);
    const Rect lanes = places.back().area; // in the upper half of each source's quarter
    const double x = plot()->view().place_of(testing::MadeDay::at(11, 30), bounds);
    click(x, plot()->height() - (lanes.y + lanes.height * 0.1));
    const std::string told = find<QTextBrowser>("source")->toPlainText().toStdString();
    EXPECT_NE(told.find("192.0.2.4"), std::string::npos) << told;
    EXPECT_NE(told.find("sign for it: x"), std::string::npos) << told;
}

TEST_F(HistoryWindowTest, LogsAreFollowedLive) {
    files.create("/tracking.log", log(0, 1e-6));
    window->show_history({.store = {}, .logs = {"/tracking.log"}});
    settle();
    const auto look = [this] {
        for (int at = 0; at < 20; ++at) {
            timer.advance(4);
            settle();
        }
    };
    const double end = range().to;
    files.at("/tracking.log").text += log(60, 2e-6);
    look();
    EXPECT_EQ(plot()->view().data().line(HistoryLine::offset).size(), 120U) << "the newest record appears";
    EXPECT_NEAR(range().to - end, 3600, 60) << "and is in sight";
    files.rename("/tracking.log", "/tracking.log.1");
    files.create("/tracking.log", log(120, 3e-6));
    testing::press_key(plot(), Qt::Key_Plus);
    testing::press_key(plot(), Qt::Key_Home);
    EXPECT_FALSE(find<QToolButton>("follow")->isChecked()) << "who looks at the past";
    const TimeRange past = range();
    look();
    EXPECT_EQ(plot()->view().data().extent()->to, begin + 59 * 60) << "a new file under its name";
    EXPECT_EQ(range(), past) << "stays there";
}

TEST_F(HistoryWindowTest, TemperaturesHaveAPanelWhereThereAreAny) {
    files.create("/logs/tracking.log", log(0, 1e-6));
    files.create("/logs/tempcomp.log", "2026-11-21 10:05:00  4.7500e+04 -1.2500e+00\n"
                                       "2026-11-21 10:06:00  4.8500e+04 -1.3500e+00\n");
    HistoryPlaces places{.store = {}, .logs = {"/logs"}};
    window->show_history(places);
    settle();
    const auto has_panel = [this] {
        const auto all = plot()->view().places({0, 0, 1000, 700});
        return std::ranges::find(all, HistoryPanel::temperature, &HistoryView::PanelPlace::panel) != all.end();
    };
    EXPECT_TRUE(has_panel());
    ASSERT_EQ(plot()->view().data().temperatures().size(), 1U);
    EXPECT_EQ(plot()->view().data().temperatures()[0].values.mean(1), 48.5) << "thousandths, as the kernel has them";
    EXPECT_EQ(plot()->view().data().line(HistoryLine::compensation).mean(1), -1.35);
    places = {.store = {}, .logs = {"/logs/tracking.log"}};
    window->show_history(places);
    settle();
    EXPECT_FALSE(has_panel());
    places.read_temperatures = [](HistoryData& data) {
        data.add_temperature("Tctl", begin - 3600, 51);
    };
    window->show_history(places);
    settle();
    EXPECT_TRUE(has_panel());
}

TEST_F(HistoryWindowTest, WhatIsDroppedIsOpenedOrCompared) {
    files.create("/a/tracking.log", log(0, 1e-6));
    files.create("/b/tracking.log", log(0, 3e-6));
    const auto drop = [this](const char* path, Qt::KeyboardModifiers modifiers) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromUtf8(path))});
        QDragEnterEvent enters(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(window.get(), &enters);
        ASSERT_TRUE(enters.isAccepted());
        QDropEvent event(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(window.get(), &event);
        settle();
    };
    drop("/a", Qt::NoModifier);
    EXPECT_EQ(plot()->view().data().line(HistoryLine::offset).size(), 60U);
    EXPECT_FALSE(plot()->view().is_comparing());
    drop("/b", Qt::ShiftModifier);
    EXPECT_TRUE(plot()->view().is_comparing());
    const auto curves = plot()->view().curves();
    const auto difference = std::ranges::find(curves, "difference offset", &HistoryCurve::key);
    ASSERT_NE(difference, curves.end());
    EXPECT_NEAR(difference->values->mean(30), -2e-6, 1e-12);
    EXPECT_EQ(difference->panel, HistoryPanel::difference) << "a line of its own, on an axis of its own";
}

TEST_F(HistoryWindowTest, EvidenceOfWhatIsInSightIsWritten) {
    const QString log = folder.filePath(QStringLiteral("tracking.log"));
    QFile file(log);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(HistoryWindowTest::log(0, 1e-6).c_str());
    file.close();
    files.create(log.toStdString(), HistoryWindowTest::log(0, 1e-6));
    EXPECT_FALSE(find<QToolButton>("prove")->isEnabled()) << "nothing to prove it by";
    show({log.toStdString()});
    find<QToolButton>("prove")->click();
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
