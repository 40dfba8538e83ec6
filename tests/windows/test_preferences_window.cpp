#include "gui/preferences/preferences_advanced.h"
#include "gui/preferences/preferences_general.h"
#include "gui/preferences/preferences_window.h"
#include "settings/settings_catalogue.h"
#include "support/child_program.h"
#include "support/fake_path_probes.h"
#include "support/memory_stores.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

struct FakeLaunchAtLogin : LaunchAtLogin {
    mutable bool written = false;
    bool works = true;

    int writePlist(Failure& /*failure*/) const override {
        written = true;
        return 0;
    }
    int unlinkAgent(Failure& /*failure*/) const override {
        written = false;
        return 0;
    }
    bool agentIsValid() const override { return written && works; }
};

struct FakeUserService : UserService {
    mutable Result<bool> on = false;
    Result<> turned;

    Result<bool> is_on() const override { return on; }
    Result<> turn(bool wanted) const override {
        if (turned)
            on = wanted;
        return turned;
    }
};

const auto refused = tl::unexpected(said_by_others("The helper refused."));

struct PreferencesTest : testing::WindowTest<Preferences> {
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};
    WarningRegister warnings{settings};
    PreferencesGeneral general = PreferencesGeneral::load(settings);
    PreferencesAdvanced advanced = PreferencesAdvanced::load(settings);
    testing::FakePathProbes machine;
    std::shared_ptr<FakeLaunchAtLogin> agent = std::make_shared<FakeLaunchAtLogin>();
    std::shared_ptr<FakeUserService> service = std::make_shared<FakeUserService>();
    bool has_fixed_paths = false;
    int advanced_changes = 0;
    std::optional<bool> adjusted; // as the record had it
    int services_wanted = 0;
    bool has_helper = true;

    void open() {
        machine.states.insert({"/usr/bin/chronyc", PathState::program});
        window = std::make_unique<Preferences>(PreferencesParts{.settings = settings,
                                                                .queue = queue,
                                                                .main_thread = main_thread,
                                                                .warnings = warnings,
                                                                .general = general,
                                                                .advanced = advanced,
                                                                .probes = machine,
                                                                .launch_at_login = agent,
                                                                .history_service = service,
                                                                .has_helper = has_helper,
                                                                .has_fixed_paths = has_fixed_paths,
                                                                .version = "1.2.3"});
        using Pane = PreferencesGeneralPane;
        QObject::connect(&pane(), &Pane::defaults_wanted, &pane(), [this] { general.restore_defaults(settings); });
        QObject::connect(&pane(), &Pane::wake_service_wanted, &pane(), [this] { ++services_wanted; });
        QObject::connect(&pane(), &Pane::adjustment_wanted, &pane(), [this] { adjusted = general.adj_system; });
        QObject::connect(&window->advanced(), &PreferencesAdvancedPane::changed, &pane(),
                         [this] { ++advanced_changes; });
        window->show_pane(Preferences::Pane::general);
        settle();
    }

    PreferencesGeneralPane& pane() { return window->general(); }
    bool ticked(const char* box) { return find<QCheckBox>(box)->isChecked(); }

    // Answers the alert that is open; false when there is none.
    bool answer(const char* button, bool never_again = false) {
        auto* box = window->findChild<QMessageBox*>();
        if (!box)
            return false;
        if (box->checkBox())
            box->checkBox()->setChecked(never_again);
        testing::press_button(*box, button);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return true;
    }
};

TEST_F(PreferencesTest, TheHistorysServiceIsSwitchedBehindTheMainThread) {
    open();
    auto* box = find<QCheckBox>("m_keep_history");
    ASSERT_TRUE(box->isEnabled());
    box->click();
    EXPECT_FALSE(service->on.value()); // not on the main thread
    settle();
    EXPECT_TRUE(service->on.value() && box->isChecked() && box->isEnabled());
    service->turned = refused;
    box->click();
    settle();
    EXPECT_TRUE(box->isChecked()); // it is on still
    EXPECT_EQ(words("status"), "The helper refused.");
}

