#include "roothelper/jobs/kept_configurations.h"

#include "base/translatable.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>

namespace tickervantage {

std::vector<KeptConfiguration> kept_configurations(const HistoryProbes& probes, const std::string& configuration) {
    const std::string folder = probes.folder + '/' + history_folder_of(configuration);
    const auto installed = probes.read_file(configuration);
    std::vector<KeptConfiguration> kept;
    for (const auto& name : probes.file_names(folder)) {
        const auto entry = parse_history_name(name);
        auto text = entry ? probes.read_file(folder + '/' + name) : std::nullopt;
        if (text)
            kept.push_back({*entry, std::move(*text), false});
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

std::vector<std::string> file_names_in(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error; // a folder that cannot be read holds nothing for us
    for (std::filesystem::directory_iterator file(folder, error), end; !error && file != end; file.increment(error))
        names.push_back(file->path().filename().string());
    return names;
}

} // namespace tickervantage
