#include "studies/history/history_files.h"

#include "history/history_reader.h"
#include "studies/history/history_follower.h"

#include <utility>

namespace tickervantage {

Result<StoredHistory> stored_after(const std::string& store, std::int64_t time) {
    auto reader = HistoryReader::open(store);
    if (!reader)
        return tl::unexpected(reader.error());
    StoredHistory stored;
    const HistoryPeriod period{.from = time + 1};
    auto rows = reader->rows(period);
    auto sources = rows ? reader->sources(period) : tl::unexpected(rows.error());
    auto events = sources ? reader->events(period) : tl::unexpected(sources.error());
    if (!events)
        return tl::unexpected(events.error());
    return StoredHistory{std::move(*rows), std::move(*sources), std::move(*events)};
}

LoadedHistory load_history(FollowedFiles& files, const HistoryPlaces& places) {
    return HistoryFollower(files, places).load();
}

} // namespace tickervantage