TEST_F(PreferencesTest, WhereThereIsNoSuchServiceTheBoxSaysWhy) {
    service->on = refused;
    open();
    EXPECT_FALSE(find<QCheckBox>("m_keep_history")->isEnabled());
    EXPECT_EQ(words("history_words"), "The helper refused.");
}

TEST_F(PreferencesTest, ADemonstrationsPathsAreShownAndStay) {
    has_fixed_paths = true;
    service.reset();
    open();
    for (const char* field : {"m_config", "m_chronyc", "m_chronyd", "m_chronywake"})
        EXPECT_TRUE(find<QLineEdit>(field)->isReadOnly()) << field;
    EXPECT_FALSE(find<QPushButton>("detect")->isEnabled() || find<QCheckBox>("m_keep_history")->isEnabled());
    EXPECT_FALSE(words("paths_note").empty() || words("history_words").empty());
}

TEST_F(PreferencesTest, EveryControlShowsItsSettingAndIsSaved) {
    store.values["file_chronyc"] = {"/opt/chronyc"};
    store.values["make_thresh"] = {"0.25"};
    store.values["restart_gpsd"] = {"true"};
    general = PreferencesGeneral::load(settings);
    advanced = PreferencesAdvanced::load(settings);
    open();
    EXPECT_EQ(text("m_config"), "/etc/chrony.d/chrony.conf");
    EXPECT_EQ(text("m_chronyc"), "/opt/chronyc");
    EXPECT_EQ(text("m_make_thresh"), "0.25");
    EXPECT_EQ(text("m_make_limit") + text("m_burst_good") + text("m_burst_max") + text("m_burst_netmask"), "344");
    EXPECT_TRUE(ticked("m_adj_system") && ticked("m_install_wake") && ticked("m_restart_gpsd"));
    EXPECT_FALSE(ticked("m_launch_login") || ticked("m_frequency") || ticked("m_spectrum"));
    store.writes = 0;
    const std::pair<const char*, const char*> typed[]{
        {"m_config", "/a.conf"}, {"m_chronyc", "/b"},      {"m_chronyd", "/c"},
        {"m_chronywake", "/d"},  {"m_make_thresh", "0.5"}, {"m_make_limit", "-1"},
        {"m_burst_good", "5"},   {"m_burst_max", "6"},     {"m_burst_netmask", " m/a "}};
    for (const auto& [field, value] : typed)
        type(field, value);
    EXPECT_EQ(general.chronyd, "/c"); // whoever reads the record sees it at once
    EXPECT_EQ(store.writes, 0);
    window->close();
    const auto saved = PreferencesGeneral::load(settings);
    EXPECT_EQ(saved.config + saved.chronyc + saved.chronyd + saved.chronywake, "/a.conf/b/c/d");
    EXPECT_EQ(saved.make_thresh, 0.5);
    EXPECT_EQ((std::array{saved.make_limit, saved.burst_good, saved.burst_max}),
              (std::array<std::int64_t, 3>{-1, 5, 6}));
    EXPECT_EQ(saved.burst_netmask, "m/a");
}

TEST_F(PreferencesTest, RestoreDefaultsLeavesTheLaunchAtLogin) {
    general.config = "/x";
    general.make_thresh = 9;
    general.launch_login = true;
    general.adj_system = general.install_wake = false;
    open();
    press("restoreDefaults");
    EXPECT_TRUE(general.launch_login && ticked("m_launch_login"));
    EXPECT_TRUE(ticked("m_adj_system") && ticked("m_install_wake"));
    EXPECT_EQ(text("m_config") + text("m_chronyc") + text("m_chronyd") + text("m_chronywake"),
              "/etc/chrony.d/chrony.conf/usr/local/bin/chronyc/usr/local/sbin/chronyd/usr/local/bin/chronywake");
    EXPECT_EQ(text("m_make_thresh") + text("m_make_limit") + text("m_burst_good") + text("m_burst_max"), "0.1344");
    EXPECT_EQ(PreferencesGeneral::load(settings).config, "/etc/chrony.d/chrony.conf");
}

