// The configuration editors: any number of documents, one of the live configuration, and the files opened last. Main
// thread.
#pragma once

#include "base/path_probes.h"
#include "base/paths.h"
#include "chrony/configuration/kept_edit.h"
#include "gui/editor/config_editor_window.h"
#include "settings/default_settings.h"

#include <QStringList>

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

// All of it outlives the windows, and the main thread outlives the queue.
struct ConfigWindowsParts {
    Execute& execute;
    DispatchQueueSerial& queue;      // "net.brisklane.config"
    DispatchQueueSerial& edit_queue; // for copies of edits, which a slow check must not hold up
    MainThread& main_thread;
    DefaultSettings& settings;
    Paths paths;
    PathProbes& probes;
    std::function<std::string()> config_path; // of the live configuration
    InstallConfiguration install;             // may be missing
    std::function<void(const QString& sentence)> say;
    std::function<QWidget*()> window;                     // that asks questions; may be missing
    std::function<void(const std::string& sentence)> log; // any thread
};

class ConfigWindows {
public:
    explicit ConfigWindows(ConfigWindowsParts parts);
    ~ConfigWindows();
    ConfigWindows(const ConfigWindows&) = delete;
    ConfigWindows& operator=(const ConfigWindows&) = delete;

    void new_document();
    void open_document(); // asks which
    void open_path(const QString& path);
    void show_installed();

    // Asks whether edits that earlier runs left behind shall be opened. Comes back at once.
    void offer_kept_edits();

    // Waits for the disk: for the program's end. False when what is not saved could not be kept in time.
    [[nodiscard]] bool finish();

    [[nodiscard]] QStringList recent() const;

    [[nodiscard]] bool is_open() const { return !m_editors.empty(); } // an editor

    // Puts lines into the editor used last. False: none is open.
    [[nodiscard]] bool insert(const QString& lines);

private:
    [[nodiscard]] ConfigEditorParts editor_parts();
    [[nodiscard]] ConfigEditorRequests requests();
    [[nodiscard]] ConfigEditor* make_editor();
    [[nodiscard]] ConfigEditor::Opened when_opened(ConfigEditor* editor);
    void remember(const QString& path);
    void ask_about(const std::vector<LeftEdit>& left);
    void open_kept(const LeftEdit& left);

    ConfigWindowsParts m_parts;
    EditKeeper m_keeper;
    std::list<ConfigEditor*> m_editors; // open; the one used last stands last
    int m_untitled = 0;
    int m_documents = 0;                    // ever opened
    std::shared_ptr<ConfigWindows*> m_self; // work on its way back finds out through it that the windows have gone
};

} // namespace tickervantage
