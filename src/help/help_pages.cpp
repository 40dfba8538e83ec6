#include "help/help_pages.h"

#include "help/manual_page.h"
#include "help/markdown_text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t largest_page = 4U << 20U;
constexpr int least_hard_failure = 5; // mandoc(1): below are remarks on the page, which was rendered all the same

bool is_file(const std::string& path) {
    std::error_code ignored; // what we may not look at is not there for us
    return std::filesystem::is_regular_file(path, ignored);
}

HelpPage absent(HelpAbsence absence, std::string reason) {
    return {.text = {}, .absence = absence, .reason = std::move(reason)};
}

} // namespace

HelpPage HelpPages::own_page(const HelpTopic& topic) const {
    const std::string path = m_sources.own_pages + "/" + std::string(topic.name) + ".md";
    std::ifstream file(path, std::ios::binary);
    HelpPage page;
    page.text.resize(largest_page);
    file.read(page.text.data(), static_cast<std::streamsize>(page.text.size()));
    page.text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    if (page.text.empty())
        return absent(HelpAbsence::unreadable, "The page " + path + " cannot be read.");
    return page;
}

HelpPage HelpPages::render(const HelpTopic& topic, const std::vector<std::string>& options) const {
    const auto files = manual_files(m_sources.manual_roots, topic);
    const auto file = std::ranges::find_if(files, is_file);
    if (file == files.end())
        return absent(HelpAbsence::not_installed,
                      "The manual page " + std::string(topic.title) + " is not installed on this machine.");
    if (!is_file(m_sources.mandoc))
        return absent(HelpAbsence::no_renderer, "mandoc, which renders manual pages, is not installed.");
    ExecuteRequest request{.program = m_sources.mandoc, .arguments = options, .output_limit = largest_page};
    request.arguments.push_back(*file);
    ExecuteResult result = m_sources.execute.run(request);
    if (result.outcome != ExecuteOutcome::exited)
        return absent(HelpAbsence::unreadable, result.failure ? english(*result.failure) : std::string());
    if (result.exit_status >= least_hard_failure || result.output.empty())
        return absent(HelpAbsence::unreadable, "mandoc cannot render " + *file + ".");
    return {.text = std::move(result.output), .absence = HelpAbsence::none, .reason = {}};
}

HelpPage HelpPages::for_window(const HelpTopic& topic) const {
    if (!topic.is_manual())
        return own_page(topic);
    HelpPage page = render(topic, {"-T", "html", "-O", "fragment"});
    page.text = adapted_manual(page.text, topic);
    return page;
}

HelpPage HelpPages::for_terminal(const HelpTopic& topic, std::size_t width) const {
    if (!topic.is_manual()) {
        HelpPage page = own_page(topic);
        page.text = markdown_as_text(page.text, width);
        return page;
    }
    HelpPage page = render(topic, {"-T", "utf8", "-O", "width=" + std::to_string(width)});
    page.text = without_overstrikes(page.text);
    return page;
}

} // namespace tickervantage
