#include "base/failure_codes.h"
#include "support/keyboard.h"
#include "support/real_application.h"
#include "support/test.h"

#include <qtestsupport_core.h>

namespace tickervantage {
namespace {

struct ApplicationTest : testing::RealApplication {
    static std::multiset<std::string> titles_of(const char* name) {
        std::multiset<std::string> titles;
        for (const auto* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String(name) && window->isVisible())
                titles.insert(window->windowTitle().toStdString());
        return titles;
    }
};

TEST_F(ApplicationTest, OldInstallationIsRemovedInTheBackground) {
    machine_files = {{"/etc/systemd/system/org.tuxfamily.chronyd.service", ""}};
    launch();
    EXPECT_TRUE(fakes.channel.commands.empty());
    removal_queue.turn();
    ASSERT_EQ(fakes.channel.commands.size(), 3U);
    EXPECT_TRUE(fakes.channel.commands[1].starts_with("rm -f "));
}

TEST_F(ApplicationTest, OptionalItemsFollowThePreferences) {
    launch();
    EXPECT_FALSE(item("showFreqTemp")->isVisible());
    EXPECT_FALSE(item("showSpectrum")->isVisible());
    fakes.store.values = {{"enable_frequency_win", {"true"}}};
    launch();
    EXPECT_TRUE(item("showFreqTemp")->isVisible());
    EXPECT_FALSE(item("showSpectrum")->isVisible());
}

TEST_F(ApplicationTest, ItemsWithoutAWindowAreDisabledAndSayWhy) {
    launch();
    std::set<std::string> hidden, disabled;
    for (const auto& [name, item] : application->menus().actions)
        if (!item->isEnabled()) {
            (item->isVisible() ? disabled : hidden).insert(name);
            EXPECT_FALSE(item->isVisible() && item->toolTip().isEmpty()) << name;
        }
    EXPECT_EQ(hidden, (std::set<std::string>{"showDonate", "showFreqTemp", "showSpectrum"}));
    EXPECT_EQ(disabled,
              (std::set<std::string>{"formerConfigurations", "installChrony", "rotateLogs", "runChronywake",
                                     "startChrony", "stepTime", "stopChrony", "synchServer", "uninstallChrony"}));
}

TEST_F(ApplicationTest, TheMenusIconsWaitForTheFirstPicture) {
    const QTemporaryDir icons;
    QImage picture(16, 16, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    for (const char* name : {"view-refresh.png", "application-exit.png"})
        ASSERT_TRUE(picture.save(icons.filePath(QLatin1String(name))));
    QIcon::setFallbackSearchPaths({icons.path()});
    QIcon::setThemeName(QStringLiteral("hicolor")); // without a theme Qt looks nowhere
    launch();
    EXPECT_FALSE(item("refresh")->icon().isNull()) << "it stands in the toolbar";
    EXPECT_TRUE(item("quit")->icon().isNull());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !item("quit")->icon().isNull(); }, 20'000));
    QIcon::setThemeName({});
    QIcon::setFallbackSearchPaths({});
}

TEST_F(ApplicationTest, FrequencyAndItsInspectorAreOneWindowEach) {
    launch();
    for (const char* name : {"showFreqTemp", "showFreqInspector", "showFreqTemp", "showFreqInspector"})
        item(name)->trigger();
    const auto windows = QApplication::topLevelWidgets();
    for (const char* name : {"FreqTempWindow", "SensorInspector"})
        EXPECT_EQ(std::ranges::count(windows, QLatin1String(name), &QWidget::objectName), 1) << name;
}

TEST_F(ApplicationTest, TheSpectrumIsOfTheTrackingWindowThatIsOpen) {
    launch();
    item("showSpectrum")->trigger();
    const auto* chart = window("SpectrumWindow")->findChild<QWidget*>(QStringLiteral("m_spectrum"));
    const QString nothing = chart->accessibleDescription();
    application->open_log(QStringLiteral("/var/log/chrony/tracking.log"));
    EXPECT_NE(chart->accessibleDescription(), nothing);
    window("TrackingWindow")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(chart->accessibleDescription(), nothing);
}

TEST_F(ApplicationTest, LiveTrackingFollowsTheLogOfTheConfiguredFolder) {
    const QTemporaryDir folder;
    const std::string configuration = folder.filePath(QStringLiteral("chrony.conf")).toStdString();
    std::ofstream(configuration) << "logdir /somewhere/else/\n";
    fakes.store.values = {{"file_config", {configuration}}};
    launch();
    item("liveTracking")->trigger();
    fakes.settle();
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find(windows, QStringLiteral("TrackingWindow"), &QWidget::objectName);
    ASSERT_NE(found, windows.end());
    EXPECT_EQ((*found)->windowTitle(), QStringLiteral("Tracking log – live"));
    EXPECT_EQ((*found)->findChild<QLabel*>(QStringLiteral("titleView"))->text(),
              QStringLiteral("/somewhere/else/tracking.log"));
}

TEST_F(ApplicationTest, AHistoryWithoutAWindowIsOfferedOnceAndNotAtOnce) {
    fakes.execute.answer("systemctl", "disabled\n", 1);
    launch();
    const auto banner = [this] {
        return application->main_window().findChild<QLabel*>(QStringLiteral("standingNotice"));
    };
    wait(60);
    EXPECT_TRUE(banner()->text().isEmpty());
    wait(200);
    ASSERT_TRUE(banner()->text().contains(QLatin1String("keep-history")));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    fakes.execute.answer("systemctl", "");
    Q_EMIT banner()->linkActivated(QStringLiteral("keep-history"));
    settle();
    EXPECT_TRUE(banner()->text().isEmpty());
    EXPECT_EQ(runs_of("systemctl|--user|enable|--now", "|tickervantage-history.service"), 1);
    fakes.execute.answer("systemctl", "disabled\n", 1);
    launch();
    wait(260);
    EXPECT_TRUE(banner()->text().isEmpty());
}

TEST_F(ApplicationTest, AnotherMachinesClockIsReadAndNothingChanged) {
    has_administration = true;
    fakes.store.values = {{"daemon_hosts", {"far.example", "-o", "a b"}}};
    fakes.execute.answer("chronyc -h far.example", "506 Cannot talk to daemon\n", 1);
    launch();
    auto& main = application->main_window();
    const auto choose = [this](const char* name) {
        auto* item =
            application->menus().m_daemon->findChild<QAction*>(QLatin1String(name), Qt::FindDirectChildrenOnly);
        ASSERT_NE(item, nullptr) << name;
        item->trigger();
        QCoreApplication::processEvents();
        settle();
    };
    EXPECT_EQ(
        application->menus().m_daemon->findChildren<QAction*>(QRegularExpression(QStringLiteral("^host "))).size(), 1)
        << "what is no name is not offered";
    auto* verdict = main.findChild<QLabel*>(QStringLiteral("verdict_reason"));
    const QString name = main.findChild<QLabel*>(QStringLiteral("verdict_name"))->text();
    const std::string tooltip = item("startChrony")->toolTip().toStdString();
    choose("host far.example");
    EXPECT_EQ(main.windowTitle(), QStringLiteral("far.example – Tickervantage"));
    EXPECT_TRUE(verdict->text().contains(QLatin1String("far.example gave no answer (506 Cannot talk to daemon)")));
    EXPECT_TRUE(main.findChild<QWidget*>(QStringLiteral("host_bar"))->isVisibleTo(&main));
    EXPECT_FALSE(main.findChild<QPushButton*>(QStringLiteral("mend"))->isVisibleTo(&main));
    Q_EMIT application->menus().m_action->aboutToShow();
    const auto jobs = application->menus().m_action->actions() + QList{item("showConfigEditor")};
    for (const auto* job : jobs)
        EXPECT_TRUE(job->isSeparator() || (!job->isEnabled() && job->toolTip().contains(QLatin1String("far.example"))))
            << job->objectName().toStdString();
    main.findChild<QPushButton*>(QStringLiteral("own_machine"))->click();
    settle();
    EXPECT_EQ(main.windowTitle(), QStringLiteral("Tickervantage"));
    EXPECT_EQ(main.findChild<QLabel*>(QStringLiteral("verdict_name"))->text(), name);
    EXPECT_TRUE(item("startChrony")->isEnabled() && item("showConfigEditor")->isEnabled());
    EXPECT_EQ(item("startChrony")->toolTip().toStdString(), tooltip);
    choose("host far.example");
    main.close();
    EXPECT_EQ(main.windowTitle(), QStringLiteral("Tickervantage")) << "what goes on is this machine's";
}

TEST_F(ApplicationTest, MachinesAreAddedAndRemovedAndRemembered) {
    launch();
    auto* menu = application->menus().m_daemon;
    menu->findChild<QAction*>(QStringLiteral("editHosts"), Qt::FindDirectChildrenOnly)->trigger();
    auto* dialog = application->main_window().findChild<QDialog*>(QStringLiteral("HostsDialog"));
    ASSERT_NE(dialog, nullptr);
    auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("host_name"));
    const auto words = [dialog] {
        return dialog->findChild<QLabel*>(QStringLiteral("words"))->text();
    };
    const auto add = [&](const char* host) {
        name->setText(QLatin1String(host));
        dialog->findChild<QPushButton*>(QStringLiteral("add_host"))->click();
        return words().isEmpty();
    };
    for (const char* wrong : {"ptb time 1", "-h", "time;reboot", "a,b", "/", "/run/\nx"})
        EXPECT_FALSE(add(wrong)) << wrong;
    EXPECT_EQ(fakes.store.values.count("daemon_hosts"), 0U);
    for (const char* right :
         {"time.example", " 192.0.2.1 ", "2001:db8::1", "fe80::1%eth0", "/run/other/chronyd.sock", "TIME.example"})
        EXPECT_TRUE(add(right)) << right;
    using Texts = std::vector<std::string>;
    EXPECT_EQ(fakes.store.values["daemon_hosts"],
              (Texts{"time.example", "192.0.2.1", "2001:db8::1", "fe80::1%eth0", "/run/other/chronyd.sock"}));
    dialog->findChild<QPushButton*>(QStringLiteral("remove_host"))->click(); // the one that was typed again
    EXPECT_EQ(fakes.store.values["daemon_hosts"].front(), "192.0.2.1");
    EXPECT_NE(menu->findChild<QAction*>(QStringLiteral("host 192.0.2.1"), Qt::FindDirectChildrenOnly), nullptr);
    EXPECT_EQ(menu->findChild<QAction*>(QStringLiteral("host time.example"), Qt::FindDirectChildrenOnly), nullptr);
}

TEST_F(ApplicationTest, ADemonstrationsServersArePulledOutAndPutBack) {
    std::string done;
    daemon.configuration = "/demonstration/chrony.conf";
    daemon.control.pull_out = [&done](std::size_t server, bool out) {
        done += std::to_string(server) + (out ? "out " : "in ");
        return Result<>();
    };
    launch();
    auto* all = application->menus().m_action->findChild<QAction*>(QStringLiteral("pullOutServers"));
    auto* first = application->menus().m_action->findChild<QAction*>(QStringLiteral("pullOutServer"));
    all->trigger();
    EXPECT_EQ(done, ""); // not on the main thread
    settle();
    EXPECT_EQ(done, "0out 1out 2out ");
    EXPECT_TRUE(all->isChecked() && first->isChecked() && !first->isEnabled());
    all->trigger();
    settle();
    first->trigger();
    settle();
    EXPECT_EQ(done, "0out 1out 2out 0in 1in 2in 0out ");
    EXPECT_TRUE(first->isChecked() && !all->isChecked() && first->isEnabled());
    daemon.control.pull_out = [](std::size_t, bool) -> Result<> {
        return failed(FailureCode::demonstration_has_ended);
    };
    launch();
    item("refresh")->trigger();
    application->menus().m_action->findChild<QAction*>(QStringLiteral("pullOutServer"))->trigger();
    settle();
    auto* box = application->main_window().findChild<QMessageBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), QStringLiteral("The demonstration has ended."));
}

