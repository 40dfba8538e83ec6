#include "gui/editor/config_editor_window.h"

#include "base/failure_codes.h"
#include "gui/common/desktop_links.h"
#include "gui/common/words.h"
#include "gui/editor/config_find_bar.h"
#include "gui/editor/config_sheets.h"
#include "gui/editor/config_text.h"
#include "qt/in_words.h"
#include "qt/text_scale.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
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
constexpr std::chrono::milliseconds check_after(700); // from the last edit
constexpr std::chrono::seconds keep_after(3);         // from the first edit that is not kept yet

// As "cp" does it, without a shell: the bytes, whatever they are.
Result<> copy_file(Files& files, const std::string& from, const std::string& to) {
    const FileReading found = files.read(from, largest_document);
    if (found.outcome != FileReading::Outcome::read)
        return failed(FailureCode::file_unreadable, {from}, found.reason);
    std::error_code ignored; // what cannot be removed cannot be replaced either
    std::filesystem::remove(to, ignored);
    return files.replace_by(to, found.bytes);
}

} // namespace

struct ConfigEditor::Loaded {
    explicit Loaded(Result<DocumentText> found) : document(std::move(found)) {
        if (document)
            text = from_std(std::exchange(document->text, {}));
    }

    Result<DocumentText> document;
    QString text;
};

ConfigEditor::ConfigEditor(ConfigEditorParts parts) : m_parts(std::move(parts)), m_background(m_parts.main_thread) {
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
    m_actions = build_config_menus(this);
    const auto on = [this](const char* name, auto* receiver, auto slot) {
        connect(m_actions.at(name), &QAction::triggered, receiver, slot);
    };
    on("newDocument", this, &ConfigEditor::new_document_wanted);
    on("openDocument", this, &ConfigEditor::open_document_wanted);
    on("openInstalled", this, &ConfigEditor::open_installed_wanted);
    on("saveDocument", this, &ConfigEditor::save);
    on("saveDocumentAs", this, &ConfigEditor::save_as);
    on("closeEditor", this, &ConfigEditor::close);
    on("undo", text, &ConfigText::undo_step);
    on("redo", text, &ConfigText::redo_step);
    on("cut", text, &ConfigText::cut_selection);
    on("copy", text, &ConfigText::copy);
    on("paste", text, &ConfigText::paste);
    on("selectAll", text, &ConfigText::selectAll);
    on("find", find, &FindBar::open);
    on("findNext", find, &FindBar::find_next);
    on("findPrevious", find, &FindBar::find_previous);
    on("complete", text, &ConfigText::complete);
    on("zoomIn", text, [text] { text->zoom(1); });
    on("zoomOut", text, [text] { text->zoom(-1); });
    on("zoomBack", text, &ConfigText::zoom_back);
    on("check", this, &ConfigEditor::check);
    on("install", this, &ConfigEditor::install);
    on("help", this, &ConfigEditor::ShowHelpConfig);
    m_parts.recent.fill(findChild<QMenu*>(QStringLiteral("openRecent")));
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
    m_quiet_timer.setSingleShot(true);
    connect(&m_quiet_timer, &QTimer::timeout, this, &ConfigEditor::check_quietly);
    m_keep_timer.setSingleShot(true);
    connect(&m_keep_timer, &QTimer::timeout, this, &ConfigEditor::keep_edit);
    connect(m_controls.m_config, &ConfigText::file_dropped, this, &ConfigEditor::file_dropped);
    connect(m_controls.warnings, &QListWidget::currentRowChanged, this, [this](int row) {
        if (const auto* item = m_controls.warnings->item(row))
            m_controls.m_config->select_line(item->data(Qt::UserRole).toLongLong());
    });
    m_actions.at("install")->setEnabled(false);
}

void ConfigEditor::new_document(const QString& title) {
    show_title(title);
    const auto read = [&files = m_parts.files, path = m_parts.default_config] {
        return Loaded(load_document(files, path).value_or(DocumentText{})); // without that file it starts empty
    };
    load_with(read, [] {});
}

