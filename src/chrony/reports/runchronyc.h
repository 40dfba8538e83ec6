// Runs chronyc and chronyd for their texts. Sources: chronyc(1) options -n and -N, chronyd(8) option -v.
#pragma once

#include "base/execute.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class PrivilegedActions;

// Where the chrony programs lie.
struct ChronyPrograms {
    std::string bundle;  // the application bundle; its own pair is used where a configured program is missing
    std::string chronyc; // the configured paths
    std::string chronyd;
    friend bool operator==(const ChronyPrograms&, const ChronyPrograms&) = default;
};

// The bundle's programs, by their place in it.
inline constexpr std::string_view bundle_chronyc = "/Contents/MacOS/chronyc";
inline constexpr std::string_view bundle_chronyd = "/Contents/MacOS/chronyd";

// The configured program when a file exists at its path, else the bundle's.
[[nodiscard]] std::string choose_program(const std::string& configured, const ChronyPrograms& programs,
                                         std::string_view bundle_suffix);

// What "-n" "-v" printed. `program` is bundle_chronyc or bundle_chronyd; any other name gives the text
// "Unknown program: " and the name, and nothing is run. Blocks.
[[nodiscard]] ExecuteResult version_query(Execute& execute, const ChronyPrograms& programs, std::string_view program);

enum class SourceNames : unsigned char { addresses, of_configuration };

// Not changed after construction: another choice of names is another runner. Every run blocks until chronyc ends; the
// functions may be called from any thread but the main one.
class Runchronyc {
public:
    Runchronyc(Execute& execute, PrivilegedActions& privileged, ChronyPrograms programs, bool resolv, bool original,
               std::vector<std::string> extra);

    // As the ordinary user. The command is one argument, blanks and all.
    [[nodiscard]] ExecuteResult run(const std::string& command) const;

    // The same as comma-separated values, chronyc's option -c: nothing is cut, and without -N addresses stand for
    // names.
    [[nodiscard]] ExecuteResult run_for_values(const std::string& command) const;

    // Several reports of one run as comma-separated values, addresses as addresses (options -n, -c, -m); with the
    // configuration's names in their place (option -N).
    [[nodiscard]] ExecuteResult run_for_data(const std::vector<std::string>& commands,
                                             SourceNames names = SourceNames::addresses) const;

    // As administrator through the helper: what chronyc printed on both its streams; empty text when the helper is not
    // ready. Uses the configured program, whether it exists or not. A daemon that only this runner's extra options
    // reach is the user's own and asked without the helper.
    [[nodiscard]] std::string run_privileged(bool resolve, bool original, const std::string& command,
                                             const std::string& extra) const;

    // The reports that need root as comma-separated values in one run, through the helper. None when the helper is not
    // ready, and for a daemon that only this runner's extra options reach: the helper knows the machine's own.
    [[nodiscard]] std::optional<ExecuteResult> run_privileged_for_data() const;

    // What stands before every command, and may choose another daemon than the machine's own.
    [[nodiscard]] const std::vector<std::string>& extra() const { return m_extra; }

private:
    [[nodiscard]] ExecuteResult run_with(std::vector<std::string> options, const std::string& command) const;

    Execute& m_execute;
    PrivilegedActions& m_privileged;
    ChronyPrograms m_programs;
    bool m_resolv;   // addresses are shown as names
    bool m_original; // sources are shown by the names written in the configuration
    std::vector<std::string> m_extra;
    std::vector<std::string> m_options;
};

} // namespace tickervantage
