// The desktop program: puts the parts together.
#include "app/app_delegate.h"
#include "app/demonstration_start.h"
#include "app/options.h"
#include "app/queues.h"
#include "app/quit_on_signal.h"
#include "app/screenshot_tour.h"
#include "app/single_instance.h"
#include "app/start_up.h"
#include "chrony/demonstration/demonstration.h"
#include "chrony/log/logreader.h"
#include "linux/desktop_notifier.h"
#include "linux/file_logger.h"
#include "linux/machine_sensors.h"
#include "linux/posix_execute.h"
#include "linux/posix_followed_file.h"
#include "linux/posix_path_probes.h"
#include "linux/posix_user_files.h"
#include "linux/private_temporary.h"
#include "linux/serial_queue.h"
#include "linux/shared_text_file.h"
#include "linux/user_name.h"
#include "linux/xdg_paths.h"
#include "qt/accessible_widgets.h"
#include "qt/event_loop.h"
#include "qt/in_words.h"
#include "qt/languages.h"
#include "qt/qt_settings_store.h"
#include "roothelper/client/bus_privileged_channel.h"
#include "roothelper/client/no_privileged_channel.h"
#include "roothelper/jobs/this_machine.h"
#include "settings/settings_catalogue.h"

#include "gui/main/tickervantage_window.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(demonstration)
};

// Nothing of a demonstration may reach the user's own settings, data or log.
Paths throw_away(Paths paths, const std::string& folder) {
    paths.settings = folder + "/settings/Tickervantage.ini";
    paths.data_home = folder + "/data";
    paths.state = folder + "/state";
    return paths;
}

DaemonChoice demonstration_choice(Demonstration& demonstration) {
    return {.chronyc_arguments = {"-h", demonstration.socket()},
            //: banner of demonstration mode
            .standing_notice =
                Texts::tr("Demonstration: you see a chronyd that this program started for itself, on this "
                          "machine alone. It follows three more and leaves your clock as it is. The day before it "
                          "began is a recording."),
            .tracking_log = demonstration.tracking_log(),
            .configuration = demonstration.client_config(),
            .user = user_name(::geteuid()),
            .control = {.pull_out = [&demonstration](std::size_t server,
                                                     bool out) { return demonstration.pull_out(server, out); },
                        .install =
                            [&demonstration](const std::string& text) {
                                return demonstration.install(text);
                            }}};
}

std::string search_path() {
    const char* path = std::getenv("PATH"); // NOLINT(concurrency-mt-unsafe): nobody changes it
    return path == nullptr ? "" : path;
}

class Program {
public:
    Program(const Paths& paths, const DaemonChoice& daemon)
        : m_machine(m_execute, paths, search_path()), m_logger(m_log_queue, paths.state),
          m_store(paths.settings, m_settings_queue, m_logger), m_settings(m_store),
          m_channel(make_channel(paths, daemon)), m_actions(make_actions()), m_broadcast(m_main_thread),
          m_delegate(parts(paths, daemon), daemon) {}

    ~Program() {
        m_execute.cancel();  // a chronyc that hangs must not hold up the end,
        m_channel->cancel(); // nor a password that nobody types
    }

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    int run(const ProgramOptions& options, const DaemonChoice& daemon, const Paths& paths);
    void another_start(const QStringList& files);

    // Before run(): nothing is read until the demonstration is ready. The program ends if it does not come up.
    void wait_for(const Readiness& ready);

private:
    ApplicationParts parts(const Paths& paths, const DaemonChoice& daemon);
    std::unique_ptr<PrivilegedChannel> make_channel(const Paths& paths, const DaemonChoice& daemon);
    std::shared_ptr<PrivilegedActions> make_actions();
    void show_problems();
    void start_tour(const QString& folder, const DaemonChoice& daemon, const Paths& paths);
    [[nodiscard]] bool write_status(const QString& folder, const DaemonChoice& daemon, const Paths& paths);

