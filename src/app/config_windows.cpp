#include "app/config_windows.h"

#include "app/bring_to_front.h"
#include "app/desktop_links.h"
#include "gui/editor/config_sheets.h"
#include "linux/environment.h"
#include "linux/kept_files.h"
#include "linux/small_file.h"
#include "settings/settings_catalogue.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr qsizetype MOST_RECENT_FILES = 10;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configwindows)
};

FoundFile read_file(const std::string& path, std::size_t limit) {
    SmallFile file = read_small_file(path, limit);
    FoundFile found{.outcome = FoundFile::Outcome::unreadable, .bytes = std::move(file.bytes), .sentence = {}};
    if (file.outcome == SmallFile::Outcome::read)
        found.outcome = FoundFile::Outcome::read;
    else if (file.outcome == SmallFile::Outcome::missing)
        found.outcome = FoundFile::Outcome::missing;
    if (file.outcome != SmallFile::Outcome::read)
        found.sentence = path + " cannot be read: " + file.reason + ".";
    return found;
}

KeptFilesParts kept_files(const Paths& paths) {
    const auto files = std::make_shared<KeptFiles>(paths.state.empty() ? "" : paths.state + "/unsaved");
    return {.keep = [files](const std::string& name, std::string_view bytes,
                            std::string& sentence) { return files->keep(name, bytes, sentence); },
            .drop = [files](const std::string& name) { files->drop(name); },
            .left_behind =
                [files] {
                    std::vector<LeftFile> left;
                    files->visit_left([&left](const std::string& path, std::string bytes) {
                        left.push_back({path, std::move(bytes)});
                    });
                    return left;
                },
            .adopt = [files](const std::string& path, const std::string& name,
                             std::string& sentence) { return files->adopt(path, name, sentence); },
            .remove =
                [files](const std::string& path) {
                    files->remove(path);
                }};
}

QString title_of(const KeptEdit& edit) {
    return QString::fromStdString(edit.path.empty() || edit.is_installed_config ? edit.title : edit.path);
}

} // namespace

ConfigWindows::ConfigWindows(ConfigWindowsParts parts)
    : m_parts(std::move(parts)), m_keeper(kept_files(m_parts.paths), m_parts.edit_queue, m_parts.log),
      m_self(std::make_shared<ConfigWindows*>(this)) {}

ConfigWindows::~ConfigWindows() {
    for (auto* editor : std::exchange(m_editors, {}))
        delete editor;
}

ConfigEditorParts ConfigWindows::editor_parts() {
    const int document = ++m_documents;
    return {.queue = m_parts.queue,
            .main_thread = m_parts.main_thread,
            .check = {.syntax = {.execute = m_parts.execute,
                                 .chronyds =
                                     [bundled = m_parts.paths.bundle_program("chronyd")] {
                                         return find_chronyds(process_environment("PATH").value_or(""), bundled);
                                     },
                                 .replace_file = replace_small_file,
                                 .temporary = m_parts.paths.temporary},
                      .probes = m_parts.probes},
            .files = {.read = read_file, .replace = replace_small_file},
            .config_path = m_parts.config_path,
            .install = m_parts.install,
            .open_page = [](const QString& address) { (void)open_page(address); }, // silent by design
            .default_config = m_parts.paths.bundle_resource("chrony.conf"),
            .keep_edit = [this, document](auto make) { m_keeper.keep(document, std::move(make)); },
            .drop_edit =
                [this, document] {
                    m_keeper.drop(document);
                }};
}

ConfigEditorRequests ConfigWindows::requests() {
    return {.new_document = [this] { new_document(); },
            .open_document = [this] { open_document(); },
            .open_path = [this](const QString& path) { open_path(path); },
            .open_installed = [this] { show_installed(); },
            .recent = [this] { return recent(); },
            .remember =
                [this](const QString& path) {
                    remember(path);
                }};
}

ConfigEditor* ConfigWindows::make_editor() {
    auto* editor = new ConfigEditor(editor_parts(), requests());
    editor->setAttribute(Qt::WA_DeleteOnClose);
    m_editors.push_back(editor);
    QObject::connect(editor, &ConfigEditor::windowWillClose, editor, [this, editor] { m_editors.remove(editor); });
    QObject::connect(editor, &ConfigEditor::windowDidBecomeMain, editor, [this, editor] {
        m_editors.remove(editor);
        m_editors.push_back(editor);
    });
    return editor;
}

