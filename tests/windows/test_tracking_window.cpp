#include "base/failure_codes.h"
#include "gui/tracking/color_well.h"
#include "gui/tracking/graph_scroll_area.h"
#include "gui/tracking/legend.h"
#include "gui/tracking/tracking_window.h"
#include "linux/serial_queue.h"
#include "qt/event_loop.h"
#include "settings/settings_catalogue.h"
#include "support/fake_followed_files.h"
#include "support/kept_plots.h"
#include "support/manual_timer.h"
#include "support/memory_stores.h"
#include "support/recording_canvas.h"
#include "support/test.h"
#include "support/window_test.h"

#include <fmt/format.h>
#include <regex>

namespace tickervantage {
namespace {

constexpr int records_in_log = 240; // a minute apart, the last one at 2026-11-21 03:59:00
constexpr double end_of_log = 1795233540;

std::string log_text() {
    std::string text = "====\n   Date (UTC) Time     IP Address   St   Freq ppm\n====\n";
    for (int i = 0; i < records_in_log; ++i)
        text += fmt::format(
            "2026-11-21 {:02}:{:02}:00 192.0.2.1  2  -5.123  0.010  {:.3e} N  1  1.0e-06  2.0e-06  1.0e-03  "
            "1.5e-03  2.0e-03\n",
            i / 60, i % 60, (i % 7 - 3) * 1e-5);
    return text;
}

// Files that can be hidden and locked while another thread reads them.
class GuardedFiles : public FollowedFiles {
public:
    explicit GuardedFiles(FollowedFiles& files) : m_files(files) {}

    std::atomic<Found> found = Found::file;

    Found status(const std::string& name, FileStatus& status, std::optional<Failure>& reason) override {
        const Found now = found;
        reason = system_failure(EACCES);
        return now == Found::file ? m_files.status(name, status, reason) : now;
    }
    int open(const std::string& name, std::unique_ptr<FollowedFile>& file, FileStatus& status,
             std::optional<Failure>& reason) override {
        return m_files.open(name, file, status, reason);
    }

private:
    FollowedFiles& m_files;
};

// Keeps the texts of a picture.
struct KeptTexts : testing::KeptPlots {
    Result<> write_picture(const std::string& file, const PictureFormat& format,
                           const RecordedDrawing& drawing) override {
        testing::RecordingCanvas canvas;
        drawing.replay(canvas);
        table = fmt::format("{} {}x{}\n", file, format.width, format.height);
        for (const auto& text : canvas.texts)
            table += text.text + '\n';
        return {};
    }
};

struct TrackingWindowTest : testing::WindowControls<TrackingWindow> {
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};
    QtMainThread main_thread;
    testing::ManualMasterTimer timer;
    testing::FakeFollowedFiles files;
    GuardedFiles guarded{files};
    SerialQueue queue{"net.brisklane.test"};
    KeptTexts plots;
    SerialQueue export_queue{"net.brisklane.test"};
    PreferencesAdvanced preferences;
    int blocks = 0;
    static inline double present = end_of_log;
    TrackingLogSetting setting = TrackingLogSetting::unknown;

    void SetUp() override { files.create("tracking.log", log_text()); }
    void TearDown() override {
        if (window)
            window->close();
        present = end_of_log;
    }

    void open(const char* path = "tracking.log", bool live = false) {
        window = std::make_unique<TrackingWindow>(
            TrackingWindowParts{.settings = settings,
                                .main_thread = main_thread,
                                .timer = timer,
                                .files = guarded,
                                .queue = std::shared_ptr<DispatchQueueSerial>(&queue, [](auto*) {}),
                                .preferences = preferences,
                                .exports = {.queue = export_queue, .main_thread = main_thread, .writer = plots},
                                .can_make_log_readable = true,
                                .now = [] { return present; },
                                .log_timing = {.wait = [](auto& condition, auto& lock, auto) {
                                    condition.wait_for(lock, std::chrono::milliseconds(1));
                                }}});
        QObject::connect(window.get(), &TrackingWindow::block_arrived, [this] { ++blocks; });
        QObject::connect(window.get(), &TrackingWindow::log_setting_requested, window.get(), [this] {
            window->show_log_setting({setting, "/etc/chrony.conf"});
        });
        QObject::connect(window.get(), &TrackingWindow::log_readable_requested, window.get(), [this] {
            guarded.found = FollowedFiles::Found::file;
            window->show_log_readable({});
        });
        window->windowDidLoad();
        window->set_log(QString::fromUtf8(path), live);
        window->resize(1000, 560);
        window->show();
    }

