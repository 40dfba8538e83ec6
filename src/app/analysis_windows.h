// The windows that study the clock: its history, any number of tracking windows, one spectrum window over the newest of
// them, and one each for frequency against temperature and for its sensors.
#pragma once

#include "app/compensation_offers.h"
#include "base/background.h"
#include "base/dispatch.h"
#include "gui/common/recent_files.h"
#include "gui/freqtemp/freqtemp_window.h"
#include "gui/freqtemp/sensor_inspector.h"
#include "gui/history/history_window.h"
#include "gui/laboratory/laboratory_window.h"
#include "gui/spectrum/spectrum_window.h"
#include "gui/tracking/tracking_window.h"

#include <QObject>

#include <list>
#include <memory>

namespace tickervantage {

class Administration;

// All of it outlives the windows.
struct AnalysisParts {
    DefaultSettings& settings;
    MainThread& main_thread;
    MasterTimer& timer;
    FollowedFiles& files;
    DispatchQueueSerial& spectrum_queue;
    DispatchQueueSerial& export_queue;
    DispatchQueueSerial& configuration_queue; // where chrony.conf is read
    QueueLender& log_queues;                  // one for each log that is followed
    const PreferencesGeneral& general;        // as they are now
    const PreferencesAdvanced& advanced;      // likewise
    FreqTempParts freqtemp;
    std::string equation;                     // path of the inspector's text
    bool is_demonstration = false;            // its log is not the one that chrony.conf speaks of
    Administration* administration = nullptr; // null: logs cannot be made readable
};

class AnalysisWindows : public QObject {
    Q_OBJECT

public:
    explicit AnalysisWindows(AnalysisParts parts);
    ~AnalysisWindows() override;
    AnalysisWindows(const AnalysisWindows&) = delete;
    AnalysisWindows& operator=(const AnalysisWindows&) = delete;

    // Brings the log's window to the front: a new one, which deletes itself when closed, unless one is open.
    TrackingWindow* open_log(const QString& path, bool live);

    [[nodiscard]] RecentFiles& recent() { return m_recent; }

    // The one window of the clock's history, made on first use; `places` are read anew each time.
    void showHistory(HistoryPlaces places);

    // The one laboratory, likewise.
    void showLaboratory(const LaboratoryPlaces& places);

    // The one spectrum window, made on first use.
    void showSpectrum();

    // The one window each of frequency against temperature and of its sensors, made on first use.
    void showFreqTemp();
    void showFreqInspector();

    // The preferences changed.
    void update_spectrum_buttons();

Q_SIGNALS:
    void log_graph_requested(); // of the live log
    void logs_requested();      // chrony is to write them
    void freqtemp_requested();  // the window that gathers points

private:
    PlotExportParts export_parts();
    TrackingWindowParts tracking_parts();
    [[nodiscard]] TrackingWindow* make_tracking(const QString& path, bool live);
    void show_live_titles(TrackingWindow* window);
    void connect_tracking(TrackingWindow* window);
    void ask_log_setting(TrackingWindow* window);
    void make_log_readable(TrackingWindow* window);
    void tracking_changed(); // another one is the last one used
    void make_history();
    void make_laboratory();
    void connect_compensation(CompensationPage& page);
    [[nodiscard]] std::size_t most_points() const; // that are kept of a sensor
    void keep_points(std::size_t count);
    void make_spectrum();
    void make_inspector();
    void make_freqtemp();

    AnalysisParts m_parts;
    RecentFiles m_recent;
    std::list<TrackingWindow*> m_tracking; // open; the last one used stands last
    std::unique_ptr<HistoryWindow> m_history;
    std::unique_ptr<LaboratoryWindow> m_laboratory;
    std::unique_ptr<SpectrumWindow> m_spectrum;
    CompensationOffers m_compensation;
    std::unique_ptr<FreqTempWindow> m_freqtemp;
    std::unique_ptr<SensorInspector> m_inspector;
    Background m_background;
};

} // namespace tickervantage
