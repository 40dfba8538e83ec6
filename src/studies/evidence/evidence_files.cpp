#include "studies/evidence/evidence_files.h"

#include "base/local_clock.h"
#include "base/number_text.h"
#include "chrony/log/log_files.h"

#include <fmt/format.h>

#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

std::string quoted(const std::string& word) {
    constexpr std::string_view harmless = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./:=+,@%";
    if (!word.empty() && word.find_first_not_of(harmless) == std::string::npos)
        return word;
    std::string all = "'";
    for (const char one : word)
        all += one == '\'' ? std::string("'\\''") : std::string(1, one);
    return all + '\'';
}

} // namespace

Result<EvidenceRead> read_evidence(FollowedFiles& files, const std::vector<std::string>& paths,
                                   const EvidenceQuestion& question, const DigestOf& digest_of) {
    const auto logs = find_logs(files, paths, LogKind::tracking);
    if (!logs)
        return tl::unexpected(logs.error());
    EvidenceRead read;
    EvidenceSum sum(question);
    TrackingLine line;
    for (const LogFile& log : *logs) {
        auto digest = digest_of(log.path);
        if (!digest)
            return tl::unexpected(digest.error());
        LogCount count;
        const auto done = read_records(files, log.path, count, [&](std::string_view text, std::size_t) {
            const bool is_record = read_tracking_line(text, line);
            if (is_record)
                sum.add(line);
            return is_record;
        });
        if (!done)
            return tl::unexpected(done.error());
        if (auto odd = odd_lines(log.path, count))
            read.remarks.push_back(std::move(*odd));
        read.files.push_back({log.path, std::move(*digest), count.records});
    }
    read.evidence = sum.result();
    return read;
}

std::string evidence_command(const std::vector<std::string>& paths, const EvidenceQuestion& question) {
    std::string command = "tickerctl evidence";
    for (const std::string& path : paths)
        command += ' ' + quoted(path);
    command += fmt::format(" --from {} --to {} --limit {}", utc_stamp(question.from), utc_stamp(question.to),
                           text_from_double(question.limit).value_or("0"));
    return command + (question.gap == EvidenceQuestion().gap ? "" : fmt::format(" --gap {}", question.gap));
}

} // namespace tickervantage
