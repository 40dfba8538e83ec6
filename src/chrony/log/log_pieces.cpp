#include "chrony/log/log_pieces.h"

#include "base/failure_codes.h"
#include "base/utf8.h"

#include <algorithm>
#include <memory>

namespace tickervantage {

std::string_view take_line(std::string_view& text) {
    while (text.starts_with('\n'))
        text.remove_prefix(1);
    if (text.empty())
        return {};
    const auto length = std::min(text.find('\n'), text.size());
    const auto line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return line;
}

std::string_view last_line_of(std::string_view text) {
    text = text.substr(0, text.find_last_not_of('\n') + 1); // npos + 1 is 0
    return text.substr(text.rfind('\n') + 1);
}

LogPieces::LogPieces(FollowedFile& file, std::uint64_t from, std::uint64_t end, Bytes wanted)
    : m_file(file), m_from(from), m_read(from), m_end(end), m_position(from), m_wanted(wanted) {}

int LogPieces::last_line(std::string& line, std::optional<Failure>& reason) {
    line.clear();
    std::size_t window = 4096;
    std::string tail;
    for (std::uint64_t stop = m_end; stop > m_from && window <= LONGEST_LINE;) {
        const std::uint64_t start = stop - std::min<std::uint64_t>(window, stop - m_from);
        std::size_t count = 0;
        tail.resize(static_cast<std::size_t>(stop - start));
        if (m_file.read(start, tail, count, reason) != 0)
            return -1;
        tail.resize(count);
        const auto last = tail.find_last_not_of('\n');
        if (last == std::string::npos) {
            stop = start;
            continue;
        }
        tail.resize(last + 1);
        const auto line_end = tail.rfind('\n');
        if (line_end != std::string::npos || start == m_from) {
            line = tail.substr(line_end + 1); // npos + 1 is 0
            return 0;
        }
        stop = start + tail.size();
        window *= 4;
    }
    return 0;
}

int LogPieces::fill(std::optional<Failure>& reason) {
    const std::size_t before = m_text.size();
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(PIECE_SIZE, m_end - m_read));
    m_text.resize(before + wanted);
    std::size_t count = 0;
    const int result = m_file.read(m_read, std::span(m_text).subspan(before), count, reason);
    m_text.resize(before + count);
    m_read += count;
    if (result == 0 && count < wanted)
        m_end = m_read; // somebody cut the file
    return result;
}

void LogPieces::drop(std::size_t bytes) {
    m_text.erase(0, bytes);
    m_position += bytes;
}

// Moves whole lines from m_text to `text`; false when there is none yet.
bool LogPieces::cut(std::string& text) {
    const bool is_all = m_read == m_end;
    if (m_is_in_long_line) {
        const auto end = m_text.find('\n');
        m_is_in_long_line = end == std::string::npos && !is_all;
        drop(end == std::string::npos ? m_text.size() : end + 1);
    }
    const auto last = m_text.rfind('\n');
    const auto length = is_all ? m_text.size() : last == std::string::npos ? 0 : last + 1;
    if (length == 0 && m_text.size() > LONGEST_LINE) {
        m_is_in_long_line = true;
        drop(m_text.size());
    }
    if (length == 0)
        return false;
    text = std::move(m_text);
    m_text = text.substr(length);
    text.resize(length);
    m_position += length;
    return true;
}

LogPieces::Next LogPieces::next(std::string& text, std::optional<Failure>& reason) {
    while (m_position < m_end) {
        if (m_read < m_end && fill(reason) != 0)
            return Next::failed;
        if (cut(text) && (m_wanted == Bytes::any || is_utf8(text)))
            return Next::piece;
    }
    return Next::end;
}

bool begins_as_log(std::string_view start) {
    const std::string_view line = take_line(start);
    constexpr std::string_view banner = "====";
    constexpr std::string_view day = "0000-00-00 ";
    const auto fits = [](char letter, char pattern) {
        return pattern == '0' ? letter >= '0' && letter <= '9' : letter == pattern;
    };
    return line.starts_with(banner) || std::ranges::equal(line.substr(0, day.size()), day, fits);
}

