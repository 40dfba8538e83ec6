#include "chrony/log/logreader.h"

#include "base/failure_codes.h"
#include "chrony/log/log_pieces.h"

#include <atomic>
#include <deque>
#include <optional>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::chrono::microseconds step{50000};
constexpr int steps_for_half_line = 4;
constexpr std::chrono::milliseconds slice{4}; // a timer that is due meanwhile waits so long
constexpr std::size_t pieces_waiting = 2;

struct Piece {
    std::string text;
    std::string last; // line of its block
    std::size_t at = 0;
};

// How many lines may pass before the next look at the clock: looking costs as much as a short line.
class Stride {
public:
    explicit Stride(const LogReaderTiming& timing) : m_timing(timing), m_last(timing.now()), m_end(m_last + slice) {}

    [[nodiscard]] bool has_time() {
        if (++m_lines < m_stride)
            return true;
        constexpr std::chrono::microseconds brief{100};
        constexpr int most_lines = 64;
        const auto now = m_timing.now();
        m_stride = now - m_last < brief ? std::min(2 * m_stride, most_lines) : 1;
        m_last = now;
        m_lines = 0;
        return now < m_end;
    }

private:
    const LogReaderTiming& m_timing;
    LogReaderTiming::Clock::time_point m_last;
    LogReaderTiming::Clock::time_point m_end;
    int m_stride = 1;
    int m_lines = 0;
};

} // namespace

// The file. It stays open between two runs; used on the queue only.
class LogReader::Source {
public:
    Source(std::string name, FollowedFiles& files, MainThread& main_thread, LogReaderTiming timing)
        : m_name(std::move(name)), m_files(files), m_main_thread(main_thread), m_timing(std::move(timing)) {}

    const std::string m_name;
    FollowedFiles& m_files;
    MainThread& m_main_thread;
    const LogReaderTiming m_timing;
    std::unique_ptr<FollowedFile> m_file; // null: not open
    FileStatus m_inode;                   // of the open file
};

// One loop, from follow() to stop(), with what it hands to the main thread.
class LogReader::Run : public std::enable_shared_from_this<Run> {
public:
    Run(std::shared_ptr<Source> source, std::weak_ptr<Handlers> handlers)
        : m_source(std::move(source)), m_handlers(std::move(handlers)) {}

    void loop();
    void stop();

private:
    void pause(std::chrono::microseconds time);
    void poll();
    [[nodiscard]] bool open_current();
    void read_block();
    void let_line_be_finished(std::uint64_t& length);
    void deliver(std::uint64_t end, std::optional<Failure>& reason);
    void hand(Piece piece);
    void await_room_for(std::size_t pieces, std::unique_lock<std::mutex>& lock);
    void report(const std::optional<Failure>& problem);
    void report_unreadable(const Failure& reason);

    // On the main thread.
    void run_slice();
    [[nodiscard]] bool handle(Piece& piece, const Handlers& handlers, Stride& stride) const;

    const std::shared_ptr<Source> m_source;
    const std::weak_ptr<Handlers> m_handlers; // gone with the reader

    std::mutex m_mutex; // guards the change of m_run to false, m_pieces and m_slice_waits
    std::condition_variable m_changed;
    std::atomic<bool> m_run = true;
    std::deque<std::shared_ptr<Piece>> m_pieces;
    bool m_slice_waits = false;

    // Of the loop only.
    std::uint64_t m_offset = 0;
    bool m_has_read = false;                         // from the open file, in this run
    std::optional<std::optional<Failure>> m_problem; // reported last; none: nothing was
};

void LogReader::Run::stop() {
    {
        const std::lock_guard lock(m_mutex);
        m_run = false;
    }
    m_changed.notify_all();
}

void LogReader::Run::pause(std::chrono::microseconds time) {
    std::unique_lock lock(m_mutex);
    if (m_run)
        m_source->m_timing.wait(m_changed, lock, time);
}

void LogReader::Run::loop() {
    while (m_run) {
        poll();
        pause(std::chrono::microseconds(POLLINTERVAL));
    }
}

void LogReader::Run::report(const std::optional<Failure>& problem) {
    if (m_problem.has_value() && *m_problem == problem)
        return;
    m_problem.emplace(problem);
    m_source->m_main_thread.main_async([self = shared_from_this(), problem] {
        const auto handlers = self->m_handlers.lock();
        if (self->m_run && handlers && handlers->problem)
            handlers->problem(problem);
    });
}

void LogReader::Run::report_unreadable(const Failure& reason) {
    report(failed(FailureCode::file_unreadable, {m_source->m_name}, reason).value());
}

void LogReader::Run::poll() {
    if (!open_current())
        return;
    m_has_read = true;
    read_block();
}

