// Edits that were not saved, kept against the program's sudden end, and found again by the next run.
//
// A keeper belongs to one run of the program. Copies are made on a queue, in the order asked for; of several copies of
// one document that wait there, only the newest is written. Main thread only. The queue outlives the keeper, and with
// it what waits there the files.
#pragma once

#include "base/background.h"
#include "base/kept_files.h"
#include "base/logger.h"
#include "chrony/configuration/config_document.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

struct LeftEdit {
    std::string path; // of the file that holds it
    KeptEdit edit;
};

class EditKeeper {
public:
    EditKeeper(std::shared_ptr<KeptFiles> files, DispatchQueueSerial& queue, Logger& logger);

    // Documents are counted by the caller. `make` gives a KeptEdit, on the queue.
    template <class Make>
    void keep(int document, Make make) {
        auto [newest, number] = next_wish(document);
        async([files = m_files, &logger = m_logger, newest = newest, number = number, document,
               make = std::move(make)]() mutable {
            if (*newest == number)
                keep_now(*files, logger, document, make());
        });
    }
    void drop(int document);

    // What runs that have ended left behind; `found` gets it on the main thread.
    template <class Found>
    void read_left(Background& background, Found found) {
        background.start(
            m_queue, [files = m_files, &logger = m_logger] { return left_edits(*files, logger); }, std::move(found));
    }
    void adopt(const std::string& path, int document); // it is the kept copy of that document from now on
    void remove(const std::string& path);

    // Waits until what was asked for is on the disk: for the program's end. False when the time does not suffice.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

private:
    using Newest = std::shared_ptr<std::atomic<unsigned>>; // number of the newest wish about a document

    static void keep_now(KeptFiles& files, Logger& logger, int document, const KeptEdit& edit);
    [[nodiscard]] static std::vector<LeftEdit> left_edits(KeptFiles& files, Logger& logger);
    void async(Work work);
    [[nodiscard]] std::pair<Newest, unsigned> next_wish(int document);

    std::shared_ptr<KeptFiles> m_files;
    DispatchQueueSerial& m_queue;
    Logger& m_logger; // outlives the queue
    std::map<int, Newest> m_newest;
    bool m_asked = false; // for anything
};

} // namespace tickervantage
