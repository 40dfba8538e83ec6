#include "app/app_delegate.h"

#include "app/about_box.h"
#include "app/analysis_windows.h"
#include "app/bring_to_front.h"
#include "app/config_windows.h"
#include "app/daemon_menu.h"
#include "app/first_paint.h"
#include "app/help_windows.h"
#include "app/mender.h"
#include "app/opened_files.h"
#include "app/settings_windows.h"
#include "app/trend_feed.h"
#include "app/watcher.h"
#include "app/window_menus.h"
#include "chrony/configuration/configuration.h"
#include "gui/common/desktop_links.h"
#include "gui/main/tickervantage_window.h"
#include "linux/chrony_journal.h"
#include "linux/user_unit.h"
#include "qt/in_words.h"
#include "qt/languages.h"
#include "roothelper/jobs/distribution_chrony.h"
#include "roothelper/jobs/job_catalogue.h"
#include "roothelper/jobs/old_installation.h"
#include "studies/events/message_events.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QIcon>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QProcess>
#include <QToolBar>

#include <chrono>
#include <ctime>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(application)
};

constexpr const char* usual_log_folder = "/var/log/chrony/";
constexpr std::int64_t messages_of_late = std::int64_t{90} * 86400; // seconds

// What this user may not read is not there.
Result<> read_journal_of_late(EventsRead& read) {
    JournalEvents journal;
    const std::int64_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    auto done = read_chrony_journal(now - messages_of_late, now + 1, [&journal](const JournalEntry& entry) {
        journal.add({entry.time, entry.writer, entry.message}, entry.boot);
    });
    journal.append_to(read.events);
    return done;
}

// Any name in which "tracking", one character and "lo" follow each other, such as tracking.log.1.gz.
constexpr const char* tracking_log_pattern = "*tracking?lo*";

} // namespace

AppDelegate::AppDelegate(ApplicationParts parts, DaemonChoice daemon)
    : m_parts(std::move(parts)), m_daemon(std::move(daemon)), m_warnings(m_parts.cycle.settings),
      m_background(m_parts.cycle.main_thread) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    m_parts.logger.log(LogLevel::info, "Tickervantage " TICKERVANTAGE_VERSION " starts.");
    remove_old_installations(m_parts.machine, native_service_form, m_parts.actions, m_parts.removal_queue);
    m_general = PreferencesGeneral::load(m_parts.cycle.settings, usual_paths());
    m_advanced = PreferencesAdvanced::load(m_parts.cycle.settings);
    m_warnings.load();
    make_main_window();
    update_optional_items();
    m_parts.cycle.timer.start();
    after_first_paint(*m_main_window, [this] { when_painted(); });
    showTickervantage();
    configurations().offer_kept_edits();
}

// What nobody sees in the first picture of the window does not hold it up.
void AppDelegate::when_painted() {
    QApplication::setWindowIcon(QIcon::fromTheme(QApplication::desktopFileName()));
    m_menus.find_icons();
}

void AppDelegate::applicationWillTerminate() {
    m_parts.cycle.timer.stop();
    if (m_configurations && !m_configurations->finish())
        m_parts.logger.log(LogLevel::error, "An edit that is not saved could not be kept in time.");
    if (m_settings_windows && !m_settings_windows->finish())
        m_parts.logger.log(LogLevel::error, "The server list or launch at login could not be saved in time.");
    m_general.save(m_parts.cycle.settings);
    m_advanced.save(m_parts.cycle.settings);
    m_parts.logger.log(LogLevel::info, "Tickervantage ends.");
}

ChronyPaths AppDelegate::usual_paths() const {
    if (!m_daemon.configuration.empty())
        return {.config = m_daemon.configuration,
                .chronyc = m_parts.paths.bundle_program("chronyc"),
                .chronyd = m_parts.paths.bundle_program("chronyd"),
                .chronywake = m_parts.paths.bundle_program("chronywake")};
    return usual_chrony_paths(m_parts.machine.looks_for_files());
}

