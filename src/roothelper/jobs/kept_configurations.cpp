#include "roothelper/jobs/kept_configurations.h"

#include "base/translatable.h"
#include "roothelper/jobs/job_machine.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace tickervantage {

std::vector<KeptConfiguration> kept_configurations(const JobMachine& machine, const std::string& configuration,
                                                   const std::string& history) {
    const std::string folder = history + '/' + history_folder_of(configuration);
    const auto installed = machine.read_file(configuration);
    std::vector<KeptConfiguration> kept;
    for (const auto& name : machine.file_names(folder)) {
        const auto entry = parse_history_name(name);
        auto text = entry ? machine.read_file(folder + '/' + name) : std::nullopt;
        if (text)
            kept.push_back({*entry, std::move(*text), machine.user_name(entry->user), false});
    }
    std::ranges::sort(kept, std::ranges::greater(), [](const auto& one) { return one.entry.number; });
    const auto present = std::ranges::find_if(kept, [&](const auto& one) { return one.text == installed; });
    if (present != kept.end())
        present->is_installed = true;
    return kept;
}

const KeptConfiguration* find_kept(const std::vector<KeptConfiguration>& kept, std::uint64_t number) {
    const auto found = std::ranges::find_if(kept, [number](const auto& one) { return one.entry.number == number; });
    return found == kept.end() ? nullptr : &*found;
}

std::string local_date_text(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    std::array<char, 64> text{};
    if (::localtime_r(&time, &parts) == nullptr)
        return std::to_string(seconds);
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S %z", &parts)};
}

/* TRANSLATOR history
   former configurations: how one came to be installed. */
const char* reason_text(HistoryReason reason) {
    switch (reason) {
    case HistoryReason::found:
        return TV_TEXT("history", "found there");
    case HistoryReason::installed:
        return TV_TEXT("history", "installed");
    case HistoryReason::rolled_back:
        return TV_TEXT("history", "rolled back");
    }
    return "";
}

} // namespace tickervantage
