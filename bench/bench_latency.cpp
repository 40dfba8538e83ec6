// How long the main thread of the real window is deaf while chronyc misbehaves.
//
//   bench_latency slow|hang|lines|one-line|newlines ROUNDS
//   bench_latency texts
//
// The first form runs a refresh through a chronyc that takes 3 s, hangs until it is ended, or prints 100 MB in one of
// three shapes, while menus open and close. It prints a line of JSON a round: the worst lateness of a 5 ms timer in the
// window's event loop (`stall_ms`), the most processor time the main thread used between two of its ticks
// (`busy_ms`: what the stall would be on an idle machine), the worst lateness of a plain thread that sleeps 5 ms at a
// time meanwhile (`noise_ms`: what the machine adds), the seconds it took, how often the clock moved and menus opened.
// The second form shows texts of growing size in the output view and prints what each costs the main thread.
//
// Runs on the display that the environment names, or offscreen with QT_QPA_PLATFORM=offscreen.
#include "bench/cycle_parts.h"
#include "bench/stall_meter.h"

#include "app/application_menus.h"
#include "gui/main/command_output.h"
#include "gui/main/tickervantage_window.h"
#include "linux/private_temporary.h"
#include "qt/event_loop.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string_view>
#include <thread>

namespace tickervantage::bench {
namespace {

constexpr int longest_interval = 60; // s, between two readings

// What a chronyc does after it was asked for anything but its version.
const std::map<std::string_view, const char*> misbehaviours{
    {"slow", "sleep 3; echo 'Leap status     : Normal'"},
    {"hang", "exec sleep 1000"},
    {"lines", "yes 'a line of a report that goes on and on, as a report of chronyc would at most' | head -c 100000000"},
    {"one-line", "yes 'word' | tr '\\n' ' ' | head -c 100000000"},
    {"newlines", "yes '' | head -c 100000000"}};

std::string write_chronyc(const std::string& folder, const char* misbehaviour) {
    const std::string path = folder + "chronyc";
    std::ofstream(path)
        << "#!/bin/sh\ncase \"$*\" in *-v*) echo 'chronyc (chrony) version 4.3 (+CMDMON)'; exit;; esac\n"
        << misbehaviour << '\n';
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
}

// The lateness of a thread that does nothing else.
class NoiseMeter {
public:
    NoiseMeter() : m_thread([this](const std::stop_token& stop) { sleep_until(stop); }) {}
    void restart() { m_worst_ms = 0; }
    [[nodiscard]] double worst_ms() const { return m_worst_ms; }

private:
    void sleep_until(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            const auto start = Clock::now();
            std::this_thread::sleep_for(beat);
            m_worst_ms = std::max<double>(m_worst_ms, 1000 * seconds_since(start) - beat_ms);
        }
    }
    std::atomic<double> m_worst_ms = 0;
    std::jthread m_thread; // last: it uses the above
};

// A hand on the mouse: opens a menu, closes it, opens the next.
class MenuHand {
public:
    explicit MenuHand(const TickervantageWindow& window)
        : m_window(window), m_commands(window.findChild<QComboBox*>(QStringLiteral("commandMenu"))) {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { move(); });
        m_timer.start(std::chrono::milliseconds(150));
    }
    [[nodiscard]] int opened() const { return m_opened; }

private:
    void move() {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
            return;
        }
        const auto menus = m_window.menuBar()->actions();
        const auto next = m_opened++ % (menus.size() + 1);
        if (next == menus.size())
            m_commands->showPopup();
        else
            menus.at(next)->menu()->popup(m_window.mapToGlobal(QPoint(20, 40)));
    }
    const TickervantageWindow& m_window;
    QComboBox* m_commands;
    QTimer m_timer;
    int m_opened = 0;
};

class TickCount {
public:
    explicit TickCount(const TickervantageWindow& window)
        : m_label(window.findChild<QLabel*>(QStringLiteral("localTime"))) {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(std::chrono::milliseconds(20));
    }
    [[nodiscard]] int ticks() const { return m_ticks; }

private:
    void look() {
        if (m_label->text() == m_last)
            return;
        m_last = m_label->text();
        ++m_ticks;
    }
    QLabel* m_label;
    QString m_last;
    QTimer m_timer;
    int m_ticks = -1; // the first look only takes note
};

