// What `tickerctl status` and `tickerctl report` do, and the settings they share with the desktop program.
//
// Results are exit statuses; what failed was said in one line on standard error. Main thread; waits for chronyc.
#pragma once

#include "base/logger.h"
#include "base/paths.h"
#include "chrony/data/live_capture.h"
#include "chrony/status/status_values.h"
#include "cli/arguments.h"
#include "cli/configuration/kept_command.h"
#include "cli/configuration/settings_command.h"
#include "cli/end_signals.h"
#include "cli/json_text.h"
#include "cli/logs/plot_tracking.h"
#include "cli/logs/spectrum_command.h"
#include "cli/status/clock_reading.h"
#include "cli/status/daemon_access.h"
#include "linux/serial_queue.h"
#include "qt/qt_settings_store.h"
#include "settings/preferences.h"

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class FreqTempView;
class HistoryKeeper;
struct HealthAnswer;
struct HealthLimits;

// Keeps what the settings store says, so that a failure that is told anyway is not told twice. Any thread.
class TerminalLogger : public Logger {
public:
    void log(LogLevel level, std::string_view sentence) override;
    // Tells what was kept, but for one sentence.
    void tell(std::string_view but_for = {});

private:
    std::mutex m_mutex; // guards what follows
    std::vector<std::string> m_sentences;
};

class Tool {
public:
    // All three outlive the tool.
    Tool(const Arguments& arguments, Paths paths, DaemonAccess& daemon, const EndSignals& signals);

    [[nodiscard]] int status();
    [[nodiscard]] int sources();
    [[nodiscard]] int explain();
    [[nodiscard]] int budget();
    [[nodiscard]] int capture();
    [[nodiscard]] int probe();
    [[nodiscard]] int health();
    [[nodiscard]] int metrics();
    [[nodiscard]] int rules() const;
    [[nodiscard]] int report();
    [[nodiscard]] int log() const;
    [[nodiscard]] int events() const;
    [[nodiscard]] int evidence() const; // a PDF needs a QGuiApplication
    [[nodiscard]] int follow() const;
    [[nodiscard]] int history() const;
    [[nodiscard]] int sample();
    [[nodiscard]] int stability() const;
    [[nodiscard]] int holdover() const;
    [[nodiscard]] int tempcomp() const;
    [[nodiscard]] SettingsCommand settings_command();
    [[nodiscard]] int spectrum();
    [[nodiscard]] int admin();
    [[nodiscard]] int servers() const;
    [[nodiscard]] int config() const;
    [[nodiscard]] int check();

    [[nodiscard]] int help() const;
    [[nodiscard]] int sensors() const;
    [[nodiscard]] int fit() const;
    [[nodiscard]] int record();

    // The plot of frequency against temperature that was asked for; what is wrong is told.
    [[nodiscard]] int freqtemp_view(FreqTempView& view) const;

    // The tracking graph that was asked for, over the stored settings; what is wrong is told.
    [[nodiscard]] int tracking_plot(TrackingPlot& plot) const;

    // The spectrum that was asked for; what is wrong is told.
    [[nodiscard]] int read_spectrum(ComputedSpectrum& spectrum) const;

private:
    // As they are stored; where none of the paths was ever set, those of this machine's chrony.
    [[nodiscard]] PreferencesGeneral general();
    [[nodiscard]] ChronyPrograms programs();
    [[nodiscard]] std::optional<meterView> view() const;
    [[nodiscard]] int read_input(std::string& text, std::size_t limit) const;
    [[nodiscard]] int read_saved_text(std::string& text) const;

    // What --from may name.
    enum class SavedForm : unsigned char { capture, capture_or_report };
    [[nodiscard]] int read_saved(SavedForm wanted, ClockTruth& reading) const;
    // From there, or from the daemon; what is wrong is told.
    [[nodiscard]] int read_clock(CaptureDepth depth, SavedForm wanted, ClockTruth& reading);
    [[nodiscard]] HealthAnswer saved_health(const HealthLimits& limits);
    [[nodiscard]] Capture live_capture(CaptureDepth depth);
    [[nodiscard]] std::string configuration_path(); // empty: not known
    [[nodiscard]] int ask_for_root();
    [[nodiscard]] std::string history_path() const;
    [[nodiscard]] Result<> recording() const;
    [[nodiscard]] int sample_once(HistoryKeeper& keeper);
    void tell_once(const std::vector<std::string>& complaints);
    [[nodiscard]] DocumentForm form() const;
    // Once, or again and again until interrupted; then with the last answer.
    [[nodiscard]] int watch(const std::function<int()>& answer_once);
    [[nodiscard]] int version_report();
    [[nodiscard]] bool needs_helper() const;
    [[nodiscard]] int privileged_report();
    [[nodiscard]] int admin_request(AdminRequest& request);
    [[nodiscard]] KeptCommand kept_command();
    [[nodiscard]] int find_kept_text(std::string& text);
    [[nodiscard]] int show_kept();
    [[nodiscard]] SpectrumChoice spectrum_choice() const;

    const Arguments& m_arguments;
    Paths m_paths;
    DaemonAccess& m_daemon;
    const EndSignals& m_signals;
    TerminalLogger m_logger;
    SerialQueue m_queue{"net.brisklane.settings"};
    QtSettingsStore m_store;
    DefaultSettings m_settings;
    std::string m_told_of_store;
    std::vector<std::string> m_told; // what was wrong with the last reading
};

} // namespace tickervantage
