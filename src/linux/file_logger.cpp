#include "linux/file_logger.h"

#include "base/local_clock.h"
#include "base/utf8.h"
#include "linux/file_descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

#include <fmt/format.h>

namespace tickervantage {
namespace {

constexpr std::size_t backlog_limit = 1000;
constexpr std::size_t sentence_limit = 4096;
constexpr off_t file_limit = 1 << 20;

const char* name_of(LogLevel level) {
    switch (level) {
    case LogLevel::info:
        return "info";
    case LogLevel::warning:
        return "warning";
    case LogLevel::error:
        break;
    }
    return "error";
}

// Bytes of the printable character at the start of the text; 0 when there is none.
std::size_t printable_length(std::string_view text) {
    const std::size_t length = character_length(text);
    return length == 0 || is_control(text.substr(0, length)) ? 0 : length;
}

void append_harmless(std::string& line, std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = printable_length(text);
        if (length == 0)
            line += fmt::format("\\x{:02x}", static_cast<unsigned char>(text.front()));
        else
            line.append(text.substr(0, length));
        text.remove_prefix(length == 0 ? 1 : length);
    }
}

std::string_view cut(std::string_view sentence) {
    if (sentence.size() <= sentence_limit)
        return sentence;
    std::size_t end = sentence_limit;
    while (end > sentence_limit - 4 && (static_cast<unsigned char>(sentence[end]) & 0xc0U) == 0x80)
        --end;
    return sentence.substr(0, end);
}

} // namespace

std::string log_line(std::chrono::system_clock::time_point time, LogLevel level, std::string_view sentence) {
    const auto second = std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
    auto line = fmt::format("{} {} ", utc_stamp(second), name_of(level));
    append_harmless(line, cut(sentence));
    if (sentence.size() > sentence_limit)
        line += "...";
    return line;
}

struct FileLogger::State {
    explicit State(std::string place) : folder(std::move(place)) {}

    const std::string folder;
    std::mutex waiting_mutex; // guards the five below
    std::string waiting;      // whole lines
    std::size_t lines = 0;    // in `waiting`
    std::size_t dropped = 0;
    bool scheduled = false; // the queue has a piece of work for us
    bool closed = false;

    std::mutex file_mutex; // guards the file and `complained`; taken before waiting_mutex
    bool complained = false;

    // True when the queue has to be told.
    bool add(const std::string& line) {
        const std::lock_guard lock(waiting_mutex);
        if (closed)
            return false;
        if (lines >= backlog_limit) {
            ++dropped;
            return false;
        }
        waiting.append(line).push_back('\n');
        ++lines;
        return !std::exchange(scheduled, true);
    }

    std::string take(std::chrono::system_clock::time_point time) {
        const std::lock_guard lock(waiting_mutex);
        scheduled = false;
        lines = 0;
        auto text = std::exchange(waiting, {});
        if (const auto count = std::exchange(dropped, 0); count > 0)
            text += log_line(time, LogLevel::warning, fmt::format("{} lines were dropped here.", count)) + "\n";
        return text;
    }

    void drain(std::chrono::system_clock::time_point time) {
        const std::lock_guard lock(file_mutex);
        const auto text = take(time);
        if (!text.empty() && append(text) != 0 && !std::exchange(complained, true))
            fmt::print(stderr, "The log {}/tickervantage.log cannot be written: {}.\n", folder,
                       std::generic_category().message(errno));
    }

    int append(const std::string& text) {
        FileDescriptor file = open_log();
        struct stat info {};
        if (!file.valid() || fstat(file.get(), &info) != 0)
            return -1;
        if (info.st_size > 0 && info.st_size + static_cast<off_t>(text.size()) > file_limit) {
            const auto path = folder + "/tickervantage.log";
            if (std::rename(path.c_str(), (path + ".1").c_str()) != 0)
                return -1;
            file = open_log();
        }
        return file.valid() ? write_all(file.get(), text) : -1;
    }

    [[nodiscard]] FileDescriptor open_log() const {
        std::error_code error;
        if (std::filesystem::create_directories(folder, error)) // errors show when the file is opened
            std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
        const auto path = folder + "/tickervantage.log";
        // NONBLOCK: a named pipe in the file's place must not stop the queue.
        FileDescriptor file(
            open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
        if (file.valid() && fchmod(file.get(), 0600) != 0)
            file.reset();
        return file;
    }
};

FileLogger::FileLogger(DispatchQueueSerial& queue, const std::string& folder, WallClock now)
    : m_queue(queue), m_now(std::move(now)), m_state(std::make_shared<State>(folder)) {}

FileLogger::~FileLogger() {
    close();
}

void FileLogger::log(LogLevel level, std::string_view sentence) {
    const auto time = m_now();
    if (m_state->add(log_line(time, level, sentence)))
        m_queue.async([state = m_state, now = m_now] { state->drain(now()); });
}

void FileLogger::close() {
    {
        const std::lock_guard lock(m_state->waiting_mutex);
        m_state->closed = true;
    }
    m_state->drain(m_now());
}

} // namespace tickervantage