// What was typed and not saved yet is newer than what the store holds of it.
void AppDelegate::settings_changed() {
    DefaultSettings& settings = m_parts.cycle.settings;
    m_general.save(settings);
    m_general = PreferencesGeneral::load(settings, usual_paths());
    m_advanced = PreferencesAdvanced::load(settings);
    update_optional_items();
    m_main_window->settings_changed();
    m_watcher->settings_changed();
    m_main_window->cycle().programs_changed();
    if (m_settings_windows)
        m_settings_windows->show_records();
}

void AppDelegate::make_main_window() {
    make_history();
    if (m_daemon.configuration.empty())
        m_history_service = std::make_shared<const UserUnit>(m_parts.cycle.execute, "tickervantage-history.service");
    m_main_window = std::make_unique<TickervantageWindow>(m_parts.cycle, cycle_options());
    connect_main_window();
    make_administration();
    make_trend_and_mender();
    make_watcher();
    make_help();
    m_menus = build_application_menus(m_main_window.get());
    connect_items();
    m_window_menus = std::make_unique<WindowMenus>(*m_menus.m_windows, *m_menus.actions.at("quit"));
    build_recent_menus();
    make_opened_files();
    fill_toolbar();
    for (auto* bar : m_main_window->findChildren<QToolBar*>())
        bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_main_window->set_standing_notice(m_daemon.standing_notice);
    m_main_window->windowDidLoad();
    if (m_administration)
        m_administration->offer_installation();
    else
        explain_missing_administration(m_menus);
    if (m_daemon.control.pull_out)
        make_demonstration_menu();
    m_daemon_menu = std::make_unique<DaemonMenu>(m_parts.cycle.settings, *m_main_window, m_menus);
    if (m_history_service)
        make_history_offer();
}

void AppDelegate::fill_toolbar() {
    QList<QAction*> shown;
    for (const char* name : {"refresh", "showHistory", "liveTracking", "showConfigEditor"}) {
        shown.append(m_menus.actions.at(name));
        ApplicationMenus::find_icon(*shown.back());
    }
    m_main_window->add_toolbar_actions(shown);
}

void AppDelegate::make_history_offer() {
    m_history_offer = std::make_unique<HistoryOffer>(HistoryOfferParts{.service = m_history_service,
                                                                       .queue = m_parts.list_queue,
                                                                       .main_thread = m_parts.cycle.main_thread,
                                                                       .timer = m_parts.cycle.timer,
                                                                       .warnings = m_warnings});
    auto* offer = m_history_offer.get();
    connect(offer, &HistoryOffer::offered, m_main_window.get(), &TickervantageWindow::set_standing_notice);
    connect(offer, &HistoryOffer::complained, this, &AppDelegate::complain);
    connect(m_main_window.get(), &TickervantageWindow::standing_notice_followed, offer, &HistoryOffer::follow);
}

void AppDelegate::make_demonstration_menu() {
    m_demonstration_menu = std::make_unique<DemonstrationMenu>(
        DemonstrationMenuParts{m_daemon.control, m_parts.config_queue, m_parts.cycle.main_thread}, m_menus);
    connect(m_demonstration_menu.get(), &DemonstrationMenu::complained, this, &AppDelegate::complain);
    connect(m_demonstration_menu.get(), &DemonstrationMenu::changed, this,
            [this] { m_main_window->cycle().refresh(); });
}

void AppDelegate::build_recent_menus() {
    for (auto [item, files] : {std::pair{"recentConfigurations", &configurations().recent()},
                               std::pair{"recentLogs", &analysis().recent()}}) {
        auto* menu = new QMenu(m_main_window.get());
        files->fill(menu);
        m_menus.actions.at(item)->setMenu(menu);
    }
}

