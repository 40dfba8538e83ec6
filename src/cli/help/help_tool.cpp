// `tickerctl help` with this machine's manual pages, as wide as its terminal.
#include "cli/help/help_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace tickervantage {
namespace {

constexpr std::size_t usual_width = 78;
constexpr std::size_t least_width = 40;
constexpr std::size_t greatest_width = 100; // longer lines are hard to read

std::size_t terminal_width() {
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usual_width;
    return std::clamp<std::size_t>(size.ws_col - 2U, least_width, greatest_width);
}

} // namespace

int Tool::help() const {
    const HelpPages pages({.execute = m_daemon.execute(), .own_pages = m_paths.bundle_resource("help")});
    const int status = print_help(pages, m_arguments.help, terminal_width(), std::cout);
    return m_signals.asked() ? interrupted : status;
}

} // namespace tickervantage
