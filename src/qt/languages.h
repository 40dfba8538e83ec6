// The languages of the windows: the program's own translations and Qt's, for the language of the environment.
#pragma once

#include <QLocale>
#include <QString>

#include <string>

class QCoreApplication;

namespace tickervantage {

// Installs on the application, which owns them from then on, the translations for the locale: the program's own,
// tickervantage_LANGUAGE.qm in `folder`, and Qt's for its dialogs. For a language that the program has none for they
// are the English ones, which tell singular and plural apart. 0, or -1 when the folder has not even those. To be called
// before the first window is made.
[[nodiscard]] int install_translations(QCoreApplication& application, const QLocale& locale, const QString& folder);

// The file beside `path` that is written in the default locale's language, such as freqtemp_de.rtf beside freqtemp.rtf;
// `path` itself where there is none.
[[nodiscard]] std::string local_file(const std::string& path);

} // namespace tickervantage