void AppDelegate::make_opened_files() {
    m_opened_files = std::make_unique<OpenedFiles>(m_parts.files, m_parts.config_queue, m_parts.cycle.main_thread);
    connect(m_opened_files.get(), &OpenedFiles::log_given, this, &AppDelegate::open_log);
    connect(m_opened_files.get(), &OpenedFiles::configuration_given, &configurations(), &ConfigWindows::open_path);
}

void AppDelegate::connect_main_window() {
    auto* window = m_main_window.get();
    connect(window, &TickervantageWindow::stop_requested, this, &AppDelegate::stop_program);
    connect(window, &TickervantageWindow::gpsd_application_requested, this, &AppDelegate::launchMeridianox);
    connect(window, &TickervantageWindow::preferences_requested, this,
            [this] { settings_windows().showPreferences(Preferences::Pane::general); });
    connect(window, &TickervantageWindow::wrong_program_found, this,
            [this](const QString& sentence) { m_parts.logger.log(LogLevel::error, sentence.toStdString()); });
    connect(window, &TickervantageWindow::reading_applied, this, &AppDelegate::log_change_of_state);
    connect(window, &TickervantageWindow::graph_requested, this, &AppDelegate::showHistory);
    connect(window, &TickervantageWindow::rights_requested, this, [this] {
        if (m_administration)
            m_administration->ask_for_rights();
    });
}

void AppDelegate::make_trend_and_mender() {
    auto* window = m_main_window.get();
    m_trend = std::make_unique<TrendFeed>(history_file(), m_parts.trend_queue, m_parts.cycle.main_thread, *window);
    m_trend->read();
    m_mender = std::make_unique<Mender>(MenderParts{.machine = m_parts.machine,
                                                    .queue = m_parts.list_queue,
                                                    .main_thread = m_parts.cycle.main_thread,
                                                    .general = m_general,
                                                    .window = *window,
                                                    .administration = m_administration.get()});
    connect(m_mender.get(), &Mender::complained, this, &AppDelegate::complain);
    connect(m_mender.get(), &Mender::demonstration_left, this, &AppDelegate::leave_demonstration);
}

// The next start of the program is one without a demonstration, with daemon and data of this machine.
void AppDelegate::leave_demonstration() {
    if (QProcess::startDetached(QCoreApplication::applicationFilePath(), {}))
        QApplication::closeAllWindows();
    else
        //: alert: the program could not be started once more, without the demonstration
        complain(Texts::tr("The program could not be started again. Please quit it, and start it without --demo."));
}

std::string AppDelegate::history_file() const {
    return m_parts.paths.data_home.empty() ? "" : m_parts.paths.data_home + "/Tickervantage/history.sqlite";
}

void AppDelegate::make_watcher() {
    m_watcher = std::make_unique<Watcher>(WatcherParts{.settings = m_parts.cycle.settings,
                                                       .broadcast = m_parts.cycle.broadcast,
                                                       .warnings = m_warnings,
                                                       .window = *m_main_window,
                                                       .notifier = m_parts.notifier});
}

void AppDelegate::make_help() {
    m_help = std::make_unique<HelpWindows>(
        HelpWindowsParts{.sources = {.execute = m_parts.cycle.execute,
                                     .own_pages = m_parts.paths.bundle_resource("help"),
                                     .language = QLocale().name().section(QLatin1Char('_'), 0, 0).toStdString()},
                         .queue = m_parts.help_queue,
                         .main_thread = m_parts.cycle.main_thread});
}

