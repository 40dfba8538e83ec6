// The history of the clock in one window: what happened, when, and how good the time was.
//
// Shows the history store and tracking logs on one axis, and follows the store while it grows. Reading and statistics
// are made on a queue of the window's own; the main thread takes over what has been read. Main thread only; the parts
// outlive the window, and the main thread outlives the queue.
#pragma once

#include "base/background.h"
#include "base/repeater.h"
#include "gui/common/plot_export.h"
#include "gui/history/history_controls.h"
#include "studies/evidence/evidence_files.h"
#include "studies/history/before_after.h"
#include "studies/history/history_follower.h"
#include "studies/history/history_statistics.h"
#include "studies/history/limit_share.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class QTreeWidgetItem;

namespace tickervantage {

struct HistoryWindowParts {
    MainThread& main_thread;
    MasterTimer& timer;
    FollowedFiles& files;
    std::shared_ptr<DispatchQueueSerial> queue;
    PlotExportParts exports;
    bool can_turn_on_logs = false;
};

class HistoryWindow : public QMainWindow, public ExportedPlot {
    Q_OBJECT
public:
    explicit HistoryWindow(HistoryWindowParts parts);
    ~HistoryWindow() override;
    HistoryWindow(const HistoryWindow&) = delete;
    HistoryWindow& operator=(const HistoryWindow&) = delete;

    // Reads them, shows the newest day, and follows the store and the logs while they grow.
    void show_history(HistoryPlaces places);
    // Lays another machine's log, or a folder of them, over what is shown.
    void compare_with(const QString& path);
    void end_comparison();

    // Writes what the logs in sight prove; .pdf or .html.
    void save_evidence(const EvidenceQuestion& question, const QString& path);

    void say(const QString& sentence); // in the status line

    [[nodiscard]] const HistoryControls& controls() const { return m_controls; }
    [[nodiscard]] PlotExport& exports() { return *m_exports; }

Q_SIGNALS:
    void log_graph_requested();
    void logs_requested(); // chrony is to write what this window needs

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override; // logs and folders of them

private:
    struct CurveNumbers {
        std::string key;
        AxisUnit unit{};
        ValueSummary statistics;
        Histogram histogram;
        BeforeAfter change; // at cursor A
    };

    void draw_plot(Canvas& canvas, Rect bounds) const override;
    [[nodiscard]] PlotCaption plot_caption() const override;
    [[nodiscard]] std::shared_ptr<PlotTable> plot_table() override;

    void connect_movement();
    void connect_choices();
    void connect_tables();
    void connect_files();
    enum class Asked : unsigned char { file, folder };
    void ask_for_log(bool to_compare, Asked asked);
    void open_logs(const QStringList& paths);
    void ask_for_question();
    void take(LoadedHistory loaded);
    void show_loaded(LoadedHistory loaded);
    void look_for_more();
    void take_news(HistoryNews news);
    [[nodiscard]] bool add_news(HistoryNews news); // whether there was any
    void show_first_range();
    void choose_range(int entry);
    void keep_newest_in_sight();
    void range_moved();
    void data_changed();
    void fill_legend();
    void legend_changed(QTreeWidgetItem* item);
    void isolate(QTreeWidgetItem* item);
    void fill_events();
    void show_event(QTreeWidgetItem* item);
    void mark_event(const QTreeWidgetItem* item);
    void show_values();
    void show_cursors();
    struct Gathered {
        std::string key;
        AxisUnit unit{};
        std::vector<double> values;
        std::size_t split = 0; // the first one from cursor A on
    };
    struct InSight {
        std::vector<Gathered> curves;
        std::vector<double> times; // of the bounds, where there is a limit
        std::vector<double> bounds;
    };
    void count_statistics();
    void gather();
    void count_gathered();
    void choose_limit();
    void show_statistics();
    void show_histogram();
    void show_before_after();
    void split_at_cursor();
    void offer_ranges();
    void show_period(const TimeRange& range);
    void show_lane(const QString& source, double time);
    void show_marks(const QPoint& place, const std::vector<HistoryMark>& marks) const;
    void show_origins();

    HistoryWindowParts m_parts;
    HistoryControls m_controls;
    HistoryPlaces m_places;
    QString m_compared;                          // a path; empty: nothing is
    std::shared_ptr<HistoryFollower> m_follower; // on the queue
    LoadedHistory m_loaded;                      // without its data, which are below
    std::shared_ptr<HistoryData> m_data = std::make_shared<HistoryData>();
    std::vector<std::pair<double, MarkKind>> m_listed; // the table of events
    std::vector<CurveNumbers> m_numbers;
    InSight m_gathered;                   // of the curves that are not left
    std::vector<std::string> m_to_gather; // keys of curves
    std::optional<LimitShare> m_share;    // of what is in sight, within the limit
    std::unique_ptr<PlotExport> m_exports;
    std::unique_ptr<Repeater> m_reader;
    QTimer m_statistics_timer; // waits until a movement has ended
    QTimer m_gather_timer;
    std::optional<double> m_split; // cursor A, as the statistics have it
    bool m_is_reading = false;
    int m_looks_to_skip = 0; // where reading the logs takes its time
    Background m_background;
    Background m_statistics;
};

} // namespace tickervantage
