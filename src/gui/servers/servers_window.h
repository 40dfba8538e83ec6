// The window with the user's own list of NTP servers.
//
// Every change is stored in its row and saved at once, on the queue; a failure is said and leaves the window as it is.
// A row that breaks a rule keeps the selection until it is put right or removed. When somebody else saved the list
// meanwhile, their version is kept beside ours, or simply shown when there was nothing of ours to save.
//
// The parts outlive the window, and the main thread outlives the queue. Main thread only.
#pragma once

#include "base/background.h"
#include "base/logger.h"
#include "base/shared_text.h"
#include "chrony/configuration/server_list.h"
#include "gui/servers/servers_controls.h"
#include "settings/preferences.h"

#include <QMainWindow>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tickervantage {

class GuardedSelection;
class ServerListModel;

struct ServersWindowParts {
    std::shared_ptr<SharedText> list;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    const PreferencesGeneral& general; // which name the installed chrony.conf
    Files& files;                      // used on the queue
    Logger& logger;
};

class ServersWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit ServersWindow(ServersWindowParts parts);

    void windowDidLoad(); // once, before the window is shown

    void enterText();                // a field was edited
    void ServerControl(int segment); // 0 adds, 1 removes
    void serverHelp();
    void undo_removal();
    void import_servers();
    void copy_lines();
    void insert_lines();

    void set_editor_open(bool is_open); // lines can be inserted

    [[nodiscard]] const std::vector<server_data>& servers() const { return m_servers; }

    // Waits until the list is on the disk: for the program's end.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience) { return wait_for(m_parts.queue, patience); }

Q_SIGNALS:
    void insert_wanted(const QString& lines); // into the editor

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void build_actions();
    void connect_controls();
    [[nodiscard]] bool has_current() const;
    [[nodiscard]] bool validate_current(); // says and selects what has to change
    [[nodiscard]] ServerProblem typed_problem() const;
    void selectionShouldChange(bool& may);
    void selectionDidChange();
    void add();
    void remove();
    void go_to(int row);
    void move_current(int by);
    void show_record();
    void show_problem(ServerProblem problem);
    void show_notice(const QString& text, bool retry = false);
    void log_selection(std::string_view moment) const;
    template <class Use>
    void read(Use use);
    void show_read(const FileReading& reading);
    void look_again();
    void show_changed(const FileReading& reading);
    void save();
    void show_saved(const Result<std::string>& saved);
    void show_imported(const std::string& path, const std::string& text);
    void update_buttons();

    ServersWindowParts m_parts;
    std::vector<server_data> m_servers;
    int m_currentindex = -1;
    std::vector<std::pair<int, server_data>> m_removed; // with their rows; the last one comes back first
    std::optional<std::string> m_made_from;             // the text on the disk that the rows were read from
    std::shared_ptr<std::atomic<unsigned>> m_saves = std::make_shared<std::atomic<unsigned>>(0); // asked for
    bool m_loaded = false;
    bool m_unsaved = false;
    bool m_failed = false; // the last save
    bool m_editor_is_open = false;
    ServersControls m_controls;
    ServerListModel* m_model = nullptr;
    GuardedSelection* m_selection = nullptr;
    Background m_background;
};

} // namespace tickervantage