// A document that does not open leaves no window behind.
ConfigEditor::Opened ConfigWindows::when_opened(ConfigEditor* editor) {
    return [this, editor](const QString& sentence) {
        if (sentence.isEmpty()) {
            bring_to_front(*editor);
            return;
        }
        m_parts.say(sentence);
        if (editor->isVisible())
            return;
        m_editors.remove(editor);
        editor->deleteLater();
    };
}

void ConfigWindows::new_document() {
    ConfigEditor* editor = make_editor();
    //: title of a new configuration; %1 is a number
    editor->new_document(Texts::tr("Untitled %1").arg(++m_untitled), when_opened(editor));
}

void ConfigWindows::open_document() {
    auto* dialog =
        //: title of the dialog that opens a configuration
        new QFileDialog(QApplication::activeWindow(), Texts::tr("Open Configuration"),
                        QFileInfo(QString::fromStdString(m_parts.config_path())).path());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, [this](const QString& path) { open_path(path); });
    dialog->open();
}

void ConfigWindows::open_path(const QString& path) {
    const auto open = std::ranges::find_if(
        m_editors, [&](const auto* editor) { return !editor->is_installed_config() && editor->path() == path; });
    if (open != m_editors.end())
        return when_opened(*open)({});
    ConfigEditor* editor = make_editor();
    editor->open_path(path, when_opened(editor));
}

// An open copy of it is read anew, unless it was edited.
void ConfigWindows::show_installed() {
    const auto open = std::ranges::find_if(m_editors, &ConfigEditor::is_installed_config);
    ConfigEditor* editor = open == m_editors.end() ? make_editor() : *open;
    if (editor->isWindowModified())
        when_opened(editor)({});
    else
        editor->open_installed(when_opened(editor));
}

void ConfigWindows::offer_kept_edits() {
    m_keeper.read_left([&main_thread = m_parts.main_thread, self = std::weak_ptr(m_self)](std::vector<LeftEdit> left) {
        main_thread.main_async([left = std::move(left), self] {
            if (const auto windows = self.lock(); windows && !left.empty())
                (*windows)->ask_about(left);
        });
    });
}

void ConfigWindows::ask_about(const std::vector<LeftEdit>& left) {
    QStringList titles;
    for (const auto& one : left)
        titles.append(title_of(one.edit));
    ask_about_kept_edits(m_parts.window ? m_parts.window() : nullptr, titles,
                         [this, left, self = std::weak_ptr(m_self)](KeptChoice choice) {
                             if (!self.lock())
                                 return;
                             for (const auto& one : left) {
                                 if (choice == KeptChoice::open)
                                     open_kept(one);
                                 else if (choice == KeptChoice::discard)
                                     m_keeper.remove(one.path);
                             }
                         });
}

void ConfigWindows::open_kept(const LeftEdit& left) {
    ConfigEditor* editor = make_editor();
    m_keeper.adopt(left.path, m_documents);
    editor->open_kept(left.edit, when_opened(editor));
}

bool ConfigWindows::finish() {
    constexpr std::chrono::seconds patience{5};
    for (auto* editor : m_editors)
        editor->keep_edit();
    return m_keeper.finish(patience);
}

QStringList ConfigWindows::recent() const {
    QStringList paths;
    for (const auto& path : load(m_parts.settings, settings::recent_configurations))
        paths.append(QString::fromStdString(path));
    return paths;
}

void ConfigWindows::remember(const QString& path) {
    QStringList paths = recent();
    paths.removeAll(path);
    paths.prepend(path);
    std::vector<std::string> kept;
    for (const auto& one : paths.first(std::min(paths.size(), MOST_RECENT_FILES)))
        kept.push_back(one.toStdString());
    save(m_parts.settings, settings::recent_configurations, kept);
}

bool ConfigWindows::insert(const QString& lines) {
    if (m_editors.empty())
        return false;
    m_editors.back()->insert_lines(lines);
    when_opened(m_editors.back())({});
    return true;
}

} // namespace tickervantage