TEST_F(PreferencesTest, TheClockIsLeftAloneOnlyAfterAWarning) {
    has_helper = false;
    open();
    press("m_adj_system");
    EXPECT_TRUE(general.adj_system); // not decided yet
    ASSERT_TRUE(answer("Cancel"));
    EXPECT_TRUE(ticked("m_adj_system") && general.adj_system);
    press("m_adj_system");
    ASSERT_TRUE(answer("Continue", true));
    EXPECT_FALSE(ticked("m_adj_system") || general.adj_system);
    EXPECT_FALSE(load(settings, settings::adj_system));
    press("m_adj_system");
    press("m_adj_system");
    EXPECT_FALSE(answer("Cancel")); // never again
    EXPECT_FALSE(general.adj_system);
    press("resetWarnings");
    press("m_adj_system");
    press("m_adj_system");
    EXPECT_TRUE(answer("Cancel"));
}

TEST_F(PreferencesTest, TheClocksBoxSaysWhatTheDaemonDoes) {
    open();
    press("m_adj_system");
    ASSERT_TRUE(answer("Continue"));
    EXPECT_EQ(adjusted, std::optional(false));
    EXPECT_FALSE(find<QCheckBox>("m_adj_system")->isEnabled()); // while the daemon is restarted
    pane().show_adjustment({});
    EXPECT_FALSE(ticked("m_adj_system") || load(settings, settings::adj_system));
    press("m_adj_system");
    EXPECT_EQ(adjusted, std::optional(true));
    pane().show_adjustment(refused);
    EXPECT_EQ(words("status"), "The helper refused.");
    EXPECT_FALSE(ticked("m_adj_system") || general.adj_system || load(settings, settings::adj_system));
    EXPECT_TRUE(find<QCheckBox>("m_adj_system")->isEnabled());
}

TEST_F(PreferencesTest, LaunchAtLoginStaysOnlyWhenItWorks) {
    open();
    press("m_launch_login");
    EXPECT_TRUE(agent->written && ticked("m_launch_login") && load(settings, settings::launch_login));
    press("m_launch_login");
    EXPECT_FALSE(agent->written || ticked("m_launch_login") || load(settings, settings::launch_login));
    agent->works = false;
    press("m_launch_login");
    EXPECT_FALSE(agent->written || ticked("m_launch_login") || load(settings, settings::launch_login));
    EXPECT_EQ(words("status"), "The file in the autostart folder does not start the program.");
}

TEST_F(PreferencesTest, AClickRightBeforeTheProgramEndsIsNotLost) {
    using namespace std::chrono_literals;
    open();
    find<QCheckBox>("m_launch_login")->click();
    EXPECT_FALSE(window->finish(0ms)) << "the disk has not been asked yet";
    {
        const std::jthread disk([this] { queue.turn(); });
        EXPECT_TRUE(window->finish(1min));
    }
    EXPECT_TRUE(agent->written && general.launch_login) << "though no answer reaches the window any more";
}

TEST_F(PreferencesTest, PathsAreLookedAtAndDetected) {
    machine.states = {{"/there", PathState::program}, {"/text", PathState::file}, {"/folder", PathState::folder}};
    open();
    for (const auto& [path, good] :
         {std::pair{"/there", true}, {"/text", false}, {"/folder", false}, {"/no", false}, {"there", false}}) {
        type("m_chronyd", path);
        EXPECT_EQ(words("m_chronyd_words").empty(), good) << path;
    }
    type("m_config", "/text");
    EXPECT_EQ(words("m_config_words"), "");
    const auto* missing = find<QLabel>("m_chronywake_words");
    EXPECT_EQ(missing->text(), QStringLiteral("chronywake is not installed."));
    EXPECT_NE(missing->palette().windowText(), find<QLabel>("m_chronyc_words")->palette().windowText())
        << "which is nothing to be alarmed about";
    press("detect");
    EXPECT_EQ(text("m_config"), "/text"); // nothing was found
    machine.states = {{"/etc/chrony/chrony.conf", PathState::file}, {"/usr/bin/chronyc", PathState::program}};
    press("detect");
    EXPECT_EQ(general.config + general.chronyc + general.chronyd, "/etc/chrony/chrony.conf/usr/bin/chronycthere");
    EXPECT_EQ(load(settings, settings::file_chronyc), "/usr/bin/chronyc");
}

