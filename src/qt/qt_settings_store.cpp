#include "qt/qt_settings_store.h"

#include <QFileSystemWatcher>
#include <QString>

#include "base/failure_codes.h"
#include "linux/small_file.h"
#include "qt/settings_file.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace tickervantage {

namespace {

std::string as_utf8(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

} // namespace

struct QtSettingsStore::Shared {
    Shared(const std::string& path, Logger& log) : file(path), logger(log) { values = file.load(load_problem); }

    const SettingsFile file;
    Logger& logger;
    std::optional<Failure> load_problem;
    ProblemHandler handler;            // main thread only
    Work changed;                      // likewise
    std::atomic<bool> looking = false; // a look at the file is on its way

    std::mutex mutex; // guards what follows
    std::condition_variable rest;
    SettingValues values;
    SettingChanges pending;
    bool scheduled = false;
    std::optional<Failure> save_problem;
    MainThread* main_thread = nullptr;

    static void save_all(const std::shared_ptr<Shared>& shared);
    static void report(const std::shared_ptr<Shared>& shared, const std::optional<Failure>& problem);

    bool save_once(std::optional<Failure>& problem);
    bool take_changes();
    [[nodiscard]] bool rest_or_more(bool saved);
};

// The locks are held while copying only, never while the disk works.
bool QtSettingsStore::Shared::save_once(std::optional<Failure>& problem) {
    SettingChanges changes;
    SettingValues known;
    {
        const std::lock_guard lock(mutex);
        changes = pending;
        known = values;
    }
    const auto done = file.save(changes, known);
    problem = done ? *done : done.error();
    if (!done)
        return false;
    const std::lock_guard lock(mutex);
    std::erase_if(pending, [&](const auto& one) {
        const auto saved = changes.find(one.first);
        return saved != changes.end() && saved->second == one.second;
    });
    return true;
}

// What the program has changed and not saved yet is newer than the file. Whether anything else is new.
bool QtSettingsStore::Shared::take_changes() {
    SettingValues found;
    if (file.look_again(found) != 0)
        return false; // damaged, or not readable just now: what is known holds
    const std::lock_guard lock(mutex);
    for (const auto& [key, texts] : pending) {
        if (texts)
            found.insert_or_assign(key, *texts);
        else
            found.erase(key);
    }
    const bool is_new = found != values;
    values = std::move(found);
    return is_new;
}

// Whether there is more to save now; otherwise the next change schedules again.
bool QtSettingsStore::Shared::rest_or_more(bool saved) {
    const std::lock_guard lock(mutex);
    if (saved && !pending.empty())
        return true;
    scheduled = false;
    rest.notify_all();
    return false;
}

void QtSettingsStore::Shared::save_all(const std::shared_ptr<Shared>& shared) {
    bool saved = true;
    do {
        std::optional<Failure> problem;
        saved = shared->save_once(problem);
        report(shared, problem);
    } while (shared->rest_or_more(saved));
}

void QtSettingsStore::Shared::report(const std::shared_ptr<Shared>& shared, const std::optional<Failure>& problem) {
    MainThread* main_thread = nullptr;
    {
        const std::lock_guard lock(shared->mutex);
        if (std::exchange(shared->save_problem, problem) == problem)
            return;
        main_thread = shared->main_thread;
    }
    if (!problem) {
        shared->logger.log(LogLevel::info, "Settings are saved again.");
        return;
    }
    shared->logger.log(LogLevel::error, english(*problem));
    if (main_thread != nullptr)
        main_thread->main_async([weak = std::weak_ptr(shared), problem = *problem] {
            const auto alive = weak.lock();
            if (alive && alive->handler)
                alive->handler(problem);
        });
}

QtSettingsStore::QtSettingsStore(const std::string& path, DispatchQueueSerial& queue, Logger& logger)
    : m_shared(std::make_shared<Shared>(path, logger)), m_queue(queue) {
    if (m_shared->load_problem)
        logger.log(LogLevel::error, english(*m_shared->load_problem));
}

QtSettingsStore::~QtSettingsStore() {
    m_shared->handler = nullptr;
    m_shared->changed = nullptr;
    const std::lock_guard lock(m_shared->mutex);
    m_shared->main_thread = nullptr;
}

std::optional<std::vector<std::string>> QtSettingsStore::read(std::string_view key) const {
    const std::lock_guard lock(m_shared->mutex);
    const auto found = m_shared->values.find(key);
    return found == m_shared->values.end() ? std::nullopt : std::optional(found->second);
}

void QtSettingsStore::write(std::string_view key, const std::vector<std::string>& value) {
    std::vector<std::string> texts;
    texts.reserve(value.size());
    for (const auto& text : value)
        texts.push_back(as_utf8(text));
    change(key, std::move(texts));
}

void QtSettingsStore::remove(std::string_view key) {
    change(key, std::nullopt);
}

// A value that stays as it is makes no work, and so leaves alone what another process may have put there.
void QtSettingsStore::change(std::string_view key, std::optional<std::vector<std::string>> value) {
    if (key.empty() || read(key) == value)
        return;
    {
        const std::lock_guard lock(m_shared->mutex);
        if (value)
            m_shared->values.insert_or_assign(std::string(key), *value);
        else
            m_shared->values.erase(m_shared->values.find(key));
        m_shared->pending.insert_or_assign(std::string(key), std::move(value));
    }
    schedule();
}

void QtSettingsStore::schedule() {
    {
        const std::lock_guard lock(m_shared->mutex);
        if (m_shared->pending.empty() || std::exchange(m_shared->scheduled, true))
            return;
    }
    m_queue.async([shared = m_shared] { Shared::save_all(shared); });
}

std::optional<Failure> QtSettingsStore::load_problem() const {
    return m_shared->load_problem;
}

std::optional<Failure> QtSettingsStore::save_problem() const {
    const std::lock_guard lock(m_shared->mutex);
    return m_shared->save_problem;
}

void QtSettingsStore::set_problem_handler(MainThread& main_thread, ProblemHandler handler) {
    m_shared->handler = std::move(handler);
    const std::lock_guard lock(m_shared->mutex);
    m_shared->main_thread = m_shared->handler ? &main_thread : nullptr;
}

void QtSettingsStore::watch(MainThread& main_thread, Work changed) {
    m_shared->changed = std::move(changed);
    m_watch_thread = &main_thread;
    m_watcher = std::make_unique<QFileSystemWatcher>();
    QObject::connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, m_watcher.get(), [this] { look_again(); });
    QObject::connect(m_watcher.get(), &QFileSystemWatcher::fileChanged, m_watcher.get(), [this] { look_again(); });
    (void)make_private_folder(m_shared->file.folder()); // what cannot be made cannot be watched; a save tells
    watch_paths();
}