    // What the queues' work comes back to lives longest.
    QtMainThread m_main_thread;
    PosixExecute m_execute;
    ThisMachine m_machine;
    SerialQueue m_log_queue{"net.brisklane.log"};
    FileLogger m_logger;
    SerialQueue m_settings_queue{"net.brisklane.settings"};
    QtSettingsStore m_store;
    DefaultSettings m_settings;
    std::unique_ptr<PrivilegedChannel> m_channel;
    std::shared_ptr<PrivilegedActions> m_actions;
    QtMasterTimer m_timer;
    Broadcast m_broadcast;
    std::unique_ptr<ScreenshotTour> m_tour;
    // The queues whose work uses the parts above end before those go.
    SerialQueue m_status_queue{"net.brisklane.status"};
    SerialQueue m_report_queue{"net.brisklane.reports"};
    SerialQueue m_host_queue{"net.brisklane.hosts"};
    LabelledQueues m_job_queues;
    SerialQueue m_removal_queue{"net.brisklane.removetuxfamily"};
    SerialQueue m_spectrum_queue{"net.brisklane.spectrum"};
    PosixPathProbes m_path_probes;
    PosixFiles m_documents;
    SerialQueue m_config_queue{"net.brisklane.config"};
    SerialQueue m_export_queue{"net.brisklane.export"};
    MachineSensors m_sensors;
    PosixUserFiles m_user_files;
    SerialQueue m_sensor_queue{"net.brisklane.sensors"};
    SerialQueue m_freqtemp_queue{"net.brisklane.freqtemp"};
    SerialQueue m_map_queue{"net.brisklane.scattermap"};
    SerialQueue m_list_queue{"net.brisklane.lists"};
    SerialQueue m_help_queue{"net.brisklane.help"};
    SerialQueue m_notice_queue{"net.brisklane.notices"};
    DesktopNotifier m_notifier{m_notice_queue};
    SerialQueue m_history_queue{"net.brisklane.clockpast"};
    SerialQueue m_trend_queue{"net.brisklane.trend"};
    PosixFollowedFiles m_files;
    QueuePool m_log_queues{std::string(LogReader::QUEUE_LABEL)};
    AppDelegate m_delegate;
};

bool is_demonstration(const DaemonChoice& daemon) {
    return !daemon.standing_notice.isEmpty();
}

// A demonstration leaves the system as it is.
std::unique_ptr<PrivilegedChannel> Program::make_channel(const Paths& paths, const DaemonChoice& daemon) {
    if (is_demonstration(daemon))
        return std::make_unique<NoPrivilegedChannel>();
    return std::make_unique<BusPrivilegedChannel>(m_execute, paths.bundle_program("chronyhelper"));
}

std::shared_ptr<PrivilegedActions> Program::make_actions() {
    const auto tell = [this](PrivilegedProblem problem, const Failure& why) {
        m_main_thread.main_async([this, problem, why] { m_delegate.show_problem(problem, why); });
    };
    return std::make_shared<PrivilegedActions>(*m_channel, PrivilegedReports{.logger = &m_logger, .problem = tell});
}

ApplicationParts Program::parts(const Paths& paths, const DaemonChoice& daemon) {
    return {.cycle = {m_execute, *m_actions, m_status_queue, m_report_queue, m_main_thread, m_timer, m_broadcast,
                      m_settings, &m_host_queue},
            .actions = m_actions,
            .machine = m_machine,
            .removal_queue = m_removal_queue,
            .files = m_files,
            .spectrum_queue = m_spectrum_queue,
            .config_queue = m_config_queue,
            .export_queue = m_export_queue,
            .freqtemp = {.sensors = m_sensors,
                         .files = m_user_files,
                         .sensor_queue = m_sensor_queue,
                         .fit_queue = m_freqtemp_queue,
                         .file_queue = m_map_queue,
                         .main_thread = m_main_thread,
                         .master_timer = m_timer,
                         .broadcast = m_broadcast,
                         .logger = m_logger,
                         .map = scatter_map_path(paths.data_home.empty() ? "" : paths.data_home + "/Tickervantage")},
            .list_queue = m_list_queue,
            .help_queue = m_help_queue,
            .history_queue = m_history_queue,
            .trend_queue = m_trend_queue,
            .log_queues = m_log_queues,
            .logger = m_logger,
            .paths = paths,
            .probes = m_path_probes,
            .documents = m_documents,
            .notifier = is_demonstration(daemon) ? nullptr : &m_notifier,
            .job_queues = is_demonstration(daemon) ? nullptr : &m_job_queues};
}

