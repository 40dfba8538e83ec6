// `tickerctl log`, `tickerctl events` and `tickerctl evidence`, with the files of this machine.
#include "chrony/log/log_files.h"
#include "cli/logs/events_command.h"
#include "cli/logs/evidence_command.h"
#include "cli/logs/log_command.h"
#include "cli/moment_argument.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/chrony_journal.h"
#include "linux/posix_followed_file.h"
#include "linux/posix_user_files.h"
#include "qt/file_digest.h"
#include "qt/pdf_document.h"
#include "studies/events/events_in.h"
#include "studies/events/message_events.h"

#include <algorithm>
#include <iostream>
#include <limits>
#include <utility>

namespace tickervantage {
namespace {

int take_period(const LogArguments& arguments, std::int64_t& from, std::int64_t& to) {
    if (take_moment(arguments.from, from) != 0 || take_moment(arguments.to, to) != 0)
        return has_failed;
    return from < to ? 0 : fail("The period ends before it begins: --to has to be later than --from.");
}

int take_choice(const Arguments& arguments, LogChoice& choice) {
    std::int64_t from = 0;
    std::int64_t to = std::numeric_limits<std::int64_t>::max();
    if (const int result = take_period(arguments.logs, from, to); result != 0)
        return result;
    choice.source = arguments.source;
    if (arguments.logs.from)
        choice.from = static_cast<double>(from);
    if (arguments.logs.to)
        choice.to = static_cast<double>(to);
    return 0;
}

// Without a wish: tracking where it is there, else what there is.
LogKind kind_among(const std::vector<LogFile>& logs) {
    LogKind kind = LogKind::tracking;
    const auto has_tracking = [](const LogFile& log) {
        return log.kind == LogKind::tracking;
    };
    if (!logs.empty() && std::ranges::none_of(logs, has_tracking))
        kind = logs.front().kind.value_or(kind);
    return kind;
}

// Of all files, as far as they can be read; lines that were left out are told once a file.
Result<> read_all(FollowedFiles& files, const std::vector<LogFile>& logs, const TakeRecord& take) {
    for (const LogFile& log : logs) {
        LogCount count;
        auto read = read_records(files, log.path, count, take);
        if (const auto odd = odd_lines(log.path, count))
            complain(english(*odd));
        if (!read)
            return read;
    }
    return {};
}

// Damaged behind the records that were printed.
int answer_of(const Result<>& read, int answer) {
    return read ? answer : fail(english(read.error()));
}

template <typename Records>
int print_records(FollowedFiles& files, const std::vector<LogFile>& logs, Records& records, const Arguments& arguments,
                  const LogChoice& choice) {
    const auto read = read_all(files, logs, [&](std::string_view line, std::size_t) {
        if constexpr (std::is_same_v<Records, TrackingRecords>)
            return records.add_line(line) == TrackingRecords::Added::record;
        else
            return records.add_line(line);
    });
    if (!read && records.empty())
        return fail(english(read.error()));
    const LogForm form = arguments.json ? LogForm::json : arguments.csv ? LogForm::csv : LogForm::text;
    return answer_of(read, arguments.summary ? print_log_summary(records, form, std::cout, choice)
                                             : print_log(records, form, std::cout, choice));
}

Result<> write_evidence(const std::string& path, const Evidence& evidence, const EvidenceOrigin& origin) {
    PosixFiles files;
    if (path.ends_with(".json"))
        return files.replace_by(path, json_text(evidence_json(evidence, origin.files)));
    const std::string page = evidence_html(evidence, origin);
    return files.replace_by(path, is_pdf(path) ? pdf_of_html(page, evidence.question.to) : page);
}

Result<> read_journal(std::int64_t from, std::int64_t to, EventsRead& read) {
    JournalEvents journal;
    auto done = read_chrony_journal(from, to, [&journal](const JournalEntry& entry) {
        journal.add({entry.time, entry.writer, entry.message}, entry.boot);
    });
    journal.append_to(read.events);
    return done;
}

} // namespace

int Tool::log() const {
    PosixFollowedFiles files;
    LogChoice choice;
    if (const int result = take_choice(m_arguments, choice); result != 0)
        return result;
    const auto wanted = m_arguments.logs.kind ? log_kind_named(*m_arguments.logs.kind) : std::nullopt;
    if (m_arguments.logs.kind && !wanted)
        return fail("There is no log \"" + *m_arguments.logs.kind +
                    "\"; there are tracking, measurements, rawmeasurements, statistics, selection, refclocks, tempcomp "
                    "and rtc.");
    auto logs = find_logs(files, {m_arguments.log});
    const LogKind kind = wanted.value_or(logs ? kind_among(*logs) : LogKind::tracking);
    if (logs)
        logs = of_kind(std::move(*logs), m_arguments.log, kind);
    if (!logs)
        return fail(english(logs.error()));
    if (kind == LogKind::tracking) {
        TrackingRecords records;
        return print_records(files, *logs, records, m_arguments, choice);
    }
    LogTable records(kind);
    return print_records(files, *logs, records, m_arguments, choice);
}

int Tool::events() const {
    const LogArguments& asked = m_arguments.logs;
    PosixFollowedFiles files;
    std::int64_t from = 0;
    std::int64_t to = std::int64_t{1} << 40;
    if (const int result = take_period(asked, from, to); result != 0)
        return result;
    if (asked.paths.empty() && !asked.messages && !asked.journal)
        return fail("Which logs? For example: tickerctl events /var/log/chrony --journal");
    EventsRead read;
    const auto logs = find_logs(files, asked.paths);
    Result<> done;
    if (!logs)
        done = tl::unexpected(logs.error());
    else if (logs->empty() && !asked.paths.empty())
        done = of_kind({}, asked.paths.front(), LogKind::tracking).map([](const auto&) {});
    else
        done = read_events(files, *logs, read);
    if (done && asked.messages)
        done = read_message_events(files, *asked.messages, read);
    if (done && asked.journal)
        done = read_journal(from, to, read);
    for (const Failure& remark : read.remarks)
        complain(english(remark));
    if (!done)
        return fail(english(done.error()));
    std::erase_if(read.events, [&](const ClockEvent& event) {
        return event.time < static_cast<double>(from) || event.time >= static_cast<double>(to);
    });
    sort_by_time(read.events);
    return print_events(read.events, m_arguments.json, std::cout);
}

int Tool::evidence() const {
    const LogArguments& asked = m_arguments.logs;
    const std::string& output = m_arguments.output;
    const auto limit = limit_in(asked.limit);
    if (!limit)
        return fail("A limit is more than 0, in seconds or with ns, us, ms or s behind it, not \"" + asked.limit +
                    "\".");
    if (!output.empty() && !is_pdf(output) && !output.ends_with(".html") && !output.ends_with(".json"))
        return fail("The file has to end in .html, .pdf or .json: " + output);
    EvidenceQuestion question{.limit = *limit, .gap = asked.gap};
    if (const int result = take_period(asked, question.from, question.to); result != 0)
        return result;
    PosixFollowedFiles files;
    const auto read = read_evidence(files, asked.paths, question, sha256_of_file);
    if (!read)
        return fail(english(read.error()));
    for (const Failure& remark : read->remarks)
        complain(english(remark));
    if (output.empty())
        std::cout << json_text(evidence_json(read->evidence, read->files));
    else if (const auto written = write_evidence(
                 output, read->evidence, {read->files, evidence_command(asked.paths, question), TICKERVANTAGE_VERSION});
             !written)
        return fail(english(written.error()));
    return read->evidence.holds() ? 0 : answer_is_no;
}

} // namespace tickervantage