void AppDelegate::make_administration() {
    if (m_parts.job_queues == nullptr)
        return;
    m_administration = std::make_unique<Administration>(AdministrationParts{.queues = *m_parts.job_queues,
                                                                            .machine = m_parts.machine,
                                                                            .actions = m_parts.actions,
                                                                            .main_thread = m_parts.cycle.main_thread,
                                                                            .execute = m_parts.cycle.execute,
                                                                            .settings = m_parts.cycle.settings,
                                                                            .warnings = m_warnings,
                                                                            .general = m_general,
                                                                            .advanced = m_advanced,
                                                                            .paths = m_parts.paths,
                                                                            .window = *m_main_window});
    connect(m_administration.get(), &Administration::came_to_pass, this, [this](const HistoryEvent& event) {
        if (m_history)
            m_history->keep(event);
    });
    connect(m_administration.get(), &Administration::complained, this, &AppDelegate::complain);
    connect(m_administration.get(), &Administration::informed, this,
            [this](const QString& sentence) { say(sentence, QMessageBox::Information); });
}

void AppDelegate::show_problem(PrivilegedProblem problem, const Failure& why) {
    if (m_administration)
        m_administration->show_problem(problem, why);
}

TickervantageWindow& AppDelegate::main_window() {
    if (!m_main_window)
        make_main_window();
    return *m_main_window;
}

// The window goes on without it, and says so.
void AppDelegate::make_history() {
    if (m_parts.paths.data_home.empty())
        return;
    const auto show = [this](const std::optional<Failure>& failure) {
        m_main_window->set_standing_notice(failure ? in_words(*failure) : m_daemon.standing_notice);
    };
    m_history =
        std::make_unique<WindowHistory>(history_file(), WindowHistoryParts{.queue = m_parts.history_queue,
                                                                           .main_thread = m_parts.cycle.main_thread,
                                                                           .broadcast = m_parts.cycle.broadcast,
                                                                           .logger = m_parts.logger,
                                                                           .problem = show});
}

StatusCycleOptions AppDelegate::cycle_options() {
    return {.preferences = m_general,
            .bundle = m_parts.paths.bundle,
            .gpsd_application_found = [] { return has_application(QLatin1String(StatusCycle::GPSD_CONF_ID)); },
            .chronyc_arguments = m_daemon.chronyc_arguments,
            .configuration = m_daemon.configuration,
            .history = m_history.get()};
}

void AppDelegate::update_optional_items() const {
    m_menus.m_frequency_item->setVisible(m_advanced.frequency);
    m_menus.m_spectrum_item->setVisible(m_advanced.spectrum);
}

void AppDelegate::showTickervantage() {
    bring_to_front(main_window());
}

void AppDelegate::come_to_front(const QStringList& files) {
    showTickervantage();
    open_files(files);
}

void AppDelegate::open_files(const QStringList& files) {
    m_opened_files->open(files);
}

void AppDelegate::launchMeridianox() {
    launch_application(QLatin1String(StatusCycle::GPSD_CONF_ID), m_main_window.get(), [this] {
        m_parts.logger.log(LogLevel::warning, "Meridianox could not be started.");
        //: alert: the sibling application could not be started
        complain(Texts::tr("Meridianox could not be started."));
    });
}

AnalysisWindows& AppDelegate::analysis() {
    if (!m_analysis)
        make_analysis();
    return *m_analysis;
}

void AppDelegate::make_analysis() {
    m_analysis = std::make_unique<AnalysisWindows>(
        AnalysisParts{.settings = m_parts.cycle.settings,
                      .main_thread = m_parts.cycle.main_thread,
                      .timer = m_parts.cycle.timer,
                      .files = m_parts.files,
                      .spectrum_queue = m_parts.spectrum_queue,
                      .export_queue = m_parts.export_queue,
                      .configuration_queue = m_parts.list_queue,
                      .log_queues = m_parts.log_queues,
                      .general = m_general,
                      .advanced = m_advanced,
                      .freqtemp = m_parts.freqtemp,
                      .equation = local_file(m_parts.paths.bundle_resource("freqtemp.rtf")),
                      .is_demonstration = !m_daemon.tracking_log.empty(),
                      .administration = m_administration.get()});
    connect(m_analysis.get(), &AnalysisWindows::log_graph_requested, this, &AppDelegate::liveTracking);
    connect(m_analysis.get(), &AnalysisWindows::freqtemp_requested, this,
            [this] { m_menus.actions.at("showFreqTemp")->trigger(); });
    connect(m_analysis.get(), &AnalysisWindows::logs_requested, this, [this] {
        showTickervantage();
        m_mender->ask_for_logging();
    });
}

