#include "app/app_delegate.h"

#include "app/about_window.h"
#include "app/analysis_windows.h"
#include "app/desktop_links.h"
#include "config/configuration.h"
#include "mainwindow/tickervantage_window.h"
#include "platform/linux/desktop_applications.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(application)
};

constexpr const char* usual_log_folder = "/var/log/chrony/";
// Any name in which "tracking", one character and "lo" follow each other, such as tracking.log.1.gz.
constexpr const char* tracking_log_pattern = "*tracking?lo*";

} // namespace

AppDelegate::AppDelegate(ApplicationParts parts, DaemonChoice daemon)
    : m_parts(std::move(parts)), m_daemon(std::move(daemon)), m_self(std::make_shared<AppDelegate*>(this)) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    m_parts.logger.log(LogLevel::info, "Tickervantage " TICKERVANTAGE_VERSION " starts.");
    m_parts.actions->prepare();
    remove_old_installations(m_parts.old_installation, m_parts.actions, m_parts.removal_queue);
    m_general = PreferencesGeneral::load(m_parts.cycle.settings);
    m_advanced = PreferencesAdvanced::load(m_parts.cycle.settings);
    make_main_window();
    update_optional_items();
    m_parts.cycle.timer.start();
    showTickervantage();
}

void AppDelegate::applicationWillTerminate() {
    m_parts.cycle.timer.stop();
    m_general.save(m_parts.cycle.settings);
    m_advanced.save(m_parts.cycle.settings);
    m_parts.logger.log(LogLevel::info, "Tickervantage ends.");
    m_parts.close_log();
}

void AppDelegate::make_main_window() {
    m_main_window = std::make_unique<TickervantageWindow>(
        m_parts.cycle, cycle_options(),
        MainWindowRequests{.stop_program = [this](const QString& sentence) { stop_program(sentence); },
                           .launch_gpsd_application = [this] { launchMeridianox(); },
                           .show_preferences = {}});
    m_menus = build_application_menus(m_main_window.get(), menu_handlers(),
                                      [this] { return m_parts.actions->action_in_progress(); });
    m_main_window->add_toolbar_actions(
        {m_menus.actions.at("refresh"), m_menus.actions.at("liveTracking"), m_menus.actions.at("showConfigEditor")});
    m_main_window->set_standing_notice(m_daemon.standing_notice);
    m_main_window->cycle().on_applied([this](const StatusNotice& notice) { log_change_of_state(notice); });
    m_main_window->windowDidLoad();
}

TickervantageWindow& AppDelegate::main_window() {
    if (!m_main_window)
        make_main_window();
    return *m_main_window;
}

StatusCycleOptions AppDelegate::cycle_options() {
    return {.programs =
                [this] {
                    return ChronyPrograms{m_parts.paths.bundle, m_general.chronyc, m_general.chronyd};
                },
            .adjusts_clock_by_preference = [this] { return m_general.adj_system; },
            .gpsd_application_found =
                [folders = m_parts.paths.applications] {
                    return find_application(folders, StatusCycle::GPSD_CONF_ID).has_value();
                },
            .chronyc_arguments = m_daemon.chronyc_arguments,
            .pidfile = m_daemon.pidfile};
}

void AppDelegate::update_optional_items() const {
    m_menus.m_frequency_item->setVisible(m_advanced.frequency);
    m_menus.m_spectrum_item->setVisible(m_advanced.spectrum);
}

void AppDelegate::showTickervantage() {
    TickervantageWindow& window = main_window();
    window.show();
    window.raise();
    window.activateWindow();
}

void AppDelegate::launchMeridianox() {
    const auto application = find_application(m_parts.paths.applications, StatusCycle::GPSD_CONF_ID);
    std::string sentence;
    if (application && launch(application->argv, sentence) == 0)
        return;
    m_parts.logger.log(LogLevel::warning, sentence);
    //: alert: the sibling application could not be started
    say(Texts::tr("Meridianox could not be started."));
}

AnalysisWindows& AppDelegate::analysis() {
    if (!m_analysis)
        m_analysis = std::make_unique<AnalysisWindows>(AnalysisParts{.settings = m_parts.cycle.settings,
                                                                     .main_thread = m_parts.cycle.main_thread,
                                                                     .timer = m_parts.cycle.timer,
                                                                     .files = m_parts.files,
                                                                     .spectrum_queue = m_parts.spectrum_queue,
                                                                     .lend_queue = m_parts.lend_queue,
                                                                     .spectrum_enabled = [this] {
                                                                         return m_advanced.spectrum;
                                                                     }});
    return *m_analysis;
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
void AppDelegate::with_log_folder(const std::function<void(const std::string& folder)>& use) {
    m_parts.cycle.queue.async(
        [path = m_general.config, use, &main_thread = m_parts.cycle.main_thread, self = std::weak_ptr(m_self)] {
            Configuration configuration;
            configuration.load(path);
            main_thread.main_async([folder = configuration.value("logdir").value_or(""), use, self] {
                if (const auto alive = self.lock())
                    use(folder);
            });
        });
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

MenuHandlers AppDelegate::menu_handlers() {
    const QString log_folder = QString::fromStdString(m_parts.paths.state);
    return {{"showTickervantage",
             [this] {
                 showTickervantage();
             }},
            {"openTrackingLog",
             [this] {
                 openTrackingLog();
             }},
            {"liveTracking",
             [this] {
                 liveTracking();
             }},
            {"showSpectrum",
             [this] {
                 analysis().showSpectrum();
             }},
            {"showLogs",
             [this] {
                 showLogs();
             }},
            {"refresh",
             [this] {
                 m_main_window->cycle().refresh();
             }},
            {"chooseFont",
             [this] {
                 m_main_window->chooseFont();
             }},
            {"defaultFont",
             [this] {
                 m_main_window->defaultFont();
             }},
            {"closeWindow",
             [this] {
                 QWidget* active = QApplication::activeWindow(); // none while another program has the keyboard
                 (active != nullptr ? active : m_main_window.get())->close();
             }},
            {"quit",
             [] {
                 QApplication::closeAllWindows();
             }},
            {"showLogFile",
             [this, log_folder] {
                 if (!show_file(log_folder + QStringLiteral("/tickervantage.log")))
                     //: alert: %1 is a folder
                     say(Texts::tr("The log cannot be shown here. It lies in %1.").arg(log_folder));
             }},
            {"showLogFolder",
             [this, log_folder] {
                 if (!reveal_folder(log_folder))
                     //: alert: %1 is a folder
                     say(Texts::tr("The folder %1 cannot be shown here.").arg(log_folder));
             }},
            {"siteTickervantage",
             [] {
                 (void)open_page(QLatin1String(product_page));
             }}, // silent by design
            {"siteChrony",
             [] {
                 (void)open_page(QLatin1String(chrony_page));
             }},
            {"showAbout", [this] {
                 show_about(m_main_window.get());
             }}};
}

void AppDelegate::say(const QString& sentence) {
    auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Tickervantage"), sentence, QMessageBox::NoButton,
                                m_main_window.get());
    box->setAttribute(Qt::WA_DeleteOnClose);
    //: button of an alert
    box->addButton(Texts::tr("Dismiss"), QMessageBox::AcceptRole);
    box->open();
}

void AppDelegate::log_change_of_state(const StatusNotice& notice) {
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
