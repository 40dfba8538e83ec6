// A document window for a chrony.conf: edit it, let chronyd check it, install it.
//
// Install is possible from a passed check until the next edit. Whatever waits for the disk or for chronyd runs on the
// queue and comes back to the main thread; an answer about a text that was edited meanwhile is dropped. Questions are
// sheets of the window. A document that cannot be saved stays open and modified. Of one with unsaved changes a copy is
// kept, some seconds old at most, until it is saved or the changes are given up. Main thread only.
//
// The parts outlive the window, and the main thread outlives the queue.
#pragma once

#include "base/dispatch.h"
#include "chrony/configuration/config_document.h"
#include "chrony/configuration/configuration_check.h"
#include "chrony/configuration/kept_edit.h"
#include "gui/editor/check_image.h"
#include "gui/editor/config_controls.h"
#include "gui/editor/config_menus.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <utility>

class QMenu;

namespace tickervantage {

struct InstallOutcome {
    bool installed = false;
    std::string sentence; // why not
};

// Makes the text the live configuration, and comes back on the main thread.
using InstallConfiguration = std::function<void(std::string text, std::function<void(InstallOutcome)> done)>;

struct ConfigEditorParts {
    DispatchQueueSerial& queue; // one for all editors: they share a temporary file
    MainThread& main_thread;
    ConfigurationCheckParts check;
    DocumentFiles files;
    std::function<std::string()> config_path; // of the live configuration, as the preferences have it
    InstallConfiguration install;             // may be missing
    std::function<void(const QString& address)> open_page;
    std::string default_config; // the file that a new document starts with
    // Both may be missing. The first calls `make` on a queue.
    std::function<void(std::function<KeptEdit()> make)> keep_edit;
    std::function<void()> drop_edit;
};

// What goes beyond one document. Each may be missing.
struct ConfigEditorRequests {
    std::function<void()> new_document;
    std::function<void()> open_document; // asks which
    std::function<void(const QString& path)> open_path;
    std::function<void()> open_installed;
    std::function<QStringList()> recent;
    std::function<void(const QString& path)> remember; // a file that was opened or saved
};

class ConfigEditor : public QMainWindow {
    Q_OBJECT

public:
    // Gets one sentence when the document did not open, none when it did.
    using Opened = std::function<void(const QString& sentence)>;

    ConfigEditor(ConfigEditorParts parts, ConfigEditorRequests requests);
    ~ConfigEditor() override;
    ConfigEditor(const ConfigEditor&) = delete;
    ConfigEditor& operator=(const ConfigEditor&) = delete;

    void new_document(const QString& title, const Opened& opened);
    void open_path(const QString& path, const Opened& opened);
    void open_installed(const Opened& opened); // a copy of the live configuration
    void open_kept(KeptEdit edit, const Opened& opened);

    // Keeps a copy now, of what is not saved: for the program's end.
    void keep_edit();

    [[nodiscard]] const QString& path() const { return m_path; } // empty: not saved yet
    [[nodiscard]] bool is_installed_config() const { return isInstalledConfig; }
    void insert_lines(const QString& lines); // before the line with the cursor

    void check();
    void install();
    void ShowHelpConfig();
    void save();
    void save_as();
    void save_to(const QString& path);

Q_SIGNALS:
    void windowDidBecomeMain();
    void windowWillClose();
    void settled(); // a text was loaded, or a check, save or installation came to its end

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    using Saved = std::function<void(bool saved)>;
    struct Loaded;

    void build_actions();
    void connect_controls();
    void build_included_menu();
    void list_included(QMenu* menu);
    void unless_included(const std::function<void()>& install);
    // The answer of the work comes back to `then`, unless the window has gone.
    template <class WorkOnQueue, class Then>
    void in_background(WorkOnQueue work, Then then) {
        m_parts.queue.async([work = std::move(work), then = std::move(then), &main_thread = m_parts.main_thread,
                             self = std::weak_ptr(m_self)]() mutable {
            const auto answer = std::make_shared<decltype(work())>(work());
            main_thread.main_async([answer, then, self] {
                if (self.lock())
                    then(*answer);
            });
        });
    }
    void load_with(std::function<Loaded()> read, std::function<void(bool loaded)> then, const Opened& opened);
    void show_loaded(const Loaded& loaded);
    void setisInstalledConfig(bool value);
    void textDidChange();
    void show_modified();
    void drop_edit();
    [[nodiscard]] QString copy_of_installed() const; // path of it
    void when_ready(const std::function<void()>& act);
    void show_image(CheckImage image);
    void show_title(const QString& title);
    void say(const QString& message);
    void show_warnings(const std::vector<ConfigurationWarning>& warnings);
    void apply(const ConfigurationCheck& check);
    void save_then(const Saved& then);
    void save_as_then(const Saved& then);
    void write_to(const QString& path, bool overwrite, const Saved& then);
    void apply_save(const QString& path, int edits, const SaveAnswer& answer, const Saved& then);
    void resolve_conflict(const QString& path, const Saved& then);
    void save_and_install();
    void hand_over_text();
    void apply_install(const InstallOutcome& outcome, int edits);
    void close_after_question();

    ConfigEditorParts m_parts;
    ConfigEditorRequests m_requests;
    ConfigControls m_controls;
    ConfigActions m_actions;
    std::shared_ptr<ConfigEditor*> m_self; // work on its way back finds out through it that the window has gone
    bool isInstalledConfig = false;
    bool m_saving = false;
    bool m_discarded = false; // closes without a further question
    bool m_closing = false;   // once it is saved
    bool m_restoring = false; // a kept edit is being loaded
    bool m_edit_kept = false;
    QTimer m_keep_timer;
    QString m_path;
    LineEnds m_line_ends = LineEnds::unix_style;
    std::size_t m_stamp = 0; // of the file, as last read or saved
};

} // namespace tickervantage
