#include "gui/editor/config_editor_window.h"

#include "gui/common/words.h"
#include "gui/editor/config_find_bar.h"
#include "gui/editor/config_sheets.h"
#include "gui/editor/config_text.h"
#include "qt/spoken.h"
#include "qt/text_scale.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTextBlock>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* help_page = "https://chrony-project.org/doc/4.3/chrony.conf.html";
constexpr QSize usual_size(820, 640);
constexpr std::chrono::seconds keep_after(3); // from the first edit that is not kept yet

// As "cp" does it, without a shell: the bytes, whatever they are.
int copy_file(const DocumentFiles& files, const std::string& from, const std::string& to, std::string& sentence) {
    FoundFile found = files.read(from, largest_document);
    if (found.outcome != FoundFile::Outcome::read) {
        sentence = std::move(found.sentence);
        return -1;
    }
    std::error_code ignored; // what cannot be removed cannot be replaced either
    std::filesystem::remove(to, ignored);
    return files.replace(to, found.bytes, sentence);
}

} // namespace

struct ConfigEditor::Loaded {
    int result = -1;
    DocumentText document;
    QString text;
    std::string sentence;

    void decode() { text = from_std(std::exchange(document.text, {})); }
};

ConfigEditor::ConfigEditor(ConfigEditorParts parts, ConfigEditorRequests requests)
    : m_parts(std::move(parts)), m_requests(std::move(requests)), m_self(std::make_shared<ConfigEditor*>(this)) {
    setObjectName(QStringLiteral("ConfigEditor"));
    auto* central = new QWidget(this);
    setCentralWidget(central);
    m_controls = build_config_controls(central);
    build_actions();
    build_included_menu();
    connect_controls();
    show_image(CheckImage::partially_available);
    resize(scaled(usual_size, *this));
}

ConfigEditor::~ConfigEditor() = default;

void ConfigEditor::build_actions() {
    ConfigText* text = m_controls.m_config;
    FindBar* find = m_controls.find_bar;
    m_actions = build_config_menus(this,
                                   {{"newDocument", m_requests.new_document},
                                    {"openDocument", m_requests.open_document},
                                    {"openInstalled", m_requests.open_installed},
                                    {"saveDocument",
                                     [this] {
                                         save();
                                     }},
                                    {"saveDocumentAs",
                                     [this] {
                                         save_as();
                                     }},
                                    {"closeEditor",
                                     [this] {
                                         close();
                                     }},
                                    {"undo",
                                     [text] {
                                         text->undo_step();
                                     }},
                                    {"redo",
                                     [text] {
                                         text->redo_step();
                                     }},
                                    {"cut",
                                     [text] {
                                         text->cut_selection();
                                     }},
                                    {"copy",
                                     [text] {
                                         text->copy();
                                     }},
                                    {"paste",
                                     [text] {
                                         text->paste();
                                     }},
                                    {"selectAll",
                                     [text] {
                                         text->selectAll();
                                     }},
                                    {"find",
                                     [find] {
                                         find->open();
                                     }},
                                    {"findNext",
                                     [find] {
                                         find->find_next();
                                     }},
                                    {"findPrevious",
                                     [find] {
                                         find->find_previous();
                                     }},
                                    {"complete",
                                     [text] {
                                         text->complete();
                                     }},
                                    {"zoomIn",
                                     [text] {
                                         text->zoom(1);
                                     }},
                                    {"zoomOut",
                                     [text] {
                                         text->zoom(-1);
                                     }},
                                    {"zoomBack",
                                     [text] {
                                         text->zoom_back();
                                     }},
                                    {"check",
                                     [this] {
                                         check();
                                     }},
                                    {"install",
                                     [this] {
                                         install();
                                     }},
                                    {"help",
                                     [this] {
                                         ShowHelpConfig();
                                     }}},
                                   {m_requests.recent, m_requests.open_path});
    for (const auto& [name, signal] : {std::pair{"undo", &QPlainTextEdit::undoAvailable},
                                       {"redo", &QPlainTextEdit::redoAvailable},
                                       {"cut", &QPlainTextEdit::copyAvailable},
                                       {"copy", &QPlainTextEdit::copyAvailable}}) {
        m_actions.at(name)->setEnabled(false);
        connect(text, signal, m_actions.at(name), &QAction::setEnabled);
    }
}