TEST_F(ApplicationTest, ShortcutsAreUnique) {
    launch();
    std::set<QString> seen;
    for (const auto& [name, action] : application->menus().actions) {
        const QString keys = action->shortcut().toString();
        EXPECT_TRUE(keys.isEmpty() || seen.insert(keys).second) << name;
    }
    EXPECT_GE(seen.size(), 8U);
}

bool reaches_main_window(const QWidget& window) {
    const auto menus = window.findChildren<QMenu*>();
    return std::ranges::any_of(menus, [](const auto* menu) {
        const auto items = menu->actions();
        return std::ranges::find(items, QStringLiteral("showTickervantage"), &QAction::objectName) != items.end();
    });
}

void expect_usable_by_keys(QWidget& window) {
    const auto name = testing::name_of(&window);
    EXPECT_EQ(testing::out_of_reach(window), std::vector<std::string>()) << name;
    EXPECT_EQ(testing::clashes(testing::mnemonic_texts(window)), std::vector<std::string>()) << name;
    EXPECT_EQ(testing::wordless(window), std::vector<std::string>()) << name;
    for (const auto* menu : window.findChildren<QMenu*>())
        EXPECT_EQ(testing::clashes(testing::texts_of(*menu)), std::vector<std::string>())
            << name << " " << menu->title().toStdString();
}

