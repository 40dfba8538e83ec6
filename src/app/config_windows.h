// The configuration editors: any number of documents, one of the live configuration, and the files opened last. Main
// thread.
#pragma once

#include "base/logger.h"
#include "base/path_probes.h"
#include "base/paths.h"
#include "base/user_files.h"
#include "chrony/configuration/kept_edit.h"
#include "gui/editor/config_editor_window.h"
#include "settings/default_settings.h"

#include <QObject>
#include <QPointer>

#include <list>
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
    Files& files;
    const PreferencesGeneral& general; // which name the live configuration
    Logger& logger;
    std::string daemon_user = {}; // of a demonstration's chronyd
    bool can_install = false;     // somebody answers to install_wanted
    QWidget* window = nullptr;    // that asks questions
};

class ConfigWindows : public QObject {
    Q_OBJECT
public:
    explicit ConfigWindows(ConfigWindowsParts parts);
    ~ConfigWindows() override;
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

    [[nodiscard]] RecentFiles& recent() { return m_recent; }

    [[nodiscard]] bool is_open() const { return !m_editors.empty(); } // an editor

    void insert(const QString& lines); // into the editor used last, if one is open

Q_SIGNALS:
    void is_open_changed(bool is_open);
    void not_opened(const QString& sentence);
    void file_dropped(const QString& path);                         // on an editor, of any kind
    void install_wanted(ConfigEditor* editor, const QString& text); // the editor hears how it ended

private:
    [[nodiscard]] ConfigEditorParts editor_parts();
    [[nodiscard]] ConfigEditor* make_editor();
    void connect_editor(ConfigEditor* editor);
    void forget(ConfigEditor* editor);
    void ask_about(const std::vector<LeftEdit>& left);
    void open_kept(const LeftEdit& left);

    ConfigWindowsParts m_parts;
    EditKeeper m_keeper;
    RecentFiles m_recent;
    std::list<ConfigEditor*> m_editors; // open; the one used last stands last
    int m_untitled = 0;
    int m_documents = 0;                // ever opened
    QPointer<ConfigEditor> m_installed; // was asked last for the installed configuration
    Background m_background;
};

} // namespace tickervantage