SettingsWindows& AppDelegate::settings_windows() {
    if (!m_settings_windows)
        make_settings_windows();
    return *m_settings_windows;
}

void AppDelegate::make_settings_windows() {
    m_settings_windows = std::make_unique<SettingsWindows>(
        SettingsWindowsParts{.settings = m_parts.cycle.settings,
                             .main_thread = m_parts.cycle.main_thread,
                             .queue = m_parts.list_queue,
                             .logger = m_parts.logger,
                             .paths = m_parts.paths,
                             .warnings = m_warnings,
                             .general = m_general,
                             .advanced = m_advanced,
                             .probes = m_parts.probes,
                             .files = m_parts.documents,
                             .editors = configurations(),
                             .jobs = m_administration ? &m_administration->jobs() : nullptr,
                             .has_fixed_paths = !m_daemon.configuration.empty(),
                             .history_service = m_history_service});
    auto* windows = m_settings_windows.get();
    connect(windows, &SettingsWindows::general_changed, this, [this] { m_main_window->cycle().programs_changed(); });
    connect(windows, &SettingsWindows::daemon_changed, this, [this] { m_main_window->cycle().refresh(); });
    connect(windows, &SettingsWindows::watch_changed, m_watcher.get(), &Watcher::settings_changed);
    connect(windows, &SettingsWindows::advanced_changed, this, [this] {
        update_optional_items();
        analysis().update_spectrum_buttons();
    });
    connect(windows, &SettingsWindows::defaults_wanted, this,
            [this] { m_general.restore_defaults(m_parts.cycle.settings, usual_paths()); });
}

ConfigWindows& AppDelegate::configurations() {
    if (!m_configurations)
        make_configurations();
    return *m_configurations;
}

void AppDelegate::make_configurations() {
    m_configurations = std::make_unique<ConfigWindows>(
        ConfigWindowsParts{.execute = m_parts.cycle.execute,
                           .queue = m_parts.config_queue,
                           .edit_queue = m_parts.list_queue,
                           .main_thread = m_parts.cycle.main_thread,
                           .settings = m_parts.cycle.settings,
                           .paths = m_parts.paths,
                           .probes = m_parts.probes,
                           .files = m_parts.documents,
                           .general = m_general,
                           .logger = m_parts.logger,
                           .daemon_user = m_daemon.user,
                           .can_install = m_administration != nullptr || m_daemon.control.install,
                           .window = m_main_window.get()});
    connect(m_configurations.get(), &ConfigWindows::not_opened, this, &AppDelegate::complain);
    connect(m_configurations.get(), &ConfigWindows::file_dropped, this,
            [this](const QString& path) { open_files({path}); });
    connect(m_configurations.get(), &ConfigWindows::install_wanted, this, &AppDelegate::install_configuration);
}

// The editor may have gone when the job comes to its end.
void AppDelegate::install_configuration(ConfigEditor* editor, const QString& text) {
    if (m_daemon.control.install)
        return install_in_demonstration(editor, text.toStdString());
    m_administration->run({.job = AdminJob::install_config, .configuration = text.toStdString()},
                          [editor = QPointer(editor)](const JobResult& result) {
                              if (editor)
                                  editor->show_installation(result.outcome);
                          });
}

void AppDelegate::install_in_demonstration(ConfigEditor* editor, const std::string& text) {
    m_background.start(
        m_parts.config_queue, [install = m_daemon.control.install, text] { return install(text); },
        [this, editor = QPointer(editor)](const Result<>& done) {
            if (editor)
                editor->show_installation(done);
            if (m_history)
                m_history->keep(job_event(std::time(nullptr), entry_of(AdminJob::install_config).name, done));
            m_main_window->cycle().refresh();
        });
}

