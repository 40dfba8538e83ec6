#include "cli/status/truth_command.h"

#include "cli/terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ostream>
#include <string_view>

namespace tickervantage {
namespace {

// A field of a report that may be missing as a whole.
template <typename Report, typename Value>
Json field(const std::optional<Report>& report, std::optional<Value> Report::*member) {
    return report ? or_null((*report).*member) : Json(nullptr);
}

template <typename Report, typename Value>
Json field(const std::optional<Report>& report, Value Report::*member) {
    return report ? Json((*report).*member) : Json(nullptr);
}

std::string_view name_of(SourceMode mode) {
    return mode == SourceMode::peer ? "peer" : mode == SourceMode::refclock ? "refclock" : "server";
}

Json source_json(const JudgedSource& source) {
    const SourceData& data = source.data;
    return object_of({{"source", data.source},
                      {"name", or_null(source.name)},
                      {"mode", name_of(data.mode)},
                      {"letter", std::string(1, source.letter)},
                      {"rule", name_of(source.rule)},
                      {"used", is_used(data)},
                      {"stratum", data.stratum},
                      {"poll", data.poll},
                      {"reach", data.reach},
                      {"last_rx", or_null(data.last_rx)},
                      {"offset", or_null(data.offset)},
                      {"measured", or_null(data.measured)},
                      {"error", or_null(data.error)},
                      {"samples", field(source.statistics, &SourceStatistics::samples)},
                      {"span", field(source.statistics, &SourceStatistics::span)},
                      {"frequency", field(source.statistics, &SourceStatistics::frequency_ppm)},
                      {"skew", field(source.statistics, &SourceStatistics::skew_ppm)},
                      {"std_dev", field(source.statistics, &SourceStatistics::std_dev)},
                      {"low", field(source.selection, &SelectionData::low)},
                      {"high", field(source.selection, &SelectionData::high)},
                      {"score", field(source.selection, &SelectionData::score)},
                      {"authenticated", field(source.selection, &SelectionData::authenticated)},
                      {"leap", field(source.selection, &SelectionData::leap)}});
}

// Columns of text are as wide as their characters, not their bytes.
std::size_t width_of(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](unsigned char byte) { return (byte & 0xC0U) != 0x80U; }));
}

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, width_of(text)), ' ');
}

// The last eight polls, the newest at the right.
std::string reach_dots(unsigned reach) {
    std::string dots;
    for (unsigned bit = 0x80; bit != 0; bit >>= 1U)
        dots += (reach & bit) != 0 ? "●" : "·";
    return dots;
}

std::string shown_name(const std::string& source, const std::optional<std::string>& name) {
    return harmless(name && *name != source ? *name + " (" + source + ")" : source);
}

std::string offset_text(const SourceData& source) {
    if (!source.offset || !source.error)
        return not_known;
    return text_of(quantity::signed_seconds(*source.offset)) + " ± " + text_of(quantity::seconds(*source.error));
}

// chronyd polls every two to that power of seconds.
std::string poll_text(int poll) {
    constexpr int longest = 24;
    const std::string interval = std::to_string(1UL << static_cast<unsigned>(std::min(std::abs(poll), longest)));
    return (poll < 0 ? "1/" : "") + interval + " s";
}

using Row = std::vector<std::string>;

Row row_of(const JudgedSource& source) {
    const SourceData& data = source.data;
    return {harmless(std::string(1, source.letter)),
            shown_name(data.source, source.name),
            std::string(tickervantage::name_of(source.rule)),
            data.stratum == 0 ? not_known : std::to_string(data.stratum),
            poll_text(data.poll),
            reach_dots(data.reach),
            data.last_rx ? text_of(quantity::duration(*data.last_rx)) : not_known,
            offset_text(data)};
}

void print_table(const std::vector<Row>& rows, std::ostream& out) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const Row& row : rows)
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], width_of(row[column]));
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column)
            line += column + 1 == row.size() ? row[column] : padded(row[column], widths[column] + 2);
        out << line << '\n';
    }
}

Json sentences_json(const std::vector<Sentence>& sentences) {
    Json list = Json::array();
    for (const Sentence& sentence : sentences)
        list.push_back(english(sentence));
    return list;
}

Json explanation_json(const Explanation& explanation) {
    Json document = object_of({{"source", explanation.source},
                               {"name", or_null(explanation.name)},
                               {"letter", std::string(1, explanation.letter)},
                               {"rule", name_of(explanation.rule)}});
    document["sentences"] = sentences_json(explanation.sentences);
    document["remedies"] = sentences_json(explanation.remedies);
    document["line"] = explanation.line ? Json(explanation.line->line) : Json(nullptr);
    return document;
}

void print_text(const Explanation& explanation, std::ostream& out) {
    out << '\n' << shown_name(explanation.source, explanation.name) << ": " << name_of(explanation.rule) << '\n';
    for (const Sentence& sentence : explanation.sentences)
        out << "  " << english(sentence) << '\n';
    for (const Sentence& remedy : explanation.remedies)
        out << "  → " << english(remedy) << '\n';
    if (explanation.line)
        out << fmt::format("  {}:{}: {}\n", harmless(explanation.line->path), explanation.line->line,
                           harmless(explanation.line->text));
}

struct Part {
    const char* key;
    const char* label;
    std::optional<double> value;
    QuantityKind kind;
    const char* meaning;
};

