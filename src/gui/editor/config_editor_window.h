// A document window for a chrony.conf: edit it, let chronyd check it, install it.
//
// Install is possible from a passed check until the next edit. Whatever waits for the disk or for chronyd runs on the
// queue and comes back to the main thread; an answer about a text that was edited meanwhile is dropped. Once nothing is
// typed for a moment, the text is checked by itself, which changes nothing but what is underlined and said. Questions
// are sheets of the window. A document that cannot be saved stays open and modified, and so does the live configuration
// until what was edited is installed. Of one with unsaved changes a copy is kept, some seconds old at most, until it is
// saved or the changes are given up. Main thread only.
//
// The parts outlive the window, and the main thread outlives the queue.
#pragma once

#include "base/background.h"
#include "base/failure.h"
#include "chrony/configuration/config_document.h"
#include "chrony/configuration/configuration_check.h"
#include "chrony/configuration/kept_edit.h"
#include "gui/common/recent_files.h"
#include "gui/editor/check_image.h"
#include "gui/editor/config_controls.h"
#include "gui/editor/config_menus.h"
#include "settings/preferences.h"

#include <QMainWindow>
#include <QTimer>

#include <string>

class QMenu;

namespace tickervantage {

struct ConfigEditorParts {
    DispatchQueueSerial& queue; // one for all editors: they share a temporary file
    MainThread& main_thread;
    ConfigurationCheckParts check;
    Files& files;                      // used on the queue
    const PreferencesGeneral& general; // which name the live configuration
    EditKeeper& keeper;
    int document = 0; // by which the keeper knows it
    RecentFiles& recent;
    bool can_install = false;   // somebody answers to install_wanted
    std::string default_config; // the file that a new document starts with
};

class ConfigEditor : public QMainWindow {
    Q_OBJECT

public:
    explicit ConfigEditor(ConfigEditorParts parts);
    ~ConfigEditor() override;
    ConfigEditor(const ConfigEditor&) = delete;
    ConfigEditor& operator=(const ConfigEditor&) = delete;

    // Each ends in one of the signals `opened` and `not_opened`.
    void new_document(const QString& title);
    void open_path(const QString& path);
    void open_installed(); // a copy of the live configuration
    void open_kept(KeptEdit edit);

    // Keeps a copy now, of what is not saved: for the program's end.
    void keep_edit();

    [[nodiscard]] const QString& path() const { return m_path; } // empty: not saved yet
    [[nodiscard]] bool is_installed_config() const { return isInstalledConfig; }
    void insert_lines(const QString& lines); // before the line with the cursor

    void check();
    void check_quietly(); // underlines a line with a mistake and says what it is; asked for by itself after edits
    void install();
    void ShowHelpConfig();
    void save();
    void save_as();
    void save_to(const QString& path);

    void show_installation(const Result<>& done); // the answer to install_wanted

Q_SIGNALS:
    void opened();
    void not_opened(const QString& sentence); // of a window that was not shown yet; others say so themselves
    void install_wanted(const QString& text); // as the live configuration
    // What goes beyond one document. The second asks which.
    void new_document_wanted();
    void open_document_wanted();
    void open_installed_wanted();
    void path_wanted(const QString& path);
    void file_dropped(const QString& path); // of any kind
    void windowDidBecomeMain();
    void windowWillClose();
    void settled(); // a text was loaded, or a check, save or installation came to its end

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum class AfterSaving : unsigned char { stay, close, install };
    struct Loaded;

    void build_actions();
    void connect_controls();
    void build_included_menu();
    void list_included(QMenu* menu);
    void offer_to_install();
    void refuse_part();
    void say_text_changed();
    template <class Read, class Then>
    void load_with(Read read, Then then);
    void show_loaded(const Loaded& loaded);
    void setisInstalledConfig(bool value);
    void textDidChange();
    void show_modified();
    void drop_edit();
    [[nodiscard]] QString copy_of_installed() const; // path of it
    void show_image(CheckImage image);
    void show_title(const QString& title);
    void say(const QString& message);
    void show_warnings(const std::vector<ConfigurationWarning>& warnings);
    void apply(const ConfigurationCheck& check);
    void show_mistake(const ConfigError& error);
    void save_then(AfterSaving next);
    void save_as_then(AfterSaving next);
    void write_to(const QString& path, bool overwrite, AfterSaving next);
    void apply_save(const QString& path, int edits, const SaveAnswer& answer, AfterSaving next);
    void resolve_conflict(const QString& path, AfterSaving next);
    void save_and_install();
    void hand_over_text();
    void close_after_question();

    ConfigEditorParts m_parts;
    ConfigControls m_controls;
    ConfigActions m_actions;
    bool isInstalledConfig = false;
    bool m_saving = false;
    bool m_discarded = false; // closes without a further question
    bool m_closing = false;   // once it is saved
    bool m_restoring = false; // a kept edit is being loaded
    bool m_edit_kept = false;
    QTimer m_keep_timer;
    QTimer m_quiet_timer;
    QString m_path;
    LineEnds m_line_ends = LineEnds::unix_style;
    std::size_t m_stamp = 0;   // of the file, as last read or saved
    int m_edits_installed = 0; // when the text was handed over
    Background m_background;
};

} // namespace tickervantage