void AppDelegate::open_log(const QString& path) {
    (void)analysis().open_log(path, false); // the window belongs to itself
}

void AppDelegate::openTrackingLog() {
    //: title of the dialog that opens a tracking log
    auto* dialog =
        new QFileDialog(m_main_window.get(), Texts::tr("Open Tracking Log"), QLatin1String(usual_log_folder));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(QLatin1String(tracking_log_pattern));
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, [this](const QString& path) { open_log(path); });
    dialog->open();
}

// Reading chrony.conf waits for the disk, so it is done on a queue.
template <class Use>
void AppDelegate::with_log_folder(Use use) {
    m_background.start(
        m_parts.cycle.queue,
        [path = m_general.config] {
            Configuration configuration;
            configuration.load(path);
            return configuration.value("logdir").value_or("");
        },
        use);
}

void AppDelegate::showLogs() {
    with_log_folder([](const std::string& folder) {
        if (!folder.empty())
            (void)reveal_folder(QString::fromStdString(folder)); // silent by design
    });
}

void AppDelegate::liveTracking() {
    if (!m_daemon.tracking_log.empty()) {
        (void)analysis().open_log(QString::fromStdString(m_daemon.tracking_log), true);
        return;
    }
    with_log_folder([this](const std::string& folder) {
        const QString path = folder.empty() ? QLatin1String(usual_log_folder) : QString::fromStdString(folder);
        (void)analysis().open_log(QDir::cleanPath(path) + QStringLiteral("/tracking.log"), true);
    });
}

// The folder of chrony's logs, or in a demonstration the one log that it has.
void AppDelegate::showHistory() {
    if (!m_daemon.tracking_log.empty()) {
        analysis().showHistory({.store = history_file(), .logs = {m_daemon.tracking_log}});
        return;
    }
    with_log_folder([this](const std::string& folder) {
        analysis().showHistory({.store = history_file(),
                                .logs = {folder.empty() ? usual_log_folder : folder},
                                .read_messages = read_journal_of_late});
    });
}

// Likewise.
void AppDelegate::showLaboratory() {
    if (!m_daemon.tracking_log.empty()) {
        analysis().showLaboratory({.log = m_daemon.tracking_log, .store = history_file(), .is_demonstration = true});
        return;
    }
    with_log_folder([this](const std::string& folder) {
        analysis().showLaboratory({.log = folder.empty() ? usual_log_folder : folder,
                                   .store = history_file(),
                                   .configuration = m_general.config});
    });
}

