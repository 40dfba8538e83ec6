#include "studies/freqtemp/freqtemp_session.h"

#include "base/broadcast.h"
#include "base/sensors.h"
#include "chrony/reports/current_frequency.h"
#include "studies/freqtemp/scatter_store.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <optional>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* LISTENER = "freqtemp.listener";
constexpr const char* TIMER = "net.brisklane.tickervantage.temperature";
constexpr double TEMPERATURE_INTERVAL = 1.0; // s
constexpr std::size_t SAVE_EVERY = 100;      // samples, and readings of the frequency

using PointsByName = std::map<std::string, PointList>;

PointsByName points_of(const ScatterMap& map) {
    PointsByName points;
    for (const auto& [name, entry] : map)
        points.emplace_hint(points.end(), name, entry.points);
    return points;
}

std::vector<tempSensor> sensors_with_reading(const std::vector<SensorReading>& readings) {
    std::vector<tempSensor> sensors;
    for (const auto& reading : readings)
        if (reading.temperature > 0)
            sensors.push_back({reading.name, reading.description.empty() ? reading.name : reading.description});
    return sensors;
}

} // namespace

std::string scatter_map_path(const std::string& folder) {
    return folder.empty() ? std::string() : folder + "/scattermap.json";
}

// What is to be made away from the main thread, and what is to be done with the result.
struct FreqTempSession::FitJob {
    bool is_event = false; // made by a reading of the frequency
    bool is_refit = false;
    bool is_told = false; // to the inspector
    bool is_saved = false;
    int order = 1;
    PointsByName fitted = {}; // before those over the maximum were dropped
    PointsByName shown = {};

    // Everything that both jobs do, in one.
    void add(FitJob later) {
        if (later.is_refit) {
            is_refit = true;
            order = later.order;
            fitted = std::move(later.fitted);
        }
        is_told = is_told || later.is_told;
        is_saved = is_saved || later.is_saved;
        shown = std::move(later.shown);
    }
};

struct FreqTempSession::FitResult {
    bool is_told = false;
    bool is_saved = false;
    std::map<std::string, QuadRegression> fits;
    std::map<std::string, std::shared_ptr<const PointDigest>> digests;

    explicit FitResult(const FitJob& job) : is_told(job.is_told), is_saved(job.is_saved) {
        if (job.is_refit)
            for (const auto& [name, points] : job.fitted)
                (void)fits[name].fit(points.spans(), job.order); // a fit that failed says so in `valid`
        for (const auto& [name, points] : job.shown)
            digests[name] = make_digest(points);
    }
};

FreqTempSession::FreqTempSession(FreqTempParts parts, FreqTempSettings settings, FreqTempListener& listener)
    : m_parts(std::move(parts)), m_settings(settings), m_listener(listener),
      m_store(std::make_shared<ScatterStore>(m_parts.files, m_parts.logger, m_parts.file_queue, m_parts.map)),
      m_timer(m_parts.master_timer.make_repeater(TIMER, Pace::free)), m_background(m_parts.main_thread) {
    set_max_samples(m_settings.max_samples);
}

FreqTempSession::~FreqTempSession() {
    if (m_is_ready && !m_is_closed)
        m_parts.broadcast.RemoveListener(current_frequency_key, LISTENER);
    m_store->finish();
}

void FreqTempSession::start() {
    m_background.start(
        m_parts.sensor_queue, [&sensors = m_parts.sensors] { return sensors_with_reading(sensors.read()); },
        [this](std::vector<tempSensor> sensors) { load(std::move(sensors)); });
}

void FreqTempSession::load(std::vector<tempSensor> sensors) {
    m_sensors = std::move(sensors);
    const auto read = [store = m_store] {
        auto stored = store->load();
        if (stored)
            for (auto& [name, entry] : *stored)
                entry.digest = make_digest(entry.points);
        return stored;
    };
    m_background.start(m_parts.file_queue, read,
                       [this](std::optional<ScatterMap> stored) { begin(std::move(stored)); });
}

void FreqTempSession::begin(std::optional<ScatterMap> stored) {
    if (m_is_closed)
        return;
    m_scatter = fresh_map(m_sensors);
    if (stored)
        m_scatter = merged(m_scatter, std::move(*stored));
    m_menu.set_sensors(m_sensors, m_scatter);
    m_is_ready = true;
    m_samples = largest_count(m_scatter);
    m_timer->start(TEMPERATURE_INTERVAL, [this] { read_temperatures(); });
    m_parts.broadcast.AddListener(current_frequency_key, LISTENER, [this](std::string_view, const std::any& object) {
        if (const auto* frequency = std::any_cast<current_frequency>(&object))
            frequency_event(frequency->freq);
    });
    m_listener.session_ready();
    m_listener.session_changed();
}

void FreqTempSession::close() {
    if (m_is_closed)
        return;
    m_is_closed = true;
    m_timer->stop();
    m_parts.broadcast.RemoveListener(current_frequency_key, LISTENER);
    m_parts.sensor_queue.async([&sensors = m_parts.sensors] { sensors.close(); });
    if (m_is_ready)
        m_store->request_save(snapshot(m_scatter));
}

