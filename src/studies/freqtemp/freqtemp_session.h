// Sampling of frequency against temperature: what the window does, without the window.
//
// Temperatures are read once a second on a queue of their own; a notice of the clock's frequency pairs it with every
// sensor's latest temperature. Points are added at once; fits and what the plot needs of very many points are made on a
// second queue from snapshots, and applied on the main thread in the order of the events. Events that come while a fit
// is under way are fitted together afterwards. The map is saved, on a third queue, at every hundredth sample, after a
// hundred readings where no number of samples grows any more, and on close. All calls on the main thread, and none of
// them waits, but the destructor, which waits for the last save.
#pragma once

#include "base/background.h"
#include "base/repeater.h"
#include "studies/freqtemp/freqtemp_settings.h"
#include "studies/freqtemp/scatter_map.h"
#include "studies/freqtemp/sensor_menu.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class Broadcast;
class Logger;
class ScatterStore;
class TemperatureSensors;
struct SensorReading;
class UserFiles;

// All outlive the session. The queues may be one and the same, at the price of waiting for each other.
struct FreqTempParts {
    TemperatureSensors& sensors; // used on sensor_queue only
    UserFiles& files;            // used on file_queue only
    DispatchQueueSerial& sensor_queue;
    DispatchQueueSerial& fit_queue;
    DispatchQueueSerial& file_queue;
    MainThread& main_thread;
    MasterTimer& master_timer;
    Broadcast& broadcast;
    Logger& logger;
    std::string map; // path of the map, as scatter_map_path gives it; empty: nothing is read or written
};

// The map's path in the application-support folder; empty for an empty folder.
[[nodiscard]] std::string scatter_map_path(const std::string& folder);

// Told of a session, on the main thread.
class FreqTempListener {
public:
    virtual ~FreqTempListener() = default;
    virtual void session_ready() = 0;   // once: sensors are listed, the stored map is merged, sampling has begun
    virtual void session_changed() = 0; // points, fits, or what is selected: draw again, and show samples()
};

class FreqTempSession {
public:
    // The listener outlives the session.
    FreqTempSession(FreqTempParts parts, FreqTempSettings settings, FreqTempListener& listener);
    ~FreqTempSession();
    FreqTempSession(const FreqTempSession&) = delete;
    FreqTempSession& operator=(const FreqTempSession&) = delete;

    // Lists the sensors, reads the stored map, then begins to sample. Once.
    void start();
    [[nodiscard]] bool is_ready() const { return m_is_ready; }

    // Ends sampling, and saves the map if it was ever read. Once; the settings are the window's to save before.
    void close();

    [[nodiscard]] const ScatterMap& scatter() const { return m_scatter; } // for the plot
    [[nodiscard]] const SensorMenu& menu() const { return m_menu; }
    [[nodiscard]] std::size_t samples() const { return m_samples; } // most points of any sensor, when last applied
    [[nodiscard]] const FreqTempSettings& settings() const { return m_settings; }

    // The latest temperature by sensor, degrees Celsius. Sensors that vanished keep their last.
    [[nodiscard]] const std::map<std::string, double>& temperatures() const { return m_temperatures; }

    // What the inspector is told, now: for a window that opens between two frequencies.
    [[nodiscard]] std::shared_ptr<const Sensors> inspector_sensors() const;

    // The controls' actions. Indices are those of the pop-ups' items.
    void selectSensor(std::size_t item);
    void selectOrder(std::int64_t item);
    void showDisplayOptions(bool points, bool mean, bool bounds, bool last);
    void set_max_samples(std::int64_t count);
    void clear();

    // The clock's frequency, ppm; what the listener calls.
    void frequency_event(double frequency);

private:
    struct FitJob;
    struct FitResult;

    void load(std::vector<tempSensor> sensors);
    void begin(std::optional<ScatterMap> stored);
    void read_temperatures();
    void apply_temperatures(const std::vector<SensorReading>& readings);
    void update(FitJob job);
    void request(FitJob job);
    void start_job(FitJob job);
    void apply(const FitResult& result);

    FreqTempParts m_parts;
    FreqTempSettings m_settings;
    FreqTempListener& m_listener;
    std::vector<tempSensor> m_sensors;
    std::map<std::string, double> m_temperatures;
    ScatterMap m_scatter;
    SensorMenu m_menu;
    std::size_t m_samples = 0;
    std::size_t m_unsaved = 0; // readings since the map was last saved
    bool m_is_ready = false;
    bool m_is_closed = false;
    bool m_is_reading = false; // temperatures are being read
    bool m_is_fitting = false;
    std::unique_ptr<FitJob> m_waiting;     // behind the fit that is under way
    std::shared_ptr<ScatterStore> m_store; // shared with the work on its queue
    std::unique_ptr<Repeater> m_timer;
    Background m_background;
};

} // namespace tickervantage
