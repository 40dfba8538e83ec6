#include "app/analysis_windows.h"

#include "app/administration.h"
#include "app/bring_to_front.h"
#include "app/plot_files.h"
#include "linux/posix_user_files.h"
#include "settings/settings_catalogue.h"
#include "studies/freqtemp/scatter_json.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(tracking)
};

// One that cannot be read is as good as none here: its own window says what is wrong with it.
void read_temperatures(const std::string& path, HistoryData& data) {
    constexpr std::size_t largest = std::size_t{256} << 20U;
    PosixFiles files;
    const FileReading file = files.read(path, largest);
    const auto map =
        file.outcome == FileReading::Outcome::read ? read_scatter_json(file.bytes) : Result<ScatterMap>(ScatterMap());
    if (!map)
        return;
    for (const auto& [sensor, entry] : *map)
        for (std::size_t at = 0; at < entry.points.size(); ++at)
            if (const auto time = entry.points.time(at))
                data.add_temperature(sensor, static_cast<double>(*time), entry.points[at].temperature);
}

} // namespace

AnalysisWindows::AnalysisWindows(AnalysisParts parts)
    : m_parts(std::move(parts)), m_recent(m_parts.settings, settings::recent_logs),
      m_compensation({.main_thread = m_parts.main_thread,
                      .queue = m_parts.spectrum_queue,
                      .sensor_queue = m_parts.freqtemp.sensor_queue,
                      .sensors = m_parts.freqtemp.sensors,
                      .general = m_parts.general,
                      .administration = m_parts.administration}),
      m_background(m_parts.main_thread) {
    connect(&m_compensation, &CompensationOffers::more_points_requested, this, &AnalysisWindows::keep_points);
    connect(&m_recent, &RecentFiles::chosen, this, [this](const QString& path) { open_log(path, false); });
}

AnalysisWindows::~AnalysisWindows() {
    for (auto* window : std::exchange(m_tracking, {}))
        delete window;
}

PlotExportParts AnalysisWindows::export_parts() {
    static PlotFiles files; // an export may be under way when the windows go
    return {.queue = m_parts.export_queue, .main_thread = m_parts.main_thread, .writer = files};
}

TrackingWindowParts AnalysisWindows::tracking_parts() {
    return {.settings = m_parts.settings,
            .main_thread = m_parts.main_thread,
            .timer = m_parts.timer,
            .files = m_parts.files,
            .queue = m_parts.log_queues.lend(),
            .preferences = m_parts.advanced,
            .exports = export_parts(),
            .can_make_log_readable = m_parts.administration != nullptr};
}

TrackingWindow* AnalysisWindows::open_log(const QString& path, bool live) {
    const auto shows_it = [&](const auto* one) {
        return one->log_name() == path && one->is_live() == live;
    };
    const auto open = std::ranges::find_if(m_tracking, shows_it);
    TrackingWindow* window = open != m_tracking.end() ? *open : make_tracking(path, live);
    bring_to_front(*window);
    return window;
}

TrackingWindow* AnalysisWindows::make_tracking(const QString& path, bool live) {
    auto* window = new TrackingWindow(tracking_parts());
    window->setAttribute(Qt::WA_DeleteOnClose);
    m_tracking.push_back(window);
    connect_tracking(window);
    tracking_changed();
    window->windowDidLoad();
    window->set_log(path, live);
    if (live)
        show_live_titles(window);
    else // a file without records is none to come back to
        connect(
            window, &TrackingWindow::block_arrived, this, [this, path] { m_recent.remember(path); },
            Qt::SingleShotConnection);
    return window;
}

void AnalysisWindows::show_live_titles(TrackingWindow* window) {
    //: tracking window: title, of the log that chronyd is writing
    const QString title = Texts::tr("Tracking log – live");
    //: tracking window: stands in place of the log's path
    const QString demonstration = Texts::tr("The demonstration's tracking log");
    window->show_titles(title, m_parts.is_demonstration ? demonstration : window->log_name());
}

void AnalysisWindows::connect_tracking(TrackingWindow* window) {
    connect(window, &TrackingWindow::windowDidBecomeMain, this, [this, window] {
        if (m_tracking.remove(window) == 0)
            return; // the desktop gave it the keyboard once more while it went
        m_tracking.push_back(window);
        tracking_changed();
    });
    connect(window, &TrackingWindow::windowWillClose, this, [this, window] {
        m_tracking.remove(window);
        tracking_changed();
    });
    connect(window, &TrackingWindow::spectrum_requested, this, &AnalysisWindows::showSpectrum);
    connect(window, &TrackingWindow::log_setting_requested, this, [this, window] { ask_log_setting(window); });
    connect(window, &TrackingWindow::log_readable_requested, this, [this, window] { make_log_readable(window); });
}

void AnalysisWindows::ask_log_setting(TrackingWindow* window) {
    if (m_parts.is_demonstration)
        return;
    m_background.start(
        m_parts.configuration_queue,
        [path = m_parts.general.config] {
            return LogSettingAnswer{tracking_log_setting(path), path};
        },
        [window = QPointer(window)](const LogSettingAnswer& answer) {
            if (window)
                window->show_log_setting(answer);
        });
}

void AnalysisWindows::make_log_readable(TrackingWindow* window) {
    m_parts.administration->run({AdminJob::log_permission}, [window = QPointer(window)](const JobResult& result) {
        if (window)
            window->show_log_readable(result.outcome);
    });
}

void AnalysisWindows::tracking_changed() {
    if (m_spectrum)
        m_spectrum->set_records(m_tracking.empty() ? nullptr : &m_tracking.back()->records());
}

