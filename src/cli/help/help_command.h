// What `tickerctl help` prints: the list of topics, one page, or the passages that hold some words.
//
// Results are exit statuses; reads files and runs mandoc.
#pragma once

#include "cli/arguments.h"
#include "help/help_pages.h"

#include <cstddef>
#include <iosfwd>

namespace tickervantage {

// 0: printed; 1: no page holds the words. 2: there is no such topic, or its page is not on this machine; one line said
// so on standard error.
[[nodiscard]] int print_help(const HelpPages& pages, const HelpArguments& arguments, std::size_t width,
                             std::ostream& out);

} // namespace tickervantage