TEST_F(PreferencesTest, ArgumentsOutOfRangeAreSaidAndNotTaken) {
    open();
    for (const char* text : {"0", "x", "1001", "4.5", ""}) {
        type("m_burst_good", text);
        EXPECT_TRUE(words("wake_words").starts_with("Good measurements wanted from each source: ")) << text;
        EXPECT_EQ(general.burst_good, 4) << text;
        EXPECT_FALSE(find<QPushButton>("saveArguments")->isEnabled());
    }
    type("m_burst_good", "7");
    EXPECT_EQ(words("wake_words"), "");
    EXPECT_EQ(general.burst_good, 7);
    press("saveArguments");
    EXPECT_FALSE(find<QPushButton>("saveArguments")->isEnabled());
    EXPECT_EQ(services_wanted, 1);
    pane().show_wake_service(refused);
    EXPECT_EQ(words("status"), "The helper refused.");
    press("m_install_wake");
    EXPECT_FALSE(find<QLineEdit>("m_burst_good")->isEnabled() || load(settings, settings::install_wake));
}

TEST_F(PreferencesTest, ChronywakeIsTested) {
    open();
    for (const auto& [reply, good] : {std::pair{Result<std::string>("200 OK\n"), true},
                                      {"506 Cannot talk to daemon", false},
                                      {"", false},
                                      {refused, false}}) {
        press("m_test_wake");
        EXPECT_TRUE(find<QProgressBar>("m_testing_wake")->isVisible());
        EXPECT_FALSE(find<QPushButton>("m_test_wake")->isEnabled());
        pane().show_wake_test(reply);
        EXPECT_FALSE(find<QProgressBar>("m_testing_wake")->isVisible());
        const auto* box = window->findChild<QMessageBox*>();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->icon() == QMessageBox::Information, good) << reply.value_or("refused");
        EXPECT_TRUE(answer("Dismiss"));
        EXPECT_TRUE(find<QPushButton>("m_test_wake")->isEnabled());
    }
    has_helper = false;
    open();
    EXPECT_FALSE(find<QPushButton>("m_test_wake")->isEnabled());
}

TEST_F(PreferencesTest, TheOptionalWindowsAreOfferedAtOnce) {
    open();
    window->show_pane(Preferences::Pane::advanced);
    EXPECT_EQ(find<QTabWidget>("m_window")->currentIndex(), 1);
    press("m_frequency");
    press("m_spectrum");
    EXPECT_TRUE(advanced.frequency && advanced.spectrum);
    EXPECT_EQ(advanced_changes, 2);
    EXPECT_TRUE(load(settings, settings::enable_spectrum_win));
    EXPECT_NE(words("version").find("1.2.3"), std::string::npos);
}

TEST_F(PreferencesTest, WatchingCountsAlarmsInTheLogAndKeepsItsLimits) {
    const testing::PrivateHome home;
    const auto record = [](const char* time, const char* offset) {
        return std::string("2026-11-22 ") + time + " 192.0.2.1 2 0 0 " + offset + " N 1 0 0 0 0 0.001\n";
    };
    testing::write_file(home.path("tracking.log"),
                        record("00:00:00", "0") + record("00:01:00", "1.5") + record("00:02:00", "0"));
    testing::write_file(home.path("conf"), "log tracking\nlogdir " + home.path() + '\n');
    general.config = home.path("conf");
    open();
    const auto count = [this](const char* rule) {
        return find<QLabel>(rule)->text();
    };
    EXPECT_TRUE(count("count_step").startsWith(QLatin1Char('1'))) << count("count_step").toStdString();
    EXPECT_TRUE(count("count_bound").startsWith(QLatin1Char('0')));
    EXPECT_EQ(count("count_usable"), QStringLiteral("–")) << "a tracking log does not tell";
    find<QDoubleSpinBox>("limit_step")->setValue(2000);
    settle();
    EXPECT_TRUE(count("count_step").startsWith(QLatin1Char('0')));
    EXPECT_DOUBLE_EQ(load(settings, settings::watch_step), 2);
    find<QCheckBox>("m_tray")->click();
    EXPECT_TRUE(load(settings, settings::watch_tray));
}

} // namespace
} // namespace tickervantage
