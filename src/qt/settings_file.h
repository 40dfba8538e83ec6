// The settings file: one INI file that several processes may change.
//
// A change reads the file as it is now and lays only the changed keys over it, so that what another process wrote and
// keys that nobody knows survive. A file that cannot be read is never written. Waits for the disk; one thread at a
// time.
#pragma once

#include "base/failure.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

// The INI form of QSettings as text in memory: bytes to values and back.
//
// QSettings only works on files, and remembers files by name, size and time; so each call works on a new file in a
// private scratch folder, under the temporary folder or else under the folder given. Reasons are words that fit after a
// colon. Any thread; waits for the disk.

using IniValues = QMap<QString, QVariant>;

// Fails with no_scratch_file when nothing is known about the text; otherwise it is damaged: not well-formed UTF-8, a
// zero byte, or lines that are no settings.
[[nodiscard]] Result<IniValues> parse_ini(const QByteArray& text, const QString& other_folder);

// Reads what it made, and is content only when every value came back.
[[nodiscard]] Result<QByteArray> format_ini(const IniValues& values, const QString& other_folder);

// A list of one text and a plain text are the same thing; of no texts, a value that is there and empty.
[[nodiscard]] QVariant ini_value(const std::vector<std::string>& texts);
[[nodiscard]] std::vector<std::string> texts_of(const QVariant& value);

using SettingTexts = std::vector<std::string>;
using SettingValues = std::map<std::string, SettingTexts, std::less<>>;
using SettingChanges = std::map<std::string, std::optional<SettingTexts>, std::less<>>; // no value: removed

class SettingsFile {
public:
    explicit SettingsFile(const std::string& path); // a link is followed, and stays a link

    // The values, none when there is no file or it cannot be used; then with why. A damaged file is kept aside under
    // another name.
    [[nodiscard]] SettingValues load(std::optional<Failure>& failure) const;

    // What else is to be told of a file that was saved. One that was not saved is as it was. `known` is what the
    // program works with: should the file turn out damaged, it takes the place of it.
    [[nodiscard]] Result<std::optional<Failure>> save(const SettingChanges& changes, const SettingValues& known) const;

    // The values once more. -1: the file cannot be used just now; it stays as it is.
    [[nodiscard]] int look_again(SettingValues& values) const;

    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] const std::string& folder() const { return m_folder; }

private:
    struct Content;

    [[nodiscard]] Content read() const;
    [[nodiscard]] Failure problem(FailureCode code, Failure cause) const;
    [[nodiscard]] Result<Failure> keep_aside(const Content& damaged) const; // what is told of it
    [[nodiscard]] std::optional<Failure> put_in_order(Content& content) const;

    std::string m_path;
    std::string m_folder;
};

} // namespace tickervantage
