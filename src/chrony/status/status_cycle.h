// The dashboard's heart: reads the daemon on a timer, works out its state, and says what to show.
//
// Main thread only. chronyc runs on the queue, one reading at a time; what it says is applied on the main thread in a
// fixed order. A control that changes while a reading is under way makes that reading stale: it is dropped, and a new
// one follows. Reports that need root come on a queue of their own and are shown once they are there: the needle does
// not wait for the helper.
#pragma once

#include "base/background.h"
#include "base/broadcast.h"
#include "base/dispatch.h"
#include "base/repeater.h"
#include "chrony/reports/versions.h"
#include "chrony/status/main_window_settings.h"
#include "chrony/status/refresh.h"
#include "chrony/status/root_reports.h"
#include "chrony/status/status_display.h"
#include "chrony/status/window_history.h"
#include "draw/instruments/clock_performance.h"
#include "roothelper/client/privileged_actions.h"
#include "settings/preferences.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

// What the cycle works with; all of it outlives the cycle.
struct StatusCycleParts {
    Execute& execute;
    PrivilegedActions& privileged;
    DispatchQueueSerial& queue;
    DispatchQueueSerial& report_queue; // for all that waits for the root helper
    MainThread& main_thread;
    MasterTimer& timer;
    Broadcast& broadcast;
    DefaultSettings& settings;
    DispatchQueueSerial* host_queue = nullptr; // for other machines, which may be slow to answer; null: as this one
};

// What differs from machine to machine and from run to run.
struct StatusCycleOptions {
    const PreferencesGeneral& preferences;           // as they are now: the programs, and who adjusts the clock
    std::string bundle;                              // the folder of the application bundle, with programs of its own
    std::function<bool()> gpsd_application_found;    // called on the queue
    std::vector<std::string> chronyc_arguments = {}; // placed before every command
    std::string root = {};                           // the folder that the machine's files lie in
    std::string configuration = {};                  // of the daemon shown; empty: that of the preferences
    WindowHistory* history = nullptr;                // which readings are kept in; outlives the cycle; null: none
};

[[nodiscard]] ChronyPrograms programs_of(const StatusCycleOptions& options);
[[nodiscard]] std::string configuration_of(const StatusCycleOptions& options); // its path

class QuietReading;

class StatusCycle {
public:
    // The sibling application that configures a GPS receiver.
    static constexpr const char* GPSD_CONF_ID = "net.brisklane.Meridianox";

    StatusCycle(StatusDisplay& display, const StatusCycleParts& parts, StatusCycleOptions options);
    ~StatusCycle();
    StatusCycle(const StatusCycle&) = delete;
    StatusCycle& operator=(const StatusCycle&) = delete;

    // Reads the settings and starts both timers and the first reading.
    void load();
    // Says farewell to the helper, stops reading, unless another window waits for the frequency, and writes the
    // settings. The clock goes on. What is shown again afterwards reads again.
    void close();

    // The paths of the programs, and the settings, may be others now: those of the store are taken over at once.
    // Whether any setting is another one.
    void programs_changed();
    bool settings_changed();

    // From now on the clock of another machine, by chronyc's option -h: what chronyd tells everybody, and nothing that
    // needs this machine or its root. This machine is read beside it, for the history and the watch. Empty: this
    // machine again. What was shown is taken away at once.
    void show_host(const std::string& host);
    [[nodiscard]] const std::string& host() const { return m_host; }

    // After close(): another window begins to wait for the frequency.
    void go_on_for_listeners();

    // The controls' actions.
    void chronycCommand(const std::string& command);
    void selectMeter(int index); // an index that is no meter view stops the program
    void show_error_bound();     // on the meter
    void showIPaddresses(bool numeric);
    void showOriginalName(bool original);
    void selectNTPdataServer(const std::string& server);
    void intervalChanged(int seconds);

    // From now on the reports that need root come with each reading, as long as the rights for them are there; asks for
    // these once.
    void want_root_reports();

    // One reading now, or right after the one that is under way.
    void refresh();

    // The preferences changed the programs' paths.
    void rebuild_runner();

    // A window that nobody sees neither ticks nor, unless another window waits for its frequency, reads.
    void set_visible(bool visible);

    // While an installation runs the cycle rests.
    void begin_installation();
    void end_installation();

    [[nodiscard]] const MainWindowSettings& settings() const { return m_settings; }
    void set_output_font(const Font& font);
    [[nodiscard]] chronydStatus status() const { return m_chronydStatus; }
    [[nodiscard]] bool reading() const { return m_reading; }
    [[nodiscard]] ClockPerformance& meter() { return m_meter; }

private:
    [[nodiscard]] bool is_remote() const { return !m_host.empty(); }
    [[nodiscard]] bool may_read_root() const { return !is_remote() && m_root_reports.can_be_read(); }
    [[nodiscard]] DispatchQueueSerial& queue() const;
    [[nodiscard]] std::vector<std::string> chronyc_arguments() const;
    [[nodiscard]] std::shared_ptr<RefreshTools> make_tools() const;
    void show_nothing_yet();
    void start_reading();
    [[nodiscard]] RefreshRequest request() const; // as the controls have it now
    void start_report(const RefreshRequest& wanted);
    void apply_report(const RefreshRequest& wanted, const ReportText& text);
    void judge_again();
    void learn_names(const RefreshReading& reading);
    [[nodiscard]] std::string meter_text(const RefreshReading& reading);
    void restart_timer();
    [[nodiscard]] bool is_listened_to() const;
    void tick();
    void apply(const RefreshReading& reading);
    void apply_tracking(const RefreshReading& reading);
    void apply_versions(const ProgramVersion& chronyc, const ProgramVersion& chronyd);
    void apply_servers(const std::vector<std::string>& names);
    void show_output(const RefreshReading& reading);
    [[nodiscard]] StatusNotice notice(const RefreshReading& reading) const;

    StatusDisplay& m_display;
    StatusCycleParts m_parts;
    StatusCycleOptions m_options;
    MainWindowSettings m_settings;
    ClockPerformance m_meter;
    chronydStatus m_chronydStatus = chronydStatus::unavailable;
    ChronyPrograms m_programs; // of the runner
    std::shared_ptr<const Runchronyc> m_chronyc;
    std::string m_host;                    // empty: this machine
    unsigned m_visit = 0;                  // how often the host has changed
    std::shared_ptr<RefreshTools> m_tools; // used on the queue only
    ProgramVersion m_version_chronyc;
    ProgramVersion m_version_chronyd;
    std::unique_ptr<Repeater> m_updatetimer;
    std::unique_ptr<Repeater> m_clockTicker;
    bool m_installing = false;
    bool m_visible = true;
    bool m_is_closed = false;
    bool m_list_servers = false;               // the next reading brings the servers' names
    bool m_reading = false;                    // one is under way
    bool m_again = false;                      // and is stale: another follows
    bool m_reporting = false;                  // a report that needs root is under way
    ReportText m_root_report;                  // the latest one
    std::shared_ptr<const TruthBasis> m_basis; // of the latest reading
    RootReports m_root_reports;
    std::unique_ptr<QuietReading> m_quiet; // of this machine, while another one is shown
    Background m_background;
};

} // namespace tickervantage
