// One refresh of the status against the bare cost of what it cannot do without: running chronyc twice.
//
//   bare     posix_spawn of the same two chronyc, one for the reports as data and one for the text that is shown, their
//            output read, their end awaited, on the main thread
//   refresh  the status cycle over the same command, from the request to the values on a display without a window
//   window   the same in the real main window, offscreen
//   sources  a reading of a thousand sources, sorted by their offsets, applied to the window's table and picture, and
//            both painted: processor time of the main thread
//
// Counters, of the main thread and in seconds of processor time: `main` from the request until everything was handed to
// the display, `paint` for repainting the window afterwards.
#include "bench/bare_spawn.h"
#include "bench/cycle_parts.h"
#include "bench/daemon.h"
#include "bench/timing.h"

#include "chrony/truth/clock_truth.h"
#include "gui/main/sources_model.h"
#include "gui/main/sources_panel.h"
#include "gui/main/tickervantage_window.h"
#include "linux/private_temporary.h"
#include "qt/event_loop.h"
#include "support/manual_timer.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <QApplication>
#include <QTableView>

#include <array>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

namespace tickervantage::bench {
namespace {

// A main thread without a toolkit: whoever waits runs what arrives.
class WaitingMainThread : public MainThread {
public:
    void main_async(Work work) override {
        {
            const std::lock_guard lock(m_mutex);
            m_waiting.push_back(std::move(work));
        }
        m_news.notify_one();
    }
    void run_until(const bool& done) {
        while (!done || !empty())
            take()();
    }

private:
    [[nodiscard]] bool empty() {
        const std::lock_guard lock(m_mutex);
        return m_waiting.empty();
    }
    Work take() {
        std::unique_lock lock(m_mutex);
        m_news.wait(lock, [this] { return !m_waiting.empty(); });
        Work work = std::move(m_waiting.front());
        m_waiting.pop_front();
        return work;
    }

    std::mutex m_mutex; // guards m_waiting
    std::condition_variable m_news;
    std::deque<Work> m_waiting;
};

// Keeps what it is told, as a window's labels would.
class TextDisplay : public StatusDisplay {
public:
    void redraw_clock() override {}
    void redraw_meter() override {}
    void show_meter_value(const std::string& text) override { m_meter_value = text; }
    void show_status(chronydStatus status) override { m_status = status; }
    void show_truth(std::shared_ptr<const ClockTruth> truth) override { m_truth = std::move(truth); }
    void watch_truth(std::shared_ptr<const ClockTruth>) override {}
    void show_clock_not_adjusted(bool shown) override { m_not_adjusted = shown; }
    void show_versions(const ProgramVersion& chronyc, const ProgramVersion&) override { m_version = chronyc.label; }
    void show_original_name_choice(bool) override {}
    void show_server_field(bool) override {}
    void show_servers(const std::vector<std::string>&, const std::string&) override {}
    void show_output(const std::string& text) override { m_output = text; }
    void show_notice(const StatusNotice& notice) override {
        m_notice = notice;
        applied = true;
    }
    void enable_gpsd_item(bool) override {}
    void ask_for_rights() override {}
    void stop_program(const std::string&) override {}
    void stop_for_version(const std::string&, const std::string&) override {}