    // What the export handed over to be written.
    std::string exported_to(const char* file) {
        window->exports().export_to(QLatin1String(file));
        EXPECT_EQ(window->statusBar()->currentMessage(), QStringLiteral("Exporting…"));
        EXPECT_TRUE(eventually([this] { return window->statusBar()->currentMessage().startsWith(u"Exported"); }));
        return plots.table;
    }

    // Lets the reader and the main thread work until it is so.
    template <typename Condition>
    [[nodiscard]] bool eventually(Condition condition) {
        const QDeadlineTimer deadline(10'000);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }
    void open_and_load() {
        open();
        ASSERT_TRUE(eventually([this] { return blocks == 1; }));
    }
};

TEST_F(TrackingWindowTest, FinishedLogIsReadAndStandsStill) {
    open_and_load();
    EXPECT_EQ(window->records().size(), static_cast<std::size_t>(records_in_log));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("tracking.log"));
    EXPECT_FALSE(find<QWidget>("pauseplay")->isVisible());
    EXPECT_TRUE(window->view().paused);
    EXPECT_FALSE(find<QLabel>("startDate")->text().isEmpty());
    EXPECT_NE(find<QLabel>("startDate")->text(), find<QLabel>("endDate")->text());
    EXPECT_FALSE(find<QWidget>("loadingLog")->isVisible());
    EXPECT_FALSE(find<QWidget>("showSpectrum")->isVisible());
    preferences.spectrum = true;
    window->update_spectrum_button();
    EXPECT_TRUE(find<QWidget>("showSpectrum")->isVisible());
}

TEST_F(TrackingWindowTest, LiveLogRunsUntilItIsPaused) {
    open("tracking.log", true);
    EXPECT_TRUE(find<QWidget>("pauseplay")->isVisible());
    EXPECT_TRUE(window->view().m_livetracking);
    EXPECT_FALSE(window->view().paused);
    window->findChild<QWidget*>(QStringLiteral("pauseplay"))->findChildren<QToolButton*>().front()->click();
    EXPECT_TRUE(window->view().paused);
}

TEST_F(TrackingWindowTest, TimeRangeIsAppliedOnceAndLoadsTheLogAnew) {
    open_and_load();
    EXPECT_FALSE(window->view().filtertimestamps);
    auto* range = find<QComboBox>("dataTimeRange");
    EXPECT_EQ(range->count(), range_count);
    const auto choose = [range](int index) {
        range->setCurrentIndex(index);
        Q_EMIT range->activated(index);
    };
    choose(6);
    EXPECT_EQ(window->view().display_data_range, 6 * 3600);
    EXPECT_TRUE(window->view().filtertimestamps);
    EXPECT_TRUE(window->records().empty()) << "the log is being read again";
    ASSERT_TRUE(eventually([this] { return blocks == 2; }));
    choose(6);
    EXPECT_EQ(window->records().size(), static_cast<std::size_t>(records_in_log));
    choose(0);
    EXPECT_FALSE(window->view().filtertimestamps);
    EXPECT_TRUE(eventually([this] { return blocks == 3; }));
}

TEST_F(TrackingWindowTest, LegendCanBeKeptTakenBackAndPutToDefault) {
    open_and_load();
    auto* legend = find<LegendView>("legend");
    const popover_settings before = legend->settings();
    find<QPushButton>("showLegend")->click();
    EXPECT_TRUE(legend->isVisible());
    find<QCheckBox>("frequencyShow")->click();
    find<QCheckBox>("use_logscale")->click();
    find<ColorWell>("offsetColor")->set_color({1, 0, 0, 1});
    EXPECT_NE(window->view().shown, before.shown);
    find<QPushButton>("cancelLegend")->click();
    EXPECT_FALSE(legend->isVisible());
    EXPECT_EQ(legend->settings(), before);
    EXPECT_EQ(window->view().shown, before.shown);
    EXPECT_EQ(window->view().colors, before.colors);

    find<QPushButton>("showLegend")->click();
    find<QCheckBox>("offsetShow")->click();
    find<QPushButton>("closeLegend")->click();
    EXPECT_FALSE(window->view().shown[0]);
    find<QPushButton>("showLegend")->click();
    find<QPushButton>("defaultLegend")->click();
    EXPECT_EQ(legend->settings(), TrackingSettings::defaults().legend);
}

TEST_F(TrackingWindowTest, SettingsAreSavedOnClosingButForOneColour) {
    open_and_load();
    find<QSlider>("hZoom")->setValue(250);
    find<QCheckBox>("sdOffsetShow")->click();
    find<ColorWell>("sdOffsetColor")->set_color({0, 0, 1, 1});
    find<ColorWell>("frequencyColor")->set_color({0, 1, 0, 1});
    window->close();
    blocks = 0;
    open_and_load();
    EXPECT_EQ(find<QSlider>("hZoom")->value(), 250);
    EXPECT_DOUBLE_EQ(window->view().xscale, std::exp2(2.5) / 15);
    EXPECT_TRUE(find<QCheckBox>("sdOffsetShow")->isChecked());
    EXPECT_EQ(find<ColorWell>("frequencyColor")->color(), (Color{0, 1, 0, 1}));
    EXPECT_EQ(find<ColorWell>("sdOffsetColor")->color(), TrackingSettings::defaults().legend.colors[3]);
}

TEST_F(TrackingWindowTest, ZoomKeepsTheTimeUnderThePointer) {
    open_and_load();
    auto* area = find<GraphScrollArea>("trackingView");
    area->resize_frame();
    const double pointer = area->visible().width - 260;
    const auto time_under_pointer = [&] {
        const double from_origin = area->frame().width - 60 - (area->visible().x + pointer);
        return window->view().right_end() - from_origin / window->view().xscale;
    };
    const double before = time_under_pointer();
    for (int i = 0; i < 8; ++i)
        Q_EMIT area->zoom_requested(1, pointer);
    EXPECT_NEAR(time_under_pointer(), before, 1);
    EXPECT_GT(window->view().xscale, 1.0 / 15 * 3.9);
    find<QAction>("reset_action")->trigger();
    EXPECT_DOUBLE_EQ(window->view().xscale, 1.0 / 15);
}

TEST_F(TrackingWindowTest, ReadoutAndExportTellWhatIsInSight) {
    open_and_load();
    auto* area = find<GraphScrollArea>("trackingView");
    area->resize_frame();
    Q_EMIT area->pointed_at(area->frame().width - 60);
    EXPECT_TRUE(find<QLabel>("readout")->text().contains(QStringLiteral("-5.123\u00a0ppm")))
        << find<QLabel>("readout")->text().toStdString();
    const std::string newest = local_date_time(window->records().time(records_in_log - 1));
    EXPECT_TRUE(find<QLabel>("readout")->text().startsWith(QString::fromStdString(newest)));
    EXPECT_EQ(find<QLabel>("endDate")->text().toStdString(), newest);
    EXPECT_TRUE(std::regex_match(newest, std::regex("2026-11-2[01] \\d\\d:\\d\\d:00 [-+A-Za-z0-9]+"))) << newest;
    const Rect shown = area->visible();
    const int caption = static_cast<int>(
        caption_height(caption_of(window->view(), area->frame(), shown, QStringLiteral("tracking.log")), shown.width));
    EXPECT_GT(caption, 40);
    const std::string picture = exported_to("/a/picture.svg");
    EXPECT_TRUE(picture.starts_with(fmt::format("/a/picture.svg {}x{}\n", shown.width, shown.height + caption)))
        << picture;
    for (const std::string& text : {std::string("\nChrony Tracking\n"), std::string("\ntracking.log\n"),
                                    " to " + newest + "\n", std::string("\nRMS offset\n")})
        EXPECT_NE(picture.find(text), std::string::npos) << text << picture;
    EXPECT_EQ(picture.find("\nRoot dispersion\n"), std::string::npos) << "it is not shown";
    const std::string table = exported_to("/a/table.csv");
    EXPECT_NE(table.find("2026-11-21T03:59:00Z"), std::string::npos);
    EXPECT_NE(table.find("-5.123e-06"), std::string::npos) << table.substr(0, 200);
}

TEST_F(TrackingWindowTest, ReadoutHoldsAllSeriesAndFollowsTheKeys) {
    files.create("tracking.log", log_text() + "2026-11-21 04:00:00 0.0.0.0 0 -5.1 0.01 0 ? 0 0 0 1 1 1\n");
    open_and_load();
    for (auto* shown : find<LegendView>("legend")->findChildren<QCheckBox*>())
        if (!shown->isChecked())
            shown->click();
    auto* area = find<GraphScrollArea>("trackingView");
    auto* readout = find<QLabel>("readout");
    const QPointF pointer(area->visible().width - 60, 50);
    QMouseEvent move(QEvent::MouseMove, pointer, area->viewport()->mapToGlobal(pointer), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(area->viewport(), &move);
    EXPECT_EQ(readout->text().count(u'–'), static_cast<int>(series_count)) << readout->text().toStdString();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    const QString before = readout->text();
    QCoreApplication::sendEvent(area, &key);
    EXPECT_NE(readout->text(), before) << "another record has come under the pointer";
    EXPECT_FALSE(readout->text().contains(u'–'));
    for (const int width : {1000, 640}) {
        window->resize(width, 560);
        QCoreApplication::processEvents();
        EXPECT_GE(readout->height(), readout->heightForWidth(readout->width())) << width;
    }
}

TEST_F(TrackingWindowTest, FitShowsWhatIsInSightInTrueUnits) {
    open_and_load();
    window->view().pauseTime = static_cast<double>(window->records().time(records_in_log - 1));
    auto* area = find<GraphScrollArea>("trackingView");
    area->resize_frame();
    EXPECT_EQ(window->view().yscale, 1e6) << "microseconds, unless something else was chosen";
    auto* unit = find<QSlider>("vScale");
    EXPECT_EQ(unit->singleStep(), 1);
    for (const bool logarithmic : {true, false}) {
        if (window->view().use_logscale != logarithmic)
            find<QCheckBox>("use_logscale")->click();
        unit->setValue(-6);
        find<QSlider>("vZoom")->setValue(500);
        QMouseEvent click(QEvent::MouseButtonDblClick, QPointF(40, 40), area->mapToGlobal(QPointF(40, 40)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(area->viewport(), &click);
        const double highest = window->view().value_scale().offset(3e-5); // of the log
        EXPECT_LE(highest, area->visible().height / 2);
        EXPECT_GT(highest, area->visible().height / 2 * (logarithmic ? 0.8 : 0.4));
        EXPECT_DOUBLE_EQ(window->view().yscale, std::pow(10, unit->value() + 6));
        EXPECT_EQ(area->frame().height, area->visible().height) << "nothing to scroll to";
    }
    find<QSlider>("vZoom")->setValue(500);
    find<QPushButton>("fit")->click();
    EXPECT_NE(find<QSlider>("vZoom")->value(), 500);
    const int zoom = find<QSlider>("vZoom")->value();
    find<QCheckBox>("offsetShow")->click();
    for (const char* other : {"rmsOffsetShow", "frequencyShow", "systemtimeShow"})
        find<QCheckBox>(other)->click();
    find<QPushButton>("fit")->click();
    EXPECT_EQ(find<QSlider>("vZoom")->value(), zoom) << "nothing in sight to fit to";
}

TEST_F(TrackingWindowTest, FinishedLogEndsWithItsNewestRecord) {
    present = end_of_log + 3e8; // years later
    open_and_load();
    auto* area = find<GraphScrollArea>("trackingView");
    EXPECT_EQ(window->view().right_end(), end_of_log);
    EXPECT_EQ(window->view().readout(area->frame().width, {0, 0, area->frame().width, area->frame().height})->x,
              area->frame().width - 60);
    for (int i = 0; i < 12; ++i)
        Q_EMIT area->zoom_requested(-1, 100);
    EXPECT_EQ(area->frame().width, area->visible().width) << "no years of emptiness";
    for (int i = 0; i < 20; ++i)
        Q_EMIT area->zoom_requested(1, 100);
    area->scroll_to_oldest();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
    QCoreApplication::sendEvent(area, &key);
    EXPECT_EQ(area->visible().x + area->visible().width, area->frame().width);
}

TEST_F(TrackingWindowTest, ChosenRangeIsAllInSightAtAnyLength) {
    std::string years;
    for (int year = 1996; year <= 2026; ++year)
        years += fmt::format("{}-11-20 03:59:00 192.0.2.1 2 -5 0.01 1e-5 N 1 1e-6 2e-6 1e-3 1.5e-3 2e-3\n", year);
    files.create("years.log", years + log_text());
    open("years.log");
    ASSERT_TRUE(eventually([this] { return blocks == 1; }));
    auto* area = find<GraphScrollArea>("trackingView");
    auto* range = find<QComboBox>("dataTimeRange");
    ASSERT_TRUE(range->isEnabled());
    const auto left_of_chosen = [&](int index, double seconds) {
        range->setCurrentIndex(index);
        Q_EMIT range->activated(index);
        EXPECT_TRUE(eventually([this] { return window->records().size() > 200; }));
        return area->frame().width - 60 - seconds * window->view().xscale - area->visible().x;
    };
    const double whole = end_of_log - static_cast<double>(window->records().time(0));
    const double left = left_of_chosen(0, whole);
    EXPECT_GE(left, 0);
    EXPECT_LT(left, 20) << "and fills the graph";
    EXPECT_EQ(area->frame().width, area->visible().width);
    window->resize(700, 560);
    EXPECT_EQ(area->frame().width, area->visible().width) << "in a smaller window too";
    EXPECT_NEAR(left_of_chosen(6, 6 * 3600), 10, 10);
    EXPECT_GT(area->frame().width, area->visible().width);
}

TEST_F(TrackingWindowTest, AnEmptyGraphSaysWhy) {
    const std::string old_record = "2001-01-01 00:00:00 192.0.2.1  2  -5.123  0.010  1.0e-06 N  1  1.0e-06  2.0e-06  "
                                   "1.0e-03  1.5e-03  2.0e-03\n";
    const struct {
        const char* text; // null: there is no file
        bool live;
        TrackingLogSetting setting;
        const char* words;
    } cases[]{{"", true, TrackingLogSetting::not_asked_for, "/etc/chrony.conf has no line “log tracking”"},
              {nullptr, true, TrackingLogSetting::not_asked_for, "has no line “log tracking”"},
              {"", true, TrackingLogSetting::no_folder, "no line “logdir”"},
              {"===\n", true, TrackingLogSetting::written, "once it follows a server"},
              {"", true, TrackingLogSetting::unknown, "if its configuration has"},
              {nullptr, true, TrackingLogSetting::written, "There is no file \"some.log\"."},
              {old_record.c_str(), true, TrackingLogSetting::written, "older than the time range"},
              {"some text\n", false, TrackingLogSetting::not_asked_for, "holds no record"}};
    save(settings, settings::tracking_dateTimeRange, 2);
    for (const auto& one : cases) {
        guarded.found = one.text == nullptr ? FollowedFiles::Found::nothing : FollowedFiles::Found::file;
        files.create("some.log", one.text == nullptr ? "" : one.text);
        setting = one.setting;
        open("some.log", one.live);
        auto* said = find<QLabel>("empty");
        EXPECT_FALSE(said->isVisible()) << "it is not known yet";
        EXPECT_TRUE(eventually([&] {
            timer.advance(0.1);
            return said->text().contains(QString::fromUtf8(one.words));
        })) << one.words
            << ": " << said->text().toStdString();
        EXPECT_TRUE(said->isVisible());
        EXPECT_EQ(find<GraphScrollArea>("trackingView")->accessibleDescription(), said->text());
    }
    blocks = 0;
    open_and_load();
    EXPECT_FALSE(find<QLabel>("empty")->isVisible());
}

TEST_F(TrackingWindowTest, LogThatCannotBeReadIsToldAndReadOnceItCan) {
    const auto says = [this](const char* sentence) {
        return eventually([&] { return find<QLabel>("readout")->text() == QLatin1String(sentence); });
    };
    guarded.found = FollowedFiles::Found::nothing;
    open();
    EXPECT_TRUE(says("There is no file \"tracking.log\"."));
    guarded.found = FollowedFiles::Found::unreadable;
    EXPECT_TRUE(says("tracking.log cannot be read: Permission denied."));
    EXPECT_EQ(window->records().size(), 0U);
    guarded.found = FollowedFiles::Found::file;
    EXPECT_TRUE(eventually([this] { return blocks == 1; }));
    EXPECT_EQ(window->records().size(), static_cast<std::size_t>(records_in_log));
    EXPECT_TRUE(says(""));
}

TEST_F(TrackingWindowTest, TheLiveLogIsMadeReadableByAButton) {
    guarded.found = FollowedFiles::Found::unreadable;
    open("tracking.log", true);
    auto* button = find<QPushButton>("makeReadable");
    EXPECT_TRUE(eventually([&] { return button->isVisible(); }));
    button->click();
    EXPECT_TRUE(eventually([this] { return blocks == 1; }));
    EXPECT_TRUE(eventually([&] { return !button->isVisible(); }));
    guarded.found = FollowedFiles::Found::unreadable;
    open(); // somebody's own file is no business of root's
    EXPECT_TRUE(eventually([&] { return !find<QLabel>("readout")->text().isEmpty(); }));
    EXPECT_FALSE(find<QPushButton>("makeReadable")->isVisible());
}

} // namespace
} // namespace tickervantage