// Each window as it comes up.
TEST_F(ApplicationTest, EveryWindowIsUsedByKeysAlone) {
    launch();
    for (const char* window :
         {"liveTracking", "showSpectrum", "showFreqTemp", "showFreqInspector", "showServers", "showPreferences",
          "newConfiguration", "showHistory", "showLaboratory", "helpFirstUse"}) {
        item(window)->setVisible(true); // some are only offered to those who ask
        item(window)->trigger();
    }
    item("separateReport")->trigger();
    config_queue.turn();
    fakes.settle();
    std::set<std::string> seen;
    for (auto* window : QApplication::topLevelWidgets()) {
        if (window->isHidden() || window->windowType() == Qt::Popup || qobject_cast<QMenu*>(window) != nullptr)
            continue;
        seen.insert(window->objectName().toStdString());
        expect_usable_by_keys(*window);
        EXPECT_TRUE(reaches_main_window(*window)) << testing::name_of(window);
    }
    for (const char* name :
         {"TrackingWindow", "LaboratoryWindow", "SpectrumWindow", "FreqTempWindow", "SensorInspector", "ServersWindow",
          "Preferences", "ConfigEditor", "HistoryWindow", "HelpViewer"})
        EXPECT_TRUE(seen.contains(name)) << name;
    auto* preferences = window("Preferences");
    for (auto* tabs : preferences->findChildren<QTabWidget*>())
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            expect_usable_by_keys(*preferences);
        }
}

