#include "cli/help/help_command.h"

#include "cli/terminal.h"
#include "help/help_pages.h"

#include <iomanip>
#include <ostream>

namespace tickervantage {
namespace {

constexpr std::size_t most_passages_of_a_page = 100;
constexpr int name_width = 14;

void list_topics(std::ostream& out) {
    for (const auto& topic : help_topics())
        out << std::left << std::setw(name_width) << topic.name << topic.title << '\n';
}

int print_page(const HelpPages& pages, const std::string& name, std::size_t width, std::ostream& out) {
    const HelpTopic* topic = find_help_topic(name);
    if (topic == nullptr)
        return fail("There is no help on \"" + name + "\"; tickerctl help lists what there is.");
    const HelpPage page = pages.for_terminal(*topic, width);
    if (page.absence != HelpAbsence::none)
        return fail(page.reason +
                    (topic->is_manual() ? " It can be read at " + std::string(manuals_address) + "." : ""));
    out << page.text;
    return 0;
}

int print_passages(const HelpPages& pages, const std::string& words, std::size_t width, std::ostream& out) {
    int status = answer_is_no;
    for (const auto& topic : help_topics())
        for (const auto& passage : search_page(pages.for_terminal(topic, width).text, words, most_passages_of_a_page)) {
            out << topic.name << ": " << passage << '\n';
            status = 0;
        }
    return status;
}

} // namespace

int print_help(const HelpPages& pages, const HelpArguments& arguments, std::size_t width, std::ostream& out) {
    if (arguments.topic)
        return print_page(pages, *arguments.topic, width, out);
    if (!arguments.words.empty())
        return print_passages(pages, arguments.words, width, out);
    list_topics(out);
    return 0;
}

} // namespace tickervantage