// The folder, since the file is replaced as a whole, and the file, since an editor may write into it. A file that was
// replaced is no longer watched.
void QtSettingsStore::watch_paths() {
    const auto known = m_watcher->directories() + m_watcher->files();
    for (const auto& path : {m_shared->file.folder(), m_shared->file.path()})
        if (const auto text = QString::fromStdString(path); !known.contains(text))
            (void)m_watcher->addPath(text); // there may be no file yet
}

void QtSettingsStore::look_again() {
    watch_paths();
    if (m_shared->looking.exchange(true))
        return;
    m_queue.async([shared = m_shared, &main_thread = *m_watch_thread] {
        shared->looking = false; // a change from now on is a reason for another look
        if (shared->take_changes())
            main_thread.main_async([weak = std::weak_ptr(shared)] {
                const auto alive = weak.lock();
                if (alive && alive->changed)
                    alive->changed();
            });
    });
}

Result<> QtSettingsStore::finish(std::chrono::milliseconds time_limit) {
    schedule(); // also what failed before
    std::unique_lock lock(m_shared->mutex);
    if (!m_shared->rest.wait_for(lock, time_limit, [&] { return !m_shared->scheduled; }))
        return failed(FailureCode::settings_not_saved_in_time);
    if (m_shared->pending.empty())
        return {};
    return tl::unexpected(m_shared->save_problem.value_or(Failure{.code = FailureCode::settings_not_saved_in_time}));
}

} // namespace tickervantage
