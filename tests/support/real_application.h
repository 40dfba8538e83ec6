// The real application over a machine, a clock and files that the test holds in its hands. For tests that follow a
// user's way through several windows; what one class does is tested at that class.
//
// Everything may be changed before launch(): answers of programs in `fakes.execute`, settings in `fakes.store`,
// temperatures in `freqtemp.sensors`, `daemon`. With `has_administration` the jobs that need rights are there, over
// `fakes.channel`, and the machine's files are those in `machine_files`.
#pragma once

#include "app/app_delegate.h"
#include "base/dispatch.h"
#include "gui/main/tickervantage_window.h"
#include "linux/posix_path_probes.h"
#include "linux/posix_user_files.h"
#include "support/fake_followed_files.h"
#include "support/fake_job_machine.h"
#include "support/fake_main_window_parts.h"
#include "support/freqtemp_parts.h"
#include "support/test.h"

#include <QtWidgets>

namespace tickervantage::testing {

// Lends the same queue to everybody.
class OneQueue : public QueueLender {
public:
    std::shared_ptr<DispatchQueueSerial> lend() override { return m_queue; }

private:
    std::shared_ptr<ManualQueue> m_queue = std::make_shared<ManualQueue>();
};

struct RealApplication : ::testing::Test {
    FakeMainWindowParts fakes;
    FreqTempFakes freqtemp; // of which the timer, the broadcasts and the main thread are those of `fakes`
    ManualQueue removal_queue;
    ManualQueue spectrum_queue;
    ManualQueue config_queue;
    ManualQueue export_queue;
    ManualQueue list_queue;
    ManualQueue help_queue;
    ManualQueue history_queue;
    ManualQueue trend_queue;
    OneQueue log_queues;
    ManualQueue job_queue;
    OneJobQueue job_queues{job_queue};
    PosixFiles documents;
    FakeFollowedFiles log_files;
    PosixPathProbes path_probes;
    MemoryLogger logger;
    FakeJobMachine machine;
    std::map<std::string, std::string>& machine_files = machine.files;
    DaemonChoice daemon;
    Paths paths;
    bool has_administration = false; // whether there is an administrator on this machine
    std::unique_ptr<AppDelegate> application;

    // Ends the application that was launched before, if any.
    void launch() {
        application.reset();
        fakes.timer.stop();
        application = std::make_unique<AppDelegate>(parts(), daemon);
        application->applicationDidFinishLaunching();
        fakes.settle();
    }

    // Lets everything that is under way come to its end, but who follows a log: that never does.
    void settle() {
        while (fakes.queue.turn() || fakes.reports.turn() || fakes.main_thread.turn() || freqtemp.queue.turn() ||
               removal_queue.turn() || spectrum_queue.turn() || config_queue.turn() || export_queue.turn() ||
               list_queue.turn() || help_queue.turn() || history_queue.turn() || trend_queue.turn() ||
               job_queue.turn()) {
        }
    }

    // Seconds pass, one by one, and all that they start comes to its end.
    void wait(int seconds) {
        for (int second = 0; second < seconds; ++second) {
            fakes.timer.advance(1);
            settle();
        }
    }

    // How often the program has run one by now, such as "chronyc|-n|tracking".
    [[nodiscard]] std::ptrdiff_t runs_of(std::string_view program, std::string_view last_argument) const {
        return std::ranges::count_if(fakes.execute.calls, [&](const std::string& call) {
            return call.starts_with(program) && call.ends_with(last_argument);
        });
    }

    [[nodiscard]] QAction* item(const char* name) const { return application->menus().actions.at(name); }

    // The open window of that name; null: none.
    [[nodiscard]] static QWidget* window(const char* name) {
        const auto windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(
            windows, [name](const auto* one) { return one->isVisible() && one->objectName() == QLatin1String(name); });
        return found == windows.end() ? nullptr : *found;
    }

private:
    [[nodiscard]] FreqTempParts sampling() {
        return {freqtemp.sensors,  freqtemp.files, freqtemp.queue,  freqtemp.queue, freqtemp.queue,
                fakes.main_thread, fakes.timer,    fakes.broadcast, logger,         scatter_map_path("/data/T")};
    }

    [[nodiscard]] ApplicationParts parts() {
        return {.cycle = fakes.parts(),
                .actions = fakes.actions,
                .machine = machine,
                .removal_queue = removal_queue,
                .files = log_files,
                .spectrum_queue = spectrum_queue,
                .config_queue = config_queue,
                .export_queue = export_queue,
                .freqtemp = sampling(),
                .list_queue = list_queue,
                .help_queue = help_queue,
                .history_queue = history_queue,
                .trend_queue = trend_queue,
                .log_queues = log_queues,
                .logger = logger,
                .paths = paths,
                .probes = path_probes,
                .documents = documents,
                .job_queues = has_administration ? &job_queues : nullptr};
    }
};

} // namespace tickervantage::testing