void ConfigEditor::connect_controls() {
    connect(m_controls.m_checksyntax, &QPushButton::clicked, this, &ConfigEditor::check);
    connect(m_controls.m_install, &QPushButton::clicked, this, &ConfigEditor::install);
    connect(m_controls.help, &QPushButton::clicked, this, &ConfigEditor::ShowHelpConfig);
    connect(m_controls.m_config, &ConfigText::edited, this, &ConfigEditor::textDidChange);
    connect(m_controls.m_config, &QPlainTextEdit::modificationChanged, this, &ConfigEditor::show_modified);
    connect(m_controls.m_config, &ConfigText::loaded, this, [this] {
        m_restoring = false;
        show_modified();
        Q_EMIT settled();
    });
    m_keep_timer.setSingleShot(true);
    connect(&m_keep_timer, &QTimer::timeout, this, &ConfigEditor::keep_edit);
    connect(m_controls.m_config, &ConfigText::file_dropped, this, [this](const QString& path) {
        if (m_requests.open_path)
            m_requests.open_path(path);
    });
    connect(m_controls.warnings, &QListWidget::currentRowChanged, this, [this](int row) {
        if (const auto* item = m_controls.warnings->item(row))
            m_controls.m_config->select_line(item->data(Qt::UserRole).toLongLong());
    });
    m_actions.at("install")->setEnabled(false);
}

void ConfigEditor::new_document(const QString& title, const Opened& opened) {
    show_title(title);
    const auto read = [files = m_parts.files, path = m_parts.default_config] {
        Loaded loaded;
        std::string ignored; // without that file the document starts empty
        (void)load_document(files, path, loaded.document, ignored);
        loaded.result = 0;
        loaded.decode();
        return loaded;
    };
    load_with(
        read, [](bool) {}, opened);
}

void ConfigEditor::open_path(const QString& path, const Opened& opened) {
    const auto read = [files = m_parts.files, path = path.toStdString()] {
        Loaded loaded;
        loaded.result = load_document(files, path, loaded.document, loaded.sentence);
        loaded.decode();
        return loaded;
    };
    const auto then = [this, path](bool loaded) {
        if (!loaded)
            return;
        m_path = path;
        setisInstalledConfig(false);
        show_image(CheckImage::partially_available);
        show_title(QFileInfo(path).fileName());
        if (m_requests.remember)
            m_requests.remember(path);
    };
    load_with(read, then, opened);
}

QString ConfigEditor::copy_of_installed() const {
    return from_std(m_parts.check.syntax.temporary + "show_chrony.conf");
}

void ConfigEditor::open_installed(const Opened& opened) {
    const std::string copy = copy_of_installed().toStdString();
    const auto read = [files = m_parts.files, from = m_parts.config_path(), copy] {
        Loaded loaded;
        if (copy_file(files, from, copy, loaded.sentence) == 0)
            loaded.result = load_document(files, copy, loaded.document, loaded.sentence);
        loaded.decode();
        return loaded;
    };
    const auto then = [this, copy](bool loaded) {
        if (!loaded)
            return;
        m_path = from_std(copy);
        //: Installed Configuration
        show_title(tr("Installed Chrony Configuration"));
        setisInstalledConfig(true);
    };
    load_with(read, then, opened);
}

void ConfigEditor::open_kept(KeptEdit edit, const Opened& opened) {
    m_path = edit.is_installed_config ? copy_of_installed() : from_std(edit.path);
    isInstalledConfig = edit.is_installed_config;
    m_restoring = true;
    m_edit_kept = true;
    show_title(from_std(edit.title));
    Loaded loaded;
    loaded.document = {.text = std::move(edit.text), .line_ends = edit.line_ends, .stamp = edit.stamp};
    loaded.decode();
    show_loaded(loaded);
    show_modified();
    opened({});
}

void ConfigEditor::load_with(std::function<Loaded()> read, std::function<void(bool)> then, const Opened& opened) {
    in_background(std::move(read), [this, then = std::move(then), opened](const Loaded& loaded) {
        then(loaded.result == 0);
        if (loaded.result == 0)
            show_loaded(loaded);
        if (opened)
            opened(spoken(loaded.sentence));
    });
}

void ConfigEditor::show_loaded(const Loaded& loaded) {
    m_line_ends = loaded.document.line_ends;
    m_stamp = loaded.document.stamp;
    m_controls.m_install->setEnabled(false);
    m_actions.at("install")->setEnabled(false);
    show_warnings({});
    say({});
    m_controls.m_config->load(loaded.text,
                              m_restoring ? ConfigText::Counts::as_modified : ConfigText::Counts::as_saved);
}

void ConfigEditor::setisInstalledConfig(bool value) {
    isInstalledConfig = value;
    show_image(CheckImage::available);
    m_controls.m_checksyntax->setEnabled(!value);
    m_actions.at("check")->setEnabled(!value);
}

