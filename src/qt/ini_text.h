// The INI form of QSettings as text in memory: bytes to values and back.
//
// QSettings only works on files, and remembers files by name, size and time; so each call works on a new file in a
// private scratch folder, under the temporary folder or else under the folder given. Reasons are words that fit after a
// colon. Any thread; waits for the disk.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

#include <string>
#include <vector>

namespace tickervantage {

using IniValues = QMap<QString, QVariant>;

enum class IniReading : unsigned char {
    read,
    damaged,   // not well-formed UTF-8, a zero byte, or lines that are no settings
    no_scratch // nothing is known about the text: no scratch folder could be used
};

[[nodiscard]] IniReading parse_ini(const QByteArray& text, const QString& other_folder, IniValues& values,
                                   QString& reason);

// 0, or -1 and the reason. Reads what it made, and is content only when every value came back.
[[nodiscard]] int format_ini(const IniValues& values, const QString& other_folder, QByteArray& text, QString& reason);

// A list of one text and a plain text are the same thing; of no texts, a value that is there and empty.
[[nodiscard]] QVariant ini_value(const std::vector<std::string>& texts);
[[nodiscard]] std::vector<std::string> texts_of(const QVariant& value);

} // namespace tickervantage
