// The configuration editor's work on its text: checking, saving, installing.
#include "base/failure_codes.h"
#include "chrony/configuration/included_files.h"
#include "gui/common/words.h"
#include "gui/editor/config_editor_window.h"
#include "gui/editor/config_sheets.h"
#include "gui/editor/config_text.h"
#include "qt/in_words.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tickervantage {
namespace {

// The alert says already that the configuration was not installed.
const Failure& behind_headline(const Failure& failure) {
    const bool repeats = failure.code == FailureCode::configuration_not_installed && failure.cause != nullptr;
    return repeats ? *failure.cause : failure;
}

constexpr const char* usual_name = "chrony.conf";
constexpr int no_encoding = -4; // the number of this failure, for people who report it

// Half a surrogate pair, which a text pasted from elsewhere may hold, has no UTF-8.
Result<std::string> encoded(const QString& text) {
    if (!text.isValidUtf16())
        return failed(FailureCode::text_cannot_be_written, {std::to_string(no_encoding)});
    return text.toStdString();
}

} // namespace

void ConfigEditor::check() {
    if (m_controls.m_config->is_busy() || !m_controls.m_checksyntax->isEnabled())
        return;
    m_controls.m_checksyntax->setEnabled(false);
    m_actions.at("check")->setEnabled(false);
    //: configuration editor: said during a check
    say(tr("Checking…"));
    const auto work = [parts = m_parts.check, text = m_controls.m_config->whole_text(), path = m_path.toStdString()] {
        ConfigurationCheck check;
        const auto bytes = encoded(text);
        if (!bytes) {
            check.error = {.m_isok = false, .m_msg = {}, .m_doubt = bytes.error()};
            return check;
        }
        check = check_configuration(parts, *bytes);
        if (is_source_file(path))
            std::ranges::copy(source_file_warnings(*bytes), std::back_inserter(check.warnings));
        return check;
    };
    const int edits = m_controls.m_config->edits();
    m_background.start(m_parts.queue, work, [this, edits](const ConfigurationCheck& check) {
        m_controls.m_checksyntax->setEnabled(true);
        m_actions.at("check")->setEnabled(true);
        say({});
        if (m_controls.m_config->edits() == edits)
            apply(check);
        else
            //: configuration editor: said when a check came too late
            say(tr("The text changed during the check; check it again."));
        Q_EMIT settled();
    });
}

// What takes chronyd, or us, long to look at waits until somebody asks for a check.
void ConfigEditor::check_quietly() {
    constexpr int longest = 200'000; // characters
    const auto* text = m_controls.m_config;
    if (text->is_busy() || text->document()->characterCount() > longest)
        return;
    const auto work = [parts = m_parts.check.syntax, text = text->whole_text()] {
        const auto bytes = encoded(text);
        return bytes ? checkSyntax(parts, *bytes) : ConfigError();
    };
    m_background.start_newest(m_parts.queue, work, [this, edits = text->edits()](const ConfigError& error) {
        if (m_controls.m_config->edits() == edits && m_actions.at("check")->isEnabled())
            show_mistake(error);
    });
}

// A file that is included has its own window.
void ConfigEditor::show_mistake(const ConfigError& error) {
    const bool is_here = !error.m_msg.empty() && error.m_line > 0 && error.m_file.empty();
    m_controls.m_config->underline_line(is_here ? error.m_line : 0);
    if (!is_here)
        return;
    QString what = from_std(error.m_msg).remove(QStringLiteral("Fatal error : "));
    what.remove(QStringLiteral(" at line %1").arg(error.m_line));
    //: configuration editor: said below the text, of the line that is underlined; %1 its number, %2 what chronyd says
    say(tr("Line %1: %2").arg(error.m_line).arg(what));
}

void ConfigEditor::apply(const ConfigurationCheck& check) {
    m_controls.m_config->underline_line(0); // the marked line says it
    const ConfigError& error = check.error;
    show_warnings(check.warnings);
    m_controls.m_install->setEnabled(error.passed());
    m_actions.at("install")->setEnabled(error.passed());
    if (error.passed()) {
        show_image(CheckImage::available);
        show_syntax_ok(this, check.warnings);
        return;
    }
    if (error.m_isok) { // the sheet about a sound file would be a promise that the daemon does not keep
        show_image(CheckImage::partially_available);
        show_doubt(this, error);
        return;
    }
    show_image(CheckImage::unavailable);
    if (error.m_file.empty()) {
        m_controls.m_config->select_line(error.m_line);
        m_controls.m_config->mark_error_line(error.m_line);
    }
    say(error.m_doubt ? in_words(*error.m_doubt) : from_std(error.m_msg));
    show_syntax_error(this, error);
}

void ConfigEditor::save() {
    save_then(AfterSaving::stay);
}

void ConfigEditor::save_as() {
    save_as_then(AfterSaving::stay);
}

void ConfigEditor::save_to(const QString& path) {
    write_to(path, true, AfterSaving::stay);
}

// The copy of the live configuration goes with the program, so that a person who saves has to say where to.
void ConfigEditor::save_then(AfterSaving next) {
    if (m_path.isEmpty() || isInstalledConfig)
        save_as_then(next);
    else
        write_to(m_path, false, next);
}

