#include "cli/logs/evidence_command.h"

#include "base/local_clock.h"
#include "base/number_text.h"
#include "base/text_lines.h"

#include <array>
#include <utility>

namespace tickervantage {
namespace {

template <typename Interval, typename Last>
Json intervals_json(const std::vector<Interval>& intervals, const char* key, Last last) {
    Json all = Json::array();
    for (const Interval& one : intervals)
        all.push_back(object_of({{"from", utc_stamp(one.from)}, {"to", utc_stamp(one.to)}, {key, last(one)}}));
    return all;
}

} // namespace

Json evidence_json(const Evidence& evidence, const std::vector<EvidenceFile>& files) {
    Json named = Json::array();
    for (const EvidenceFile& file : files)
        named.push_back(object_of({{"name", file.name}, {"sha256", file.sha256}, {"records", file.records}}));
    return object_of({{"from", utc_stamp(evidence.question.from)},
                      {"to", utc_stamp(evidence.question.to)},
                      {"limit", evidence.question.limit},
                      {"gap", evidence.question.gap},
                      {"seconds_within", evidence.within},
                      {"seconds_outside", evidence.outside},
                      {"seconds_without", evidence.without},
                      {"largest", or_null(evidence.largest)},
                      {"excursions", intervals_json(evidence.excursions, "largest",
                                                    [](const Excursion& one) { return Json(one.largest); })},
                      {"gaps", intervals_json(evidence.gaps, "reason",
                                              [](const EvidenceGap& one) { return Json(words_of(one.reason)); })},
                      {"files", std::move(named)}});
}

std::optional<double> limit_in(std::string_view text) {
    // The unit becomes a power of ten of the text, so that "0.3ms" is the number that "3e-4" is.
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 5> units{
        {{"ns", "e-9"}, {"us", "e-6"}, {"µs", "e-6"}, {"ms", "e-3"}, {"s", ""}}};
    std::string number(trimmed(text));
    for (const auto& [unit, power] : units) {
        if (!number.ends_with(unit))
            continue;
        number = trimmed(std::string_view(number).substr(0, number.size() - unit.size()));
        if (!power.empty() && number.find_first_of("eE") != std::string::npos)
            return std::nullopt;
        number += power;
        break;
    }
    const auto limit = number_from_text<double>(number);
    return limit && *limit > 0 ? limit : std::nullopt;
}

} // namespace tickervantage