void ConfigEditor::open_path(const QString& path) {
    const auto read = [&files = m_parts.files, path = path.toStdString()] {
        return Loaded(load_document(files, path));
    };
    const auto then = [this, path] {
        m_path = path;
        setisInstalledConfig(false);
        show_image(CheckImage::partially_available);
        show_title(QFileInfo(path).fileName());
        m_parts.recent.remember(path);
    };
    load_with(read, then);
}

QString ConfigEditor::copy_of_installed() const {
    return from_std(m_parts.check.syntax.temporary + "show_chrony.conf");
}

void ConfigEditor::open_installed() {
    const std::string copy = copy_of_installed().toStdString();
    const auto read = [&files = m_parts.files, from = m_parts.general.config, copy] {
        return Loaded(copy_file(files, from, copy).and_then([&] { return load_document(files, copy); }));
    };
    const auto then = [this, copy] {
        m_path = from_std(copy);
        //: Installed Configuration
        show_title(tr("Installed Chrony Configuration"));
        setisInstalledConfig(true);
    };
    load_with(read, then);
}

void ConfigEditor::open_kept(KeptEdit edit) {
    m_path = edit.is_installed_config ? copy_of_installed() : from_std(edit.path);
    isInstalledConfig = edit.is_installed_config;
    m_restoring = true;
    m_edit_kept = true;
    show_title(from_std(edit.title));
    show_loaded(Loaded(DocumentText{.text = std::move(edit.text), .line_ends = edit.line_ends, .stamp = edit.stamp}));
    show_modified();
    Q_EMIT opened();
}

template <typename Read, typename Then>
void ConfigEditor::load_with(Read read, Then then) {
    m_background.start(m_parts.queue, std::move(read), [this, then = std::move(then)](const Loaded& loaded) {
        if (loaded.document) {
            then();
            show_loaded(loaded);
            Q_EMIT opened();
        } else if (isVisible()) {
            //: alert: message above the reason
            show_failure(this, tr("The configuration could not be read"), in_words(loaded.document.error()));
        } else {
            Q_EMIT not_opened(in_words(loaded.document.error()));
        }
    });
}

void ConfigEditor::show_loaded(const Loaded& loaded) {
    m_line_ends = loaded.document->line_ends;
    m_stamp = loaded.document->stamp;
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
    m_quiet_timer.start(check_after);
    show_modified();
}

// A text on its way into the window is as it was read; Qt takes each piece of it for an edit.
void ConfigEditor::show_modified() {
    const auto* text = m_controls.m_config;
    const bool modified = text->is_loading() ? m_restoring : text->document()->isModified();
    setWindowModified(modified);
    if (!modified)
        drop_edit();
    else if (!m_keep_timer.isActive())
        m_keep_timer.start(keep_after);
}

void ConfigEditor::keep_edit() {
    m_keep_timer.stop();
    if (!isWindowModified() || m_discarded || m_controls.m_config->is_loading())
        return;
    m_edit_kept = true;
    KeptEdit edit{.path = m_path.toStdString(),
                  .title = windowTitle().remove(QStringLiteral("[*]")).toStdString(),
                  .is_installed_config = isInstalledConfig,
                  .line_ends = m_line_ends,
                  .stamp = m_stamp,
                  .text = {}};
    m_parts.keeper.keep(m_parts.document, [edit = std::move(edit), text = m_controls.m_config->whole_text()]() mutable {
        edit.text = text.toStdString();
        return edit;
    });
}

void ConfigEditor::drop_edit() {
    m_keep_timer.stop();
    if (std::exchange(m_edit_kept, false))
        m_parts.keeper.drop(m_parts.document);
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
    ConfigText* text = m_controls.m_config;
    if (text->is_busy()) {
        connect(
            text, &ConfigText::ready, this, [this, lines] { insert_lines(lines); }, Qt::SingleShotConnection);
        return;
    }
    QTextCursor cursor = text->textCursor();
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.insertText(lines.endsWith(QLatin1Char('\n')) ? lines : lines + QLatin1Char('\n'));
    text->setTextCursor(cursor);
}

void ConfigEditor::ShowHelpConfig() {
    (void)open_page(QLatin1String(help_page)); // silent by design
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
        if (choice == UnsavedChoice::save)
            return save_then(AfterSaving::close);
        m_discarded = true;
        close();
    });
}

} // namespace tickervantage
