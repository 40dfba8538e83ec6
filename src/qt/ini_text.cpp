#include "qt/ini_text.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

#include "base/setting_text.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace tickervantage {

namespace {

QString without_scratch() {
    return QStringLiteral("there is no room for a temporary file");
}

QStringList scratch_parents(const QString& other_folder) {
    return {QDir::tempPath(), other_folder};
}

QString scratch_file(const QTemporaryDir& folder) {
    return folder.filePath(QStringLiteral("settings.ini"));
}

bool put(const QString& path, const QByteArray& text) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

std::optional<QByteArray> fetch(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

IniValues values_of(const QSettings& settings) {
    IniValues values;
    for (const auto& key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

std::optional<QByteArray> format_in(const QString& parent, const IniValues& values) {
    if (values.isEmpty()) // QSettings would make no file
        return QByteArray();
    const QTemporaryDir folder(parent + QStringLiteral("/.tickervantage-XXXXXX"));
    if (!folder.isValid())
        return std::nullopt;
    QSettings settings(scratch_file(folder), QSettings::IniFormat);
    for (auto one = values.begin(); one != values.end(); ++one)
        settings.setValue(one.key(), one.value());
    settings.sync();
    return settings.status() == QSettings::NoError ? fetch(scratch_file(folder)) : std::nullopt;
}

// Values that are equal although one says "no texts" and the other "no value", which the INI form does not tell apart.
bool same_value(const QVariant& one, const QVariant& other) {
    return one == other || texts_of(one) == texts_of(other);
}

bool same_values(const IniValues& one, const IniValues& other) {
    return one.keys() == other.keys() && std::equal(one.begin(), one.end(), other.begin(), same_value);
}

} // namespace

IniReading parse_ini(const QByteArray& text, const QString& other_folder, IniValues& values, QString& reason) {
    if (!is_plain_utf8({text.constData(), static_cast<std::size_t>(text.size())})) {
        reason = QStringLiteral("it is not UTF-8 text");
        return IniReading::damaged;
    }
    for (const auto& parent : scratch_parents(other_folder)) {
        const QTemporaryDir folder(parent + QStringLiteral("/.tickervantage-XXXXXX"));
        if (!folder.isValid() || !put(scratch_file(folder), text))
            continue;
        const QSettings settings(scratch_file(folder), QSettings::IniFormat);
        const IniValues found = values_of(settings); // before the status: sections are not looked at earlier
        if (settings.status() == QSettings::AccessError)
            continue;
        if (settings.status() == QSettings::FormatError) {
            reason = QStringLiteral("it has lines that are no settings");
            return IniReading::damaged;
        }
        values = found;
        return IniReading::read;
    }
    reason = without_scratch();
    return IniReading::no_scratch;
}

int format_ini(const IniValues& values, const QString& other_folder, QByteArray& text, QString& reason) {
    reason = without_scratch();
    for (const auto& parent : scratch_parents(other_folder)) {
        const auto made = format_in(parent, values);
        IniValues found;
        if (!made || parse_ini(*made, other_folder, found, reason) != IniReading::read)
            continue;
        if (same_values(found, values)) {
            text = *made;
            return 0;
        }
        reason = QStringLiteral("a value does not read back");
    }
    return -1;
}

QVariant ini_value(const std::vector<std::string>& texts) {
    QStringList list;
    for (const auto& text : texts)
        list.append(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    return list.size() == 1 ? QVariant(list.front()) : QVariant(list);
}

std::vector<std::string> texts_of(const QVariant& value) {
    std::vector<std::string> texts;
    if (!value.isValid())
        return texts;
    for (const auto& text : value.toStringList())
        texts.push_back(text.toStdString());
    return texts;
}

} // namespace tickervantage