void Program::show_problems() {
    const auto show = [this](const Failure& failure) {
        m_delegate.main_window().set_standing_notice(in_words(failure));
    };
    if (const auto problem = m_store.load_problem())
        show(*problem);
    m_store.set_problem_handler(m_main_thread, show);
}

// A list such as users have, so that its window has something to show.
void write_sample_servers(const Paths& paths) {
    SharedTextFile file(paths.data_home + "/Tickervantage/servers.txt");
    const auto written =
        file.replace("Debian pool:2.debian.pool.ntp.org:10:6:true\n"
                     "Lab clock, first floor:clock1.lab.example:8:3:true\n"
                     "A neighbour's server with a rather long title:time.neighbour.example:12:6:false\n"
                     "Gateway:192.0.2.1:10:4:true\n",
                     std::nullopt);
    if (!written)
        std::fprintf(stderr, "%s\n", english(written.error()).c_str());
}

bool Program::write_status(const QString& folder, const DaemonChoice& daemon, const Paths& paths) {
    ExecuteRequest request{.program = paths.bundle_program("tickerctl"), .arguments = {}};
    if (!daemon.chronyc_arguments.empty())
        request.arguments = {"--host", daemon.chronyc_arguments.back()};
    request.arguments.emplace_back("status");
    const ExecuteResult result = m_execute.run(request);
    std::cout << result.output << (result.failure ? english(*result.failure) : std::string()) << std::flush;
    std::ofstream file((folder + QStringLiteral("/status.txt")).toStdString());
    file << result.output << std::flush;
    return result.outcome == ExecuteOutcome::exited && file.good();
}

void Program::start_tour(const QString& folder, const DaemonChoice& daemon, const Paths& paths) {
    if (is_demonstration(daemon)) // a demonstration's data are its own
        write_sample_servers(paths);
    m_tour = std::make_unique<ScreenshotTour>(m_delegate, folder);
    QObject::connect(
        m_tour.get(), &ScreenshotTour::finished, m_tour.get(), [this, folder, daemon, paths](bool complete) {
            m_status_queue.async([this, folder, daemon, paths, complete] {
                const bool written = write_status(folder, daemon, paths);
                m_main_thread.main_async([complete, written] { QCoreApplication::exit(complete && written ? 0 : 1); });
            });
        });
    m_tour->start();
}

QStringList absolute(const std::vector<std::string>& files) {
    QStringList paths;
    for (const auto& file : files)
        paths.append(QDir().absoluteFilePath(QString::fromStdString(file)));
    return paths;
}

