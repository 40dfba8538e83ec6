// The windows that study the clock: any number of tracking windows, one spectrum window over the newest of them, and
// one each for frequency against temperature and for its sensors.
#pragma once

#include "gui/freqtemp/freqtemp_window.h"
#include "gui/freqtemp/sensor_inspector.h"
#include "gui/spectrum/spectrum_window.h"
#include "gui/tracking/tracking_window.h"

#include <QPointer>

#include <functional>
#include <list>
#include <memory>

namespace tickervantage {

// All of it outlives the windows.
struct AnalysisParts {
    DefaultSettings& settings;
    MainThread& main_thread;
    MasterTimer& timer;
    FollowedFiles& files;
    DispatchQueueSerial& spectrum_queue;
    DispatchQueueSerial& export_queue;
    std::function<std::shared_ptr<DispatchQueueSerial>()> lend_queue;
    std::function<bool()> spectrum_enabled;
    FreqTempParts freqtemp;
    std::string equation; // path of the inspector's text
    std::function<void(std::function<void(const LogSettingAnswer&)> done)> ask_log_setting = {}; // may be missing
    std::function<void(std::function<void(bool done, const std::string& sentence)> done)> make_log_readable = {}; // too
};

class AnalysisWindows {
public:
    explicit AnalysisWindows(AnalysisParts parts);
    ~AnalysisWindows();
    AnalysisWindows(const AnalysisWindows&) = delete;
    AnalysisWindows& operator=(const AnalysisWindows&) = delete;

    // A new window on the log; it deletes itself when closed.
    TrackingWindow* open_log(const QString& path, bool live);

    // The one spectrum window, made on first use.
    void showSpectrum();

    // The one window each of frequency against temperature and of its sensors, made on first use.
    void showFreqTemp();
    void showFreqInspector();

    // The preferences changed.
    void update_spectrum_buttons();

private:
    PlotExportParts export_parts();
    TrackingWindowParts tracking_parts();
    [[nodiscard]] const TrackingRecords* current_records() const;
    void make_spectrum();

    AnalysisParts m_parts;
    std::list<TrackingWindow*> m_tracking; // open; the last one used stands last
    std::unique_ptr<SpectrumWindow> m_spectrum;
    std::unique_ptr<FreqTempWindow> m_freqtemp;
    std::unique_ptr<SensorInspector> m_inspector;
};

} // namespace tickervantage
