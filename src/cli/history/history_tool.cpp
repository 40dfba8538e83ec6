// `tickerctl history` and `tickerctl sample`, with this user's store.
#include "base/failure_codes.h"
#include "cli/history/history_command.h"
#include "cli/moment_argument.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "history/history_keeper.h"
#include "history/recording.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <iostream>

namespace tickervantage {

std::string Tool::history_path() const {
    const Demonstration& demonstration = m_daemon.demonstration();
    const std::string home = demonstration.is_running() ? demonstration.folder() + "/data" : m_paths.data_home;
    return m_arguments.history.file.value_or(home + "/Tickervantage/history.sqlite");
}

// A demonstration that has just begun has its recorded day.
Result<> Tool::recording() const {
    const Demonstration& demonstration = m_daemon.demonstration();
    if (!demonstration.is_running() || m_arguments.history.file)
        return {};
    return keep_recording(history_path(), recorded_day(demonstration.begun()));
}

int Tool::history() const {
    HistoryQuestion question{.period = {}, .source = m_arguments.source};
    if (take_moment(m_arguments.history.from, question.period.from) != 0 ||
        take_moment(m_arguments.history.to, question.period.to) != 0)
        return has_failed;
    if (m_arguments.csv)
        question.form = HistoryForm::csv;
    else if (m_arguments.json)
        question.form = HistoryForm::json;
    if (const auto kept = recording(); !kept)
        return exit_status(kept);
    auto store = HistoryReader::open(history_path());
    if (!store) {
        const bool is_missing = store.error().code == FailureCode::no_such_file;
        return fail(english(store.error()) +
                    (is_missing ? " The open window keeps a history, and so does \"tickerctl sample\"." : ""));
    }
    const auto answer = print_history(*store, question, std::cout);
    if (!answer)
        return fail(english(failed(FailureCode::cannot_read, {history_path()}, answer.error()).value()));
    if (*answer == answer_is_no)
        complain("Nothing is kept of that time.");
    return *answer;
}

// While another program keeps the history this one waits for its turn: the file is the same.
int Tool::sample_once(HistoryKeeper& keeper) {
    auto kept = keeper.open(); // no chronyc is run for what nobody keeps
    if (kept) {
        ClockTruth reading;
        if (const int result = read_clock(CaptureDepth::open, SavedForm::capture, reading); result != 0)
            return result;
        const auto now = reading.reports.now.value_or(static_cast<double>(std::time(nullptr)));
        kept = keeper.keep(reading.reports, reading.budget, static_cast<std::int64_t>(now));
    }
    if (const auto aside = keeper.take_kept_aside())
        complain("The history was damaged and is kept as " + *aside + ".");
    if (kept) {
        m_told_of_store.clear();
        return 0;
    }
    if (const std::string sentence = english(kept.error()); sentence != m_told_of_store) {
        complain(sentence);
        m_told_of_store = sentence;
    }
    return kept.error().code == FailureCode::history_has_writer ? answer_is_no : has_failed;
}

int Tool::sample() {
    using Clock = std::chrono::steady_clock;
    HistoryKeeper keeper(history_path());
    const auto begun = Clock::now();
    int answer = interrupted;
    for (int turn = 1;; ++turn) {
        const int now = sample_once(keeper);
        if (now == interrupted)
            return answer;
        answer = now;
        const double gone = std::chrono::duration<double>(Clock::now() - begun).count();
        const double next = turn * m_arguments.history.every_seconds;
        const double limit = m_arguments.for_seconds;
        if (limit > 0 && next >= limit)
            return answer;
        if (m_signals.asked_within(std::max(0.0, next - gone)))
            return answer;
    }
}

} // namespace tickervantage
