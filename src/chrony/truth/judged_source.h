// Each source of chronyd with all that its reports say of it, and the rule by which chronyd uses it or not. Reports are
// joined by address, never by position. Source: chronyc(1), sources, sourcestats, selectdata, ntpdata. Pure functions.
#pragma once

#include "chrony/data/reports.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class SelectionRule : unsigned char {
    best,
    combined,
    noselect,
    unresolved,
    unanswered,
    unsynchronised,
    few_measurements,
    unreachable,
    distant,
    jittery,
    waiting,
    falseticker,
    no_majority,
    required,
    not_preferred,
    new_measurement,
    not_combined,
    outlier,
    stratum,
    stale,
    orphan,
    untrusted,
    unknown, // a letter that this program does not know
};

// "few_measurements": for files and command lines, never translated.
[[nodiscard]] std::string_view name_of(SelectionRule rule);

struct JudgedSource {
    SourceData data = {};
    std::optional<std::string> name = {}; // as the configuration has it
    char letter = '?';                    // of selectdata where that may be read, else of sources
    SelectionRule rule = SelectionRule::unknown;
    std::optional<SourceStatistics> statistics = {};
    std::optional<SelectionData> selection = {};
    std::optional<AuthenticationData> authentication = {};
    std::optional<NtpData> ntp = {};
};

// Whether only selectdata, which was not read, tells why it is not used: the letter is "?" for every cause.
[[nodiscard]] bool is_told_to_root_only(const JudgedSource& source);

// In chronyc's order; none where there is no report of the sources.
[[nodiscard]] std::vector<JudgedSource> judged_sources(const ChronyReports& reports);

} // namespace tickervantage
