#include "gui/editor/config_sheets.h"

#include "gui/common/difference_view.h"
#include "gui/common/words.h"
#include "qt/in_words.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t WARNINGS_IN_A_SHEET = 5;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configeditor)
};

QMessageBox* sheet(QWidget* window, const char* name, QMessageBox::Icon icon, const QString& message,
                   const QString& informative) {
    auto* box = new QMessageBox(icon, QStringLiteral("Tickervantage"), message, QMessageBox::NoButton, window);
    box->setObjectName(QLatin1String(name));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(informative);
    if (auto* label = box->findChild<QWidget*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QString(52, QLatin1Char('n'))));
    return box;
}

void show_with_dismiss(QMessageBox* box) {
    //: button of a sheet
    box->setDefaultButton(box->addButton(Texts::tr("Dismiss"), QMessageBox::RejectRole));
    box->open();
}

QString first_warnings(const std::vector<ConfigurationWarning>& warnings) {
    if (warnings.empty())
        return {};
    //: syntax sheet: above the warnings
    QString text = QStringLiteral("\n\n") + Texts::tr("The daemon may still have trouble with it:");
    for (std::size_t i = 0; i < warnings.size() && i < WARNINGS_IN_A_SHEET; ++i)
        text += QLatin1Char('\n') + words_of(warnings[i]);
    if (warnings.size() > WARNINGS_IN_A_SHEET)
        //: syntax sheet: below the first warnings; %1 is a number
        text += QLatin1Char('\n') +
                Texts::tr("and %1 more, listed in the window.").arg(warnings.size() - WARNINGS_IN_A_SHEET);
    return text;
}

QString words_of(const InstallationChange& change) {
    using Outcome = FileReading::Outcome;
    if (change.former == Outcome::missing)
        //: install sheet: below the question
        return Texts::tr("There is no configuration in that place yet.");
    //: install sheet: below the question; “Former Configurations…” and “Chrony” are an item and a menu
    const QString kept =
        Texts::tr("What is installed now is kept: “Former Configurations…” in the menu “Chrony” of the main "
                  "window shows it and brings it back.");
    if (change.former != Outcome::read)
        //: install sheet: below the question; %1 is a reason, such as "Permission denied"
        return Texts::tr("What would change cannot be shown: %1.").arg(in_words(change.reason)) + QLatin1Char('\n') +
               kept;
    return change.lines.empty()
               //: install sheet: below the question
               ? Texts::tr("Nothing would change: this is what is installed.")
               : kept + QStringLiteral("\n\n") +
                     /*: install sheet: above the lines that differ */ Texts::tr("What would change:");
}

// Below the words of the question, which stay as they are: a message box has a grid for its contents.
void add_change(QMessageBox* box, const InstallationChange& change) {
    auto* grid = qobject_cast<QGridLayout*>(box->layout());
    if (grid == nullptr)
        return;
    auto* buttons = box->findChild<QDialogButtonBox*>();
    grid->removeWidget(buttons);
    auto* words = new QLabel(words_of(change), box);
    words->setObjectName(QStringLiteral("change"));
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    grid->addWidget(words, grid->rowCount(), 0, 1, -1);
    if (!change.lines.empty()) {
        constexpr int lines_in_sight = 10;
        auto* view = make_difference_view(box);
        view->setMinimumHeight(lines_in_sight * view->fontMetrics().lineSpacing());
        show_difference(view, change.lines);
        words->setBuddy(view);
        grid->addWidget(view, grid->rowCount(), 0, 1, -1);
    }
    grid->addWidget(buttons, grid->rowCount(), 0, 1, -1);
}

template <class Choice>
void ask(QMessageBox* box, const std::vector<std::pair<QPushButton*, Choice>>& buttons, Choice otherwise,
         std::function<void(Choice)> chosen) {
    QObject::connect(box, &QMessageBox::finished, box, [box, buttons, otherwise, chosen = std::move(chosen)] {
        for (const auto& [button, choice] : buttons)
            if (box->clickedButton() == button)
                return chosen(choice);
        chosen(otherwise);
    });
    box->open();
}

} // namespace

QString words_of(const ConfigurationWarning& warning) {
    const QString sentence = in_words(warning.what);
    //: warning of the configuration editor: %1 a line number, %2 a sentence
    return warning.line == 0 ? sentence : Texts::tr("Line %1: %2").arg(warning.line).arg(sentence);
}

void show_syntax_ok(QWidget* window, const std::vector<ConfigurationWarning>& warnings) {
    show_with_dismiss(
        //: syntax sheet: message
        sheet(window, "syntax_ok", QMessageBox::Information, Texts::tr("Chrony configuration file syntax OK"),
              //: syntax sheet: informative text
              Texts::tr("Config file syntax is OK and is suitable for installation") + first_warnings(warnings)));
}

void show_syntax_error(QWidget* window, const ConfigError& error) {
    QString text = from_std(error.m_msg);
    if (error.m_doubt)
        text = in_words(*error.m_doubt);
    if (!error.m_file.empty())
        //: syntax sheet: the error lies in another file; %1 its path
        text += QLatin1Char('\n') + Texts::tr("The line is one of the file %1.").arg(from_std(error.m_file));
    //: syntax sheet: message
    show_with_dismiss(sheet(window, "syntax_error", QMessageBox::Critical,
                            Texts::tr("Chrony configuration file syntax error"), text));
}

