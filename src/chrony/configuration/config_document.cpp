#include "chrony/configuration/config_document.h"

#include "base/setting_text.h"

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

int refuse_zero(std::string_view text, std::string& sentence) {
    if (text.find('\0') == std::string_view::npos)
        return 0;
    sentence = "Line " + std::to_string(line_of_zero(text)) + " holds a zero byte, which no configuration may.";
    return -1;
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

bool changed(const DocumentFiles& files, const SaveRequest& request) {
    if (!request.known)
        return false;
    const FoundFile now = files.read(request.path, largest_document);
    return now.outcome != FoundFile::Outcome::read || stamp_of(now.bytes) != *request.known;
}

} // namespace

int decode_document(std::string bytes, DocumentText& document, std::string& sentence) {
    if (refuse_zero(bytes, sentence) != 0)
        return -1;
    if (!is_plain_utf8(bytes)) {
        sentence = "It is no text in UTF-8.";
        return -1;
    }
    document.stamp = stamp_of(bytes);
    document.line_ends = usual_line_ends(bytes);
    document.text = bytes.find('\r') == std::string::npos ? std::move(bytes) : with_plain_line_ends(bytes);
    return 0;
}

int load_document(const DocumentFiles& files, const std::string& path, DocumentText& document, std::string& sentence) {
    FoundFile found = files.read(path, largest_document);
    if (found.outcome != FoundFile::Outcome::read) {
        sentence = std::move(found.sentence);
        return -1;
    }
    std::string reason;
    if (decode_document(std::move(found.bytes), document, reason) == 0)
        return 0;
    sentence = path + " cannot be opened. " + reason;
    return -1;
}

SaveAnswer save_document(const DocumentFiles& files, const SaveRequest& request) {
    SaveAnswer answer;
    if (refuse_zero(request.text, answer.sentence) != 0)
        return answer;
    if (changed(files, request)) {
        answer.outcome = SaveAnswer::Outcome::changed_meanwhile;
        return answer;
    }
    const std::string bytes = encoded(request);
    if (files.replace(behind_links(request.path), bytes, answer.sentence) != 0)
        return answer;
    answer.outcome = SaveAnswer::Outcome::saved;
    answer.stamp = stamp_of(bytes);
    return answer;
}

} // namespace tickervantage