void AppDelegate::connect_items() {
    m_menus.on("showTickervantage", [this] { showTickervantage(); });
    m_menus.on("openTrackingLog", [this] { openTrackingLog(); });
    m_menus.on("liveTracking", [this] { liveTracking(); });
    m_menus.on("showHistory", [this] { showHistory(); });
    m_menus.on("showLaboratory", [this] { showLaboratory(); });
    m_menus.on("showFreqTemp", [this] {
        analysis().showFreqTemp();
        m_main_window->cycle().go_on_for_listeners();
    });
    m_menus.on("showFreqInspector", [this] { analysis().showFreqInspector(); });
    m_menus.on("showSpectrum", [this] { analysis().showSpectrum(); });
    m_menus.on("showConfigEditor", [this] { configurations().show_installed(); });
    m_menus.on("newConfiguration", [this] { configurations().new_document(); });
    m_menus.on("openConfiguration", [this] { configurations().open_document(); });
    for (const char* item : {"recentConfigurations", "recentLogs"})
        m_menus.on(item, [] {}); // has a menu of its own
    m_menus.on("showLogs", [this] { showLogs(); });
    m_menus.on("showServers", [this] { settings_windows().showServers(); });
    m_menus.on("showPreferences", [this] { settings_windows().showPreferences(Preferences::Pane::general); });
    m_menus.on("checkForUpdates", [this] { settings_windows().showPreferences(Preferences::Pane::update); });
    m_menus.on("refresh", [this] { m_main_window->cycle().refresh(); });
    m_menus.on("showReport", [] {}); // the window itself answers to both
    m_menus.on("separateReport", [] {});
    m_main_window->connect_report_items(*m_menus.actions.at("showReport"), *m_menus.actions.at("separateReport"));
    m_menus.on("chooseFont", [this] { m_main_window->chooseFont(); });
    m_menus.on("defaultFont", [this] { m_main_window->defaultFont(); });
    m_menus.on("closeWindow", [this] {
        QWidget* active = QApplication::activeWindow(); // none while another program has the keyboard
        (active != nullptr ? active : m_main_window.get())->close();
    });
    m_menus.on("quit", [this] {
        QApplication::closeAllWindows();
        if (m_watcher->keeps_running())
            QCoreApplication::quit(); // unless a window wants to stay open
    });
    m_menus.on("siteTickervantage", [] { (void)open_page(QLatin1String(product_page)); }); // silent by design
    m_menus.on("siteChrony", [] { (void)open_page(QLatin1String(chrony_page)); });
    m_menus.on("showAbout", [this] { show_about(m_main_window.get()); });
    connect_log_items();
    m_help->connect_items(m_menus);
    if (m_administration)
        m_administration->connect_items(m_menus);
}

void AppDelegate::connect_log_items() {
    const QString folder = QString::fromStdString(m_parts.paths.state);
    m_menus.on("showLogFile", [this, folder] {
        //: alert: %1 is a folder
        const QString words = Texts::tr("The log cannot be shown here. It lies in %1.");
        if (!show_file(folder + QStringLiteral("/tickervantage.log")))
            complain(words.arg(folder));
    });
    m_menus.on("showLogFolder", [this, folder] {
        //: alert: %1 is a folder
        const QString words = Texts::tr("The folder %1 cannot be shown here.");
        if (!reveal_folder(folder))
            complain(words.arg(folder));
    });
}

void AppDelegate::complain(const QString& sentence) {
    say(sentence, QMessageBox::Critical);
}

void AppDelegate::say(const QString& sentence, QMessageBox::Icon icon) {
    auto* box =
        new QMessageBox(icon, QStringLiteral("Tickervantage"), sentence, QMessageBox::NoButton, m_main_window.get());
    box->setAttribute(Qt::WA_DeleteOnClose);
    //: button of an alert
    box->addButton(Texts::tr("Dismiss"), QMessageBox::AcceptRole);
    box->open();
}

void AppDelegate::log_change_of_state(const StatusNotice& notice) {
    if (!m_main_window->cycle().host().empty())
        return; // the log is about this machine
    const chronydStatus status = m_main_window->cycle().status();
    if (std::exchange(m_logged_status, status) == status)
        return;
    std::string sentence = "The daemon is " + std::string(name_of(status));
    if (!notice.detail.empty() && status == chronydStatus::unavailable)
        sentence += ": " + notice.detail;
    m_parts.logger.log(status == chronydStatus::synchronised ? LogLevel::info : LogLevel::warning, sentence);
}

void AppDelegate::stop_program(const QString& sentence) {
    if (std::exchange(m_stopping, true))
        return; // one fault is enough to end the program
    m_parts.logger.log(LogLevel::error, sentence.toStdString());
    auto* box = new QMessageBox(QMessageBox::Critical, QStringLiteral("Tickervantage"), sentence, QMessageBox::NoButton,
                                m_main_window.get());
    box->setAttribute(Qt::WA_DeleteOnClose);
    //: button of the alert that ends the program
    box->addButton(Texts::tr("Quit"), QMessageBox::AcceptRole);
    QObject::connect(box, &QMessageBox::finished, qApp, [] { QCoreApplication::exit(1); });
    box->open();
}

} // namespace tickervantage
