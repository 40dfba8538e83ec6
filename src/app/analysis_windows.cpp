#include "app/analysis_windows.h"

#include "app/bring_to_front.h"
#include "linux/small_file.h"
#include "qt/picture_file.h"

#include <utility>

namespace tickervantage {
AnalysisWindows::AnalysisWindows(AnalysisParts parts) : m_parts(std::move(parts)) {}

AnalysisWindows::~AnalysisWindows() {
    for (auto* window : std::exchange(m_tracking, {}))
        delete window;
}

PlotExportParts AnalysisWindows::export_parts() {
    return {.queue = m_parts.export_queue,
            .main_thread = m_parts.main_thread,
            .write_picture = write_picture,
            .write_text = replace_small_file};
}

TrackingWindowParts AnalysisWindows::tracking_parts() {
    return {.settings = m_parts.settings,
            .main_thread = m_parts.main_thread,
            .timer = m_parts.timer,
            .files = m_parts.files,
            .lend_queue = m_parts.lend_queue,
            .spectrum_enabled = m_parts.spectrum_enabled,
            .show_spectrum = [this] { showSpectrum(); },
            .exports = export_parts(),
            .ask_log_setting = m_parts.ask_log_setting,
            .make_log_readable = m_parts.make_log_readable};
}

TrackingWindow* AnalysisWindows::open_log(const QString& path, bool live) {
    auto* window = new TrackingWindow(tracking_parts());
    window->setAttribute(Qt::WA_DeleteOnClose);
    m_tracking.push_back(window);
    QObject::connect(window, &TrackingWindow::windowDidBecomeMain, window, [this, window] {
        m_tracking.remove(window);
        m_tracking.push_back(window);
    });
    QObject::connect(window, &TrackingWindow::windowWillClose, window, [this, window] { m_tracking.remove(window); });
    window->windowDidLoad();
    window->set_log(path, live);
    window->show();
    return window;
}

const TrackingRecords* AnalysisWindows::current_records() const {
    return m_tracking.empty() ? nullptr : &m_tracking.back()->records();
}

void AnalysisWindows::make_spectrum() {
    m_spectrum = std::make_unique<SpectrumWindow>(SpectrumWindowParts{.settings = m_parts.settings,
                                                                      .queue = m_parts.spectrum_queue,
                                                                      .main_thread = m_parts.main_thread,
                                                                      .exports = export_parts()});
    m_spectrum->set_source([this] { return current_records(); });
    m_spectrum->windowDidLoad();
}

void AnalysisWindows::showSpectrum() {
    if (!m_spectrum)
        make_spectrum();
    bring_to_front(*m_spectrum);
    m_spectrum->TrackingSelector();
}

void AnalysisWindows::showFreqTemp() {
    if (!m_freqtemp)
        m_freqtemp = std::make_unique<FreqTempWindow>(
            FreqTempWindowParts{.session = m_parts.freqtemp, .settings = m_parts.settings, .exports = export_parts()});
    m_freqtemp->windowDidLoad();
    bring_to_front(*m_freqtemp);
}

void AnalysisWindows::showFreqInspector() {
    if (!m_inspector) {
        m_inspector = std::make_unique<SensorInspector>(SensorInspectorParts{.broadcast = m_parts.freqtemp.broadcast,
                                                                             .files = m_parts.freqtemp.files,
                                                                             .queue = m_parts.freqtemp.file_queue,
                                                                             .main_thread = m_parts.main_thread,
                                                                             .equation = m_parts.equation});
        QObject::connect(m_inspector.get(), &SensorInspector::sensors_requested, m_inspector.get(), [this] {
            if (m_freqtemp)
                m_freqtemp->tell_inspector();
        });
    }
    m_inspector->windowDidLoad();
    bring_to_front(*m_inspector);
}

void AnalysisWindows::update_spectrum_buttons() {
    for (auto* window : m_tracking)
        window->update_spectrum_button();
}

} // namespace tickervantage
