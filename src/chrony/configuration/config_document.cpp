#include "chrony/configuration/config_document.h"

#include "base/failure_codes.h"
#include "base/utf8.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace tickervantage {
namespace {

std::size_t stamp_of(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

std::size_t line_of_zero(std::string_view text) {
    const auto zero = std::min(text.find('\0'), text.size());
    return 1 + static_cast<std::size_t>(std::ranges::count(text.substr(0, zero), '\n'));
}

Result<> refuse_zero(std::string_view text) {
    if (text.find('\0') == std::string_view::npos)
        return {};
    return failed(FailureCode::line_has_zero, {std::to_string(line_of_zero(text))});
}

LineEnds usual_line_ends(std::string_view bytes) {
    std::size_t unix_style = 0;
    std::size_t dos_style = 0;
    for (auto at = bytes.find('\n'); at != std::string_view::npos; at = bytes.find('\n', at + 1))
        ++(at > 0 && bytes[at - 1] == '\r' ? dos_style : unix_style);
    return dos_style > unix_style ? LineEnds::dos_style : LineEnds::unix_style;
}

std::string with_plain_line_ends(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size(); ++at)
        if (bytes[at] != '\r' || at + 1 == bytes.size() || bytes[at + 1] != '\n')
            text += bytes[at];
    return text;
}

std::string encoded(const SaveRequest& request) {
    if (request.line_ends == LineEnds::unix_style)
        return request.text;
    std::string bytes;
    for (const char one : request.text)
        bytes.append(one == '\n' ? "\r\n" : std::string(1, one));
    return bytes;
}

std::string behind_links(const std::string& path) {
    std::error_code error;
    const auto real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

bool changed(Files& files, const SaveRequest& request) {
    if (!request.known)
        return false;
    const FileReading now = files.read(request.path, largest_document);
    return now.outcome != FileReading::Outcome::read || stamp_of(now.bytes) != *request.known;
}

} // namespace

Result<DocumentText> decode_document(std::string bytes) {
    if (auto passed = refuse_zero(bytes); !passed)
        return tl::unexpected(std::move(passed.error()));
    if (!is_plain_utf8(bytes))
        return failed(FailureCode::document_is_no_utf8);
    DocumentText document{.line_ends = usual_line_ends(bytes), .stamp = stamp_of(bytes)};
    document.text = bytes.find('\r') == std::string::npos ? std::move(bytes) : with_plain_line_ends(bytes);
    return document;
}

Result<DocumentText> load_document(Files& files, const std::string& path) {
    FileReading found = files.read(path, largest_document);
    if (found.outcome != FileReading::Outcome::read)
        return failed(FailureCode::file_unreadable, {path}, std::move(found.reason));
    return decode_document(std::move(found.bytes)).or_else([&path](const Failure& cause) -> Result<DocumentText> {
        return failed(FailureCode::cannot_open_document, {path}, cause);
    });
}

SaveAnswer save_document(Files& files, const SaveRequest& request) {
    if (auto passed = refuse_zero(request.text); !passed)
        return {.failure = std::move(passed.error())};
    if (changed(files, request))
        return {.outcome = SaveAnswer::Outcome::changed_meanwhile};
    const std::string bytes = encoded(request);
    if (auto written = files.replace_by(behind_links(request.path), bytes); !written)
        return {.failure = std::move(written.error())};
    return {.outcome = SaveAnswer::Outcome::saved, .stamp = stamp_of(bytes)};
}

} // namespace tickervantage