// The dialogs that hang on the main window, one after the other.
TEST_F(ApplicationTest, EveryDialogIsUsedByKeysAlone) {
    has_administration = true;
    machine_files["/etc/chrony.d/chrony.conf"] = "server b\n";
    launch();
    settle();
    const auto close_dialogs = [this] {
        for (auto* dialog : application->main_window().findChildren<QDialog*>())
            dialog->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    close_dialogs();
    std::vector<QAction*> items{application->menus().m_daemon->findChild<QAction*>(QStringLiteral("editHosts"))};
    for (const char* name : {"synchServer", "stepTime", "formerConfigurations", "uninstallChrony", "showAbout"})
        items.push_back(item(name));
    for (auto* one : items) {
        one->trigger();
        settle();
        int shown = 0;
        for (auto* dialog : application->main_window().findChildren<QDialog*>()) {
            if (!dialog->isVisible())
                continue;
            ++shown;
            expect_usable_by_keys(*dialog);
        }
        EXPECT_EQ(shown, 1) << one->objectName().toStdString();
        close_dialogs();
    }
    for (const auto* job : application->menus().m_action->actions())
        EXPECT_TRUE(job->isSeparator() || job->toolTip() != QString(job->text()).remove(QLatin1Char('&')))
            << job->text().toStdString() << ": says no more than its name";
}

TEST_F(ApplicationTest, ShutdownStopsTheTimersAndSavesWhatWasChanged) {
    launch();
    item("showPreferences")->trigger();
    auto* limit = window("Preferences")->findChild<QLineEdit*>(QStringLiteral("m_make_limit"));
    limit->setText(QStringLiteral("7"));
    Q_EMIT limit->textEdited(limit->text());
    application->main_window().close();
    application->applicationWillTerminate();
    EXPECT_FALSE(fakes.timer.is_running());
    EXPECT_EQ(fakes.store.values["make_limit"], std::vector<std::string>{"7"});
    for (const char* untouched : {"file_chronyc", "enable_spectrum_win", "chronyc_interval"})
        EXPECT_FALSE(fakes.store.values.contains(untouched)) << untouched;
}

TEST_F(ApplicationTest, FatalFaultIsLoggedAndShown) {
    launch();
    application->main_window().stop_program("The meter has no view number 6.");
    const auto* box = application->main_window().findChild<QMessageBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(std::ranges::count(logger.sentences, box->text().toStdString()), 1);
}

TEST_F(ApplicationTest, ChangesOfStateAreLoggedOnce) {
    launch();
    const auto refresh = [this] {
        application->main_window().cycle().refresh();
        fakes.settle();
    };
    refresh();
    fakes.fall_silent();
    refresh();
    refresh();
    logger.sentences.erase(logger.sentences.begin()); // that the program starts
    EXPECT_EQ(logger.sentences, (std::vector<std::string>{"The daemon is synchronised",
                                                          "The daemon is unavailable: 506 Cannot talk to daemon"}));
}

TEST_F(ApplicationTest, AClosedMainWindowComesBackAndReadsOn) {
    launch();
    application->main_window().close();
    const auto before = runs_of("chronyc", "tracking");
    wait(60);
    EXPECT_EQ(runs_of("chronyc", "tracking"), before) << "nobody looks";
    item("showTickervantage")->trigger();
    settle();
    EXPECT_TRUE(application->main_window().isVisible());
    EXPECT_EQ(runs_of("chronyc", "tracking"), before + 1) << "at once";
    wait(60);
    EXPECT_EQ(runs_of("chronyc", "tracking"), before + 7) << "every ten seconds";
}

TEST_F(ApplicationTest, WindowMenusLeadFromEachWindowToTheOthers) {
    launch();
    item("showServers")->trigger();
    item("showPreferences")->trigger();
    application->main_window().close();
    auto* menu = window("ServersWindow")->findChild<QMenu*>(QStringLiteral("windows"));
    ASSERT_NE(menu, nullptr);
    const auto listed = [menu] {
        Q_EMIT menu->aboutToShow();
        std::vector<std::pair<std::string, bool>> found;
        for (const auto* one : menu->actions())
            if (one->objectName() == QLatin1String("openWindow") && !one->isSeparator())
                found.emplace_back(one->text().toStdString(), one->isChecked());
        return found;
    };
    using Listed = std::vector<std::pair<std::string, bool>>;
    EXPECT_EQ(listed(), (Listed{{"Servers", true}, {"Preferences", false}}));
    item("showTickervantage")->trigger();
    window("Preferences")->close();
    EXPECT_EQ(listed(), (Listed{{"Tickervantage", false}, {"Servers", true}}));
    application->main_window().showMinimized();
    menu->actions().back()->trigger(); // Servers
    listed();
    for (auto* one : menu->actions())
        if (one->text() == QLatin1String("Tickervantage"))
            one->trigger();
    EXPECT_FALSE(application->main_window().isMinimized());
}

TEST_F(ApplicationTest, AnotherStartBringsTheMainWindowAndItsLogs) {
    launch();
    item("showServers")->trigger();
    application->main_window().close();
    application->come_to_front({QStringLiteral("/a/tracking.log"), QStringLiteral("/b/tracking.log")});
    settle();
    EXPECT_TRUE(application->main_window().isVisible());
    const auto windows = QApplication::topLevelWidgets();
    for (const char* title : {"/a/tracking.log", "/b/tracking.log"})
        EXPECT_EQ(std::ranges::count(windows, QLatin1String(title), &QWidget::windowTitle), 1) << title;
}

// What lies at a path decides, not its name; without a file the name does.
TEST_F(ApplicationTest, FilesThatAreDroppedOpenWhereTheyBelong) {
    log_files.create("/l/renamed.conf", "=====\n   Date (UTC) Time\n=====\n");
    log_files.create("/l/chrony.conf.bak", "# mine\nserver a.example\n");
    launch();
    auto& main = application->main_window();
    const auto drop = [&main](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&main, &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&main, &event);
        EXPECT_EQ(event.dropAction(), urls.first().isLocalFile() ? Qt::CopyAction : event.proposedAction());
        return enter.isAccepted();
    };
    EXPECT_TRUE(main.acceptDrops());
    EXPECT_FALSE(drop({QUrl(QStringLiteral("https://example.net/tracking.log"))}));
    EXPECT_TRUE(drop({QUrl::fromLocalFile(QStringLiteral("/l/renamed.conf")),
                      QUrl::fromLocalFile(QStringLiteral("/l/tracking.log")),
                      QUrl::fromLocalFile(QStringLiteral("/l/chrony.conf.bak"))}));
    settle();
    EXPECT_EQ(titles_of("TrackingWindow"), (std::multiset<std::string>{"/l/renamed.conf", "/l/tracking.log"}));
    const auto* alert = main.findChild<QMessageBox*>(); // there is no such document: the editor said so
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(alert->text().contains(QLatin1String("/l/chrony.conf.bak"))) << alert->text().toStdString();
    EXPECT_EQ(alert->icon(), QMessageBox::Critical);
}