    bool applied = false; // a reading

private:
    std::string m_meter_value;
    std::string m_version;
    std::string m_output;
    StatusNotice m_notice;
    std::shared_ptr<const ClockTruth> m_truth;
    chronydStatus m_status = chronydStatus::unavailable;
    bool m_not_adjusted = false;
};

void run_bare(benchmark::State& state, const Daemon& daemon) {
    std::vector<std::string> text{daemon.chronyc(), "-n"};
    for (const auto& word : daemon.chronyc_arguments())
        text.push_back(word);
    std::vector<std::string> data = text;
    text.emplace_back("tracking");
    data.insert(data.end(), {"-c", "-m", "tracking", "sources -a", "sourcestats -a", "activity"});
    for (auto iteration : state) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(bare_spawn(data));
        benchmark::DoNotOptimize(bare_spawn(text));
        state.SetIterationTime(seconds_since(start));
    }
}

struct Spent {
    double main = 0;
    double paint = 0;
    void report(benchmark::State& state) const {
        state.counters["main"] = benchmark::Counter(main, benchmark::Counter::kAvgIterations);
        state.counters["paint"] = benchmark::Counter(paint, benchmark::Counter::kAvgIterations);
    }
};

// A status cycle between two measurements: loaded, its first reading applied, its timers at rest.
class Plain {
public:
    explicit Plain(const Daemon& daemon)
        : m_parts(m_main_thread, m_timer, daemon.chronyc(), daemon.chronyd()),
          m_cycle(m_display, m_parts.parts(), m_parts.options(daemon.chronyc_arguments())) {
        m_cycle.load();
        m_main_thread.run_until(m_display.applied);
    }
    [[nodiscard]] bool synchronised() const { return m_cycle.status() == chronydStatus::synchronised; }
    void refresh() {
        m_display.applied = false;
        m_cycle.refresh();
        m_main_thread.run_until(m_display.applied);
    }
    void paint() {}

private:
    WaitingMainThread m_main_thread;
    testing::ManualMasterTimer m_timer;
    TextDisplay m_display;
    CycleParts m_parts;
    StatusCycle m_cycle;
};

class Window {
public:
    explicit Window(const Daemon& daemon)
        : m_parts(m_main_thread, m_timer, daemon.chronyc(), daemon.chronyd()),
          m_window(m_parts.parts(), m_parts.options(daemon.chronyc_arguments())) {
        QObject::connect(&m_window, &TickervantageWindow::reading_applied, &m_window, [this] { m_applied = true; });
        m_window.windowDidLoad();
        m_window.show();
        wait();
        refresh(); // showing the window asked for a second reading
    }
    [[nodiscard]] bool synchronised() { return m_window.cycle().status() == chronydStatus::synchronised; }
    void refresh() {
        m_applied = false;
        m_window.cycle().refresh();
        wait();
    }
    static void paint() {
        constexpr int layout_and_paint = 4; // one posts the other
        for (int turn = 0; turn < layout_and_paint; ++turn)
            QCoreApplication::processEvents();
    }

private:
    void wait() {
        while (!m_applied || m_window.cycle().reading())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    QtMainThread m_main_thread;
    QtMasterTimer m_timer; // not started: no tick comes between
    CycleParts m_parts;
    TickervantageWindow m_window;
    bool m_applied = false;
};

// A thousand sources in a window, in two readings whose order differs.
class ManySources {
public:
    ManySources() {
        m_panel.resize(width, height);
        m_panel.show();
        m_panel.findChild<QTableView*>(QStringLiteral("sources"))
            ->sortByColumn(SourcesModel::offset, Qt::AscendingOrder);
        show_next();
        Window::paint();
    }
    void show_next() {
        m_panel.show_truth(m_readings[m_next]);
        m_next = 1 - m_next;
    }

private:
    static constexpr int width = 1100;
    static constexpr int height = 900;

    static std::shared_ptr<const ClockTruth> reading(int seed) {
        constexpr int sources = 1000;
        Capture capture;
        for (int i = 0; i < sources; ++i) {
            const std::string address = fmt::format("10.0.{}.{}", i / 250, i % 250 + 1);
            const int offset = (i * 7919 + seed * 104'729) % 1'000'003; // ns
            capture.reports["sources"].text +=
                fmt::format("^,{},{},2,6,377,{},0.{:09},0.{:09},0.000150000\n", i == 0 ? '*' : '+', address,
                            (i + seed) % 64, offset, offset);
            capture.reports["selectdata"].text +=
                fmt::format("{},{},N,-,-,-,-,-,-,-,-,-,-,5,1.0,-0.00{:07},0.00{:07},Normal\n", i == 0 ? '*' : '+',
                            address, offset, offset + 1000);
        }
        return std::make_shared<const ClockTruth>(clock_truth(reports_in(capture), {}));
    }

    SourcesPanel m_panel{nullptr};
    std::array<std::shared_ptr<const ClockTruth>, 2> m_readings{reading(1), reading(2)};
    std::size_t m_next = 0;
};

void run_sources(benchmark::State& state, ManySources& sources) {
    for (auto iteration : state) {
        const double start = thread_seconds();
        sources.show_next();
        Window::paint();
        state.SetIterationTime(thread_seconds() - start);
    }
}

template <typename Subject>
void run_refresh(benchmark::State& state, Subject& subject) {
    Spent spent;
    for (auto iteration : state) {
        const auto start = Clock::now();
        const double processor_start = thread_seconds();
        subject.refresh();
        const double applied = thread_seconds();
        state.SetIterationTime(seconds_since(start));
        subject.paint();
        spent.main += applied - processor_start;
        spent.paint += thread_seconds() - applied;
    }
    if (!subject.synchronised())
        state.SkipWithError("the refresh did not find a synchronised daemon");
    spent.report(state);
}

int run(int argc, char** argv) {
    const PrivateTemporary temporary;
    const Daemon daemon(temporary.path());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    daemon.wait_until_synchronised();
    Plain plain(daemon);
    Window window(daemon);
    ManySources sources;
    benchmark::RegisterBenchmark("bare", [&](benchmark::State& state) { run_bare(state, daemon); })->UseManualTime();
    benchmark::RegisterBenchmark("refresh", [&](benchmark::State& state) {
        run_refresh(state, plain);
    })->UseManualTime();
    benchmark::RegisterBenchmark("window", [&](benchmark::State& state) {
        run_refresh(state, window);
    })->UseManualTime();
    benchmark::RegisterBenchmark("sources", [&](benchmark::State& state) {
        run_sources(state, sources);
    })->UseManualTime();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace
} // namespace tickervantage::bench

int main(int argc, char** argv) {
    return tickervantage::bench::run(argc, argv);
}
