// `tickerctl tempcomp`: makes a table for chronyd, or tells whether chronyd takes one.
#include "base/failure_codes.h"
#include "cli/laboratory/tempcomp_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/posix_user_files.h"

#include <iostream>
#include <limits>

namespace tickervantage {
namespace {

constexpr std::size_t largest_table = std::size_t{1} << 20U; // bytes

Result<std::string> text_in(const std::string& path) {
    PosixUserFiles files;
    const FileReading file = files.read(path, largest_table);
    if (file.outcome == FileReading::Outcome::missing)
        return failed(FailureCode::no_such_file, {path});
    if (file.outcome != FileReading::Outcome::read)
        return failed(FailureCode::cannot_read, {path}, file.reason);
    return file.bytes;
}

int verify(const std::string& path) {
    const auto text = text_in(path);
    if (!text)
        return fail(english(text.error()));
    const auto points = read_tempcomp_points(*text, path);
    if (points)
        return 0;
    complain(english(points.error()));
    return answer_is_no;
}

// What the clock would have done without the compensation that was in use.
Result<> take_off_table(const std::string& path, double unit, std::vector<TemperatureSample>& samples) {
    const auto text = text_in(path);
    if (!text)
        return tl::unexpected(text.error());
    const auto points = read_tempcomp_points(*text, path);
    if (!points)
        return tl::unexpected(points.error());
    take_off(*points, unit, std::numeric_limits<std::int64_t>::min(), samples);
    return {};
}

Result<std::vector<TemperatureSample>> samples_to_fit(const LaboratoryArguments& arguments, CompensationTable& table) {
    PosixUserFiles files;
    const auto all = read_timed_samples(files, arguments.points);
    if (!all)
        return tl::unexpected(all.error());
    auto samples = samples_of(*all, arguments.sensor);
    if (!samples)
        return samples;
    table.sensor = arguments.sensor.empty() ? all->begin()->first : arguments.sensor;
    if (arguments.applied)
        if (auto taken = take_off_table(*arguments.applied, table.unit, *samples); !taken)
            return tl::unexpected(taken.error());
    return samples;
}

int write_table(const std::string& text, const std::string& path) {
    if (path.empty()) {
        std::cout << text;
        return 0;
    }
    PosixUserFiles files;
    return exit_status(files.replace_by(path, text));
}

} // namespace

int Tool::tempcomp() const {
    const LaboratoryArguments& arguments = m_arguments.laboratory;
    if (arguments.verify)
        return verify(*arguments.verify);
    if (arguments.points.empty())
        return fail("Which readings? For example: tickerctl tempcomp points.csv -o tempcomp.points");
    CompensationTable table{.sensor = {}, .as_coefficients = arguments.as_coefficients};
    table.unit = arguments.unit == "celsius" ? 1 : 1000;
    auto samples = samples_to_fit(arguments, table);
    CompensationStudy study;
    if (samples)
        study = study_compensation(std::move(*samples),
                                   table.as_coefficients ? highest_coefficient_degree : highest_curve_degree);
    else if (samples.error().code == FailureCode::compensation_without_times)
        study.refused = samples.error();
    else
        return fail(english(samples.error()));
    if (m_arguments.json)
        print_compensation_json(study, table, std::cout);
    if (study.refused) {
        complain(english(*study.refused));
        return answer_is_no;
    }
    if (m_arguments.json && m_arguments.output.empty())
        return 0;
    if (!m_arguments.json)
        std::cerr << gain_text(*study.compensation) << '\n';
    return write_table(table_text(*study.compensation, table), m_arguments.output);
}

} // namespace tickervantage
