// One tracking log as a graph, with its controls. A finished log stands still and ends with its newest record; a
// live one runs on while chronyd writes it.
#pragma once

#include "base/failure.h"
#include "chrony/log/logreader.h"
#include "gui/common/plot_export.h"
#include "gui/tracking/tracking_controls.h"
#include "gui/tracking/tracking_words.h"
#include "settings/default_settings.h"
#include "settings/preferences.h"
#include "studies/tracking/tracking_settings.h"
#include "studies/tracking/tracking_view.h"

#include <QMainWindow>

#include <memory>
#include <string>
#include <string_view>

namespace tickervantage {

struct LogSettingAnswer {
    TrackingLogSetting setting = TrackingLogSetting::unknown;
    std::string configuration; // path of the file asked
};

// Seconds since 1970, by the machine's clock.
[[nodiscard]] double seconds_of_this_machine();

// What the window works with; all of it outlives the window.
struct TrackingWindowParts {
    DefaultSettings& settings;
    MainThread& main_thread;
    MasterTimer& timer;
    FollowedFiles& files;
    std::shared_ptr<DispatchQueueSerial> queue; // lent for the log's reader
    const PreferencesAdvanced& preferences;     // as they are now: whether the spectrum is offered
    PlotExportParts exports;
    bool can_make_log_readable = false;        // as an administrator
    double (*now)() = seconds_of_this_machine; // since 1970
    LogReaderTiming log_timing = {};
};

class TrackingWindow : public QMainWindow, public ExportedPlot {
    Q_OBJECT

public:
    explicit TrackingWindow(TrackingWindowParts parts);
    ~TrackingWindow() override;

    void windowDidLoad(); // once, before the window is shown
    void set_log(const QString& path, bool live);
    [[nodiscard]] const QString& log_name() const { return m_logname; } // its path
    [[nodiscard]] bool is_live() const { return m_empty.is_live; }

    // In place of the log's path, which stands in both at first: for a path that tells nobody anything.
    void show_titles(const QString& title, const QString& heading);

    [[nodiscard]] const TrackingRecords& records() const { return m_view.records(); }
    [[nodiscard]] TrackingView& view() { return m_view; }

    // The spectrum's button follows the preferences.
    void update_spectrum_button();

    // The answers to the requests below.
    void show_log_setting(const LogSettingAnswer& answer);
    void show_log_readable(const Result<>& outcome);

    // Of what is in sight.
    [[nodiscard]] PlotExport& exports() { return *m_exports; }

Q_SIGNALS:
    void windowDidBecomeMain();
    void block_arrived();   // of lines, and was drawn
    void windowWillClose(); // after the settings were saved
    void spectrum_requested();
    void log_setting_requested();  // whether chronyd writes the live log
    void log_readable_requested(); // let everybody read the live log, as an administrator

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void draw_plot(Canvas& canvas, Rect bounds) const override;
    [[nodiscard]] PlotCaption plot_caption() const override;
    [[nodiscard]] std::shared_ptr<PlotTable> plot_table() override; // of what is in sight
    void build_exports();
    void connect_controls();
    void connect_graph();
    void load_settings();
    [[nodiscard]] TrackingSettings current_settings() const;
    void apply_sliders();
    void apply_legend();
    void apply_time_range();
    void hold_range();
    void load_log();
    void take_line(std::string_view line, bool last);
    void end_of_block();
    void describe_graph();
    void show_emptiness();
    void show_problem(const std::optional<Failure>& problem);
    void show_no_readout(); // the log's problem, where there is one
    void offer_to_make_readable();
    void read_so_far();
    void makeReadable();
    void zoom(double steps, double viewport_x);
    void fit();
    void reset_zoom();
    void show_readout(double frame_x);
    void showLegend();
    void closeLegend();
    void cancelLegend();

    TrackingWindowParts m_parts;
    TrackingView m_view;
    TrackingControls m_controls;
    std::unique_ptr<PlotExport> m_exports;
    QString m_logname;
    EmptyLog m_empty;
    bool m_is_read = false;       // as far as the log goes
    bool m_setting_asked = false; // for this look at an empty log
    bool m_holds_range = false;   // the range that was chosen is all in sight
    double m_own_zoom = 0;        // horizontal, before that
    bool m_animated = false;      // the busy indicator runs
    std::optional<LogEnds> m_ends;
    std::unique_ptr<Repeater> m_read_timer; // once: an empty file has no last line to tell that it was read
    popover_settings save_popover;
    popover_settings default_popover = TrackingSettings::defaults().legend;
    std::unique_ptr<LogReader> m_trackinglog; // after the queue it runs on
};

} // namespace tickervantage