void ConfigEditor::textDidChange() {
    m_actions.at("check")->setEnabled(true);
    m_controls.m_checksyntax->setEnabled(true);
    m_controls.m_install->setEnabled(false);
    m_actions.at("install")->setEnabled(false);
    show_image(CheckImage::partially_available);
    say({});
    show_modified();
}

// A text on its way into the window is as it was read; Qt takes each piece of it for an edit.
void ConfigEditor::show_modified() {
    const auto* text = m_controls.m_config;
    const bool modified = text->is_loading() ? m_restoring : text->document()->isModified();
    setWindowModified(modified);
    if (!modified)
        drop_edit();
    else if (m_parts.keep_edit && !m_keep_timer.isActive())
        m_keep_timer.start(keep_after);
}

void ConfigEditor::keep_edit() {
    m_keep_timer.stop();
    if (!m_parts.keep_edit || !isWindowModified() || m_discarded || m_controls.m_config->is_loading())
        return;
    m_edit_kept = true;
    KeptEdit edit{.path = m_path.toStdString(),
                  .title = windowTitle().remove(QStringLiteral("[*]")).toStdString(),
                  .is_installed_config = isInstalledConfig,
                  .line_ends = m_line_ends,
                  .stamp = m_stamp,
                  .text = {}};
    m_parts.keep_edit([edit = std::move(edit), text = m_controls.m_config->whole_text()]() mutable {
        edit.text = text.toStdString();
        return edit;
    });
}

void ConfigEditor::drop_edit() {
    m_keep_timer.stop();
    if (std::exchange(m_edit_kept, false) && m_parts.drop_edit)
        m_parts.drop_edit();
}

void ConfigEditor::when_ready(const std::function<void()>& act) {
    if (m_controls.m_config->is_busy())
        connect(m_controls.m_config, &ConfigText::ready, this, act, Qt::SingleShotConnection);
    else
        act();
}

void ConfigEditor::show_image(CheckImage image) {
    m_controls.m_checksyntax->setIcon(icon_of(image));
    m_controls.m_checksyntax->setAccessibleDescription(words_of(image));
    m_controls.state->setText(words_of(image));
}

void ConfigEditor::show_title(const QString& title) {
    setWindowTitle(title + QStringLiteral("[*]"));
}

void ConfigEditor::say(const QString& message) {
    m_controls.message->setText(message);
    m_controls.message->setToolTip(message);
}

void ConfigEditor::insert_lines(const QString& lines) {
    when_ready([this, lines] {
        QTextCursor cursor = m_controls.m_config->textCursor();
        cursor.movePosition(QTextCursor::StartOfBlock);
        cursor.insertText(lines.endsWith(QLatin1Char('\n')) ? lines : lines + QLatin1Char('\n'));
        m_controls.m_config->setTextCursor(cursor);
    });
}

void ConfigEditor::ShowHelpConfig() {
    m_parts.open_page(QLatin1String(help_page));
}

void ConfigEditor::show_warnings(const std::vector<ConfigurationWarning>& warnings) {
    const QSignalBlocker no_selection(m_controls.warnings);
    m_controls.warnings->clear();
    for (const auto& warning : warnings) {
        auto* item = new QListWidgetItem(words_of(warning), m_controls.warnings);
        item->setData(Qt::UserRole, static_cast<qlonglong>(warning.line));
    }
    constexpr int most_lines = 4;
    const int lines = std::min(most_lines, m_controls.warnings->count());
    m_controls.warnings->setFixedHeight(lines * m_controls.warnings->sizeHintForRow(0) +
                                        2 * m_controls.warnings->frameWidth());
    m_controls.warnings->setVisible(!warnings.empty());
}

void ConfigEditor::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Q_EMIT windowDidBecomeMain();
}

void ConfigEditor::closeEvent(QCloseEvent* event) {
    if (!isWindowModified() || m_discarded) {
        event->accept();
        drop_edit();
        Q_EMIT windowWillClose();
        return;
    }
    event->ignore();
    keep_edit();          // who closes all windows may not wait for an answer: the end of a session
    m_closing = m_saving; // what is being saved may be all that there is to save
    if (!m_saving && findChild<QWidget*>(QStringLiteral("unsaved_sheet")) == nullptr)
        close_after_question();
}

void ConfigEditor::close_after_question() {
    const QString title = windowTitle().remove(QStringLiteral("[*]"));
    ask_about_unsaved(this, title, [this](UnsavedChoice choice) {
        if (choice == UnsavedChoice::keep_editing)
            return;
        if (choice == UnsavedChoice::save) {
            save_then([this](bool saved) {
                if (saved)
                    close();
            });
            return;
        }
        m_discarded = true;
        close();
    });
}

} // namespace tickervantage
