// The configuration editors: any number of documents, one of the live configuration, and the files opened last. Main
// thread.
#pragma once

#include "config/config_editor_window.h"
#include "platform/default_settings.h"
#include "platform/paths.h"

#include <QStringList>

#include <functional>
#include <list>
#include <string>

namespace tickervantage {

// All of it outlives the windows, and the main thread outlives the queue.
struct ConfigWindowsParts {
    Execute& execute;
    DispatchQueueSerial& queue; // "net.brisklane.config"
    MainThread& main_thread;
    DefaultSettings& settings;
    Paths paths;
    std::function<std::string()> config_path; // of the live configuration
    InstallConfiguration install;             // may be missing
    std::function<void(const QString& sentence)> say;
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

    [[nodiscard]] QStringList recent() const;

    [[nodiscard]] bool is_open() const { return !m_editors.empty(); } // an editor

    // Puts lines into the editor used last. False: none is open.
    [[nodiscard]] bool insert(const QString& lines);

private:
    [[nodiscard]] ConfigEditorParts editor_parts() const;
    [[nodiscard]] ConfigEditorRequests requests();
    [[nodiscard]] ConfigEditor* make_editor();
    [[nodiscard]] ConfigEditor::Opened when_opened(ConfigEditor* editor);
    void remember(const QString& path);

    ConfigWindowsParts m_parts;
    std::list<ConfigEditor*> m_editors; // open; the one used last stands last
    int m_untitled = 0;
};

} // namespace tickervantage