// Whether the file that bears the name now is open.
bool LogReader::Run::open_current() {
    Source& source = *m_source;
    FileStatus status;
    std::optional<Failure> reason;
    switch (source.m_files.status(source.m_name, status, reason)) {
    case FollowedFiles::Found::nothing:
        report(Failure{.code = FailureCode::no_such_file, .arguments = {source.m_name}});
        return false;
    case FollowedFiles::Found::unreadable:
        report_unreadable(reason.value_or(Failure()));
        return false;
    case FollowedFiles::Found::file:
        break;
    }
    if (source.m_file && status.is_same_file(source.m_inode))
        return true;
    if (source.m_file && m_has_read)
        read_block(); // what came in before the file was replaced
    source.m_file.reset();
    m_offset = 0;
    if (source.m_files.open(source.m_name, source.m_file, source.m_inode, reason) == 0)
        return true;
    report_unreadable(reason.value_or(Failure()));
    return false;
}

void LogReader::Run::read_block() {
    std::uint64_t length = 0;
    std::optional<Failure> reason;
    if (m_source->m_file->length([this] { return m_run.load(); }, length, reason) == 0 && m_offset < length) {
        let_line_be_finished(length);
        deliver(length, reason);
    }
    if (!m_run)
        return;
    if (!reason)
        report(std::nullopt);
    else
        report_unreadable(*reason);
}

void LogReader::Run::let_line_be_finished(std::uint64_t& length) {
    for (int i = 0; i < steps_for_half_line && m_run; ++i) {
        char last = 0;
        std::size_t count = 0;
        std::optional<Failure> reason; // the reading that follows meets it again
        if (m_source->m_file->read(length - 1, {&last, 1}, count, reason) != 0 || count == 0 || last == '\n')
            return;
        pause(step);
        std::uint64_t now = 0;
        if (m_source->m_file->length([this] { return m_run.load(); }, now, reason) != 0 || now < length)
            return;
        length = now;
    }
}

// The last piece is held back until it is known that none follows: when the rest of the block is dropped, its own last
// line takes the place of the block's.
void LogReader::Run::deliver(std::uint64_t end, std::optional<Failure>& reason) {
    LogPieces pieces(*m_source->m_file, m_offset, end);
    std::string last;
    std::optional<Piece> held;
    if (pieces.last_line(last, reason) == 0) {
        std::string text;
        while (m_run && pieces.next(text, reason) == LogPieces::Next::piece) {
            if (held)
                hand(std::move(*held));
            held = Piece{std::move(text), last};
        }
    }
    m_offset = pieces.position();
    if (held) {
        held->last = last_line_of(held->text);
        hand(std::move(*held));
    }
    std::unique_lock lock(m_mutex);
    await_room_for(0, lock);
}

void LogReader::Run::await_room_for(std::size_t pieces, std::unique_lock<std::mutex>& lock) {
    while (m_run && m_pieces.size() > pieces)
        m_source->m_timing.wait(m_changed, lock, step);
}

void LogReader::Run::hand(Piece piece) {
    std::unique_lock lock(m_mutex);
    await_room_for(pieces_waiting - 1, lock);
    if (!m_run)
        return;
    m_pieces.push_back(std::make_shared<Piece>(std::move(piece)));
    if (!std::exchange(m_slice_waits, true))
        m_source->m_main_thread.main_async([self = shared_from_this()] { self->run_slice(); });
}

void LogReader::Run::run_slice() {
    const auto handlers = m_handlers.lock(); // outlives a handler that destroys the reader
    Stride stride(m_source->m_timing);
    while (m_run && handlers) {
        std::unique_lock lock(m_mutex);
        if (m_pieces.empty()) {
            m_slice_waits = false;
            return;
        }
        const auto piece = m_pieces.front();
        lock.unlock();
        if (!handle(*piece, *handlers, stride))
            break;
        lock.lock();
        m_pieces.pop_front();
        lock.unlock();
        m_changed.notify_all();
    }
    if (m_run && handlers)
        m_source->m_main_thread.main_async([self = shared_from_this()] { self->run_slice(); });
}

// False: the time is over, or the run.
bool LogReader::Run::handle(Piece& piece, const Handlers& handlers, Stride& stride) const {
    std::string_view rest = std::string_view(piece.text).substr(piece.at);
    while (true) {
        const auto line = take_line(rest);
        if (line.empty())
            return true;
        piece.at = piece.text.size() - rest.size();
        handlers.line(line, line == piece.last);
        if (!m_run || !stride.has_time())
            return false;
    }
}

LogReader::LogReader(std::string name, FollowedFiles& files, DispatchQueueSerial& queue, MainThread& main_thread,
                     Handlers handlers, LogReaderTiming timing)
    : m_queue(queue), m_source(std::make_shared<Source>(std::move(name), files, main_thread, std::move(timing))),
      m_handlers(std::make_shared<Handlers>(std::move(handlers))) {}

LogReader::~LogReader() {
    stop();
}

void LogReader::follow() {
    stop();
    m_run = std::make_shared<Run>(m_source, m_handlers);
    m_queue.async([run = m_run] { run->loop(); });
}

void LogReader::stop() {
    if (m_run)
        m_run->stop();
    m_run.reset();
}

} // namespace tickervantage