int Program::run(const ProgramOptions& options, const DaemonChoice& daemon, const Paths& paths) {
    const QuitOnSignal quit_on_signal;
    if (options.demo) {
        save(m_settings, settings::chronyc_interval,
             2); // its daemons synchronise within a second: ten looks like a fault
        constexpr double a_day_across_the_window = -2.7;
        save(m_settings, settings::tracking_hZoom, a_day_across_the_window);
    }
    m_delegate.applicationDidFinishLaunching();
    show_problems();
    m_store.watch(m_main_thread, [this] { m_delegate.settings_changed(); });
    if (options.screenshots.empty())
        m_delegate.open_files(absolute(options.files));
    else // at once: the tour begins with what is open
        for (const auto& log : absolute(options.files))
            m_delegate.open_log(log);
    if (!options.screenshots.empty())
        start_tour(QString::fromStdString(options.screenshots), daemon, paths);
    const int status = QApplication::exec();
    m_delegate.applicationWillTerminate();
    m_logger.close();
    constexpr std::chrono::seconds patience{5};
    if (const auto saved = m_store.finish(patience); !saved)
        std::fprintf(stderr, "tickervantage: %s\n", english(saved.error()).c_str());
    return m_delegate.is_stopping() ? 1 : status;
}

int fail(const std::string& sentence) {
    std::fprintf(stderr, "tickervantage: %s\n", sentence.c_str());
    return 1;
}

void Program::wait_for(const Readiness& ready) {
    for (SerialQueue* queue :
         {&m_report_queue, &m_history_queue, &m_trend_queue, &m_list_queue, &m_config_queue, &m_map_queue})
        queue->async([ready] { ready.wait(); });
    m_status_queue.async([this, ready] {
        if (!ready.get())
            m_main_thread.main_async([ready] { QCoreApplication::exit(fail(english(ready.get().error()))); });
    });
}

void Program::another_start(const QStringList& files) {
    m_logger.log(LogLevel::info, "Another start of the program left the work to this one. Files to open: " +
                                     files.join(QStringLiteral(", ")).toStdString());
    m_delegate.come_to_front(files);
}

int run(const ProgramOptions& options, int argc, char** argv) {
    block_quit_signals();
    const PrivateTemporary temporary;
    Paths paths = process_paths();
    Demonstration demonstration;
    Readiness ready; // of the demonstration
    if (options.demo) {
        const auto begun = demonstration.begin(paths.bundle_program("chronyd"), paths.temporary + "demonstration");
        if (!begun)
            return fail(english(begun.error()));
        paths = throw_away(paths, demonstration.folder());
        ready = bring_up(demonstration, paths.data_home + "/Tickervantage");
    }
    if (options.demo && !options.screenshots.empty() && !ready.get()) // pictures show what is there
        return fail(english(ready.get().error()));
    if (!options.screenshots.empty() && !QDir().mkpath(QString::fromStdString(options.screenshots)))
        return fail("The folder " + options.screenshots + " cannot be made.");

    const QString activation_token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN"); // Qt takes it away
    QApplication::setApplicationName(QStringLiteral("Tickervantage"));
    QApplication::setApplicationVersion(QStringLiteral(TICKERVANTAGE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("net.brisklane.tickervantage"));
    auto fonts = std::make_unique<FontsAhead>();
    QApplication application(argc, argv);
    fonts.reset();
    choose_icons(paths);
    // Nothing to be done about a bundle without its translations: the texts are English.
    (void)install_translations(application, QLocale::system(),
                               QString::fromStdString(paths.bundle_resource("translations")));
    serve_screen_readers();
    SingleInstance instance;
    const bool is_one_of_many =
        options.demo || !options.screenshots.empty(); // each with a daemon or pictures of its own
    if (!is_one_of_many && instance.begin(absolute(options.files), activation_token) == SingleInstance::Role::second) {
        std::puts("Tickervantage runs already; its window comes to the front.");
        return 0;
    }
    const DaemonChoice daemon = options.demo ? demonstration_choice(demonstration) : DaemonChoice{};
    Program program(paths, daemon);
    QObject::connect(&instance, &SingleInstance::started_again, &application,
                     [&program](const QStringList& files) { program.another_start(files); });
    if (options.demo)
        program.wait_for(ready);
    return program.run(options, daemon, paths);
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    int exit_status = 0;
    const auto options = tickervantage::read_options(argc, argv, exit_status);
    return options ? tickervantage::run(*options, argc, argv) : exit_status;
}
