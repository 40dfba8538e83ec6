// Any bytes as each of chrony's logs: what is read comes back from the table as it was read, numbers are finite or
// absent, and a record's own kind reads it.
#include "chrony/log/log_table.h"
#include "fuzz/require.h"
#include "studies/events/selection_events.h"

#include <cmath>

namespace tickervantage {
namespace {

void require_kept(const LogTable& table, const LogLine& line) {
    const std::size_t last = table.size() - 1;
    require(table.microseconds(last) == line.microseconds);
    for (std::size_t column = 0; column < table.shape().columns.size(); ++column) {
        if (!table.shape().columns[column].is_number()) {
            require(table.text(column, last) == line.texts[column]);
            continue;
        }
        const double number = table.number(column, last);
        require(number == line.number(column) || (std::isnan(number) && std::isnan(line.number(column))));
        require(!std::isinf(number));
    }
}

} // namespace
} // namespace tickervantage

FUZZED(text) {
    using namespace tickervantage;
    for (const LogKind kind : log_kinds) {
        LogTable table(kind);
        LogLine line;
        SelectionEvents selection;
        for (std::string_view rest = text; !rest.empty();) {
            const auto length = std::min(rest.find('\n'), rest.size());
            const auto one = rest.substr(0, length);
            rest.remove_prefix(std::min(length + 1, rest.size()));
            if (const auto own = kind_of_record(one); own == kind)
                require(read_log_line(table.shape(), one, line));
            if (!read_log_line(table.shape(), one, line))
                continue;
            require(!is_banner(one));
            require(table.add_line(one));
            require_kept(table, line);
            if (kind == LogKind::selection)
                selection.add(line, {});
        }
        selection.finish();
        require(selection.events().size() <= 2 * table.size());
    }
}