TEST_F(ApplicationTest, ALogThatIsOpenComesToTheFront) {
    launch();
    application->open_log(QStringLiteral("/a/tracking.log"));
    auto* first = window("TrackingWindow");
    first->showMinimized();
    application->open_log(QStringLiteral("/a/tracking.log"));
    EXPECT_FALSE(first->isMinimized());
    application->open_log(QStringLiteral("/b/tracking.log"));
    EXPECT_EQ(titles_of("TrackingWindow"), (std::multiset<std::string>{"/a/tracking.log", "/b/tracking.log"}));
}

TEST_F(ApplicationTest, DialogsCloseByKeyAsWindowsDo) {
    launch();
    QDialog dialog(&application->main_window());
    dialog.show();
    const auto shortcuts = dialog.findChildren<QShortcut*>();
    const auto close = std::ranges::find(shortcuts, QKeySequence(QKeySequence::Close), &QShortcut::key);
    ASSERT_NE(close, shortcuts.end());
    EXPECT_TRUE(dialog.actions().contains(item("quit")));
    Q_EMIT(*close)->activated();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ApplicationTest, NoWindowIsLargerThanTheScreen) {
    launch();
    const QSize screen = application->main_window().screen()->availableSize();
    item("showServers")->trigger();
    auto* servers = window("ServersWindow");
    servers->close();
    servers->resize(2 * screen);
    item("showServers")->trigger();
    EXPECT_EQ(servers->size(), servers->size().boundedTo(screen));
}