namespace {

// The line feeds of the piece are counted on the way, those of empty lines too.
void hand_out(std::string_view piece, std::size_t& number, const NumberedLine& line) {
    const bool is_text = is_utf8(piece);
    const char* counted = piece.data();
    std::string_view rest = piece;
    for (auto one = take_line(rest); !one.empty(); one = take_line(rest)) {
        for (; counted != one.data(); ++counted)
            number += *counted == '\n' ? 1 : 0;
        line(is_text || is_utf8(one) ? one : std::string_view("\xEF\xBF\xBD"), number);
        counted = one.data() + one.size();
    }
    number += static_cast<std::size_t>(std::count(counted, piece.data() + piece.size(), '\n'));
}

// The last bytes before a place; fewer where there are not so many.
int text_before(FollowedFile& file, std::uint64_t place, std::size_t most, std::string& text,
                std::optional<Failure>& reason) {
    text.resize(static_cast<std::size_t>(std::min<std::uint64_t>(place, most)));
    std::size_t count = 0;
    if (text.empty())
        return 0;
    const int done = file.read(place - text.size(), text, count, reason);
    text.resize(count);
    return done;
}

Failure unreadable(const std::string& name, std::optional<Failure> why) {
    return failed(FailureCode::file_unreadable, {name}, std::move(why).value_or(Failure())).value();
}

struct OpenLog {
    std::unique_ptr<FollowedFile> file;
    FileStatus status;
    std::uint64_t length = 0;
    std::optional<Failure> damage = {}; // behind that length
};

Result<OpenLog> open_log(FollowedFiles& files, const std::string& name) {
    OpenLog log;
    if (files.open(name, log.file, log.status, log.damage) != 0 ||
        log.file->length([] { return true; }, log.length, log.damage) != 0)
        return tl::unexpected(unreadable(name, std::move(log.damage)));
    return log;
}

constexpr std::size_t known_by = 256; // bytes: more than one record

// Whether it is still the log of the tail, and up to where it has whole lines.
Result<bool> goes_on(OpenLog& log, const std::string& name, const LogTail& tail) {
    if (!tail.is_whole || !log.status.is_same_file(tail.status) || log.length < tail.position)
        return false;
    std::string text;
    std::optional<Failure> reason;
    if (text_before(*log.file, tail.position, known_by, text, reason) != 0)
        return tl::unexpected(unreadable(name, std::move(reason)));
    if (text != tail.text)
        return false;
    const auto gained =
        static_cast<std::size_t>(std::min<std::uint64_t>(log.length - tail.position, LogPieces::PIECE_SIZE));
    if (text_before(*log.file, log.length, gained, text, reason) != 0)
        return tl::unexpected(unreadable(name, std::move(reason)));
    const std::size_t end = text.rfind('\n');
    log.length -= end == std::string::npos ? text.size() : text.size() - end - 1; // a line is being written
    return true;
}

Result<> hand_out_from(OpenLog& log, const std::string& name, LogTail& tail, const NumberedLine& line) {
    LogPieces pieces(*log.file, tail.position, log.length, LogPieces::Bytes::any);
    std::optional<Failure> reason;
    std::string text;
    auto next = LogPieces::Next::piece;
    while ((next = pieces.next(text, reason)) == LogPieces::Next::piece)
        hand_out(text, tail.number, line);
    if (next != LogPieces::Next::failed)
        reason = std::move(log.damage);
    if (reason) // also for a file that is damaged behind what was handed out
        return tl::unexpected(unreadable(name, std::move(reason)));
    return {};
}

} // namespace

Result<> read_log(FollowedFiles& files, const std::string& name, const PlainLine& line) {
    return read_log(files, name, NumberedLine([&line](std::string_view one, std::size_t) { line(one); }));
}

Result<> read_log(FollowedFiles& files, const std::string& name, const NumberedLine& line) {
    LogTail tail;
    auto log = open_log(files, name);
    return log ? hand_out_from(*log, name, tail, line) : tl::unexpected(log.error());
}

Result<bool> read_log_on(FollowedFiles& files, const std::string& name, LogTail& tail, const NumberedLine& line) {
    auto log = open_log(files, name);
    if (!log)
        return tl::unexpected(log.error());
    if (tail.status.inode != 0)
        if (auto same = goes_on(*log, name, tail); !same || !*same)
            return same;
    if (auto read = hand_out_from(*log, name, tail, line); !read)
        return tl::unexpected(read.error());
    std::optional<Failure> reason;
    if (text_before(*log->file, log->length, known_by, tail.text, reason) != 0)
        return tl::unexpected(unreadable(name, std::move(reason)));
    tail.status = log->status;
    tail.position = log->length;
    tail.is_whole = tail.text.empty() || tail.text.back() == '\n';
    return true;
}

} // namespace tickervantage
