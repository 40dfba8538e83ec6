// A stretch of a log in pieces of whole lines, so that a log of any size passes through little memory.
//
// What is not UTF-8 is dropped, a piece at a time, and so is a line longer than any log has. Lines end at line feeds;
// the last one of the stretch may lack its own. One thread; reading waits for the disk.
#pragma once

#include "base/followed_file.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tickervantage {

class LogPieces {
public:
    static constexpr std::size_t PIECE_SIZE = std::size_t{1} << 20U;
    static constexpr std::size_t LONGEST_LINE = std::size_t{16} << 20U;

    enum class Bytes : unsigned char { utf8, any }; // any: a piece is handed out whatever it holds

    // The stretch [from, end) of the file, which outlives this.
    LogPieces(FollowedFile& file, std::uint64_t from, std::uint64_t end, Bytes wanted = Bytes::utf8);

    // The last line of the whole stretch that is not empty; empty when there is none, or when it is too long. May be
    // asked before the pieces.
    [[nodiscard]] int last_line(std::string& line, std::optional<Failure>& reason);

    enum class Next : signed char { failed = -1, end, piece };
    [[nodiscard]] Next next(std::string& text, std::optional<Failure>& reason);

    // Up to here the file has been handed out or dropped.
    [[nodiscard]] std::uint64_t position() const { return m_position; }

private:
    [[nodiscard]] int fill(std::optional<Failure>& reason);
    [[nodiscard]] bool cut(std::string& text);
    void drop(std::size_t bytes);

    FollowedFile& m_file;
    std::uint64_t m_from;
    std::uint64_t m_read; // up to here
    std::uint64_t m_end;
    std::uint64_t m_position;
    Bytes m_wanted;
    bool m_is_in_long_line = false;
    std::string m_text; // read, not handed out yet
};

// Takes the next line that is not empty from the text; empty when there is none.
[[nodiscard]] std::string_view take_line(std::string_view& text);

// The last line of the text that is not empty.
[[nodiscard]] std::string_view last_line_of(std::string_view text);

// Whether a text that begins so is a log of chronyd's: with a banner, or a record.
[[nodiscard]] bool begins_as_log(std::string_view start);

// Reads a whole log, line by line; a line that is no UTF-8 is handed out as "\xEF\xBF\xBD", so that no reader takes it
// for a record. A failure names `name`; lines before the damage were handed out.
using PlainLine = std::function<void(std::string_view line)>;
using NumberedLine = std::function<void(std::string_view line, std::size_t number)>; // from 1, empty lines counted
[[nodiscard]] Result<> read_log(FollowedFiles& files, const std::string& name, const PlainLine& line);
[[nodiscard]] Result<> read_log(FollowedFiles& files, const std::string& name, const NumberedLine& line);

// How far a log was read, so that reading can go on there.
struct LogTail {
    FileStatus status = {};     // no inode: nothing was read yet
    std::uint64_t position = 0; // bytes
    std::size_t number = 1;     // of the next line
    std::string text = {};      // before the position, to know the log by
    bool is_whole = true;       // what was read ends with a line's end
};

// Reads what the log gained since then. True: it was handed out, whole lines only but for the first time, and the tail
// is behind it. False: this is not the log that was read, or a line that was handed out goes on: all is to be read
// anew.
[[nodiscard]] Result<bool> read_log_on(FollowedFiles& files, const std::string& name, LogTail& tail,
                                       const NumberedLine& line);

} // namespace tickervantage
