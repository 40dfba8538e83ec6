// The INI form of QSettings as text in memory: bytes to values and back.
//
// QSettings only works on files, and remembers files by name, size and time; so each call works on a new file in a
// private scratch folder, under the temporary folder or else under the folder given. Reasons are words that fit after a
// colon. Any thread; waits for the disk.
#pragma once

#include "base/failure.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

#include <string>
#include <vector>

namespace tickervantage {

using IniValues = QMap<QString, QVariant>;

// Fails with no_scratch_file when nothing is known about the text; otherwise it is damaged: not well-formed UTF-8, a
// zero byte, or lines that are no settings.
[[nodiscard]] Result<IniValues> parse_ini(const QByteArray& text, const QString& other_folder);

// Reads what it made, and is content only when every value came back.
[[nodiscard]] Result<QByteArray> format_ini(const IniValues& values, const QString& other_folder);

// A list of one text and a plain text are the same thing; of no texts, a value that is there and empty.
[[nodiscard]] QVariant ini_value(const std::vector<std::string>& texts);
[[nodiscard]] std::vector<std::string> texts_of(const QVariant& value);

} // namespace tickervantage
