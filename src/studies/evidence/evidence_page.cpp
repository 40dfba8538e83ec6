#include "studies/evidence/evidence_page.h"

#include "base/local_clock.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tickervantage {
namespace {

std::string escaped(std::string_view text) {
    std::string all;
    for (const char one : text) {
        const auto byte = static_cast<unsigned char>(one);
        if (one == '<')
            all += "&lt;";
        else if (one == '>')
            all += "&gt;";
        else if (one == '&')
            all += "&amp;";
        else
            all += byte < 0x20 || byte == 0x7F ? '.' : one;
    }
    return all;
}

std::string share_of_thousandths(std::int64_t thousandths) {
    return fmt::format("{}.{:03} %", thousandths / 1000, thousandths % 1000);
}

constexpr std::int64_t thousandths_of_percent = 100000;

struct Unit {
    const char* name;
    double seconds;
};
constexpr std::array<Unit, 4> units{{{"ns", 1e-9}, {"µs", 1e-6}, {"ms", 1e-3}, {"s", 1}}};

// As it was asked for: "1 ms".
std::string limit_text(double seconds) {
    constexpr double rounds_up = 999.9995; // of six digits
    for (const Unit& unit : units)
        if (seconds < rounds_up * unit.seconds)
            return fmt::format("{:.6g} {}", seconds / unit.seconds, unit.name);
    return fmt::format("{:.6g} s", seconds);
}

std::string length_of(std::int64_t seconds) {
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 3600;
    constexpr std::int64_t day = 86400;
    std::string text = seconds >= day ? fmt::format("{} d ", seconds / day) : "";
    text += seconds >= hour ? fmt::format("{} h ", seconds % day / hour) : "";
    text += seconds >= minute ? fmt::format("{} min ", seconds % hour / minute) : "";
    return text + fmt::format("{} s", seconds % minute);
}

std::string heading(const char* words) {
    return fmt::format("<h2>{}</h2>\n", words);
}

std::string row(std::string_view name, std::int64_t seconds, std::string_view share, const char* color) {
    return fmt::format("<tr><td bgcolor=\"{}\">&nbsp;&nbsp;</td><td>{}</td><td align=\"right\">{} s</td>"
                       "<td align=\"right\">{}</td><td align=\"right\">{}</td></tr>\n",
                       color, name, seconds, length_of(seconds), share);
}

// Its three colours differ in brightness as well.
std::string sums(const Evidence& evidence) {
    const std::int64_t period = evidence.question.to - evidence.question.from;
    const std::string limit = limit_text(evidence.question.limit);
    return "<table cellspacing=\"0\" cellpadding=\"4\" border=\"1\">\n" +
           row("certainly within " + limit, evidence.within, percent_down(evidence.within, period), "#b7d7f0") +
           row("possibly outside", evidence.outside, percent_up(evidence.outside, period), "#c0392b") +
           row("without evidence", evidence.without, percent_up(evidence.without, period), "#7f8c8d") +
           fmt::format("<tr><td></td><td><b>the whole period</b></td><td align=\"right\"><b>{} s</b></td>"
                       "<td align=\"right\"><b>{}</b></td><td></td></tr>\n</table>\n",
                       period, length_of(period));
}

std::string answer(const Evidence& evidence) {
    const std::string limit = limit_text(evidence.question.limit);
    if (evidence.holds())
        return fmt::format("Yes: at every second of this period the clock was right to within {}.", limit);
    if (evidence.outside == 0)
        return fmt::format(
            "Not shown for the whole period: the log never says that the error may have been larger than "
            "{}, but for {} it does not say how large it was.",
            limit, length_of(evidence.without));
    return fmt::format(
        "No: for {} the error may have been larger than {}{}.", length_of(evidence.outside), limit,
        evidence.without == 0 ? "" : fmt::format(", and for {} nothing is known of it", length_of(evidence.without)));
}

std::string first_page(const Evidence& evidence, const EvidenceOrigin& origin) {
    const EvidenceQuestion& question = evidence.question;
    std::string page =
        fmt::format("<h1>Was the clock right to within {}?</h1>\n<p>From {} to {} (UTC).</p>\n<p><b>{}</b></p>\n",
                    limit_text(question.limit), utc_stamp(question.from), utc_stamp(question.to), answer(evidence));
    page += sums(evidence);
    page += evidence.largest
                ? fmt::format("<p style=\"margin-top:12px\">The largest error that the clock can have had, where there "
                              "is evidence: {}.</p>\n",
                              rounded_up(*evidence.largest))
                : std::string("<p style=\"margin-top:12px\">No interval of the period has evidence.</p>\n");
    page += heading("What this says");
    page += "<p>The error of a clock is its difference from true time. The program that kept this clock, chronyd, "
            "computed an upper bound of that error for each interval between two of its corrections, while it was "
            "happening: the offset it had measured, what was left of its correction, half of the way to the reference "
            "and back, and all uncertainty gathered since. It wrote the bound into its tracking log, as the column "
            "\"Max. error\". This page adds up the seconds of those intervals; it measures nothing itself.</p>\n"
            "<p>The bound holds as long as the reference time was right, and the clock's rate stayed within what "
            "chronyd was configured to assume (maxclockerror). It is about the clock of the machine that wrote the "
            "log, while chronyd was allowed to correct it.</p>\n";
    page +=
        fmt::format("<p>An interval is without evidence when chronyd followed no reference, when the log has no bound "
                    "for it, when it is longer than {} s, or when the log's own time went back. Without evidence "
                    "counts neither for the clock nor against it. Numbers are rounded so that the clock looks worse, "
                    "never better.</p>\n",
                    question.gap);
    page += heading("How to make this page again");
    page += fmt::format("<p><tt>{}</tt></p>\n<p>Tickervantage {}, from the files in the annex; the sums can be checked "
                        "with any program that adds.</p>\n",
                        escaped(origin.command), escaped(origin.version));
    return page;
}

std::string table_of(const char* headings, const std::string& rows) {
    return fmt::format("<table cellspacing=\"0\" cellpadding=\"3\" border=\"1\">\n<tr>{}</tr>\n{}</table>\n", headings,
                       rows);
}

// A row for each interval, as many as somebody may want to read.
template <typename Interval, typename Words>
std::string table(const char* headings, const std::vector<Interval>& intervals, Words words) {
    constexpr std::size_t most = 1000;
    if (intervals.empty())
        return "<p>None.</p>\n";
    std::string rows;
    for (std::size_t i = 0; i < std::min(intervals.size(), most); ++i) {
        const Interval& one = intervals[i];
        rows += fmt::format("<tr><td>{}</td><td>{}</td><td align=\"right\">{} s</td><td>{}</td></tr>\n",
                            utc_stamp(one.from), utc_stamp(one.to), one.to - one.from, words(one));
    }
    std::string text = table_of(headings, rows);
    if (intervals.size() > most)
        text += fmt::format("<p>These are the first {} of {}; the same command with --json lists all.</p>\n", most,
                            intervals.size());
    return text;
}

std::string annex(const Evidence& evidence, const EvidenceOrigin& origin) {
    std::string text = "<h1 style=\"page-break-before:always\">Annex</h1>\n" + heading("Files");
    std::string rows;
    for (const EvidenceFile& file : origin.files)
        rows +=
            fmt::format("<tr><td>{}</td><td align=\"right\">{}</td><td><tt style=\"font-size:8pt\">{}</tt></td></tr>\n",
                        escaped(file.name), file.records, file.sha256);
    text += table_of("<th>File</th><th>Records</th><th>SHA-256</th>", rows);
    text += heading("Intervals outside");
    text += table("<th>From</th><th>To</th><th>Length</th><th>Largest error possible</th>", evidence.excursions,
                  [](const Excursion& one) { return rounded_up(one.largest); });
    text += heading("Intervals without evidence");
    text += table("<th>From</th><th>To</th><th>Length</th><th>Why</th>", evidence.gaps,
                  [](const EvidenceGap& one) { return std::string(words_of(one.reason)); });
    return text;
}

} // namespace