// Small letters on a large screen, and large ones on a small one: 1366 by 768, at twice the size.
TEST_F(ApplicationTest, EveryWindowCanBeMadeSmall) {
    launch();
    for (const char* window : {"liveTracking", "showSpectrum", "showFreqTemp", "showFreqInspector", "showServers",
                               "showPreferences", "newConfiguration", "helpFirstUse"})
        item(window)->trigger();
    settle();
    for (const char* name : {"TrackingWindow", "SpectrumWindow", "FreqTempWindow", "SensorInspector", "ServersWindow",
                             "Preferences", "ConfigEditor", "HelpViewer"}) {
        ASSERT_NE(window(name), nullptr) << name;
        const QSize least = window(name)->minimumSizeHint().expandedTo(window(name)->minimumSize());
        EXPECT_LE(least.width(), 683) << name;
        EXPECT_LE(least.height(), 384 - 40) << name;
    }
}

// The window of frequency and temperature is opened before or after the main window is closed.
TEST_F(ApplicationTest, SamplingGoesOnWithoutTheMainWindow) {
    freqtemp.sensors.readings = {{"cpu", "Package", 45}};
    for (const bool opened_before : {true, false}) {
        launch();
        if (opened_before)
            item("showFreqTemp")->trigger();
        settle();
        application->main_window().close();
        if (!opened_before)
            item("showFreqTemp")->trigger();
        settle();
        const auto before = runs_of("chronyc", "tracking");
        wait(60);
        EXPECT_EQ(runs_of("chronyc", "tracking"), before + 6) << opened_before;
        window("FreqTempWindow")->close();
        const auto closed = runs_of("chronyc", "tracking");
        wait(60);
        EXPECT_EQ(runs_of("chronyc", "tracking"), closed) << opened_before;
    }
}

TEST_F(ApplicationTest, ASilentDaemonHasNoFrequencyToRecord) {
    freqtemp.sensors.readings = {{"cpu", "Package", 45}};
    launch();
    item("showFreqTemp")->trigger();
    settle();
    wait(20);
    const auto* samples = window("FreqTempWindow")->findChild<QLabel*>(QStringLiteral("m_samples"));
    ASSERT_NE(samples, nullptr);
    EXPECT_EQ(samples->text(), QStringLiteral("2"));
    fakes.fall_silent();
    wait(60);
    EXPECT_EQ(samples->text(), QStringLiteral("2"));
    window("FreqTempWindow")->close();
    settle();
    const std::string& map = freqtemp.files.texts["/data/T/scattermap.json"];
    EXPECT_NE(map.find("\"frequency\": "), std::string::npos) << map;
    EXPECT_EQ(map.find("\"frequency\": 0\n"), std::string::npos) << map;
}

TEST_F(ApplicationTest, AboutBoxNamesTheProgram) {
    launch();
    item("showAbout")->trigger();
    const auto* box = application->main_window().findChild<QMessageBox*>(QStringLiteral("about"));
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().startsWith(QStringLiteral("Tickervantage ")));
}

} // namespace
} // namespace tickervantage
