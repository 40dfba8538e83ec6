// What tickerctl says on standard error: one line for every failure, whatever bytes the words of the user hold.
#pragma once

#include "base/user_files.h"

#include <string>

namespace tickervantage {

// Exit statuses. The answer "yes" is 0.
inline constexpr int answer_is_no = 1; // not synchronised, refused, without a value
inline constexpr int has_failed = 2;   // wrong usage, input that cannot be read, output that cannot be written
inline constexpr int interrupted = -1; // by a signal, before there was an answer: main ends by that signal

// Fit for one line of a terminal: control characters become question marks.
[[nodiscard]] std::string one_line(std::string text);

// Writes the sentence as one line.
void complain(const std::string& sentence);

// The same; returns `has_failed`.
int fail(const std::string& sentence);

// The exit status of what was done; of a failure the same. Records that are missing are an answer.
[[nodiscard]] int exit_status(const Result<>& done);

// Why a file was not read.
[[nodiscard]] Failure reading_failure(const std::string& path, const FileReading& file);

// The same as an exit status.
int fail_to_read(const std::string& path, const FileReading& file);

} // namespace tickervantage