void show_doubt(QWidget* window, const ConfigError& error) {
    //: syntax sheet: message, when chronyd found no error in a line but refuses the file
    const QString message = Texts::tr("Chrony configuration file could not be checked");
    show_with_dismiss(sheet(window, "syntax_doubt", QMessageBox::Warning, message, in_words(*error.m_doubt)));
}

void show_failure(QWidget* window, const QString& what, const QString& sentence) {
    show_with_dismiss(sheet(window, "failure", QMessageBox::Critical, what, sentence));
}

void ask_to_install(QWidget* window, const QString& path, const InstallationChange& change,
                    std::function<void()> install) {
    //: Install config warning; %1 is a path
    const QString warning = Texts::tr("Configuration file %1 will be overwritten and chronyd will be restarted\n"
                                      "\nThis cannot be undone"
                                      "\nOK to proceed or Cancel to abort the installation\n")
                                .arg(path);
    auto* box = sheet(window, "install_sheet", QMessageBox::Warning,
                      //: install sheet: message
                      Texts::tr("Installing new Chrony configuration"), warning);
    //: install sheet: button
    auto* ok = box->addButton(Texts::tr("OK"), QMessageBox::AcceptRole);
    //: install sheet: button
    auto* cancel = box->addButton(Texts::tr("Cancel"), QMessageBox::RejectRole);
    box->setEscapeButton(cancel);
    add_change(box, change);
    ask<bool>(box, {{ok, true}}, false, [install = std::move(install)](bool agreed) {
        if (agreed)
            install();
    });
}

void ask_about_unsaved(QWidget* window, const QString& title, std::function<void(UnsavedChoice)> chosen) {
    auto* box = sheet(window, "unsaved_sheet", QMessageBox::Warning,
                      //: unsaved changes: %1 is the document's name
                      Texts::tr("Save the changes to “%1”?").arg(title),
                      //: unsaved changes
                      Texts::tr("They are lost if you do not save them."));
    //: unsaved changes: button
    auto* save = box->addButton(Texts::tr("&Save"), QMessageBox::AcceptRole);
    //: unsaved changes: button
    auto* discard = box->addButton(Texts::tr("&Don't Save"), QMessageBox::DestructiveRole);
    //: unsaved changes: button
    auto* cancel = box->addButton(Texts::tr("Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(save);
    box->setEscapeButton(cancel);
    ask<UnsavedChoice>(box, {{save, UnsavedChoice::save}, {discard, UnsavedChoice::discard}},
                       UnsavedChoice::keep_editing, std::move(chosen));
}

void ask_about_conflict(QWidget* window, const QString& path, std::function<void(ConflictChoice)> chosen) {
    auto* box = sheet(window, "conflict_sheet", QMessageBox::Warning,
                      //: file changed on the disk: message
                      Texts::tr("The file was changed by another program"),
                      //: file changed on the disk: %1 is a path
                      Texts::tr("%1 is no longer as it was when it was opened. Overwriting it loses the other changes, "
                                "reloading it loses yours.")
                          .arg(path));
    //: file changed on the disk: buttons
    auto* save_as = box->addButton(Texts::tr("Save &As…"), QMessageBox::AcceptRole);
    auto* overwrite = box->addButton(
        //: file changed on the disk: button, the text replaces the file
        Texts::tr("&Overwrite"), QMessageBox::DestructiveRole);
    auto* reload = box->addButton(
        //: file changed on the disk: button, the file replaces the text
        Texts::tr("&Reload"), QMessageBox::DestructiveRole);
    auto* cancel = box->addButton(Texts::tr("Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(save_as);
    box->setEscapeButton(cancel);
    ask<ConflictChoice>(
        box,
        {{save_as, ConflictChoice::save_as}, {overwrite, ConflictChoice::overwrite}, {reload, ConflictChoice::reload}},
        ConflictChoice::keep_editing, std::move(chosen));
}

void ask_about_kept_edits(QWidget* window, const QStringList& titles, std::function<void(KeptChoice)> chosen) {
    //: kept edits: below the names or paths of the configurations
    const QString question = Texts::tr("The edits were kept. Do you want to go on with them?");
    auto* box = sheet(window, "kept_sheet", QMessageBox::Question,
                      //: kept edits: message; configurations that were being edited when the program ended
                      Texts::tr("%n configuration(s) had not been saved when the program ended", nullptr,
                                static_cast<int>(titles.size())),
                      titles.join(QLatin1Char('\n')) + QStringLiteral("\n\n") + question);
    //: kept edits: button, opens them in the editor
    auto* open = box->addButton(Texts::tr("&Open"), QMessageBox::AcceptRole);
    //: kept edits: button, the edits are lost
    auto* discard = box->addButton(Texts::tr("&Discard"), QMessageBox::DestructiveRole);
    //: kept edits: button, the same question comes with the next start
    auto* later = box->addButton(Texts::tr("&Later"), QMessageBox::RejectRole);
    box->setDefaultButton(open);
    box->setEscapeButton(later);
    ask<KeptChoice>(box, {{open, KeptChoice::open}, {discard, KeptChoice::discard}}, KeptChoice::later,
                    std::move(chosen));
}

} // namespace tickervantage