std::string rounded_up(double seconds) {
    if (seconds == 0)
        return "0 s";
    for (const Unit& unit : units) {
        const bool is_last = unit.name == units.back().name;
        const double number = seconds / unit.seconds;
        const int digits = number > 99.9 ? 0 : number > 9.99 ? 1 : 2;
        const double scale = std::pow(10, digits);
        // Three digits that say the number already are not rounded up for the last bit of a division.
        constexpr double nothing = 1e-9;
        const double rounded = std::ceil(number * scale * (1 - nothing)) / scale;
        if (is_last || rounded < 1000)
            return fmt::format("{:.{}f} {}", rounded, digits, unit.name);
    }
    return {};
}

std::string percent_down(std::int64_t part, std::int64_t whole) {
    return share_of_thousandths(whole == 0 ? 0 : part * thousandths_of_percent / whole);
}

std::string percent_up(std::int64_t part, std::int64_t whole) {
    return share_of_thousandths(whole == 0 ? 0 : (part * thousandths_of_percent + whole - 1) / whole);
}

std::string evidence_html(const Evidence& evidence, const EvidenceOrigin& origin) {
    return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>Evidence of the clock's "
           "error</title>\n"
           "<style>body { font-family: sans-serif; font-size: 10pt; max-width: 50em; } h1 { font-size: 16pt; } h2 { "
           "font-size: 12pt; } tt { font-family: monospace; overflow-wrap: anywhere; }</style></head>\n<body>\n" +
           first_page(evidence, origin) + annex(evidence, origin) + "</body></html>\n";
}

} // namespace tickervantage