void live_for(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

class Stage {
public:
    explicit Stage(const std::string& chronyc)
        : m_parts(m_main_thread, m_timer, chronyc, chronyc), m_window(m_parts.parts(), m_parts.options({})),
          m_menus(build_application_menus(&m_window)) {
        m_window.windowDidLoad();
        m_window.cycle().intervalChanged(longest_interval); // no reading but those asked for
        m_timer.start();
        m_window.show();
    }
    [[nodiscard]] TickervantageWindow& window() { return m_window; }

    void refresh() {
        m_window.cycle().refresh();
        wait();
        constexpr std::chrono::milliseconds time_to_paint{1200};
        live_for(time_to_paint);
    }
    void wait() {
        while (m_window.cycle().reading())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    void blank() {
        m_window.show_output("-");
        QCoreApplication::processEvents();
    }

private:
    QtMainThread m_main_thread;
    QtMasterTimer m_timer;
    CycleParts m_parts;
    TickervantageWindow m_window;
    ApplicationMenus m_menus;
};

int misbehave(const char* misbehaviour, int rounds) {
    const PrivateTemporary temporary;
    Stage stage(write_chronyc(temporary.path(), misbehaviour));
    stage.wait(); // the start-up is measured elsewhere
    stage.blank();
    StallMeter stall;
    NoiseMeter noise;
    for (int round = 0; round < rounds; ++round) {
        stage.blank(); // the same text again would cost nothing
        const MenuHand hand(stage.window());
        const TickCount clock(stage.window());
        live_for(beat * 4);
        stall.restart();
        noise.restart();
        const auto start = Clock::now();
        stage.refresh();
        const nlohmann::json line{{"stall_ms", stall.stall_ms()}, {"busy_ms", stall.busy_ms()},
                                  {"noise_ms", noise.worst_ms()}, {"seconds", seconds_since(start)},
                                  {"clock_ticks", clock.ticks()}, {"menus", hand.opened()}};
        std::printf("%s\n", line.dump().c_str());
        std::fflush(stdout);
    }
    return 0;
}

int show_texts() {
    const PrivateTemporary temporary;
    Stage stage(write_chronyc(temporary.path(), misbehaviours.at("hang")));
    live_for(std::chrono::seconds(1));
    const std::map<std::string, std::string> patterns{
        {"lines of 78", std::string(78, 'x') + "\n"}, {"one line", "word "}, {"newlines", "\n"}, {"tabs", "\t"}};
    constexpr std::size_t smallest = 16U << 10U;
    constexpr std::size_t largest = 1U << 20U;
    for (const auto& [name, pattern] : patterns) {
        for (std::size_t size = smallest; size <= largest; size *= 4) {
            std::string text;
            while (text.size() < size)
                text += pattern;
            stage.blank();
            const double start = thread_seconds();
            stage.window().show_output(text);
            QCoreApplication::processEvents();
            const nlohmann::json line{
                {"text", name}, {"kib", size / 1024}, {"busy_ms", 1000 * (thread_seconds() - start)}};
            std::printf("%s\n", line.dump().c_str());
        }
    }
    return 0;
}

int run(int argc, char** argv) {
    const QApplication application(argc, argv);
    const std::string_view verb = argc > 1 ? argv[1] : "";
    if (verb == "texts")
        return show_texts();
    const auto found = misbehaviours.find(verb);
    if (found == misbehaviours.end() || argc != 3) {
        std::fprintf(stderr, "usage: bench_latency slow|hang|lines|one-line|newlines ROUNDS | texts\n");
        return 2;
    }
    return misbehave(found->second, std::max(1, std::atoi(argv[2])));
}

} // namespace
} // namespace tickervantage::bench

int main(int argc, char** argv) {
    return tickervantage::bench::run(argc, argv);
}
