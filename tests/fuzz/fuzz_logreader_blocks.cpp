// Any bytes as a log that grows, is cut and replaced, in any order: only lines that somebody wrote arrive, all of them
// UTF-8, and the last of every block bears the flag. The first bytes say how much is written at a time.
#include "base/utf8.h"
#include "chrony/log/log_pieces.h"
#include "chrony/log/logreader.h"
#include "fuzz/require.h"
#include "support/fake_followed_files.h"
#include "support/manual_dispatch.h"

#include <string_view>

namespace {

class Writer {
public:
    Writer(testing::FakeFollowedFiles& files, std::string_view bytes) : m_files(files), m_rest(bytes) {}

    // False: all was written.
    bool act() {
        if (m_rest.size() < 2)
            return false;
        const auto deed = static_cast<unsigned char>(m_rest[0]) % 8;
        const auto count = std::min<std::size_t>(static_cast<unsigned char>(m_rest[1]), m_rest.size() - 2);
        const auto text = m_rest.substr(2, count);
        m_rest.remove_prefix(2 + count);
        if (deed == 0)
            m_files.remove("log");
        else if (deed == 1 || !m_exists)
            m_files.create("log", std::string(text));
        else if (deed == 2)
            m_files.at("log").text.resize(m_files.at("log").text.size() / 2);
        else if (deed == 3)
            m_files.at("log").fails_when_read = !m_files.at("log").fails_when_read;
        else
            m_files.at("log").text += text;
        m_exists = deed != 0;
        return true;
    }

private:
    testing::FakeFollowedFiles& m_files;
    std::string_view m_rest;
    bool m_exists = false;
};

} // namespace

FUZZED(bytes) {
    testing::FakeFollowedFiles files;
    testing::ManualQueue queue;
    testing::ManualMainThread main_thread;
    Writer writer(files, bytes);
    bool is_flagged = true;
    LogReader* running = nullptr;
    LogReaderTiming timing;
    timing.wait = [&](std::condition_variable&, std::unique_lock<std::mutex>& lock, std::chrono::microseconds time) {
        lock.unlock();
        main_thread.turn();
        const bool is_between_blocks = time == std::chrono::microseconds(LogReader::POLLINTERVAL);
        require(!is_between_blocks || is_flagged);
        if (is_between_blocks && !writer.act())
            running->stop();
        lock.lock();
    };
    const auto on_line = [&](std::string_view line, bool last) {
        require(!line.empty() && line.find('\n') == std::string_view::npos && is_utf8(line));
        require(line.size() > 1 || bytes.find(line) != std::string::npos); // longer ones may be put together
        is_flagged = last;
    };
    LogReader reader("log", files, queue, main_thread, {on_line, {}}, timing);
    running = &reader;
    reader.follow();
    queue.turn();
}
