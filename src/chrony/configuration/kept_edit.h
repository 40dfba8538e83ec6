// Edits that were not saved, kept against the program's sudden end, and found again by the next run.
//
// A keeper belongs to one run of the program. Copies are made on a queue, in the order asked for; of several copies of
// one document that wait there, only the newest is written. What lies on the disk goes through functions, which wait
// for it; so do all that `finish` waits for. Otherwise main thread only. The queue outlives the keeper.
#pragma once

#include "base/background.h"
#include "chrony/configuration/config_document.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// A text with what it is an edit of.
struct KeptEdit {
    std::string path; // empty: never saved
    std::string title;
    bool is_installed_config = false;
    LineEnds line_ends = LineEnds::unix_style;
    std::size_t stamp = 0; // of the file, as last read or saved
    std::string text;

    friend bool operator==(const KeptEdit&, const KeptEdit&) = default;
};

[[nodiscard]] std::string format_kept_edit(const KeptEdit& edit);
[[nodiscard]] int parse_kept_edit(std::string_view bytes, KeptEdit& edit); // 0; -1: these are no such bytes

struct LeftFile {
    std::string path;
    std::string bytes;
};

// Names are those of this run's own files.
struct KeptFilesParts {
    ReplaceFile keep;
    std::function<void(const std::string& name)> drop;
    std::function<std::vector<LeftFile>()> left_behind;                              // by runs that have ended
    std::function<Result<>(const std::string& path, const std::string& name)> adopt; // one of those
    std::function<void(const std::string& path)> remove;                             // one of those
};

struct LeftEdit {
    std::string path; // of the file that holds it
    KeptEdit edit;
};

class EditKeeper {
public:
    using Log = std::function<void(const std::string& sentence)>; // from the queue

    EditKeeper(KeptFilesParts files, DispatchQueueSerial& queue, Log log);

    // Documents are counted by the caller. `make` is called on the queue.
    void keep(int document, std::function<KeptEdit()> make);
    void drop(int document);

    // What runs that have ended left behind; `found` gets it on the main thread.
    template <class Found>
    void read_left(Background& background, Found found) {
        background.start(
            m_queue, [files = m_files, log = m_log] { return left_edits(files, log); }, std::move(found));
    }
    void adopt(const std::string& path, int document); // it is the kept copy of that document from now on
    void remove(const std::string& path);

    // Waits until what was asked for is on the disk: for the program's end. False when the time does not suffice.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

private:
    using Newest = std::shared_ptr<std::atomic<unsigned>>; // number of the newest wish about a document

    [[nodiscard]] static std::vector<LeftEdit> left_edits(const KeptFilesParts& files, const Log& log);
    void async(Work work);
    [[nodiscard]] std::pair<Newest, unsigned> next_wish(int document);

    KeptFilesParts m_files;
    DispatchQueueSerial& m_queue;
    Log m_log;
    std::map<int, Newest> m_newest;
    bool m_asked = false; // for anything
};

} // namespace tickervantage