void FreqTempSession::read_temperatures() {
    if (std::exchange(m_is_reading, true))
        return; // a slow chip: its readings are on their way
    m_background.start(
        m_parts.sensor_queue, [&sensors = m_parts.sensors] { return sensors.read(); },
        [this](const std::vector<SensorReading>& readings) { apply_temperatures(readings); });
}

void FreqTempSession::apply_temperatures(const std::vector<SensorReading>& readings) {
    m_is_reading = false;
    for (const auto& sensor : m_sensors) {
        const auto found = std::ranges::find(readings, sensor.name, &SensorReading::name);
        if (found != readings.end() && found->temperature > 0)
            m_temperatures[sensor.name] = found->temperature;
    }
}

void FreqTempSession::frequency_event(double frequency) {
    if (!m_is_ready || m_is_closed || !std::isfinite(frequency))
        return;
    bool is_new = false;
    const auto now = static_cast<std::int64_t>(std::time(nullptr));
    for (auto& [name, entry] : m_scatter)
        if (const auto latest = m_temperatures.find(name); latest != m_temperatures.end()) {
            entry.points.append({latest->second, frequency}, now);
            is_new = true;
        }
    m_unsaved += is_new ? 1 : 0;
    update({.is_event = true, .is_refit = true, .is_told = true});
}

// Refits from all points where the job asks for it, then drops those over the maximum.
void FreqTempSession::update(FitJob job) {
    if (job.is_refit) {
        job.order = static_cast<int>(m_settings.regression_order) + 1;
        job.fitted = points_of(m_scatter);
    }
    const auto most = static_cast<std::size_t>(m_settings.max_samples);
    for (auto& [name, entry] : m_scatter)
        if (entry.points.size() > most)
            entry.points.drop_front(entry.points.size() - most);
    const std::size_t before = std::exchange(m_samples, largest_count(m_scatter));
    job.shown = points_of(m_scatter);
    // At its maximum the number stays the same, at a hundredth for ever perhaps: then readings count.
    const bool is_reached = m_samples % SAVE_EVERY == 0 && (!job.is_event || m_samples != before);
    job.is_saved = is_reached || m_unsaved >= SAVE_EVERY;
    if (job.is_saved)
        m_unsaved = 0;
    request(std::move(job));
}

void FreqTempSession::request(FitJob job) {
    if (!m_is_fitting)
        start_job(std::move(job));
    else if (m_waiting)
        m_waiting->add(std::move(job));
    else
        m_waiting = std::make_unique<FitJob>(std::move(job));
}

void FreqTempSession::start_job(FitJob job) {
    m_is_fitting = true;
    m_background.start(
        m_parts.fit_queue, [job = std::move(job)] { return FitResult(job); },
        [this](const FitResult& result) { apply(result); });
}

void FreqTempSession::apply(const FitResult& result) {
    for (const auto& [name, fit] : result.fits)
        if (const auto entry = m_scatter.find(name); entry != m_scatter.end())
            *entry->second.quadRegression = fit;
    for (const auto& [name, digest] : result.digests)
        if (const auto entry = m_scatter.find(name); entry != m_scatter.end())
            entry->second.digest = digest;
    m_is_fitting = false;
    m_listener.session_changed();
    if (result.is_saved && !m_is_closed)
        m_store->request_save(snapshot(m_scatter));
    if (result.is_told)
        m_parts.broadcast.post(sensor_inspector_key, inspector_sensors(), Delivery::later);
    if (const auto next = std::move(m_waiting))
        start_job(std::move(*next));
}

std::shared_ptr<const Sensors> FreqTempSession::inspector_sensors() const {
    auto told = std::make_shared<Sensors>();
    for (const auto& sensor : m_sensors) {
        const auto found = m_scatter.find(sensor.name);
        if (found == m_scatter.end() || found->second.points.empty())
            continue;
        const auto& entry = found->second;
        const freqPoint last = entry.points.back();
        told->sensors.push_back({.name = sensor.description,
                                 .key = sensor.name,
                                 .temperature = last.temperature,
                                 .frequency = last.frequency,
                                 .color = entry.color.color(),
                                 .regression = entry.quadRegression});
    }
    return told;
}

void FreqTempSession::selectSensor(std::size_t item) {
    m_menu.toggle(item);
    m_menu.apply(m_scatter);
    m_listener.session_changed();
}

void FreqTempSession::selectOrder(std::int64_t item) {
    m_settings.regression_order = std::max<std::int64_t>(0, item);
    if (m_is_ready)
        update({.is_refit = true, .is_told = true});
}

void FreqTempSession::showDisplayOptions(bool points, bool mean, bool bounds, bool last) {
    m_settings.show_scatter_points = points;
    m_settings.show_mean_frequency = mean;
    m_settings.show_freq_bounds = bounds;
    m_settings.show_last_record = last;
    m_listener.session_changed();
}

void FreqTempSession::set_max_samples(std::int64_t count) {
    m_settings.max_samples = std::clamp(count, settings::max_samples.minimum, settings::max_samples.maximum);
    if (m_is_ready)
        update({});
}

void FreqTempSession::clear() {
    for (auto& [name, entry] : m_scatter) {
        entry.points.clear();
        entry.digest = nullptr;
    }
    if (m_is_ready)
        update({.is_told = true});
}

} // namespace tickervantage
