// How long the main thread is deaf while a large configuration is worked on in the editor.
//
//   bench_editor LINES
//
// Opens a configuration of so many lines, scrolls through it, types, finds, replaces every other line's word, undoes
// and redoes that, takes a copy of all for the clipboard, pastes it over the whole, undoes, removes everything, saves
// and closes. Prints a line of JSON for each: the worst lateness of a 5 ms timer in the event loop (`stall_ms`), the
// most processor time of the main thread between two ticks (`busy_ms`), and the seconds it took.
//
// Runs on the display that the environment names, or offscreen with QT_QPA_PLATFORM=offscreen.
#include "bench/stall_meter.h"

#include "gui/editor/config_editor_window.h"
#include "gui/editor/config_find_bar.h"
#include "gui/editor/config_text.h"
#include "linux/kept_files.h"
#include "linux/posix_execute.h"
#include "linux/posix_path_probes.h"
#include "linux/posix_user_files.h"
#include "linux/private_temporary.h"
#include "linux/serial_queue.h"
#include "qt/event_loop.h"
#include "support/memory_stores.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>

namespace tickervantage::bench {
namespace {

std::string write_configuration(const std::string& folder, int lines) {
    const std::string path = folder + "chrony.conf";
    std::ofstream file(path);
    for (int line = 0; line < lines; ++line)
        if (line % 4 == 3)
            file << "# a comment about the server above, number " << line << '\n';
        else
            file << "server host" << line << ".example.net iburst minpoll 6 maxpoll 10\n";
    return path;
}

class Stage {
public:
    explicit Stage(const std::string& folder)
        : m_kept(std::make_shared<PosixKeptFiles>(folder + "unsaved")), m_keeper(m_kept, m_queue, m_logger),
          m_editor(std::make_unique<ConfigEditor>(
              ConfigEditorParts{.queue = m_queue,
                                .main_thread = m_main_thread,
                                .check = {.syntax = {.execute = m_execute,
                                                     .chronyds = [] { return std::vector<std::string>(); },
                                                     .files = m_files,
                                                     .temporary = folder},
                                          .probes = m_probes},
                                .files = m_files,
                                .general = m_general,
                                .keeper = m_keeper,
                                .recent = m_recent,
                                .default_config = {}})) {
        m_editor->resize(1200, 800);
        m_editor->show();
    }
    [[nodiscard]] ConfigEditor& editor() { return *m_editor; }
    [[nodiscard]] ConfigText& text() { return *m_editor->findChild<ConfigText*>(); }
    void close() { m_editor.reset(); }

    // Does it, and waits until the window has settled.
    void measure(const char* name, const std::function<void()>& act) {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        m_stall.restart();
        const auto start = Clock::now();
        act();
        wait();
        const nlohmann::json line{{"act", name},
                                  {"stall_ms", m_stall.stall_ms()},
                                  {"busy_ms", m_stall.busy_ms()},
                                  {"seconds", seconds_since(start)}};
        std::printf("%s\n", line.dump().c_str());
        std::fflush(stdout);
    }
    // Some beats longer than the text is busy, for what is painted afterwards.
    void wait() {
        const auto settled = [this] {
            return !m_editor || (!text().is_busy() && !m_waiting);
        };
        do {
            const auto start = Clock::now();
            while (seconds_since(start) < 0.1)
                QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        } while (!settled());
    }
    // Until the editor has told that a load or a save ended.
    void await_settled() {
        m_waiting = true;
        QObject::connect(m_editor.get(), &ConfigEditor::settled, m_editor.get(), [this] { m_waiting = false; });
    }

private:
    QtMainThread m_main_thread;
    PosixExecute m_execute;
    PosixFiles m_files;
    PosixPathProbes m_probes;
    testing::MemoryLogger m_logger;
    testing::MemorySettingsStore m_store;
    DefaultSettings m_settings{m_store};
    RecentFiles m_recent{m_settings, settings::recent_configurations};
    PreferencesGeneral m_general;
    SerialQueue m_queue{"net.brisklane.config"};
    std::shared_ptr<PosixKeptFiles> m_kept;
    EditKeeper m_keeper;
    std::unique_ptr<ConfigEditor> m_editor;
    StallMeter m_stall;
    bool m_waiting = false;
};

void type(ConfigText& text, int key, Qt::KeyboardModifiers modifiers, const QString& typed) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, typed);
    QApplication::sendEvent(&text, &press);
    QCoreApplication::processEvents();
}

void work(Stage& stage, const std::string& path) {
    ConfigText& text = stage.text();
    auto* find = stage.editor().findChild<FindBar*>();
    const auto key = [&text](int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& typed = {}) {
        type(text, code, modifiers, typed);
    };
    stage.measure("open", [&] {
        stage.await_settled();
        stage.editor().open_path(QString::fromStdString(path));
    });
    stage.measure("scroll", [&] {
        auto* bar = text.verticalScrollBar();
        for (int i = 0; i <= 200; ++i) {
            bar->setValue(bar->maximum() / 200 * i);
            QCoreApplication::processEvents();
        }
    });
    stage.measure("type", [&] {
        for (int i = 0; i < 200; ++i)
            key(Qt::Key_A, Qt::NoModifier, i % 40 == 0 ? QStringLiteral("\r") : QStringLiteral("a"));
    });
    stage.measure("find", [&] {
        stage.editor().findChild<QLineEdit*>(QStringLiteral("find"))->setText(QStringLiteral("IBURST"));
        for (int i = 0; i < 20; ++i) {
            find->find_next();
            QCoreApplication::processEvents();
        }
    });
    stage.editor().findChild<QLineEdit*>(QStringLiteral("find"))->setText(QStringLiteral("number"));
    stage.editor().findChild<QLineEdit*>(QStringLiteral("replacement"))->setText(QStringLiteral("counted as"));
    stage.measure("replace all", [&] { find->replace_all(); });
    stage.measure("undo replace all", [&] { key(Qt::Key_Z, Qt::ControlModifier); });
    stage.measure("redo replace all", [&] { key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); });
    stage.measure("select all", [&] { text.selectAll(); });
    stage.measure("copy", [&] { text.copy(); });
    stage.measure("paste over all", [&] { text.paste(); });
    stage.measure("undo paste", [&] { text.undo_step(); });
    stage.measure("keep a copy of the edit", [&] { stage.editor().keep_edit(); });
    stage.measure("save", [&] {
        stage.await_settled();
        stage.editor().save();
    });
    text.selectAll();
    stage.measure("remove all", [&] { key(Qt::Key_Delete); });
    stage.measure("undo remove all", [&] { text.undo_step(); });
    stage.measure("read anew", [&] {
        stage.await_settled();
        stage.editor().open_path(QString::fromStdString(path));
    });
    stage.measure("close", [&] { stage.close(); });
}

int run(int argc, char** argv) {
    const QApplication application(argc, argv);
    const int lines = argc == 2 ? std::atoi(argv[1]) : 0;
    if (lines < 1) {
        std::fprintf(stderr, "usage: bench_editor LINES\n");
        return 2;
    }
    const PrivateTemporary temporary;
    const std::string path = write_configuration(temporary.path(), lines);
    Stage stage(temporary.path());
    work(stage, path);
    return 0;
}

} // namespace
} // namespace tickervantage::bench

int main(int argc, char** argv) {
    return tickervantage::bench::run(argc, argv);
}
