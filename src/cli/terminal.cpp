#include "cli/terminal.h"

#include "base/failure_codes.h"

#include <algorithm>
#include <iostream>

namespace tickervantage {

std::string one_line(std::string text) {
    for (char& one : text)
        if (static_cast<unsigned char>(one) < 0x20 || one == 0x7F)
            one = '?';
    return text;
}

void complain(const std::string& sentence) {
    std::cerr << "tickerctl: " << one_line(sentence) << std::endl;
}

int fail(const std::string& sentence) {
    complain(sentence);
    return has_failed;
}

int exit_status(const Result<>& done) {
    using Code = FailureCode;
    if (done)
        return 0;
    const auto is_answer = {Code::log_without_record, Code::log_of_one_record, Code::record_without_value};
    complain(english(done.error()));
    return std::ranges::find(is_answer, done.error().code) == is_answer.end() ? has_failed : answer_is_no;
}

Failure reading_failure(const std::string& path, const FileReading& file) {
    return file.outcome == FileReading::Outcome::missing
               ? failed(FailureCode::no_such_file, {path}).value()
               : failed(FailureCode::file_unreadable, {path}, file.reason).value();
}

int fail_to_read(const std::string& path, const FileReading& file) {
    return fail(english(reading_failure(path, file)));
}

} // namespace tickervantage
