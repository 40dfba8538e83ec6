// The questions and answers of the configuration editor, each a sheet of its window. They return at once and delete
// themselves; what was chosen comes to the function given. Main thread.
#pragma once

#include "base/text_difference.h"
#include "base/user_files.h"
#include "chrony/configuration/configuration_check.h"

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace tickervantage {

void show_syntax_ok(QWidget* window, const std::vector<ConfigurationWarning>& warnings);
void show_syntax_error(QWidget* window, const ConfigError& error);
void show_doubt(QWidget* window, const ConfigError& error); // no error was found, yet chronyd refuses
void show_failure(QWidget* window, const QString& what, const QString& sentence);

// What an installation would change, as the question shows it.
struct InstallationChange {
    std::vector<DifferenceLine> lines = {};
    FileReading::Outcome former = FileReading::Outcome::missing; // how the file at its place was found
    Failure reason = {};                                         // why it could not be read
};
void ask_to_install(QWidget* window, const QString& path, const InstallationChange& change,
                    std::function<void()> install);

enum class UnsavedChoice : unsigned char { save, discard, keep_editing };
void ask_about_unsaved(QWidget* window, const QString& title, std::function<void(UnsavedChoice)> chosen);

enum class ConflictChoice : unsigned char { overwrite, save_as, reload, keep_editing };
void ask_about_conflict(QWidget* window, const QString& path, std::function<void(ConflictChoice)> chosen);

// About edits that an earlier run of the program kept when it ended; the titles tell which.
enum class KeptChoice : unsigned char { open, discard, later };
void ask_about_kept_edits(QWidget* window, const QStringList& titles, std::function<void(KeptChoice)> chosen);

// "Line 3: keyfile: /etc/k does not exist."
[[nodiscard]] QString words_of(const ConfigurationWarning& warning);

} // namespace tickervantage
