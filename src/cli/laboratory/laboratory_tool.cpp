// `tickerctl stability` and `tickerctl holdover`: they read a log, or a file of numbers.
#include "base/failure_codes.h"
#include "cli/laboratory/laboratory_command.h"
#include "cli/logs/evidence_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/posix_followed_file.h"
#include "linux/posix_user_files.h"
#include "studies/laboratory/free_running_clock.h"

#include <iostream>

namespace tickervantage {
namespace {

constexpr std::size_t largest_number_file = std::size_t{256} << 20U; // bytes: ten million numbers

Result<PhaseData> numbers_of(const LaboratoryArguments& arguments) {
    PosixUserFiles files;
    const FileReading file = files.read(arguments.log, largest_number_file);
    if (file.outcome == FileReading::Outcome::missing)
        return failed(FailureCode::no_such_file, {arguments.log});
    if (file.outcome != FileReading::Outcome::read)
        return failed(FailureCode::cannot_read, {arguments.log}, file.reason);
    return phase_of_numbers(file.bytes, arguments.is_phase ? NumberKind::phase : NumberKind::frequency, arguments.tau0,
                            arguments.log);
}

Result<PhaseData> phase_to_judge(const LaboratoryArguments& arguments) {
    if (arguments.is_phase || arguments.is_frequency)
        return numbers_of(arguments);
    PosixFollowedFiles files;
    return read_free_running_clock(files, arguments.log).map(phase_of);
}

Result<StabilityQuestion> question_of(const LaboratoryArguments& arguments) {
    StabilityQuestion question;
    question.confidence = arguments.confidence;
    auto measures = measures_in(arguments.measures);
    if (!measures)
        return tl::unexpected(measures.error());
    question.measures = std::move(*measures);
    if (auto taken = take_averaging_times(arguments.taus, question); !taken)
        return tl::unexpected(taken.error());
    return question;
}

} // namespace

int Tool::stability() const {
    const auto question = question_of(m_arguments.laboratory);
    if (!question)
        return fail(english(question.error()));
    const auto data = phase_to_judge(m_arguments.laboratory);
    if (!data)
        return fail(english(data.error()));
    const auto curves = stability_of(*data, *question);
    if (!curves)
        return fail(english(curves.error()));
    print_stability(*data, *curves, m_arguments.json, std::cout);
    for (const StabilityCurve& curve : *curves)
        if (!curve.points.empty())
            return 0;
    complain("The log is too short for any of these averaging times.");
    return answer_is_no;
}

int Tool::holdover() const {
    const LaboratoryArguments& arguments = m_arguments.laboratory;
    std::optional<double> limit;
    if (arguments.limit) {
        limit = limit_in(*arguments.limit);
        if (!limit)
            return fail("A limit is written as 500us, 1ms or 0.5 (seconds), not \"" + *arguments.limit + "\".");
    }
    PosixFollowedFiles files;
    const auto clock = read_free_running_clock(files, arguments.log);
    if (!clock)
        return fail(english(clock.error()));
    const auto forecast = forecast_holdover(*clock, arguments.quantile, limit);
    if (m_arguments.json || !forecast.horizons.empty())
        print_holdover(forecast, m_arguments.json, std::cout);
    if (!forecast.horizons.empty())
        return 0;
    complain("There is not enough history: even 5 minutes ahead need 50 minutes of it without a gap.");
    return answer_is_no;
}

} // namespace tickervantage
