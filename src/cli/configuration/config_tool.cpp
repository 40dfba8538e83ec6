// `tickerctl config` and `tickerctl check`, with this machine's files and its chronyd.
#include "chrony/configuration/config_document.h"
#include "cli/configuration/config_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/environment.h"
#include "linux/posix_path_probes.h"
#include "linux/posix_user_files.h"
#include "linux/small_file.h"

#include <iostream>
#include <utility>

namespace tickervantage {
namespace {

int read_text(const std::string& path, std::string& text) {
    FileReading file = read_small_file(path, largest_document);
    if (file.outcome != FileReading::Outcome::read)
        return fail_to_read(path, file);
    auto document = decode_document(std::move(file.bytes));
    if (!document)
        return fail(path + " cannot be read. " + english(document.error()));
    text = std::move(document->text);
    return 0;
}

} // namespace

int Tool::config() const {
    std::string text;
    if (const int result = read_text(m_arguments.config.file, text); result != 0)
        return result;
    Configuration configuration;
    configuration.read(text);
    return print_configuration(configuration, m_arguments.config.directive,
                               m_arguments.json ? OutputForm::json : OutputForm::text, std::cout);
}

int Tool::check() {
    std::string text;
    if (const int result = read_text(m_arguments.config.file, text); result != 0)
        return result;
    const auto chronyds = [this] {
        return find_chronyds(process_environment("PATH").value_or(""), m_paths.bundle_program("chronyd"));
    };
    PosixFiles files;
    const PosixPathProbes probes;
    const ConfigurationCheckParts parts{
        .syntax = {.execute = m_daemon.execute(), .chronyds = chronyds, .files = files, .temporary = m_paths.temporary},
        .probes = probes};
    const ConfigurationCheck check = check_configuration(parts, text);
    if (m_signals.asked())
        return interrupted;
    return print_check(check, m_arguments.json ? OutputForm::json : OutputForm::text, std::cout, std::cerr);
}

} // namespace tickervantage
