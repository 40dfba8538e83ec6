#include "qt/settings_file.h"

#include <fmt/format.h>

#include "linux/small_file.h"
#include "qt/ini_text.h"

#include <filesystem>
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

} // namespace

struct SettingsFile::Content {
    enum class State : unsigned char { good, damaged, unknown };
    State state = State::good;
    IniValues values;
    std::string reason;
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
    if (file.outcome == SmallFile::Outcome::missing)
        return {};
    if (file.outcome != SmallFile::Outcome::read) {
        const bool unfit = file.outcome == SmallFile::Outcome::unfit;
        return {.state = unfit ? State::damaged : State::unknown, .values = {}, .reason = file.reason};
    }
    Content content;
    QString reason;
    const auto reading = parse_ini(QByteArray::fromStdString(file.bytes), qt_text(m_folder), content.values, reason);
    if (reading != IniReading::read)
        content.state = reading == IniReading::damaged ? State::damaged : State::unknown;
    content.reason = reason.toStdString();
    return content;
}

bool SettingsFile::keep_aside(const Content& damaged, std::string& sentence) const {
    std::string kept_as;
    std::string failure;
    const bool kept = set_file_aside(m_path, kept_as, failure) == 0;
    sentence = fmt::format("The settings file {} is damaged ({}). {}", m_path, damaged.reason,
                           kept ? "It is kept as " + kept_as + "." : failure);
    return kept;
}

SettingValues SettingsFile::load(std::string& sentence) const {
    using State = Content::State;
    sentence.clear();
    Content content = read();
    FileLock lock; // two programs that start at once must not put aside each other's new file
    if (content.state == State::damaged && lock.lock(m_path, lock_limit_at_start, sentence) == 0) {
        content = read();
        if (content.state == State::damaged)
            (void)keep_aside(content, sentence); // the sentence says how it went
    } else if (content.state == State::damaged) {
        sentence = fmt::format("The settings file {} is damaged ({}). {}", m_path, content.reason, sentence);
    }
    if (content.state == State::unknown)
        sentence = fmt::format("The settings file {} cannot be read ({}).", m_path, content.reason);
    if (!sentence.empty())
        sentence += " The defaults are used.";
    return setting_values(content.values);
}

int SettingsFile::look_again(SettingValues& values) const {
    const Content content = read();
    if (content.state != Content::State::good)
        return -1;
    values = setting_values(content.values);
    return 0;
}

int SettingsFile::save(const SettingChanges& changes, const SettingValues& known, std::string& sentence) const {
    using State = Content::State;
    sentence.clear();
    FileLock lock;
    if (make_private_folder(m_folder, sentence) != 0 || lock.lock(m_path, lock_limit, sentence) != 0)
        return -1;
    Content content = read();
    if (content.state == State::unknown) {
        sentence = fmt::format("The settings file {} cannot be read ({}).", m_path, content.reason);
        return -1;
    }
    if (content.state == State::damaged && !keep_aside(content, sentence))
        return -1;
    const bool damaged = content.state == State::damaged;
    const IniValues wanted = laid_over(damaged ? ini_values(known) : content.values, changes);
    if (!damaged && wanted == content.values)
        return 0;
    QByteArray text;
    QString reason;
    if (format_ini(wanted, qt_text(m_folder), text, reason) != 0) {
        sentence = fmt::format("Cannot write {}: {}.", m_path, reason.toStdString());
        return -1;
    }
    return replace_small_file(m_path, {text.constData(), static_cast<std::size_t>(text.size())}, sentence);
}

} // namespace tickervantage