void ConfigEditor::save_as_then(AfterSaving next) {
    const QString start =
        m_path.isEmpty() || isInstalledConfig ? QDir::home().filePath(QLatin1String(usual_name)) : m_path;
    //: title of the dialog that saves a configuration
    auto* dialog = new QFileDialog(this, tr("Save Configuration"), QFileInfo(start).path());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->selectFile(QFileInfo(start).fileName());
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, next](const QString& path) { write_to(path, true, next); });
    dialog->open();
}

void ConfigEditor::write_to(const QString& path, bool overwrite, AfterSaving next) {
    const auto* text = m_controls.m_config;
    if (text->is_busy()) {
        const auto again = [this, path, overwrite, next] {
            write_to(path, overwrite, next);
        };
        connect(text, &ConfigText::ready, this, again, Qt::SingleShotConnection);
        return;
    }
    if (m_saving)
        return;
    m_saving = true;
    SaveRequest request{.path = path.toStdString(), .text = {}, .line_ends = m_line_ends, .known = {}};
    if (!overwrite)
        request.known = m_stamp;
    const auto work = [&files = m_parts.files, request, whole = text->whole_text()]() mutable {
        auto bytes = encoded(whole);
        if (!bytes)
            return SaveAnswer{.failure = bytes.error()};
        request.text = *std::move(bytes);
        return save_document(files, request);
    };
    m_background.start(m_parts.queue, work, [this, path, edits = text->edits(), next](const SaveAnswer& answer) {
        m_saving = false;
        const bool closing = std::exchange(m_closing, false);
        apply_save(path, edits, answer, next);
        if (closing && answer.outcome == SaveAnswer::Outcome::saved)
            close();
        Q_EMIT settled();
    });
}

void ConfigEditor::apply_save(const QString& path, int edits, const SaveAnswer& answer, AfterSaving next) {
    switch (answer.outcome) {
    case SaveAnswer::Outcome::changed_meanwhile:
        return resolve_conflict(path, next);
    case SaveAnswer::Outcome::failed:
        //: alert: message above the reason
        show_failure(this, tr("The configuration was not saved"), in_words(answer.failure));
        return;
    case SaveAnswer::Outcome::saved:
        break;
    }
    m_stamp = answer.stamp;
    // The copy of the live configuration goes with the program: its edits are safe only once they are installed.
    const bool is_passing = isInstalledConfig && path == m_path;
    if (!is_passing && m_controls.m_config->edits() == edits)
        m_controls.m_config->document()->setModified(false);
    if (!is_passing) // else the copy's place tells nobody anything
        //: configuration editor: said after saving; %1 a path
        say(tr("Saved %1.").arg(path));
    if (path != m_path) {
        m_path = path;
        isInstalledConfig = false;
        show_title(QFileInfo(path).fileName());
    }
    if (!isInstalledConfig)
        m_parts.recent.remember(path);
    if (next == AfterSaving::close)
        close();
    else if (next == AfterSaving::install)
        hand_over_text();
}

void ConfigEditor::resolve_conflict(const QString& path, AfterSaving next) {
    ask_about_conflict(this, path, [this, path, next](ConflictChoice choice) {
        if (choice == ConflictChoice::overwrite)
            write_to(path, true, next);
        else if (choice == ConflictChoice::save_as)
            save_as_then(next);
        else if (choice == ConflictChoice::reload)
            open_path(path);
    });
}

void ConfigEditor::install() {
    if (!m_parts.can_install) {
        //: alert: message, and why
        show_failure(this, tr("The configuration was not installed"),
                     //: alert: informative text
                     tr("Installing needs the root helper, which this program was started without."));
        return;
    }
    offer_to_install();
}

void ConfigEditor::save_and_install() {
    // The copy of the live configuration is saved where it lies: nobody has to look for it, and it is ours alone.
    isInstalledConfig ? write_to(m_path, true, AfterSaving::install) : save_then(AfterSaving::install);
}

void ConfigEditor::say_text_changed() {
    //: configuration editor: said when the text was edited while it was saved for an installation
    say(tr("The text changed meanwhile, so it was not installed; check it again."));
}

void ConfigEditor::hand_over_text() {
    if (!m_controls.m_install->isEnabled())
        return say_text_changed();
    m_controls.m_install->setEnabled(false); // until it is done
    m_actions.at("install")->setEnabled(false);
    //: configuration editor: said during the installation
    say(tr("Installing…"));
    m_edits_installed = m_controls.m_config->edits();
    Q_EMIT install_wanted(m_controls.m_config->whole_text());
    if (isInstalledConfig)
        show_title(tr("Installed Chrony Configuration"));
}

void ConfigEditor::show_installation(const Result<>& done) {
    //: configuration editor: said after the installation
    say(done ? tr("Installed.")
             : /*: configuration editor: said after an installation that failed */ tr("Not installed."));
    const bool is_as_checked = m_controls.m_config->edits() == m_edits_installed;
    m_controls.m_install->setEnabled(is_as_checked);
    m_actions.at("install")->setEnabled(is_as_checked);
    if (done && isInstalledConfig && is_as_checked)
        m_controls.m_config->document()->setModified(false);
    if (!done)
        //: alert: message above the reason
        show_failure(this, tr("The configuration was not installed"), in_words(behind_headline(done.error())));
    Q_EMIT settled();
}

} // namespace tickervantage
