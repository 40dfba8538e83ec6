#include "qt/settings_file.h"

#include "base/failure_codes.h"
#include "base/utf8.h"
#include "linux/small_file.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace tickervantage {
namespace {

constexpr std::size_t size_limit = 1U << 20U;

// Opening happens at start, on the main thread; saving behind it.
constexpr std::chrono::milliseconds lock_limit_at_start{30};
constexpr std::chrono::milliseconds lock_limit{5'000};

QString qt_text(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

IniValues laid_over(IniValues base, const SettingChanges& changes) {
    for (const auto& [key, texts] : changes) {
        if (texts)
            base.insert(qt_text(key), ini_value(*texts));
        else
            base.remove(qt_text(key));
    }
    return base;
}

IniValues ini_values(const SettingValues& values) {
    IniValues all;
    for (const auto& [key, texts] : values)
        all.insert(qt_text(key), ini_value(texts));
    return all;
}

SettingValues setting_values(const IniValues& values) {
    SettingValues all;
    for (auto one = values.begin(); one != values.end(); ++one)
        all.emplace(one.key().toStdString(), texts_of(one.value()));
    return all;
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

struct SettingsFile::Content {
    enum class State : unsigned char { good, damaged, unknown };
    State state = State::good;
    IniValues values;
    Failure reason = {};
};

SettingsFile::SettingsFile(const std::string& path) {
    std::error_code error;
    const auto real = std::filesystem::weakly_canonical(path, error);
    m_path = error ? path : real.string();
    m_folder = std::filesystem::path(m_path).parent_path().string();
}

SettingsFile::Content SettingsFile::read() const {
    using State = Content::State;
    const auto file = read_small_file(m_path, size_limit);
    if (file.outcome == FileReading::Outcome::missing)
        return {};
    if (file.outcome != FileReading::Outcome::read) {
        const bool unfit = file.outcome == FileReading::Outcome::unfit;
        return {.state = unfit ? State::damaged : State::unknown, .values = {}, .reason = file.reason};
    }
    const auto values = parse_ini(QByteArray::fromStdString(file.bytes), qt_text(m_folder));
    if (values)
        return {.values = *values};
    const bool is_unknown = values.error().code == FailureCode::no_scratch_file;
    return {.state = is_unknown ? State::unknown : State::damaged, .values = {}, .reason = values.error()};
}

Failure SettingsFile::problem(FailureCode code, Failure cause) const {
    return failed(code, {m_path}, std::move(cause)).value();
}

Result<Failure> SettingsFile::keep_aside(const Content& damaged) const {
    return set_file_aside(m_path)
        .map([&](const std::string& name) {
            return failed(FailureCode::settings_kept_aside, {name},
                          problem(FailureCode::settings_damaged, damaged.reason))
                .value();
        })
        .map_error([&](Failure cause) { return problem(FailureCode::settings_damaged_in_place, std::move(cause)); });
}

// Two programs that start at once must not put aside each other's new file.
std::optional<Failure> SettingsFile::put_in_order(Content& content) const {
    using State = Content::State;
    FileLock lock;
    if (content.state == State::damaged) {
        if (auto locked = lock.lock(m_path, lock_limit_at_start); !locked)
            return problem(FailureCode::settings_damaged_in_place, std::move(locked.error()));
        content = read();
    }
    if (content.state == State::damaged) {
        auto kept = keep_aside(content);
        return kept ? *kept : kept.error();
    }
    if (content.state == State::unknown)
        return problem(FailureCode::settings_unreadable, content.reason);
    return std::nullopt;
}

SettingValues SettingsFile::load(std::optional<Failure>& failure) const {
    Content content = read();
    failure = put_in_order(content);
    if (failure)
        failure = failed(FailureCode::defaults_used, {}, *std::move(failure)).value();
    return setting_values(content.values);
}

int SettingsFile::look_again(SettingValues& values) const {
    const Content content = read();
    if (content.state != Content::State::good)
        return -1;
    values = setting_values(content.values);
    return 0;
}

Result<std::optional<Failure>> SettingsFile::save(const SettingChanges& changes, const SettingValues& known) const {
    FileLock lock;
    if (auto locked = make_private_folder(m_folder).and_then([&] { return lock.lock(m_path, lock_limit); }); !locked)
        return tl::unexpected(std::move(locked.error()));
    const Content content = read();
    if (content.state == Content::State::unknown)
        return tl::unexpected(problem(FailureCode::settings_unreadable, content.reason));
    std::optional<Failure> kept_aside;
    if (content.state == Content::State::damaged) {
        auto kept = keep_aside(content);
        if (!kept)
            return tl::unexpected(std::move(kept.error()));
        kept_aside = *std::move(kept);
    }
    const IniValues wanted = laid_over(kept_aside ? ini_values(known) : content.values, changes);
    if (!kept_aside && wanted == content.values)
        return kept_aside;
    return format_ini(wanted, qt_text(m_folder))
        .map_error([&](Failure cause) { return problem(FailureCode::cannot_write, std::move(cause)); })
        .and_then([&](const QByteArray& text) { return replace_small_file(m_path, text.toStdString()); })
        .map([&] { return kept_aside; });
}

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
