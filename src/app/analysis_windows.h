// The windows that study a log: any number of tracking windows, and one spectrum window over the newest of them.
#pragma once

#include "graphs/tracking_window.h"
#include "spectrum/spectrum_window.h"

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
    std::function<std::shared_ptr<DispatchQueueSerial>()> lend_queue;
    std::function<bool()> spectrum_enabled;
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

    // The preferences changed.
    void update_spectrum_buttons();

private:
    TrackingWindowParts tracking_parts();
    [[nodiscard]] const TrackingRecords* current_records() const;
    void make_spectrum();

    AnalysisParts m_parts;
    std::list<TrackingWindow*> m_tracking; // open; the last one used stands last
    std::unique_ptr<SpectrumWindow> m_spectrum;
};

} // namespace tickervantage
