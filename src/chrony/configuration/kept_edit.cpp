#include "chrony/configuration/kept_edit.h"

#include "base/failure_codes.h"

#include <array>
#include <charconv>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::string_view mark = "Tickervantage edit 1";

std::string name_of(int document) {
    return std::to_string(document) + ".edit";
}

// The numbers behind the mark, up to the end of the first line.
template <std::size_t count>
bool take_numbers(std::string_view& bytes, std::array<std::size_t, count>& numbers) {
    if (!bytes.starts_with(mark))
        return false;
    bytes.remove_prefix(mark.size());
    for (auto& number : numbers) {
        if (!bytes.starts_with(' '))
            return false;
        const auto [end, error] = std::from_chars(bytes.data() + 1, bytes.data() + bytes.size(), number);
        if (error != std::errc())
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(end - bytes.data()));
    }
    const bool ends = bytes.starts_with('\n');
    bytes.remove_prefix(ends ? 1 : 0);
    return ends;
}

void warn(Logger& logger, const tl::unexpected<Failure>& failure) {
    logger.log(LogLevel::warning, english(failure.value()));
}

} // namespace

// A line with the lengths of what follows it: any path is safe then, and any text.
std::string format_kept_edit(const KeptEdit& edit) {
    std::string bytes(mark);
    for (const std::size_t number :
         {edit.path.size(), edit.title.size(), edit.text.size(), std::size_t{edit.is_installed_config},
          std::size_t{edit.line_ends == LineEnds::dos_style}, edit.stamp})
        bytes += ' ' + std::to_string(number);
    return bytes + '\n' + edit.path + edit.title + '\n' + edit.text;
}

int parse_kept_edit(std::string_view bytes, KeptEdit& edit) {
    std::array<std::size_t, 6> numbers{};
    if (!take_numbers(bytes, numbers))
        return -1;
    const auto [path, title, text, is_installed, is_dos, stamp] = numbers;
    for (const auto length : {path, title, text})
        if (length > bytes.size())
            return -1;
    if (path + title + text + 1 != bytes.size() || bytes[path + title] != '\n')
        return -1;
    edit = {.path = std::string(bytes.substr(0, path)),
            .title = std::string(bytes.substr(path, title)),
            .is_installed_config = is_installed != 0,
            .line_ends = is_dos != 0 ? LineEnds::dos_style : LineEnds::unix_style,
            .stamp = stamp,
            .text = std::string(bytes.substr(path + title + 1))};
    return 0;
}

EditKeeper::EditKeeper(std::shared_ptr<KeptFiles> files, DispatchQueueSerial& queue, Logger& logger)
    : m_files(std::move(files)), m_queue(queue), m_logger(logger) {}

void EditKeeper::async(Work work) {
    m_asked = true;
    m_queue.async(std::move(work));
}

std::pair<EditKeeper::Newest, unsigned> EditKeeper::next_wish(int document) {
    auto& newest = m_newest[document];
    if (!newest)
        newest = std::make_shared<std::atomic<unsigned>>(0);
    return {newest, ++*newest};
}

void EditKeeper::keep_now(KeptFiles& files, Logger& logger, int document, const KeptEdit& edit) {
    if (auto kept = files.keep(name_of(document), format_kept_edit(edit)); !kept)
        warn(logger, failed(FailureCode::edit_not_kept, {}, std::move(kept.error())));
}

void EditKeeper::drop(int document) {
    (void)next_wish(document); // copies that wait are not made
    async([files = m_files, document] { files->drop(name_of(document)); });
}

std::vector<LeftEdit> EditKeeper::left_edits(KeptFiles& files, Logger& logger) {
    std::vector<LeftEdit> edits;
    for (const auto& file : files.left_behind()) {
        LeftEdit one{.path = file.path, .edit = {}};
        if (parse_kept_edit(file.bytes, one.edit) == 0)
            edits.push_back(std::move(one));
        else
            warn(logger, failed(FailureCode::no_edit_in, {file.path}));
    }
    return edits;
}

void EditKeeper::adopt(const std::string& path, int document) {
    async([files = m_files, &logger = m_logger, path, document] {
        if (auto adopted = files->adopt(path, name_of(document)); !adopted)
            warn(logger, tl::unexpected(std::move(adopted.error())));
    });
}

void EditKeeper::remove(const std::string& path) {
    async([files = m_files, path] { files->remove(path); });
}

bool EditKeeper::finish(std::chrono::milliseconds patience) {
    return !m_asked || wait_for(m_queue, patience);
}

} // namespace tickervantage
