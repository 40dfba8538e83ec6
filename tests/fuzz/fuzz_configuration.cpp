// Any bytes as a chrony.conf: read as directives, as a document and for warnings.
#include "chrony/configuration/config_document.h"
#include "chrony/configuration/configuration.h"
#include "chrony/configuration/configuration_warnings.h"
#include "chrony/configuration/directives.h"
#include "fuzz/require.h"
#include "support/memory_files.h"

#include <algorithm>

namespace {

void read_as_directives(const std::string& text) {
    Configuration configuration;
    configuration.read(text);
    for (const auto& [name, value] : configuration.all()) {
        require(!name.empty() && name.front() != '#' && !value.empty());
        require(text.find(name) != std::string::npos && text.find(value) != std::string::npos);
    }
}

// Anything may lie anywhere.
struct HashedPaths : PathProbes {
    [[nodiscard]] PathState state(const std::string&) const override { return PathState::nothing; }
    [[nodiscard]] PathFacts look(const std::string& path, const std::string&) const override {
        require(path.starts_with('/'));
        return {.kind = static_cast<PathFacts::Kind>(path.size() % 6)};
    }
    [[nodiscard]] bool user_exists(const std::string& user) const override { return user.size() % 2 == 0; }
};

void read_for_warnings(const std::string& text) {
    const HashedPaths probes;
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    for (const auto& warning : configuration_warnings(text, probes))
        require(warning.line >= 1 && warning.line <= lines && !english(warning.what).empty());
}

void read_as_document(const std::string& text) {
    const auto document = decode_document(text);
    if (!document)
        return;
    require(document->text.find("\r\n") == std::string::npos || text.find("\r\r\n") != std::string::npos);
    testing::MemoryFiles files;
    const SaveAnswer answer = save_document(files, {"/no/such", document->text, document->line_ends, {}});
    require(answer.outcome == SaveAnswer::Outcome::saved);
    if (text.find('\r') == std::string::npos)
        require(files.texts["/no/such"] == text);
}

} // namespace

FUZZED(text) {
    const LineParts parts = parts_of_line(text);
    require(parts.start + parts.length <= text.size());
    read_as_directives(text);
    read_for_warnings(text);
    read_as_document(text);
}