// What the dispersion is made of is known only where the age is.
std::vector<Part> parts_of(const std::optional<ErrorBudget>& budget) {
    const auto part = [&](double ErrorBudget::*member) {
        return budget ? std::optional((*budget).*member) : std::nullopt;
    };
    const bool has_age = budget && budget->age;
    const auto dispersion = [&](double ErrorBudget::*member) {
        return has_age ? part(member) : std::nullopt;
    };
    using enum QuantityKind;
    return {{"bound", "Bound", part(&ErrorBudget::bound), seconds, "the error is not larger"},
            {"correction", "  Correction", part(&ErrorBudget::correction), seconds, "known, and being slewed away"},
            {"delay", "  Delay", part(&ErrorBudget::delay), seconds, "half of the way to the reference and back"},
            {"dispersion_measured", "  Measured", dispersion(&ErrorBudget::dispersion_measured), seconds,
             "dispersion of the measurements"},
            {"dispersion_growth", "  Growth", dispersion(&ErrorBudget::dispersion_growth), seconds,
             "dispersion since the last update"},
            {"growth", "Growing", part(&ErrorBudget::growth), seconds, "a second, until the next update"},
            {"age", "Last update", has_age ? budget->age : std::nullopt, duration, "ago"}};
}

void print_parts(const std::vector<Part>& parts, std::ostream& out) {
    constexpr std::size_t label_width = 12;
    constexpr std::size_t value_width = 10;
    out << '\n';
    for (const Part& part : parts)
        out << padded(part.label, label_width) << ": "
            << padded(part.value ? text_of({.value = *part.value, .kind = part.kind}) : not_known, value_width) << ' '
            << part.meaning << '\n';
}

Json probe_json(const ProbeRequest& request, const ProbeAnswer& answer, const std::string& sentence) {
    constexpr int ntp_port = 123;
    return {{"host", request.host},
            {"port", request.port.value_or(ntp_port)},
            {"nts", request.nts},
            {"answered", answer.offset.has_value()},
            {"offset", or_null(answer.offset)},
            {"seconds", answer.seconds},
            {"sentence", sentence}};
}

std::string sentence_of(const ProbeRequest& request, const ProbeAnswer& answer) {
    if (!answer.offset)
        return answer.failure ? english(*answer.failure) : request.host + " gave no answer.";
    return fmt::format("{} answers: this clock is {} {} it, as measured within {}.", harmless(request.host),
                       text_of(quantity::seconds(std::abs(*answer.offset))), *answer.offset < 0 ? "behind" : "ahead of",
                       text_of(quantity::seconds(answer.seconds)));
}

} // namespace

void print_heading(const Headline& headline, std::ostream& out) {
    out << verdict_line(headline) << ' ' << english(headline.error) << '\n';
    if (headline.caution)
        out << english(*headline.caution) << '\n';
}

int print_sources(const std::vector<JudgedSource>& sources, DocumentForm form, std::ostream& out) {
    if (form == DocumentForm::text) {
        std::vector<Row> rows{{"", "Source", "Rule", "Stratum", "Poll", "Reach", "Heard", "Offset"}};
        for (const JudgedSource& source : sources)
            rows.push_back(row_of(source));
        if (sources.empty())
            out << "chronyd has no sources.\n";
        else
            print_table(rows, out);
    } else {
        Json list = Json::array();
        for (const JudgedSource& source : sources)
            list.push_back(source_json(source));
        print_json(list, form, out);
    }
    out.flush();
    return 0;
}

int print_explanations(const std::vector<Explanation>& explanations, DocumentForm form, std::ostream& out) {
    Json list = Json::array();
    for (const Explanation& explanation : explanations)
        if (form == DocumentForm::text)
            print_text(explanation, out);
        else
            list.push_back(explanation_json(explanation));
    if (form != DocumentForm::text)
        print_json(list, form, out);
    out.flush();
    const bool used = std::ranges::any_of(explanations, [](const Explanation& one) {
        return one.rule == SelectionRule::best || one.rule == SelectionRule::combined;
    });
    return used ? 0 : answer_is_no;
}

int print_budget(const ClockTruth& truth, DocumentForm form, std::ostream& out) {
    const auto& budget = truth.budget;
    const std::vector<Part> parts = parts_of(budget);
    if (form == DocumentForm::text) {
        print_heading(headline_of(truth), out);
        if (budget)
            print_parts(parts, out);
    } else {
        Json document;
        for (const Part& part : parts)
            document[part.key] = or_null(part.value);
        print_json(document, form, out);
    }
    out.flush();
    return budget ? 0 : answer_is_no;
}

int print_probe(const ProbeRequest& request, const ProbeAnswer& answer, DocumentForm form, std::ostream& out) {
    const std::string sentence = sentence_of(request, answer);
    if (form == DocumentForm::text)
        out << one_line(sentence) << '\n';
    else
        print_json(probe_json(request, answer, sentence), form, out);
    out.flush();
    return answer.offset ? 0 : answer_is_no;
}

std::string unknown_source(const std::string& source, const std::vector<Explanation>& known) {
    constexpr std::size_t most = 50;
    std::string names;
    for (std::size_t index = 0; index < std::min(known.size(), most); ++index)
        names += (names.empty() ? "" : ", ") + shown_name(known[index].source, known[index].name);
    const std::string rest = known.size() > most ? fmt::format(" and {} more", known.size() - most) : "";
    const std::string what = "chronyd has no source \"" + harmless(source) + "\"";
    return known.empty() ? what + ", nor any other." : what + "; it has " + names + rest + ".";
}

} // namespace tickervantage
