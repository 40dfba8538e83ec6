// The main window: the dashboard over one status cycle.
#pragma once

#include "chrony/status/status_cycle.h"
#include "chrony/status/status_display.h"
#include "chrony/status/trend.h"
#include "gui/main/main_window_controls.h"
#include "roothelper/jobs/mending.h"

#include <QMainWindow>

#include <memory>
#include <optional>

class QAction;
class QByteArray;
class QToolBar;

namespace tickervantage {

class TickervantageWindow : public QMainWindow, public StatusDisplay {
    Q_OBJECT

public:
    TickervantageWindow(const StatusCycleParts& parts, StatusCycleOptions options);
    ~TickervantageWindow() override;

    // Reads the settings, fills the controls and starts the cycle. Once, before the window is shown.
    void windowDidLoad();

    [[nodiscard]] StatusCycle& cycle() { return *m_cycle; }

    // The clock of another machine, as chronyc's option -h names it; empty: this machine's.
    void show_host(const QString& host);

    // The settings in the store may be others now: the controls follow.
    void settings_changed();

    // The banner above everything: for what holds for the whole run.
    void set_standing_notice(const QString& text);

    // In the status line, in place of the readings, until the text is empty again.
    void set_progress(const QString& text);

    // The last hour, as it was read, or why it could not be.
    void show_trend(const Result<Trend>& trend);
    void wait_for_trend();

    // What was seen of the machine: where something is wrong, the button that mends it is offered.
    void show_mending_facts(const MendingFacts& facts);

    // What the watch tells of, in words; empty: nothing.
    void show_alarm(const QString& words);

    // Where chronyc's report stands: "showReport" and "separateReport" follow, both checkable.
    void connect_report_items(QAction& shown, QAction& separate);

    // The toolbar's other items, before the one that is the window's own.
    void add_toolbar_actions(const QList<QAction*>& actions);

    void chooseFont();
    void defaultFont();

    void redraw_clock() override;
    void redraw_meter() override;
    void show_meter_value(const std::string& text) override;
    void show_status(chronydStatus status) override;
    void show_truth(std::shared_ptr<const ClockTruth> truth) override;
    void watch_truth(std::shared_ptr<const ClockTruth> truth) override;
    void show_clock_not_adjusted(bool shown) override;
    void show_versions(const ProgramVersion& chronyc, const ProgramVersion& chronyd) override;
    void show_original_name_choice(bool offered) override;
    void show_server_field(bool shown) override;
    void show_servers(const std::vector<std::string>& names, const std::string& current) override;
    void show_output(const std::string& text) override;
    void show_notice(const StatusNotice& notice) override;
    void enable_gpsd_item(bool enabled) override;
    void ask_for_rights() override;
    void stop_program(const std::string& programming_error) override;
    void stop_for_version(const std::string& program, const std::string& answer) override;

Q_SIGNALS:
    void reading_applied(const StatusNotice& notice);                 // and shown
    void truth_shown(const std::shared_ptr<const ClockTruth>& truth); // of this machine, whichever is shown
    void host_shown(const QString& host);                             // empty: this machine
    void mending_wanted(Mending what);
    void quiet_wanted();     // of the alarm
    void graph_requested();  // of the live log
    void rights_requested(); // the administrator's
    void standing_notice_followed(const QString& link);
    void preferences_requested();
    void gpsd_application_requested();
    void wrong_program_found(const QString& sentence); // is said in the window; to be logged
    void stop_requested(const QString& sentence);      // say it to the user and end the program

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build_toolbar();
    void connect_controls();
    void show_settings();
    void fix_clock_text_size();
    void update_visibility();
    void restore_frame();
    void restore_report(const QByteArray& state);
    void save_frame();
    [[nodiscard]] QByteArray report_state() const;
    void set_output_font(const Font& font);

    DefaultSettings& m_settings_store;
    std::unique_ptr<StatusCycle> m_cycle;
    MainArea* m_area;
    MainWindowControls m_controls;
    QToolBar* m_toolbar = nullptr;
    std::optional<chronydStatus> m_shown_status;
    QAction* m_gpsd_toolbar = nullptr;
    bool m_shows_own = true; // the clock of this machine
    QString m_progress;      // a job that is under way
};

} // namespace tickervantage
