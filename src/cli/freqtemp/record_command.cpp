#include "cli/freqtemp/record_command.h"

#include "base/broadcast.h"
#include "base/logger.h"
#include "chrony/reports/current_frequency.h"
#include "chrony/reports/tracking_report.h"
#include "cli/terminal.h"
#include "linux/machine_sensors.h"
#include "linux/posix_user_files.h"
#include "linux/serial_queue.h"
#include "qt/event_loop.h"
#include "studies/freqtemp/freqtemp_session.h"

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <fmt/format.h>

#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>
#include <utility>

namespace tickervantage {
namespace {

class ComplainingLogger : public Logger {
public:
    void log(LogLevel, std::string_view sentence) override { complain(std::string(sentence)); }
};

// Asks chronyc for the clock's frequency, again and again, and broadcasts it.
class FrequencySource {
public:
    FrequencySource(const Runchronyc& chronyc, MasterTimer& timer, MainThread& main_thread, Broadcast& broadcast)
        : m_chronyc(chronyc), m_main_thread(main_thread), m_broadcast(broadcast),
          m_timer(timer.make_repeater("net.brisklane.tickerctl.frequency", Pace::free)) {}

    void start(double interval_seconds) {
        m_timer->start(interval_seconds, [this] { ask(); });
    }

private:
    void ask() {
        if (std::exchange(m_is_asking, true))
            return;
        m_queue.async([this] {
            const ExecuteResult result = m_chronyc.run("tracking");
            m_main_thread.main_async([this, result] { tell(result); });
        });
    }
    void tell(const ExecuteResult& result) {
        m_is_asking = false;
        const TrackingReport report = parse_tracking(result.output);
        if (report.has_frequency)
            m_broadcast.post(current_frequency_key, current_frequency{report.frequency}, Delivery::now);
        else if (!m_has_complained && result.outcome != ExecuteOutcome::cancelled)
            complain("There is no frequency: chronyc gave no tracking report.");
        m_has_complained = !report.has_frequency;
    }

    const Runchronyc& m_chronyc;
    MainThread& m_main_thread;
    Broadcast& m_broadcast;
    std::unique_ptr<Repeater> m_timer;
    bool m_is_asking = false;
    bool m_has_complained = false;
    SerialQueue m_queue{"net.brisklane.tickerctl.chronyc"}; // last: its work uses the others
};

// Everything that a recording needs, in the order in which it may go again.
struct Recording : FreqTempListener {
    Recording(const RecordOptions& options, const Runchronyc& chronyc)
        : source(chronyc, timer, main_thread, broadcast), session({.sensors = sensors,
                                                                   .files = files,
                                                                   .sensor_queue = sensor_queue,
                                                                   .fit_queue = fit_queue,
                                                                   .file_queue = file_queue,
                                                                   .main_thread = main_thread,
                                                                   .master_timer = timer,
                                                                   .broadcast = broadcast,
                                                                   .logger = logger,
                                                                   .map = options.map},
                                                                  options.settings, *this),
          interval(options.interval_seconds) {}

    void session_ready() override {
        if (session.menu().sensors().empty())
            loop.quit();
        else
            source.start(interval);
    }
    void session_changed() override {}

    ComplainingLogger logger;
    MachineSensors sensors;
    PosixUserFiles files;
    QtMainThread main_thread;
    QtMasterTimer timer;
    Broadcast broadcast{main_thread};
    SerialQueue sensor_queue{"net.brisklane.sensors"};
    SerialQueue fit_queue{"net.brisklane.fits"};
    SerialQueue file_queue{"net.brisklane.scattermap"};
    FrequencySource source;
    FreqTempSession session;
    double interval;
    QEventLoop loop;
};

} // namespace

int record(const RecordOptions& options, const Runchronyc& chronyc, const EndSignals& signals) {
    std::size_t sensors = 0;
    std::size_t samples = 0;
    {
        Recording recording(options, chronyc);
        QSocketNotifier asked(signals.descriptor(), QSocketNotifier::Read);
        QObject::connect(&asked, &QSocketNotifier::activated, &recording.loop, [&] {
            asked.setEnabled(false);
            recording.loop.quit();
        });
        if (options.for_seconds > 0)
            QTimer::singleShot(std::chrono::milliseconds(static_cast<std::int64_t>(options.for_seconds * 1000)),
                               &recording.loop, [&] { recording.loop.quit(); });
        recording.timer.start();
        recording.session.start();
        recording.loop.exec();
        recording.session.close();
        sensors = recording.session.menu().sensors().size();
        samples = recording.session.samples();
    } // the map is saved here
    if (sensors == 0) {
        complain("This machine has no temperature sensors.");
        return answer_is_no;
    }
    std::cout << fmt::format("{} samples of {} sensors in {}\n", samples, sensors, options.map);
    return 0;
}

} // namespace tickervantage