void AnalysisWindows::make_history() {
    m_history =
        std::make_unique<HistoryWindow>(HistoryWindowParts{.main_thread = m_parts.main_thread,
                                                           .timer = m_parts.timer,
                                                           .files = m_parts.files,
                                                           .queue = m_parts.log_queues.lend(),
                                                           .exports = export_parts(),
                                                           .can_turn_on_logs = m_parts.administration != nullptr});
    connect(m_history.get(), &HistoryWindow::logs_requested, this, &AnalysisWindows::logs_requested);
    connect(m_history.get(), &HistoryWindow::log_graph_requested, this, &AnalysisWindows::log_graph_requested);
}

// The map of frequency against temperature knows when each point was read.
void AnalysisWindows::showHistory(HistoryPlaces places) {
    if (!m_history)
        make_history();
    places.read_temperatures = [map = m_parts.freqtemp.map](HistoryData& data) {
        read_temperatures(map, data);
    };
    places.temperatures = m_parts.freqtemp.map;
    m_history->show_history(std::move(places));
    bring_to_front(*m_history);
}

void AnalysisWindows::make_laboratory() {
    m_laboratory = std::make_unique<LaboratoryWindow>(
        LaboratoryWindowParts{.main_thread = m_parts.main_thread,
                              .timer = m_parts.timer,
                              .files = m_parts.files,
                              .queue = m_parts.log_queues.lend(),
                              .exports = export_parts(),
                              .now = [] { return std::int64_t{std::time(nullptr)}; },
                              .compensation = {.main_thread = m_parts.main_thread,
                                               .queue = m_parts.freqtemp.file_queue,
                                               .files = m_parts.freqtemp.files,
                                               .logs = m_parts.files,
                                               .settings = m_parts.settings,
                                               .map = m_parts.freqtemp.map,
                                               .can_install = m_parts.administration != nullptr},
                              .can_turn_on_logs = m_parts.administration != nullptr});
    connect(m_laboratory.get(), &LaboratoryWindow::logs_requested, this, &AnalysisWindows::logs_requested);
    connect_compensation(m_laboratory->compensation());
}

void AnalysisWindows::connect_compensation(CompensationPage& page) {
    connect(&page, &CompensationPage::install_requested, this,
            [this](const ScatterMap& map) { m_compensation.offer(m_laboratory.get(), map, most_points()); });
    connect(&page, &CompensationPage::take_back_requested, this,
            [this] { m_compensation.ask_to_take_back(m_laboratory.get()); });
    connect(&page, &CompensationPage::points_requested, this, &AnalysisWindows::freqtemp_requested);
    connect(&page, &CompensationPage::more_points_requested, this, &AnalysisWindows::keep_points);
    connect(&m_compensation, &CompensationOffers::changed, &page, &CompensationPage::look);
}

std::size_t AnalysisWindows::most_points() const {
    return static_cast<std::size_t>(load(m_parts.settings, settings::max_samples));
}

void AnalysisWindows::keep_points(std::size_t count) {
    const auto most = std::min(static_cast<std::int64_t>(count), settings::max_samples.maximum);
    if (m_freqtemp && m_freqtemp->session() != nullptr)
        m_freqtemp->keep_points(most);
    else
        save(m_parts.settings, settings::max_samples, most);
    if (m_laboratory)
        m_laboratory->compensation().look();
}

void AnalysisWindows::showLaboratory(const LaboratoryPlaces& places) {
    if (!m_laboratory)
        make_laboratory();
    m_laboratory->compensation().set_configuration(m_parts.general.config);
    m_laboratory->show_laboratory(places);
    bring_to_front(*m_laboratory);
}

void AnalysisWindows::make_spectrum() {
    m_spectrum = std::make_unique<SpectrumWindow>(SpectrumWindowParts{.settings = m_parts.settings,
                                                                      .queue = m_parts.spectrum_queue,
                                                                      .main_thread = m_parts.main_thread,
                                                                      .exports = export_parts()});
    tracking_changed();
    m_spectrum->windowDidLoad();
}

void AnalysisWindows::showSpectrum() {
    if (!m_spectrum)
        make_spectrum();
    bring_to_front(*m_spectrum);
    m_spectrum->TrackingSelector();
}

void AnalysisWindows::make_freqtemp() {
    m_freqtemp = std::make_unique<FreqTempWindow>(
        FreqTempWindowParts{.session = m_parts.freqtemp, .settings = m_parts.settings, .exports = export_parts()});
    connect(m_freqtemp.get(), &FreqTempWindow::compensation_requested, this,
            [this] { m_compensation.offer(m_freqtemp.get(), m_freqtemp->plotted(), most_points()); });
}

void AnalysisWindows::showFreqTemp() {
    if (!m_freqtemp)
        make_freqtemp();
    m_freqtemp->windowDidLoad();
    bring_to_front(*m_freqtemp);
}

void AnalysisWindows::make_inspector() {
    m_inspector = std::make_unique<SensorInspector>(SensorInspectorParts{.broadcast = m_parts.freqtemp.broadcast,
                                                                         .files = m_parts.freqtemp.files,
                                                                         .queue = m_parts.freqtemp.file_queue,
                                                                         .main_thread = m_parts.main_thread,
                                                                         .equation = m_parts.equation});
    connect(m_inspector.get(), &SensorInspector::sensors_requested, this, [this] {
        if (m_freqtemp)
            m_freqtemp->tell_inspector();
    });
}

void AnalysisWindows::showFreqInspector() {
    if (!m_inspector)
        make_inspector();
    m_inspector->windowDidLoad();
    bring_to_front(*m_inspector);
}

void AnalysisWindows::update_spectrum_buttons() {
    for (auto* window : m_tracking)
        window->update_spectrum_button();
}

} // namespace tickervantage
