#include "qt/ini_text.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

#include "base/failure_codes.h"
#include "base/utf8.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace tickervantage {

namespace {

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

Result<IniValues> parse_ini(const QByteArray& text, const QString& other_folder) {
    if (!is_plain_utf8({text.constData(), static_cast<std::size_t>(text.size())}))
        return failed(FailureCode::is_no_utf8);
    for (const auto& parent : scratch_parents(other_folder)) {
        const QTemporaryDir folder(parent + QStringLiteral("/.tickervantage-XXXXXX"));
        if (!folder.isValid() || !put(scratch_file(folder), text))
            continue;
        const QSettings settings(scratch_file(folder), QSettings::IniFormat);
        IniValues found = values_of(settings); // before the status: sections are not looked at earlier
        if (settings.status() == QSettings::AccessError)
            continue;
        if (settings.status() == QSettings::FormatError)
            return failed(FailureCode::lines_are_no_settings);
        return found;
    }
    return failed(FailureCode::no_scratch_file);
}

Result<QByteArray> format_ini(const IniValues& values, const QString& other_folder) {
    Result<QByteArray> result = failed(FailureCode::no_scratch_file);
    for (const auto& parent : scratch_parents(other_folder)) {
        auto made = format_in(parent, values);
        if (!made)
            continue;
        const auto found = parse_ini(*made, other_folder);
        if (found && same_values(*found, values))
            return *std::move(made);
        result = found ? failed(FailureCode::value_does_not_read_back) : tl::unexpected(found.error());
    }
    return result;
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
