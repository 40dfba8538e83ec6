#include "app/config_windows.h"

#include "app/bring_to_front.h"
#include "gui/editor/config_sheets.h"
#include "linux/environment.h"
#include "linux/kept_files.h"
#include "settings/settings_catalogue.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configwindows)
};

QString title_of(const KeptEdit& edit) {
    return QString::fromStdString(edit.path.empty() || edit.is_installed_config ? edit.title : edit.path);
}

} // namespace

ConfigWindows::ConfigWindows(ConfigWindowsParts parts)
    : m_parts(std::move(parts)),
      m_keeper(std::make_shared<PosixKeptFiles>(m_parts.paths.state.empty() ? "" : m_parts.paths.state + "/unsaved"),
               m_parts.edit_queue, m_parts.logger),
      m_recent(m_parts.settings, settings::recent_configurations), m_background(m_parts.main_thread) {
    connect(&m_recent, &RecentFiles::chosen, this, &ConfigWindows::open_path);
}

ConfigWindows::~ConfigWindows() {
    for (auto* editor : std::exchange(m_editors, {}))
        delete editor;
}

ConfigEditorParts ConfigWindows::editor_parts() {
    return {.queue = m_parts.queue,
            .main_thread = m_parts.main_thread,
            .check = {.syntax = {.execute = m_parts.execute,
                                 .chronyds =
                                     [bundled = m_parts.paths.bundle_program("chronyd")] {
                                         return find_chronyds(process_environment("PATH").value_or(""), bundled);
                                     },
                                 .files = m_parts.files,
                                 .temporary = m_parts.paths.temporary},
                      .probes = m_parts.probes,
                      .daemon_user = m_parts.daemon_user},
            .files = m_parts.files,
            .general = m_parts.general,
            .keeper = m_keeper,
            .document = ++m_documents,
            .recent = m_recent,
            .can_install = m_parts.can_install,
            .default_config = m_parts.paths.bundle_resource("chrony.conf")};
}

ConfigEditor* ConfigWindows::make_editor() {
    auto* editor = new ConfigEditor(editor_parts());
    editor->setAttribute(Qt::WA_DeleteOnClose);
    m_editors.push_back(editor);
    connect_editor(editor);
    Q_EMIT is_open_changed(true);
    return editor;
}

void ConfigWindows::connect_editor(ConfigEditor* editor) {
    connect(editor, &ConfigEditor::windowWillClose, this, [this, editor] { forget(editor); });
    connect(editor, &ConfigEditor::windowDidBecomeMain, this, [this, editor] {
        m_editors.remove(editor);
        m_editors.push_back(editor);
    });
    connect(editor, &ConfigEditor::opened, this, [editor] { bring_to_front(*editor); });
    connect(editor, &ConfigEditor::not_opened, this, [this, editor](const QString& sentence) {
        forget(editor); // a document that does not open leaves no window behind
        editor->deleteLater();
        const QString hint =
            //: alert below the reason why the installed configuration does not open
            Texts::tr(
                "Its path stands in the preferences. Where chrony is not installed yet, the main window offers to "
                "install it.");
        Q_EMIT not_opened(editor == m_installed ? sentence + QStringLiteral("\n\n") + hint : sentence);
    });
    connect(editor, &ConfigEditor::install_wanted, this,
            [this, editor](const QString& text) { Q_EMIT install_wanted(editor, text); });
    connect(editor, &ConfigEditor::new_document_wanted, this, &ConfigWindows::new_document);
    connect(editor, &ConfigEditor::open_document_wanted, this, &ConfigWindows::open_document);
    connect(editor, &ConfigEditor::open_installed_wanted, this, &ConfigWindows::show_installed);
    connect(editor, &ConfigEditor::path_wanted, this, &ConfigWindows::open_path);
    connect(editor, &ConfigEditor::file_dropped, this, &ConfigWindows::file_dropped);
}

void ConfigWindows::forget(ConfigEditor* editor) {
    m_editors.remove(editor);
    Q_EMIT is_open_changed(is_open());
}

void ConfigWindows::new_document() {
    ConfigEditor* editor = make_editor();
    //: title of a new configuration; %1 is a number
    editor->new_document(Texts::tr("Untitled %1").arg(++m_untitled));
}

void ConfigWindows::open_document() {
    auto* dialog =
        //: title of the dialog that opens a configuration
        new QFileDialog(QApplication::activeWindow(), Texts::tr("Open Configuration"),
                        QFileInfo(QString::fromStdString(m_parts.general.config)).path());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &ConfigWindows::open_path);
    dialog->open();
}

void ConfigWindows::open_path(const QString& path) {
    const auto open = std::ranges::find_if(
        m_editors, [&](const auto* editor) { return !editor->is_installed_config() && editor->path() == path; });
    if (open != m_editors.end())
        return bring_to_front(**open);
    make_editor()->open_path(path);
}

// An open copy of it is read anew, unless it was edited.
void ConfigWindows::show_installed() {
    const auto open = std::ranges::find_if(m_editors, &ConfigEditor::is_installed_config);
    ConfigEditor* editor = open == m_editors.end() ? make_editor() : *open;
    m_installed = editor;
    if (editor->isWindowModified())
        bring_to_front(*editor);
    else
        editor->open_installed();
}

void ConfigWindows::offer_kept_edits() {
    m_keeper.read_left(m_background, [this](const std::vector<LeftEdit>& left) {
        if (!left.empty())
            ask_about(left);
    });
}

void ConfigWindows::ask_about(const std::vector<LeftEdit>& left) {
    QStringList titles;
    for (const auto& one : left)
        titles.append(title_of(one.edit));
    const auto answer = [this, left](KeptChoice choice) {
        for (const auto& one : left) {
            if (choice == KeptChoice::open)
                open_kept(one);
            else if (choice == KeptChoice::discard)
                m_keeper.remove(one.path);
        }
    };
    ask_about_kept_edits(m_parts.window, titles, m_background.if_alive(answer));
}

void ConfigWindows::open_kept(const LeftEdit& left) {
    ConfigEditor* editor = make_editor();
    m_keeper.adopt(left.path, m_documents);
    editor->open_kept(left.edit);
}

bool ConfigWindows::finish() {
    constexpr std::chrono::seconds patience{5};
    for (auto* editor : m_editors)
        editor->keep_edit();
    return m_keeper.finish(patience);
}

void ConfigWindows::insert(const QString& lines) {
    if (m_editors.empty())
        return;
    m_editors.back()->insert_lines(lines);
    bring_to_front(*m_editors.back());
}

} // namespace tickervantage
