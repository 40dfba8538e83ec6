#include "gui/main/clock_widget.h"
#include "gui/main/command_output.h"
#include "gui/main/local_time_text.h"
#include "gui/main/tickervantage_window.h"
#include "support/fake_main_window_parts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QSplitter>
#include <QTimeZone>
#include <QToolButton>

#include <algorithm>

namespace tickervantage {
namespace {

struct MainWindowTest : ::testing::Test {
    testing::FakeMainWindowParts fakes;
    QString stopped;
    std::unique_ptr<TickervantageWindow> window;

    void open() {
        fakes.gpsd_found = true;
        window = std::make_unique<TickervantageWindow>(fakes.parts(), fakes.options());
        QObject::connect(window.get(), &TickervantageWindow::stop_requested, window.get(),
                         [this](const QString& sentence) { stopped = sentence; });
        window->windowDidLoad();
        window->show();
        fakes.settle();
    }

    template <typename Widget>
    Widget* find(const char* name) {
        auto* widget = window->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    void choose(const char* menu, const char* item) {
        auto* box = find<QComboBox>(menu);
        const int index = box->findText(QLatin1String(item));
        ASSERT_GE(index, 0) << item;
        box->setCurrentIndex(index);
        Q_EMIT box->activated(index);
        Q_EMIT box->textActivated(box->itemText(index));
        fakes.settle();
    }

    [[nodiscard]] int visible_images() {
        return static_cast<int>(std::ranges::count_if(
            std::array{"status_chronyd_synchronised", "status_chronyd_notlocked", "status_chronyd_unavailable"},
            [this](const char* name) { return find<QWidget>(name)->isVisible(); }));
    }
};

TEST_F(MainWindowTest, ShowsExactlyOneStatusImageInEveryState) {
    open();
    for (const auto& [leap, image, words] :
         {std::tuple{"Normal", "status_chronyd_synchronised", "Synchronised"},
          std::tuple{"Insert second", "status_chronyd_notlocked", "Not synchronised"},
          std::tuple{"Delete second", "status_chronyd_unavailable", "Not available"}}) {
        fakes.report(leap);
        window->cycle().refresh();
        fakes.settle();
        EXPECT_TRUE(find<QWidget>(image)->isVisible()) << leap;
        EXPECT_EQ(visible_images(), 1) << leap;
        EXPECT_EQ(find<QLabel>("status_words")->text(), QLatin1String(words));
    }
}

TEST_F(MainWindowTest, ControlsSteerTheCycle) {
    open();
    fakes.execute.answer("chronyc sources -v", "a table\n");
    choose("commandMenu", "sources -v");
    EXPECT_EQ(find<CommandOutput>("m_textscroll")->toPlainText(), QStringLiteral("a table\n"));
    choose("meterSelect", "Frequency");
    EXPECT_EQ(find<QLabel>("meterValue")->text(), QStringLiteral("-12.345 µs/s"));
    choose("meterSelect", "Error bound");
    EXPECT_NEAR(window->cycle().meter().value(), 5619.5, 0.01);
    EXPECT_EQ(window->cycle().settings().m_meterview, meterView::frequency) << "is kept as it was";
    find<QCheckBox>("showIPaddress")->click();
    fakes.settle();
    EXPECT_TRUE(std::ranges::count(fakes.execute.calls, "chronyc|-n|sources -v") == 1);
    find<QSpinBox>("m_interval")->setValue(60);
    EXPECT_EQ(fakes.timer.find("updatetimer")->interval(), 60);
    EXPECT_TRUE(window->findChild<QAction*>(QStringLiteral("m_gpsd_toolbar"))->isEnabled());
}

TEST_F(MainWindowTest, SourcesStandBesideTheReportWhereThereIsRoomAndBelowItElsewhere) {
    open();
    const auto resize = [this](int width, int height) {
        window->resize(width, height);
        for (int turn = 0; turn < 5; ++turn) // layouts post each other
            QCoreApplication::processEvents();
    };
    const auto* halves = find<QSplitter>("halves");
    const auto* area = find<QScrollArea>("main_area");
    resize(1900, 1150);
    EXPECT_EQ(halves->orientation(), Qt::Horizontal);
    EXPECT_GT(find<QWidget>("sources_panel")->width(), 1000);
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
    resize(640, 480);
    EXPECT_EQ(halves->orientation(), Qt::Vertical);
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
}

TEST_F(MainWindowTest, ServerFieldBelongsToNtpdata) {
    fakes.execute.answer("chronyc sourcestats", "Name NP\n===\nb 1\na 2\n");
    open();
    EXPECT_FALSE(find<QWidget>("m_server")->isVisible());
    choose("commandMenu", "ntpdata");
    auto* server = find<QComboBox>("m_server");
    EXPECT_TRUE(server->isVisible());
    EXPECT_EQ(server->count(), 2);
    EXPECT_EQ(server->itemText(0), QStringLiteral("a"));
    EXPECT_NE(find<QLabel>("m_status")->text().indexOf(QStringLiteral("administrator")), -1);
    ASSERT_TRUE(fakes.actions->blessHelper());
    server->setEditText(QStringLiteral(" a "));
    Q_EMIT server->lineEdit()->editingFinished();
    fakes.settle();
    EXPECT_EQ(fakes.channel.commands.back(), "/bin/sh -c ' ntpdata a' 2>&1");
}

TEST_F(MainWindowTest, StoredSettingsFillTheControls) {
    fakes.store.values = {{"chronyc_command", {"activity"}},
                          {"meter_view", {"4"}},
                          {"ip_address", {"true"}},
                          {"chronyc_interval", {"33"}},
                          {"original_name", {"true"}}};
    open();
    EXPECT_EQ(find<QComboBox>("commandMenu")->currentText(), QStringLiteral("activity"));
    EXPECT_EQ(find<QComboBox>("meterSelect")->currentIndex(), 4);
    EXPECT_TRUE(find<QCheckBox>("showIPaddress")->isChecked());
    EXPECT_TRUE(find<QCheckBox>("showOriginalName")->isChecked());
    EXPECT_EQ(find<QSpinBox>("m_interval")->value(), 33);
    EXPECT_EQ(fakes.timer.find("updatetimer")->interval(), 33);
}

TEST_F(MainWindowTest, StoredCommandThatTheMenuLacksBecomesTracking) {
    fakes.store.values = {{"chronyc_command", {"shutdown"}}};
    open();
    EXPECT_EQ(find<QComboBox>("commandMenu")->currentText(), QStringLiteral("tracking"));
    EXPECT_EQ(window->cycle().settings().chronyCommand, "tracking");
}

TEST_F(MainWindowTest, ProgramThatIsNotChronyIsToldWhileItIsThere) {
    fakes.execute.answer("chronyd -v", "hello\n");
    open();
    EXPECT_TRUE(find<QWidget>("wrong_program")->isVisible());
    const QString words = find<QLabel>("wrong_program_words")->text();
    EXPECT_TRUE(words.contains(QStringLiteral("chronyd printed “hello”"))) << words.toStdString();
    EXPECT_EQ(stopped, QString());
    fakes.execute.answer("chronyd -v", "chronyd (chrony) version 4.3 (+CMDMON)\n");
    window->cycle().rebuild_runner();
    fakes.settle();
    EXPECT_FALSE(find<QWidget>("wrong_program")->isVisible());
}

TEST_F(MainWindowTest, ToolbarOffersTheGpsConfigurationOnlyWhereItIs) {
    open();
    const auto* item = window->findChild<QAction*>(QStringLiteral("m_gpsd_toolbar"));
    EXPECT_TRUE(item->isVisible() && item->isEnabled());
    fakes.gpsd_found = false;
    window->cycle().refresh();
    fakes.settle();
    EXPECT_FALSE(item->isVisible());
}

TEST_F(MainWindowTest, ClosingSavesTheSettingsAndTheFrame) {
    open();
    window->resize(901, 702);
    choose("commandMenu", "activity");
    window->close();
    EXPECT_EQ(fakes.store.values["chronyc_command"], std::vector<std::string>{"activity"});
    open();
    EXPECT_EQ(window->size(), QSize(901, 702));
}

TEST_F(MainWindowTest, ReportIsHiddenOrTornOffAndStaysSo) {
    QAction shown;
    QAction separate;
    open();
    window->connect_report_items(shown, separate);
    EXPECT_TRUE(shown.isChecked() && !separate.isChecked());
    auto* output = find<CommandOutput>("m_textscroll");
    find<QToolButton>("hide_report")->click();
    EXPECT_FALSE(output->isVisible() || shown.isChecked());
    separate.trigger();
    EXPECT_TRUE(output->isVisible() && shown.isChecked());
    EXPECT_NE(output->window(), window.get());
    choose("commandMenu", "activity");
    EXPECT_GT(std::ranges::count(fakes.execute.calls, "chronyc|activity"), 0) << "it is steered there as well";
    window->close();
    EXPECT_FALSE(output->isVisible());
    open();
    output = find<CommandOutput>("m_textscroll");
    ASSERT_NE(output->window(), window.get());
    EXPECT_TRUE(output->isVisible());
    output->window()->close();
    EXPECT_FALSE(output->isVisible());
    window->close();
    open();
    EXPECT_FALSE(find<QWidget>("m_textscroll")->isVisible());
    window->connect_report_items(shown, separate);
    EXPECT_FALSE(shown.isChecked());
    shown.trigger();
    EXPECT_EQ(find<QWidget>("m_textscroll")->window(), window.get());
    EXPECT_TRUE(find<QWidget>("m_textscroll")->isVisible());
}

TEST_F(MainWindowTest, EveryPartHasRoomInTheWindowAsItFirstOpens) {
    open();
    window->resize(1240, 860); // on a screen that has the room for it
    for (int turn = 0; turn < 5; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(find<QScrollArea>("main_area")->verticalScrollBar()->maximum(), 0);
    for (const char* name : {"trend", "sources", "source_explanation", "analogClock", "m_textscroll"})
        EXPECT_GT(find<QWidget>(name)->height(), 60) << name;
}

TEST_F(MainWindowTest, MovedSplittersAreRemembered) {
    const auto settle_layout = [] {
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
    };
    open();
    window->resize(1600, 1000);
    settle_layout();
    find<QSplitter>("halves")->setSizes({700, 850});
    find<QSplitter>("trend_splitter")->setSizes({300, 500});
    const auto halves = find<QSplitter>("halves")->sizes();
    const auto rows = find<QSplitter>("trend_splitter")->sizes();
    window->close();
    open();
    settle_layout();
    EXPECT_EQ(find<QSplitter>("halves")->sizes(), halves);
    EXPECT_EQ(find<QSplitter>("trend_splitter")->sizes(), rows);
}

TEST_F(MainWindowTest, DamagedLayoutIsLeftAside) {
    fakes.store.values["layout_Tickervantage"] = {"AAAAA2FiYw=="};
    open();
    EXPECT_TRUE(find<QWidget>("m_textscroll")->isVisible());
}

TEST_F(MainWindowTest, MinimisedWindowNeitherTicksNorReads) {
    open();
    const auto calls = fakes.execute.calls.size();
    window->hide();
    fakes.timer.advance(60);
    fakes.settle();
    EXPECT_EQ(fakes.execute.calls.size(), calls);
    window->show();
    fakes.settle();
    EXPECT_GT(fakes.execute.calls.size(), calls);
}

TEST_F(MainWindowTest, EveryControlHasANameForPeopleAndCanBeReached) {
    open();
    for (const auto* widget : window->centralWidget()->findChildren<QWidget*>()) {
        const bool inner_part =
            widget->objectName().startsWith(QStringLiteral("qt_")) || widget->window() != window.get();
        if (widget->focusPolicy() == Qt::NoFocus || inner_part)
            continue;
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
        EXPECT_TRUE(widget->focusPolicy() & Qt::TabFocus || qobject_cast<const QLabel*>(widget))
            << widget->objectName().toStdString();
    }
}

// What is on the screen, against a picture painted at once: nothing of a former hand is left.
TEST(ClockWidget, LeavesNothingOfAFormerHand) {
    ClockWidget clock(nullptr);
    const auto on_screen = [&clock] {
        QApplication::processEvents();
        return clock.screen()->grabWindow(clock.winId()).toImage().convertToFormat(QImage::Format_RGB32);
    };
    clock.show_time({10, 8, 20});
    clock.resize(160, 160);
    clock.show();
    (void)on_screen();
    clock.show_time({10, 8, 21});
    (void)on_screen();
    int second = 21;
    for (const int side : {161, 320, 150, 247}) {
        clock.resize(side, side);
        (void)on_screen();
        clock.show_time({10, 8, ++second});
        const QImage screen = on_screen();
        EXPECT_EQ(screen, clock.grab().toImage().convertToFormat(QImage::Format_RGB32)) << side;
    }
}

TEST(CommandOutput, SameTextKeepsSelectionAndScrollPosition) {
    CommandOutput output;
    output.resize(300, 120);
    output.show();
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "line " + std::to_string(i) + "\n";
    output.show_text(text);
    auto cursor = output.textCursor();
    cursor.setPosition(50);
    cursor.setPosition(90, QTextCursor::KeepAnchor);
    output.setTextCursor(cursor);
    output.verticalScrollBar()->setValue(77);
    output.show_text(text);
    EXPECT_EQ(output.verticalScrollBar()->value(), 77);
    EXPECT_EQ(output.textCursor().selectedText().size(), 40);

    output.show_text(text + "one more\n");
    EXPECT_EQ(output.verticalScrollBar()->value(), 77);
    text.replace(text.find("line 3\n"), 7, "LINE 3\n");
    output.show_text(text);
    EXPECT_EQ(output.toPlainText().toStdString(), text);
    output.show_text("short");
    EXPECT_EQ(output.toPlainText(), QStringLiteral("short"));
    output.show_text("other");
    EXPECT_EQ(output.toPlainText(), QStringLiteral("other"));
    output.show_text("short");
    EXPECT_EQ(output.toPlainText(), QStringLiteral("short"));
}

TEST(CommandOutput, ShowsWhateverBytesComeAndTakesAFont) {
    CommandOutput output;
    output.show_text(std::string("a\xff\xfe\0b", 5));
    EXPECT_TRUE(output.toPlainText().startsWith(QStringLiteral("a\uFFFD\uFFFD")));
    output.set_font({"DejaVu Sans Mono", 17});
    EXPECT_EQ(output.font().pointSizeF(), 17);
    output.set_font({});
    EXPECT_NE(output.font().pointSizeF(), 17);
}

TEST_F(MainWindowTest, ARefusedReportIsNamedInPlaceOfTheFormerOne) {
    struct Paints : QObject {
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paints;
    open();
    choose("commandMenu", "authdata");
    auto* output = find<CommandOutput>("m_textscroll");
    QApplication::processEvents();
    output->viewport()->installEventFilter(&paints);
    choose("commandMenu", "selectdata");
    QApplication::processEvents();
    EXPECT_TRUE(output->placeholderText().contains(QStringLiteral("selectdata")));
    EXPECT_GT(paints.count, 0) << "the former report's name is still on the screen";
}

TEST(LocalTimeText, FollowsTheLocaleWithAShortMonthAndNoWeekday) {
    const QDateTime time(QDate(2026, 11, 21), QTime(15, 4, 5), QTimeZone::utc());
    EXPECT_EQ(local_time_text(time, QLocale(QLocale::English, QLocale::UnitedStates)),
              QStringLiteral("Nov 21, 2026  3:04:05 PM UTC"));
    EXPECT_EQ(local_time_text(time, QLocale(QLocale::German)), QStringLiteral("21. Nov. 2026  15:04:05 UTC"));
    for (const auto language : {QLocale::French, QLocale::Japanese, QLocale::Arabic, QLocale::Spanish, QLocale::Thai}) {
        const QLocale locale(language);
        const QString text = local_time_text(time, locale);
        EXPECT_FALSE(text.contains(locale.dayName(6))) << text.toStdString();
        EXPECT_TRUE(text.contains(locale.toString(21))) << text.toStdString();
    }
}

} // namespace
} // namespace tickervantage
