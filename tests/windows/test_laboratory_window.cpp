#include "gui/laboratory/chart_view.h"
#include "gui/laboratory/laboratory_window.h"
#include "history/history_writer.h"
#include "support/fake_followed_files.h"
#include "support/kept_plots.h"
#include "support/manual_timer.h"
#include "support/memory_files.h"
#include "support/memory_stores.h"
#include "support/window_test.h"

#include <numbers>
#include <random>

namespace tickervantage {
namespace {

constexpr std::int64_t begin = 1'794'225'600; // 2026-11-09 12:00:00 UTC
constexpr int poll = 256;

// A clock that wanders and goes with the temperature of the day, as a daemon notes it.
std::string made_log(int records, std::uint64_t seed = 1) {
    std::mt19937_64 random(seed);
    std::normal_distribution<double> normal;
    QString text;
    double wandered = 0;
    for (int at = 0; at < records; ++at) {
        const QDateTime time = QDateTime::fromSecsSinceEpoch(begin + at * poll, Qt::UTC);
        wandered += 3e-4 * normal(random);
        const double ppm = -5 + wandered + 0.1 * std::sin(2 * std::numbers::pi * at * poll / 86400.0);
        text += QString::asprintf("%s 192.0.2.1 2 %.6f 0.02 %.3e N 1 1e-6 2e-6 1e-3 2e-4 3e-4\n",
                                  qPrintable(time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"))), ppm,
                                  2e-6 * normal(random));
    }
    return text.toStdString();
}

struct LaboratoryWindowTest : testing::WindowTest<LaboratoryWindow> {
    testing::ManualMasterTimer timer;
    testing::FakeFollowedFiles files;
    testing::MemoryFiles user_files;
    testing::MemorySettingsStore settings_store;
    DefaultSettings settings{settings_store};
    testing::KeptPlots plots;
    QTemporaryDir folder;
    std::string store;

    void SetUp() override {
        store = folder.filePath(QStringLiteral("history.sqlite")).toStdString();
        files.create("/log/tracking.log", made_log(8000));
        window = std::make_unique<LaboratoryWindow>(LaboratoryWindowParts{
            .main_thread = main_thread,
            .timer = timer,
            .files = files,
            .queue = {std::shared_ptr<void>(), &queue},
            .exports = {.queue = queue, .main_thread = main_thread, .writer = plots},
            .now = [] { return begin; },
            .compensation = {
                .main_thread = main_thread, .queue = queue, .files = user_files, .logs = files, .settings = settings}});
        timer.start();
        window->resize(1000, 700);
        window->show();
    }

    void open(const char* path = "/log") {
        window->show_laboratory({.log = path, .store = store});
        settle();
    }
    void turn_to(int page) {
        find<QTabWidget>("pages")->setCurrentIndex(page);
        settle();
    }
    ChartView* chart(const char* page) { return find<ChartView>((std::string(page) + "_chart").c_str()); }
    const LogChart& shown(const char* page) { return chart(page)->chart(); }
    QTreeWidget* table(const char* page) { return find<QTreeWidget>((std::string(page) + "_table").c_str()); }
    void choose(const char* menu, int entry) {
        auto* box = find<QComboBox>(menu);
        box->setCurrentIndex(entry);
        Q_EMIT box->activated(entry);
        settle();
    }
};

TEST_F(LaboratoryWindowTest, ShowsDeviationsWithLimitsAndWhatIsNotTheClock) {
    open();
    const LogChart& stability = shown("stability");
    ASSERT_EQ(stability.panels.size(), 1U);
    const ChartSeries& curve = stability.panels.front().series.front();
    EXPECT_TRUE(curve.points.front().is_hollow) << "the network's noise";
    EXPECT_FALSE(curve.points.back().is_hollow);
    EXPECT_EQ(curve.points.front().x, poll);
    EXPECT_EQ(table("stability")->topLevelItemCount(), static_cast<int>(curve.points.size()));
    EXPECT_EQ(table("stability")->topLevelItem(0)->text(7), QStringLiteral("not the clock"));
    const double bar = *curve.points[2].high / *curve.points[2].low;
    choose("confidence", 2);
    EXPECT_GT(*shown("stability").panels.front().series.front().points[2].high /
                  *shown("stability").panels.front().series.front().points[2].low,
              bar);
    EXPECT_NE(words("stability_headline").find("poll"), std::string::npos) << words("stability_headline");
    const std::string advice = words("stability_headline");
    find<QSpinBox>("maxpoll")->setValue(6);
    EXPECT_NE(words("stability_headline"), advice);
    EXPECT_NE(words("origins").find("8,000 records"), std::string::npos) << words("origins");
}

TEST_F(LaboratoryWindowTest, TheAdviceIsHeldAgainstTheConfiguration) {
    QFile file(folder.filePath(QStringLiteral("chrony.conf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("pool ntp.example.net maxpoll 12\nserver 192.0.2.1 minpoll 4\n");
    file.close();
    window->show_laboratory({.log = "/log", .configuration = file.fileName().toStdString()});
    settle();
    EXPECT_EQ(find<QSpinBox>("minpoll")->value(), 4);
    EXPECT_EQ(find<QSpinBox>("maxpoll")->value(), 12);
}

TEST_F(LaboratoryWindowTest, TimesStandInAPanelOfTheirOwn) {
    open();
    find<QCheckBox>("measure_tdev")->setChecked(true);
    find<QCheckBox>("measure_hdev")->setChecked(true);
    settle();
    ASSERT_EQ(shown("stability").panels.size(), 2U);
    EXPECT_EQ(shown("stability").panels.back().unit, AxisUnit::seconds);
    EXPECT_EQ(shown("stability").panels.front().series.size(), 3U) << "two curves and the floor";
    for (const char* measure : {"measure_tdev", "measure_hdev", "measure_oadev"})
        find<QCheckBox>(measure)->setChecked(false);
    settle();
    EXPECT_TRUE(chart("stability")->is_empty());
    EXPECT_EQ(chart("stability")->empty_text(), QStringLiteral("Choose a measure above."));
}

TEST_F(LaboratoryWindowTest, ForecastsUntilWhenALimitIsKept) {
    open();
    turn_to(1);
    EXPECT_EQ(shown("holdover").panels.front().series.front().points.size(), 5U);
    EXPECT_TRUE(words("holdover_headline").starts_with("Sources lost now: within 1.00 ms, 95 %, until "))
        << words("holdover_headline");
    const double until = *shown("holdover").upright;
    find<QDoubleSpinBox>("limit")->setValue(0.2);
    settle();
    EXPECT_LT(*shown("holdover").upright, until);
    find<QDoubleSpinBox>("limit")->setValue(1e5);
    settle();
    EXPECT_FALSE(shown("holdover").upright);
    EXPECT_NE(words("holdover_headline").find("for 2 d and longer"), std::string::npos) << words("holdover_headline");
    const double error = shown("holdover").panels.front().series.front().points.back().y;
    EXPECT_TRUE(words("holdover_remark").starts_with("After 2 d")) << words("holdover_remark");
    choose("quantile", 0);
    EXPECT_LT(shown("holdover").panels.front().series.front().points.back().y, error);
}

TEST_F(LaboratoryWindowTest, FindsTheDayAndSaysHowStrongItIs) {
    open();
    turn_to(3);
    ASSERT_FALSE(shown("periodogram").panels.empty());
    ASSERT_EQ(shown("periodogram").panels.front().flags.front().text, "a day");
    EXPECT_EQ(table("periodogram")->topLevelItem(0)->text(0), QStringLiteral("a day"));
    EXPECT_NE(words("periodogram_headline").find("temperature"), std::string::npos) << words("periodogram_headline");
    choose("quantity", 1);
    EXPECT_EQ(words("periodogram_headline"), "No rhythm stands out from the noise.");
    EXPECT_EQ(words("periodogram_remark"), "8,000 values in even steps, by FFT.");
}

TEST_F(LaboratoryWindowTest, ShortLogsAreRefusedWithTheReason) {
    files.create("/short.log", made_log(10));
    open("/short.log");
    turn_to(1);
    EXPECT_TRUE(chart("holdover")->empty_text().contains(QStringLiteral("this has 38 min 24 s")))
        << chart("holdover")->empty_text().toStdString();
    turn_to(3);
    EXPECT_EQ(chart("periodogram")->empty_text(), QStringLiteral("A periodogram needs 16 values at the least."));
    EXPECT_FALSE(window->page(2).findChild<QAction*>(QStringLiteral("export_action"))->isEnabled());
}

TEST_F(LaboratoryWindowTest, WithoutALogItTakesTheReadingsAndSaysSo) {
    auto writer = HistoryWriter::open(store);
    ASSERT_TRUE(writer) << english(writer.error());
    std::vector<HistoryReading> readings;
    for (int at = 0; at < 400; ++at) {
        HistoryReading reading{.row = {.time = begin + at * 10, .verdict = Verdict::synchronised}};
        const double offset = 1e-6 * (at / 6); // an update each minute
        reading.row.values[static_cast<std::size_t>(HistoryQuantity::last_offset)] = Extent{offset, offset, offset};
        reading.row.values[static_cast<std::size_t>(HistoryQuantity::frequency_ppm)] = Extent{1, 1, 1};
        readings.push_back(reading);
    }
    ASSERT_TRUE(writer->add(readings, {}));
    open("/missing");
    EXPECT_EQ(find<QComboBox>("source")->currentIndex(), 1);
    EXPECT_NE(words("origins").find("67 records"), std::string::npos) << words("origins");
    EXPECT_NE(words("origins").find("last week"), std::string::npos) << words("origins");
    EXPECT_NE(words("stability_headline").find("tracking log only"), std::string::npos) << words("stability_headline");
}

TEST_F(LaboratoryWindowTest, WithNothingItSaysWhatToDo) {
    open("/missing");
    for (const char* page : {"stability", "holdover", "periodogram"})
        EXPECT_TRUE(chart(page)->empty_text().contains(QStringLiteral("leave its main window open"))) << page;
}

TEST_F(LaboratoryWindowTest, AnotherLogIsOpenedByDroppingIt) {
    open();
    files.create("/other.log", made_log(300, 2));
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(QStringLiteral("/other.log"))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->centralWidget(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->centralWidget(), &drop);
    settle();
    EXPECT_EQ(find<QComboBox>("source")->currentText(), QStringLiteral("/other.log"));
    EXPECT_NE(words("origins").find("300 records"), std::string::npos) << words("origins");
    choose("source", 0);
    EXPECT_NE(words("origins").find("8,000 records"), std::string::npos) << words("origins");
}

TEST_F(LaboratoryWindowTest, OnlyTheNewestChoiceIsComputed) {
    open();
    turn_to(1);
    for (const double limit : {0.3, 0.2, 0.1})
        find<QDoubleSpinBox>("limit")->setValue(limit);
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(shown("holdover").panels.front().levels.front().y, 1e-4);
    find<QDoubleSpinBox>("limit")->setValue(0.5);
    queue.turn();
    window.reset(); // the answer is on its way
    settle();
}

TEST_F(LaboratoryWindowTest, PagesOutOfSightWait) {
    open();
    EXPECT_TRUE(chart("holdover")->is_empty());
    turn_to(1);
    EXPECT_FALSE(chart("holdover")->is_empty());
    find<QTabWidget>("pages")->setCurrentIndex(0);
    EXPECT_EQ(queue.waiting(), 0U) << "what was computed once stays";
}

TEST_F(LaboratoryWindowTest, ThePointerTellsValuesWithTheirLimits) {
    open();
    testing::press_key(chart("stability"), Qt::Key_Right);
    EXPECT_NE(words("stability_pointed").find("Allan, overlapping (OADEV) over 4 min 16 s: "), std::string::npos)
        << words("stability_pointed");
    EXPECT_NE(words("stability_pointed").find("with 68.3 % between"), std::string::npos);
    EXPECT_NE(words("stability_pointed").find("not the clock"), std::string::npos);
    testing::press_key(chart("stability"), Qt::Key_End);
    EXPECT_EQ(words("stability_pointed").find("not the clock"), std::string::npos);
    testing::press_key(chart("stability"), Qt::Key_Escape);
    EXPECT_EQ(words("stability_pointed"), "");
}

TEST_F(LaboratoryWindowTest, ChartsZoomAndFindTheWayBack) {
    open();
    ChartView* view = chart("stability");
    const auto part = [view] {
        return std::log(view->chart().to / view->chart().from);
    };
    const double all = part();
    const auto mouse = [view](QEvent::Type type, QPointF at, Qt::KeyboardModifiers keys = {}) {
        QMouseEvent event(type, at, view->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, keys);
        QApplication::sendEvent(view, &event);
    };
    EXPECT_FALSE(find<QToolButton>("back")->isEnabled() || find<QToolButton>("show_all")->isEnabled());
    mouse(QEvent::MouseButtonPress, {300, 100}); // all of it cannot be dragged away
    mouse(QEvent::MouseMove, {340, 100});
    mouse(QEvent::MouseButtonRelease, {340, 100});
    EXPECT_TRUE(view->shows_all());
    const QPointF middle(400, 100);
    QWheelEvent wheel(middle, middle, {}, {0, 360}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &wheel);
    EXPECT_NEAR(part(), all / 2, 1e-6);
    find<QToolButton>("back")->click();
    EXPECT_TRUE(view->shows_all() && find<QToolButton>("forward")->isEnabled());
    mouse(QEvent::MouseButtonPress, {300, 100}, Qt::ShiftModifier);
    mouse(QEvent::MouseMove, {400, 100}, Qt::ShiftModifier);
    mouse(QEvent::MouseButtonRelease, {400, 100}, Qt::ShiftModifier);
    EXPECT_NEAR(part() / all, 100.0 / (view->width() - 74), 0.01); // 74: beside the panels
    const double left = view->chart().from;
    testing::press_key(view, Qt::Key_PageDown);
    EXPECT_GT(view->chart().from, left);
    testing::press_key(view, Qt::Key_Home); // the first point, which comes into sight
    EXPECT_LE(view->chart().from, poll);
    testing::press_key(view, Qt::Key_Backspace); // what the keys did is one movement
    EXPECT_EQ(view->chart().from, left);
    testing::press_key(view, Qt::Key_Backspace);
    EXPECT_TRUE(view->shows_all());
    for (int step = 0; step < 60; ++step)
        testing::press_key(view, Qt::Key_Plus);
    EXPECT_NEAR(part(), 0.05, 1e-6);
    find<QCheckBox>("measure_hdev")->setChecked(true);
    settle();
    EXPECT_NEAR(part(), 0.05, 1e-6) << "another measure of the same place";
    turn_to(2);
    EXPECT_FALSE(find<QToolButton>("back")->isEnabled() || find<QToolButton>("show_all")->isEnabled());
    turn_to(0);
    find<QToolButton>("show_all")->click();
    EXPECT_TRUE(view->shows_all());
}

TEST_F(LaboratoryWindowTest, AGrowingLogIsFollowedAndThePictureStays) {
    files.create("/log/tracking.log", made_log(100));
    open();
    ChartView* view = chart("stability");
    const double end = view->chart().to;
    files.create("/log/tracking.log", made_log(200));
    timer.advance(60);
    EXPECT_EQ(queue.waiting(), 0U) << "a hundredth more comes in four minutes";
    timer.advance(240);
    settle();
    EXPECT_NE(words("origins").find("200 records"), std::string::npos) << words("origins");
    EXPECT_GT(view->chart().to, end) << "all of it is more of it";
    view->setFocus();
    testing::press_key(view, Qt::Key_Right);
    testing::press_key(view, Qt::Key_Plus);
    table("stability")->topLevelItem(2)->setSelected(true);
    const auto part = view->path().now();
    const auto values = words("stability_pointed");
    files.create("/log/tracking.log", made_log(400));
    timer.advance(900);
    settle();
    EXPECT_NE(words("origins").find("400 records"), std::string::npos) << words("origins");
    EXPECT_EQ(view->path().now(), part);
    EXPECT_NE(words("stability_pointed"), values) << "of the same point, out of more";
    EXPECT_EQ(words("stability_pointed").substr(0, 38), values.substr(0, 38));
    EXPECT_TRUE(table("stability")->topLevelItem(2)->isSelected());
    view->back();
    EXPECT_TRUE(view->shows_all());
    timer.advance(900);
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(queue.waiting(), 0U) << "what has not grown is not computed again";
    files.create("/log/tracking.log", "");
    timer.advance(900);
    settle();
    EXPECT_FALSE(view->is_empty()) << "a log that is being rotated";
    window->hide();
    timer.advance(3600);
    EXPECT_EQ(queue.waiting(), 0U) << "nobody looks";
}

TEST_F(LaboratoryWindowTest, ALogThatBeginsIsSeen) {
    open("/missing");
    files.create("/missing", made_log(100));
    timer.advance(60);
    settle();
    EXPECT_FALSE(chart("stability")->is_empty());
}

TEST_F(LaboratoryWindowTest, CopiesAndExportsWhatIsShown) {
    open();
    const auto export_to = [this](int page, const char* name) {
        turn_to(page);
        window->page(page == 3 ? 2 : page).exports().export_to(folder.filePath(QLatin1String(name)));
        settle();
    };
    export_to(0, "a.csv");
    EXPECT_TRUE(plots.table.starts_with("measure,tau,n,value,low,high,noise,hollow\noadev,256,")) << plots.table;
    export_to(1, "b.csv");
    EXPECT_EQ(std::ranges::count(plots.table, '\n'), 6);
    export_to(3, "c.csv");
    EXPECT_TRUE(plots.table.starts_with("from,to,density,low,high,smallest,largest\n"));
    export_to(3, "c.png");
    EXPECT_GT(QImage(folder.filePath(QStringLiteral("c.png"))).height(), chart("periodogram")->height());
    turn_to(2);
    EXPECT_FALSE(find<QToolButton>("export")->isEnabled());
    turn_to(1);
    const auto offered = find<QToolButton>("export")->menu()->actions();
    ASSERT_EQ(offered.size(), 3);
    offered.back()->trigger();
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    EXPECT_EQ(lines.size(), 6);
    EXPECT_TRUE(lines.at(1).startsWith(QStringLiteral("5 min\t"))) << lines.at(1).toStdString();
}

TEST_F(LaboratoryWindowTest, EveryControlHasANameAndATooltip) {
    for (const char* name :
         {"measure_adev", "measure_mtie", "confidence", "spacing", "minpoll", "maxpoll", "limit", "quantile",
          "quantity", "trend", "source", "files", "export", "back", "forward", "show_all"}) {
        EXPECT_FALSE(find<QWidget>(name)->accessibleName().isEmpty()) << name;
        EXPECT_FALSE(find<QWidget>(name)->toolTip().isEmpty()) << name;
    }
}

} // namespace
} // namespace tickervantage
